// SPDX-License-Identifier: MIT
#include <OpenSG/OSGBaseFunctions.h>
#include <OpenSG/OSGGroup.h>
#include <OpenSG/OSGLog.h>
#include <OpenSG/OSGNode.h>
#include <OpenSG/OSGRefPtr.h>
#include <OpenSG/OSGThreadManager.h>

#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>
#include <type_traits>

namespace {

using namespace osg;

static_assert(sizeof(BitVector) == 8 && TypeTraits<BitVector>::One == 1);
static_assert(std::is_same_v<OSG::Node, osg::Node>);

/// How things were when the program was loaded.
struct BeforeInit
{
    const SystemState state = GlobalSystemState;
    const bool hasList = Thread::getCurrentChangeList() != nullptr;
    const bool hasAppThread = ThreadManager::getAppThread() != nullptr;
    const bool creates = Node::create() != NullFC;
    const bool hasLocks = FieldContainerPtrBase::_pRefCountLock != nullptr;
    const bool knowsType = FieldContainerFactory::the()->findType("Node") == &Node::getClassType();
    bool countsReferences = false;
    bool destroys = false;

    BeforeInit()
    {
        GroupPtr group = Group::createEmpty();
        const UInt32 id = group.getFieldContainerId();
        addRefCP(group);
        endEditCP(group);
        countsReferences = group.getRefCount() == 1;
        subRefCP(group);
        destroys = FieldContainerFactory::the()->getContainer(id) == NullFC;
    }
};

const BeforeInit beforeInit;

TEST(OSGInit, BeforeItNothingIsRecordedAndNothingHasAPrototype)
{
    EXPECT_EQ(beforeInit.state, Startup);
    EXPECT_FALSE(beforeInit.hasList);
    EXPECT_FALSE(beforeInit.hasAppThread);
    EXPECT_FALSE(beforeInit.hasLocks);
    EXPECT_FALSE(beforeInit.creates);
    EXPECT_TRUE(beforeInit.knowsType);
    EXPECT_TRUE(beforeInit.countsReferences);
    EXPECT_TRUE(beforeInit.destroys);
}

TEST(OSGInit, RunsOnce)
{
    EXPECT_EQ(GlobalSystemState, Running);
    const FieldContainerPtr prototype = Node::getClassType().getPrototype();
    const UInt32 size = static_cast<UInt32>(FieldContainerFactory::the()->getFieldContainerStore()->size());

    ChangeList &changes = *Thread::getCurrentChangeList();
    changes.clearAll();
    changes.addCreated(1);

    EXPECT_TRUE(osgInit(0, nullptr));

    EXPECT_EQ(changes.sizeCreated(), 1u);
    EXPECT_EQ(Thread::getCurrentChangeList(), &changes);
    EXPECT_TRUE(Node::getClassType().getPrototype() == prototype);
    EXPECT_EQ(FieldContainerFactory::the()->getFieldContainerStore()->size(), size);
}

TEST(OSGInitDeathTest, AnotherMajorVersionEndsTheProcess)
{
    EXPECT_EXIT(osgInit(0, nullptr, OSG_MAJOR_VERSION + 1), testing::ExitedWithCode(1),
                "WARNING: the application was built for version 2");
}

/// Exits with 0 if \a ok.
[[noreturn]] void leave(bool ok)
{
    std::_Exit(ok ? 0 : 1);
}

TEST(OSGExitDeathTest, EndsRecordsAndPrototypes)
{
    EXPECT_EXIT(
        {
            const bool ended = osgExit() && osgExit();
            leave(ended && GlobalSystemState == Shutdown && Thread::getCurrentChangeList() == nullptr &&
                  Node::getClassType().getPrototype() == NullFC && Node::create() == NullFC &&
                  FieldContainerPtrBase::_pRefCountLock == nullptr);
        },
        testing::ExitedWithCode(0), "");
}

TEST(OSGExitDeathTest, HandlesOutliveIt)
{
    EXPECT_EXIT(
        {
            NodeRefPtr node(Node::create());
            node->addChild(Node::create());
            node->setCore(Group::create());
            const UInt32 id = node.get().getFieldContainerId();
            osgExit();
            const NodePtr child = node->getChild(0);
            addRefCP(child);
            node = NullFC;
            leave(FieldContainerFactory::the()->getContainer(id) == NullFC && child.getRefCount() == 1 &&
                  child->getParent() == NullFC);
        },
        testing::ExitedWithCode(0), "");
}

TEST(OSGExitDeathTest, IsFollowedByANewStart)
{
    EXPECT_EXIT(
        {
            const NodeRefPtr kept(Node::create());
            const UInt32 types = FieldContainerFactory::the()->getNumTypes();
            Thread::getCurrentChangeList()->addCreated(1);
            osgExit();
            osgInit(0, nullptr);
            ChangeList &changes = *Thread::getCurrentChangeList();
            const bool isEmpty = changes.empty();
            kept->addChild(Node::create());
            leave(GlobalSystemState == Running && isEmpty && changes.sizeCreated() == 1 &&
                  Node::getClassType().getPrototype().getRefCount() == 1 && kept->getNChildren() == 1 &&
                  NodeCore::getClassType().isAbstract() && FieldContainerPtrBase::_pRefCountLock != nullptr &&
                  FieldContainerFactory::the()->getNumTypes() == types &&
                  Group::getClassType().getNumFieldDescs() == Group::NextFieldId - 1);
        },
        testing::ExitedWithCode(0), "");
}

/// Made before osgInit() and so destroyed after what it registers to run at exit.
struct LastWords
{
    bool wanted = false;

    ~LastWords()
    {
        if (wanted) {
            std::fputs(GlobalSystemState == Shutdown ? "ended" : "still running", stderr);
        }
    }
} lastWords;

TEST(OSGExitDeathTest, RunsAtTheEndOfTheProcess)
{
    EXPECT_EXIT(
        {
            lastWords.wanted = true;
            std::exit(0);
        },
        testing::ExitedWithCode(0), "^ended$");
}

} // namespace
