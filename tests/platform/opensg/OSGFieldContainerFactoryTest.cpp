// SPDX-License-Identifier: MIT
#include "support/ksRecords.h"

#include <OpenSG/OSGGroup.h>
#include <OpenSG/OSGLog.h>
#include <OpenSG/OSGNode.h>
#include <OpenSG/OSGRefPtr.h>
#include <OpenSG/OSGSimpleAttachments.h>

#include <gtest/gtest.h>

#include <iterator>
#include <set>

namespace {

using namespace osg;

class OSGFieldContainerFactoryTest : public testing::Test
{
protected:
    FieldContainerFactory &factory = *FieldContainerFactory::the();
    const FieldContainerFactory::FieldContainerStore &store = *factory.getFieldContainerStore();
};

TEST_F(OSGFieldContainerFactoryTest, FindsContainersById)
{
    const NodeRefPtr node(Node::create());
    const UInt32 id = node.get().getFieldContainerId();

    EXPECT_TRUE(factory.getContainer(id) == node.get());
    EXPECT_EQ(store.size(), id + 1) << "the size is the next id";
    EXPECT_TRUE(store[id] == node.get());
    EXPECT_EQ(store[id].getContainerSize(), sizeof(Node));
    EXPECT_TRUE(store[0] == NullFC);
    EXPECT_TRUE(factory.getContainer(0) == NullFC);
    EXPECT_TRUE(factory.getContainer(id + 1) == NullFC);
    EXPECT_TRUE(factory.getContainer(0xFFFFFFFFu) == NullFC);
}

TEST_F(OSGFieldContainerFactoryTest, NeverUsesIdsAgain)
{
    NodePtr node = Node::create();
    const UInt32 id = node.getFieldContainerId();
    subRefCP(node);
    EXPECT_TRUE(store[id] == NullFC);

    const NodeRefPtr next(Node::create());

    EXPECT_EQ(next.get().getFieldContainerId(), id + 1);
    EXPECT_TRUE(store[id] == NullFC);
}

TEST_F(OSGFieldContainerFactoryTest, PrototypesAreMadeTogether)
{
    std::set<UInt32> ids;
    for (auto type = factory.beginTypes(); type != factory.endTypes(); ++type) {
        const FieldContainerPtr prototype = type->second->getPrototype();
        if (prototype != NullFC) {
            EXPECT_TRUE(factory.getContainer(prototype.getFieldContainerId()) == prototype);
            ids.insert(prototype.getFieldContainerId());
        }
    }
    EXPECT_EQ(*ids.rbegin() - *ids.begin() + 1, ids.size()) << "without gaps";
}

TEST_F(OSGFieldContainerFactoryTest, CreatesByTypeName)
{
    const FieldContainerRefPtr container(factory.createFieldContainer("Group"));
    const NodeRefPtr node(factory.createNode("Node"));
    const NodeCoreRefPtr core(factory.createNodeCore("Transform"));
    const AttachmentRefPtr attachment(factory.createAttachment("Name"));

    EXPECT_STREQ(container->getTypeName(), "Group");
    EXPECT_STREQ(node->getTypeName(), "Node");
    EXPECT_STREQ(core->getTypeName(), "Transform");
    EXPECT_STREQ(attachment->getTypeName(), "Name");
}

TEST_F(OSGFieldContainerFactoryTest, CreatesNothingOfUnknownAbstractAndOtherKinds)
{
    ksRecorder recorder;

    EXPECT_TRUE(factory.createFieldContainer("NoSuchType") == NullFC);
    EXPECT_TRUE(factory.createFieldContainer(nullptr) == NullFC);
    EXPECT_TRUE(factory.createFieldContainer("NodeCore") == NullFC);
    EXPECT_TRUE(factory.createNode("Group") == NullFC);
    EXPECT_TRUE(factory.createNode("NoSuchType") == NullFC);
    EXPECT_TRUE(factory.createNodeCore("Node") == NullFC);
    EXPECT_TRUE(factory.createNodeCore("NoSuchType") == NullFC);
    EXPECT_TRUE(factory.createAttachment("Node") == NullFC);
    EXPECT_TRUE(factory.createAttachment("NoSuchType") == NullFC);

    EXPECT_EQ(recorder.take(), ksRecords());
}

TEST_F(OSGFieldContainerFactoryTest, FindsTypes)
{
    EXPECT_EQ(factory.findType("Node"), &Node::getClassType());
    EXPECT_EQ(factory.findType(Node::getClassTypeId()), &Node::getClassType());
    EXPECT_EQ(factory.findType("NoSuchType"), nullptr);
    EXPECT_EQ(factory.findType(static_cast<const Char8 *>(nullptr)), nullptr);
    EXPECT_EQ(factory.findType(0u), nullptr);
    EXPECT_EQ(std::distance(factory.beginTypes(), factory.endTypes()), factory.getNumTypes());
}

TEST_F(OSGFieldContainerFactoryTest, MapsIdsWhileThereIsAMapper)
{
    struct Shift : FieldContainerMapper
    {
        UInt32 map(UInt32 id) override { return id + 1; }
    } shift;
    const NodeRefPtr first(Node::create());
    const NodeRefPtr second(Node::create());
    const UInt32 id = first.get().getFieldContainerId();

    EXPECT_TRUE(factory.getMappedContainer(id) == first.get());
    factory.setMapper(&shift);
    EXPECT_TRUE(factory.getMappedContainer(id) == second.get());
    EXPECT_TRUE(factory.getContainer(id) == first.get());
    factory.setMapper(nullptr);
    EXPECT_TRUE(factory.getMappedContainer(id) == first.get());
}

TEST_F(OSGFieldContainerFactoryTest, UnregistersOnlyWhatIsRegistered)
{
    EXPECT_TRUE(factory.unregisterFieldContainer(NullFC));
    const NodeRefPtr node(Node::create());
    EXPECT_FALSE(factory.unregisterFieldContainer(node));
    EXPECT_TRUE(factory.unregisterFieldContainer(node));
}

TEST_F(OSGFieldContainerFactoryTest, KnowsItsGroups)
{
    const FieldContainerFactory &factory = *FieldContainerFactory::the();
    const UInt16 last = static_cast<UInt16>(factory.getNumGroups());
    EXPECT_NE(factory.findGroupName(last), nullptr);
    EXPECT_EQ(factory.findGroupName(last + 1), nullptr);
}

TEST_F(OSGFieldContainerFactoryTest, TellsWhetherAllTypesAreComplete)
{
    EXPECT_TRUE(FieldContainerFactory::the()->initializePendingTypes());
    const LogSink previous = setLogSink([](const std::string &) {});
    {
        const FieldContainerType orphan("Orphan", "NoSuchType", nullptr, nullptr, nullptr, nullptr, 0);
        EXPECT_FALSE(FieldContainerFactory::the()->initializePendingTypes());
    }
    setLogSink(previous);
}

} // namespace
