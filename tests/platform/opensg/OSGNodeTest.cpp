// SPDX-License-Identifier: MIT
#include <OpenSG/OSGGroup.h>
#include <OpenSG/OSGLog.h>
#include <OpenSG/OSGNode.h>
#include <OpenSG/OSGRefPtr.h>
#include <OpenSG/OSGSimpleAttachments.h>
#include <OpenSG/OSGTransform.h>

#include <gtest/gtest.h>

#include <string>
#include <vector>

OSG_BEGIN_NAMESPACE

#define OSG_CUBE_FIELDS(SF, MF)

OSG_CONTAINER_POINTER(Cube, NodeCorePtr)
OSG_CONTAINER_BASE(Cube, NodeCore, OSG_CUBE_FIELDS)

/// Takes the space from -1 to 1.
class Cube : public CubeBase
{
    OSG_CONTAINER(Cube)

public:
    void adjustVolume(DynamicVolume &volume) override
    {
        volume.extendBy(Pnt3f(-1, -1, -1));
        volume.extendBy(Pnt3f(1, 1, 1));
    }
};

OSG_DEFINE_CONTAINER(Cube, NodeCore, "", OSG_CUBE_FIELDS)

OSG_END_NAMESPACE

namespace {

using namespace osg;

class OSGNodeTest : public testing::Test
{
protected:
    OSGNodeTest()
    {
        for (const NodeRefPtr *child : {&a, &b, &c}) {
            node->addChild(*child);
        }
    }

    std::vector<NodePtr> childrenOf(const NodeRefPtr &parent) const
    {
        return parent->getChildren().getValues();
    }

