// SPDX-License-Identifier: MIT
#include "support/ksRecords.h"

#include <OpenSG/OSGGroup.h>
#include <OpenSG/OSGNode.h>
#include <OpenSG/OSGRefPtr.h>

#include <gtest/gtest.h>

#include <type_traits>
#include <utility>

namespace {

using namespace osg;

bool isGone(UInt32 id)
{
    return FieldContainerFactory::the()->getContainer(id) == NullFC;
}

TEST(OSGRefPtr, HoldsAReferenceWhileItLives)
{
    UInt32 id;
    {
        const NodeRefPtr node(Node::create());
        id = node.get().getFieldContainerId();
        EXPECT_EQ(node.get().getRefCount(), 1);
        {
            const NodeRefPtr second(node);
            EXPECT_EQ(node.get().getRefCount(), 2);
            EXPECT_TRUE(second == node);
        }
        EXPECT_EQ(node.get().getRefCount(), 1);
    }
    EXPECT_TRUE(isGone(id));
}

TEST(OSGRefPtr, AssignmentExchangesTheReference)
{
    NodeRefPtr a(Node::create());
    NodeRefPtr b(Node::create());
    const UInt32 idOfA = a.get().getFieldContainerId();

    a = b;

    EXPECT_TRUE(isGone(idOfA));
    EXPECT_EQ(b.get().getRefCount(), 2);
    const NodeRefPtr &self = a;
    a = self;
    EXPECT_EQ(b.get().getRefCount(), 2);
    a = NullFC;
    EXPECT_TRUE(!a);
    EXPECT_TRUE(a == NullFC);
    EXPECT_EQ(b.get().getRefCount(), 1);
}

TEST(OSGRefPtr, AssignmentKeepsWhatTheOldOneHeld)
{
    NodeRefPtr node(Node::create());
    node->addChild(Node::create());

    node = node->getChild(0);

    EXPECT_EQ(node.get().getRefCount(), 1);
    EXPECT_TRUE(node->getParent() == NullFC);
}

TEST(OSGRefPtr, MoveTakesTheReferenceAlong)
{
    NodeRefPtr a(Node::create());
    const NodePtr handle = a;

    const NodeRefPtr b(std::move(a));

    EXPECT_EQ(handle.getRefCount(), 1);
    EXPECT_TRUE(b == handle);
    EXPECT_TRUE(a == NullFC); // NOLINT(bugprone-use-after-move)
}

TEST(OSGRefPtr, StandsInForTheHandle)
{
    const NodeRefPtr node(Node::create());
    const GroupRefPtr group(Group::create());

    node->setCore(group);

    EXPECT_TRUE(node->getCore() == group.get());
    EXPECT_EQ(&*node, node.get().getCPtr());
    EXPECT_TRUE(node != group.get());
}

TEST(OSGRefPtr, AssignmentOfTheSameRecordsNothing)
{
    NodeRefPtr node(Node::create());
    const NodeRefPtr second(node);
    ksRecorder recorder;

    node = second;
    node = second.get();

    EXPECT_EQ(recorder.take(), ksRecords());
    node = NullFC;
    EXPECT_EQ(recorder.take(), ksRecords().subRef(recorder.idOf(second.get())));
    node = second.get();
    EXPECT_EQ(recorder.take(), ksRecords().addRef(recorder.idOf(second.get())));
}

TEST(OSGRefPtr, ConvertsToTheHandleButIsMadeOfOneExplicitly)
{
    static_assert(std::is_convertible_v<NodeRefPtr, NodePtr> && std::is_constructible_v<NodeRefPtr, NodePtr>);
    static_assert(!std::is_convertible_v<NodePtr, NodeRefPtr>);
    static_assert(std::is_convertible_v<NullFieldContainerPtr, NodeRefPtr>);
    const NodeRefPtr node(Node::create());
    EXPECT_EQ(node.getCPtr(), node.get().getCPtr());
}

} // namespace