    const NodeRefPtr node{Node::create()};
    const NodeRefPtr other{Node::create()};
    const NodeRefPtr a{Node::create()};
    const NodeRefPtr b{Node::create()};
    const NodeRefPtr c{Node::create()};
    const NodeRefPtr d{Node::create()};
};

TEST_F(OSGNodeTest, NewNodeIsBare)
{
    EXPECT_TRUE(d->getCore() == NullFC);
    EXPECT_TRUE(d->getParent() == NullFC);
    EXPECT_EQ(d->getNChildren(), 0u);
    EXPECT_EQ(d->getTravMask(), 0xFFFFFFFFu);
    EXPECT_EQ(d->getExternalFlags(), 0u);
    EXPECT_EQ(d->getInternalFlags(), 0u);
    EXPECT_FALSE(d->getVolume().isValid());
    EXPECT_TRUE(NodeRefPtr(Node::createEmpty())->getVolume().isValid());
}

TEST_F(OSGNodeTest, ChildrenComeInOrder)
{
    EXPECT_EQ(childrenOf(node), (std::vector<NodePtr>{a, b, c}));
    EXPECT_EQ(node->getNChildren(), 3u);
    EXPECT_TRUE(node->getChild(1) == b.get());
    EXPECT_EQ(node->findChild(c), 2);
    EXPECT_EQ(node->findChild(d), -1);
    EXPECT_EQ(node->findChild(NullFC), -1);
    EXPECT_TRUE(a->getParent() == node.get());
    EXPECT_EQ(a.get().getRefCount(), 2);
}

TEST_F(OSGNodeTest, InsertsBeforeAPosition)
{
    node->insertChild(1, d);
    EXPECT_EQ(childrenOf(node), (std::vector<NodePtr>{a, d, b, c}));
    node->subChild(d);
    node->insertChild(99, d);
    EXPECT_EQ(childrenOf(node), (std::vector<NodePtr>{a, b, c, d}));
    EXPECT_EQ(d.get().getRefCount(), 2);
}

TEST_F(OSGNodeTest, ChildMovesFromItsParent)
{
    other->addChild(a);
    EXPECT_EQ(childrenOf(node), (std::vector<NodePtr>{b, c}));
    EXPECT_EQ(childrenOf(other), (std::vector<NodePtr>{a}));
    EXPECT_TRUE(a->getParent() == other.get());
    EXPECT_EQ(a.get().getRefCount(), 2);
}

TEST_F(OSGNodeTest, ChildMovesWithinItsParent)
{
    node->addChild(a);
    EXPECT_EQ(childrenOf(node), (std::vector<NodePtr>{b, c, a}));
    node->insertChild(0, c);
    EXPECT_EQ(childrenOf(node), (std::vector<NodePtr>{c, b, a}));
    EXPECT_EQ(a.get().getRefCount(), 2);
    EXPECT_TRUE(a->getParent() == node.get());
}

TEST_F(OSGNodeTest, ChildMovesThatOnlyItsParentHolds)
{
    other->addChild(Node::create());
    other->addChild(d);
    const NodePtr child = other->getChild(0);
    node->addChild(other->getChildren()[0]);
    EXPECT_EQ(child.getRefCount(), 1);
    EXPECT_TRUE(child->getParent() == node.get());
    EXPECT_EQ(childrenOf(node), (std::vector<NodePtr>{a, b, c, child}));
}

TEST_F(OSGNodeTest, ReplacesChildren)
{
    EXPECT_TRUE(node->replaceChild(1, d));
    EXPECT_EQ(childrenOf(node), (std::vector<NodePtr>{a, d, c}));
    EXPECT_TRUE(b->getParent() == NullFC);
    EXPECT_EQ(b.get().getRefCount(), 1);
    EXPECT_TRUE(d->getParent() == node.get());
    EXPECT_EQ(d.get().getRefCount(), 2);

    EXPECT_TRUE(node->replaceChildBy(a, b));
    EXPECT_EQ(childrenOf(node), (std::vector<NodePtr>{b, d, c}));
    EXPECT_TRUE(node->replaceChildBy(c, b)) << "a child of the same node";
    EXPECT_EQ(childrenOf(node), (std::vector<NodePtr>{d, b}));
    EXPECT_EQ(b.get().getRefCount(), 2);
    EXPECT_TRUE(b->getParent() == node.get());
    EXPECT_TRUE(node->replaceChildBy(d, d));
    EXPECT_EQ(childrenOf(node), (std::vector<NodePtr>{d, b}));
}

TEST_F(OSGNodeTest, ReplacesAChildByOneBeforeIt)
{
    EXPECT_TRUE(node->replaceChildBy(node->getChildren()[1], node->getChildren()[0]));
    EXPECT_EQ(childrenOf(node), (std::vector<NodePtr>{a, c}));
    EXPECT_TRUE(b->getParent() == NullFC);
    EXPECT_TRUE(a->getParent() == node.get());
}

TEST_F(OSGNodeTest, ReplacesNothingThatIsNotThere)
{
    EXPECT_FALSE(node->replaceChild(3, d));
    EXPECT_FALSE(node->replaceChild(100000000, d));
    EXPECT_FALSE(node->replaceChild(0, NullFC));
    EXPECT_FALSE(node->replaceChildBy(d, a));
    EXPECT_FALSE(node->replaceChildBy(NullFC, a));
    EXPECT_EQ(childrenOf(node), (std::vector<NodePtr>{a, b, c}));
    EXPECT_EQ(d.get().getRefCount(), 1);
}

TEST_F(OSGNodeTest, TakesChildrenAway)
{
    node->subChild(b);
    EXPECT_EQ(childrenOf(node), (std::vector<NodePtr>{a, c}));
    EXPECT_TRUE(b->getParent() == NullFC);
    EXPECT_EQ(b.get().getRefCount(), 1);
    node->subChild(b);
    node->subChild(2u);
    EXPECT_EQ(childrenOf(node), (std::vector<NodePtr>{a, c}));
    EXPECT_EQ(b.get().getRefCount(), 1);
    node->subChild(0u);
    EXPECT_EQ(childrenOf(node), (std::vector<NodePtr>{c}));
}

TEST_F(OSGNodeTest, CoreKnowsItsNodes)
{
    const GroupRefPtr group(Group::create());
    a->setCore(group);
    b->setCore(group);
    EXPECT_EQ(group->getParents().getValues(), (std::vector<NodePtr>{a, b}));
    EXPECT_EQ(group->getMFParents()->size(), 2u);
    EXPECT_EQ(group->getParents(1).getParentFieldPos(), 6);
    EXPECT_EQ(group->getParents(1).getParentFieldPos(), Node::CoreFieldId);
    EXPECT_EQ(group.get().getRefCount(), 3);
    a->setCore(NullFC);
    EXPECT_EQ(group->getParents().getValues(), (std::vector<NodePtr>{b}));
    EXPECT_EQ(group.get().getRefCount(), 2);
    b->setCore(group);
    EXPECT_EQ(group->getParents().getValues(), (std::vector<NodePtr>{b}));
    EXPECT_EQ(group.get().getRefCount(), 2);
}

TEST_F(OSGNodeTest, CoreHeldByItsNodeAloneGoesWhenReplaced)
{
    node->setCore(Group::create());
    const UInt32 id = node->getCore().getFieldContainerId();
    node->setCore(Transform::create());
    EXPECT_TRUE(FieldContainerFactory::the()->getContainer(id) == NullFC);
    EXPECT_TRUE(TransformPtr::dcast(node->getCore()) != NullFC);
}

TEST_F(OSGNodeTest, VolumeHoldsChildrenAsTheirCoresHaveThem)
{
    const TransformPtr transform = Transform::create();
    transform->getMatrix().setTranslate(10, 0, 0);
    transform->getMatrix().setScale(2, 2, 2);
    a->setCore(Cube::create());
    b->setCore(transform);
    b->addChild(d);
    d->setCore(Cube::create());

    node->updateVolume();

    EXPECT_TRUE(d->getVolume().isValid());
    EXPECT_EQ(b->getVolume().getMin(), Pnt3f(8, -2, -2));
    EXPECT_EQ(node->getVolume().getMin(), Pnt3f(-1, -2, -2));
    EXPECT_EQ(node->getVolume().getMax(), Pnt3f(12, 2, 2));
    EXPECT_TRUE(c->getVolume().isEmpty());
}

TEST_F(OSGNodeTest, VolumeLeavesOutWhatIsNotTraversed)
{
    a->setCore(Cube::create());
    a->setTravMask(0);
    node->updateVolume();
    EXPECT_TRUE(node->getVolume().isEmpty());
    EXPECT_FALSE(a->getVolume().isValid());
    a->updateVolume();
    EXPECT_FALSE(a->getVolume().isValid());
}

TEST_F(OSGNodeTest, VolumeShrinksAgain)
{
    a->setCore(Cube::create());
    b->setCore(Cube::create());
    node->updateVolume();
    a->setTravMask(0);
    endEditCP(a, Node::TravMaskFieldMask);
    b->setCore(NullFC);
    EXPECT_TRUE(a->getVolume().isValid());

    node->updateVolume();

    EXPECT_TRUE(node->getVolume().isValid());
    EXPECT_TRUE(node->getVolume().isEmpty());
}

TEST_F(OSGNodeTest, NewCoreMakesVolumesInvalid)
{
    other->addChild(node);
    other->updateVolume();
    {
        const CPEditor edit(a, Node::CoreFieldMask);
        a->setCore(Cube::create());
    }
    EXPECT_FALSE(a->getVolume().isValid());
    EXPECT_FALSE(node->getVolume().isValid());
    EXPECT_FALSE(other->getVolume().isValid());
    EXPECT_TRUE(b->getVolume().isValid());
    other->updateVolume();
    EXPECT_EQ(other->getVolume().getMax(), Pnt3f(1, 1, 1));
}

TEST_F(OSGNodeTest, StaticVolumeStays)
{
    node->updateVolume();
    node->getVolume().setStatic();
    a->invalidateVolume();
    EXPECT_FALSE(a->getVolume().isValid());
    EXPECT_TRUE(node->getVolume().isValid());
    endEditCP(b, Node::TravMaskFieldMask);
    EXPECT_TRUE(node->getVolume().isValid());
}

TEST_F(OSGNodeTest, TravMaskMakesTheParentsVolumesInvalid)
{
    other->addChild(node);
    other->updateVolume();
    endEditCP(a, Node::TravMaskFieldMask);
    EXPECT_TRUE(a->getVolume().isValid());
    EXPECT_FALSE(node->getVolume().isValid());
    EXPECT_FALSE(other->getVolume().isValid());
}

TEST_F(OSGNodeTest, MatrixMakesVolumesOfAllItsNodesInvalid)
{
    const TransformPtr transform = Transform::create();
    a->setCore(transform);
    b->setCore(transform);
    node->updateVolume();
    endEditCP(transform, Transform::MatrixFieldMask);
    EXPECT_FALSE(a->getVolume().isValid());
    EXPECT_FALSE(b->getVolume().isValid());
    EXPECT_FALSE(node->getVolume().isValid());
    EXPECT_TRUE(c->getVolume().isValid());
}

TEST_F(OSGNodeTest, OtherFieldsLeaveVolumesAlone)
{
    node->updateVolume();
    endEditCP(a, Node::ExternalFlagsFieldMask | Node::ParentFieldMask | Node::AttachmentsFieldMask);
    EXPECT_TRUE(a->getVolume().isValid());
    EXPECT_TRUE(node->getVolume().isValid());
}

TEST_F(OSGNodeTest, IsActiveWithAnyBitOfTheTravMask)
{
    d->setTravMask(4);
    EXPECT_TRUE(d->getActive());
    d->setActive(false);
    EXPECT_EQ(d->getTravMask(), 0u);
    EXPECT_FALSE(d->getActive());
    d->setActive(true);
    EXPECT_EQ(d->getTravMask(), 0xFFFFFFFFu);
}

TEST_F(OSGNodeTest, GivesItsVolumeUpToDateOrAsItIs)
{
    a->setCore(Cube::create());
    EXPECT_FALSE(node->getVolume(false).isValid());
    EXPECT_EQ(node->getVolume(true).getMax(), Pnt3f(1, 1, 1));
}

TEST_F(OSGNodeTest, LeadsToTheWorldByTheMatricesAboveIt)
{
    TransformPtr outer;
    const NodeRefPtr top(makeCoredNode<Transform>(&outer));
    outer->getMatrix().setTranslate(1, 2, 3);
    const TransformPtr inner = Transform::create();
    inner->getMatrix().setScale(2);
    top->addChild(node);
    a->setCore(inner);

    Matrix matrix;
    a->getToWorld(matrix);
    EXPECT_EQ(matrix, outer->getMatrix() * inner->getMatrix());
    EXPECT_EQ(node->getToWorld(), outer->getMatrix());
    EXPECT_EQ(other->getToWorld(), Matrix());
}

TEST_F(OSGNodeTest, DumpsCoreAndChildrenBelowIt)
{
    const NodeRefPtr top(makeCoredNode<Group>());
    top->addChild(d);
    d->setExternalFlags(3);
    std::vector<std::string> lines;
    const LogSink previous = setLogSink([&](const std::string &line) { lines.push_back(line); });
    top->dump(2, Node::ExternalFlagsFieldMask);
    setLogSink(previous);
    const auto idOf = [](const FieldContainerPtr &fc) { return std::to_string(fc.getFieldContainerId()); };
    EXPECT_EQ(lines, (std::vector<std::string>{"  Node " + idOf(top.get()), "    externalFlags: 0",
                                               "      Group " + idOf(top->getCore()),
                                               "      Node " + idOf(d.get()), "        externalFlags: 3"}));
}

TEST_F(OSGNodeTest, ClonesTrees)
{
    setName(b, "b");
    b->setCore(Transform::create());
    b->addChild(d);
    const AttachmentPtr name = b->findAttachment(Name::getClassType());

    const NodeRefPtr clone(cloneTree(node));
    ASSERT_EQ(clone->getNChildren(), 3u);
    EXPECT_TRUE(clone->getChild(1) != b.get());
    EXPECT_TRUE(clone->getChild(1)->getCore() == b->getCore());
    EXPECT_TRUE(clone->getChild(1)->findAttachment(Name::getClassType()) == name);
    EXPECT_EQ(clone->getChild(1)->getNChildren(), 1u);
    EXPECT_EQ(node->getNChildren(), 3u);

    const NodeRefPtr deep(NodePtr::dcast(deepClone(node.get())));
    ASSERT_EQ(deep->getNChildren(), 3u);
    EXPECT_TRUE(deep->getChild(1)->getCore() != b->getCore());
    EXPECT_TRUE(TransformPtr::dcast(deep->getChild(1)->getCore()) != NullFC);
    EXPECT_TRUE(deep->getChild(1)->findAttachment(Name::getClassType()) != name);
    EXPECT_STREQ(getName(deep->getChild(1)), "b");
    EXPECT_EQ(deep->getChild(1)->getNChildren(), 1u);

    EXPECT_TRUE(cloneTree(NullFC) == NullFC);
    EXPECT_TRUE(deepCloneTree(NullFC) == NullFC);
    EXPECT_TRUE(deepClone(NullFC) == NullFC);
    const FieldContainerRefPtr core(deepClone(b->getCore()));
    EXPECT_TRUE(TransformPtr::dcast(core.get()) != NullFC);
}

TEST_F(OSGNodeTest, CoredNodeStandsForItsCore)
{
    GroupNodePtr none;
    EXPECT_TRUE(!none);
    TransformNodePtr cored = TransformNodePtr::create();
    cored->getMatrix().setTranslate(1, 2, 3);
    EXPECT_EQ(cored.node()->getToWorld()[3][0], 1);
    EXPECT_TRUE(cored.node()->getCore() == cored.core());
    EXPECT_EQ(cored.node().getRefCount(), 1);
    node->addChild(cored);
    EXPECT_EQ(cored.node().getRefCount(), 2);

    const TransformPtr next = Transform::create();
    cored = next;
    EXPECT_TRUE(cored.node()->getCore() == next);
    cored.node()->setCore(Transform::create());
    cored.coreChanged();
    EXPECT_TRUE(cored.node()->getCore() == cored.core());
    cored = NullFC;
    EXPECT_TRUE(cored == NullFC);

    b->setCore(Cube::create());
    EXPECT_TRUE(!GroupNodePtr(b)) << "a core of another class";
}

} // namespace
