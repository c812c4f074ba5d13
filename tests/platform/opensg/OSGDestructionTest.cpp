// SPDX-License-Identifier: MIT
#include "support/ksRecords.h"

#include <OpenSG/OSGContainerMacros.h>
#include <OpenSG/OSGGroup.h>
#include <OpenSG/OSGNode.h>
#include <OpenSG/OSGSimpleAttachments.h>
#include <OpenSG/OSGSimpleTexturedMaterial.h>

#include <gtest/gtest.h>

#include <string>
#include <vector>

OSG_BEGIN_NAMESPACE

#define OSG_LIFE_FIELDS(SF, MF) SF(SFNodePtr, held, Held, NullFC)

OSG_CONTAINER_POINTER(Life, AttachmentPtr)
OSG_CONTAINER_BASE(Life, Attachment, OSG_LIFE_FIELDS)

/// Notes what happens to its copies, and holds a reference from its copy constructor on.
class Life : public LifeBase
{
    OSG_CONTAINER_MEMBERS(Life)

public:
    static std::vector<std::string> &events()
    {
        static std::vector<std::string> list;
        return list;
    }

    void onCreate(const FieldContainer *source) override { note(source != nullptr ? "created" : "made"); }
    void onCreateAspect(const FieldContainer *created, const FieldContainer *source) override
    {
        note(created != this && source != nullptr ? "aspect created" : "aspect made");
    }
    void onDestroy() override { note("destroy"); }

protected:
    Life() = default;
    Life(const Life &source)
        : Inherited(source)
    {
        note("copy");
        addRefCP(getHeld());
    }
    ~Life() override
    {
        note("end");
        subRefCP(getHeld());
    }

private:
    void note(const std::string &event)
    {
        const bool own = LifePtr(*this).getCPtr() == this;
        events().push_back(event + ' ' + std::to_string(Thread::getAspect()) + (own ? "" : " astray"));
    }
};

OSG_DEFINE_CONTAINER(Life, Attachment, "", OSG_LIFE_FIELDS)

OSG_END_NAMESPACE

namespace {

using namespace osg;

constexpr BitVector Parent = Node::ParentFieldMask;
constexpr BitVector CoreParents = NodeCore::ParentsFieldMask;
constexpr BitVector AttachmentParents = Attachment::ParentsFieldMask;

bool isGone(UInt32 id)
{
    return FieldContainerFactory::the()->getContainer(id) == NullFC;
}

class OSGDestructionTest : public testing::Test
{
protected:
    ksRecorder recorder;
    ChangeList &changes = *Thread::getCurrentChangeList();
};

TEST_F(OSGDestructionTest, EveryCopyIsMadeAndEndedInItsAspect)
{
    const LifeRefPtr prototype(Life::createEmpty());
    Life::events().clear();

    LifePtr life = LifePtr::dcast(prototype->shallowCopy());
    EXPECT_EQ(Life::events(), (std::vector<std::string>{"copy 0", "copy 1", "created 0", "aspect made 0",
                                                        "aspect created 1"}));
    Life::events().clear();
    subRefCP(life);
    EXPECT_EQ(Life::events(), (std::vector<std::string>{"destroy 0", "end 0", "end 1"}));

    Life::events().clear();
    LifePtr made = Life::createEmpty();
    EXPECT_EQ(Life::events(), (std::vector<std::string>{"made 0", "aspect made 0", "aspect made 1"}));
    subRefCP(made);
    EXPECT_EQ(Thread::getAspect(), 0u);
}

TEST_F(OSGDestructionTest, CopiesReferencesBalanceOverAspects)
{
    // Every copy takes a reference for its own aspect, so applying the list must not take another one.
    const NodeRefPtr node(Node::create());
    const LifeRefPtr first(Life::createEmpty());
    first->setHeld(node);
    addRefCP(node.get());
    endEditCP(first, Life::HeldFieldMask);
    changes.applyTo(1);
    const Int32 before = node.get().getRefCount();

    LifePtr second = LifePtr::dcast(first->shallowCopy());
    EXPECT_EQ(node.get().getRefCount(), before + 2);
    changes.applyTo(1);
    EXPECT_EQ(node.get().getRefCount(), before + 2);

    subRefCP(second);
    EXPECT_EQ(node.get().getRefCount(), before);
    changes.applyTo(1);
    EXPECT_EQ(node.get().getRefCount(), before);
}

TEST_F(OSGDestructionTest, NodeReleasesCoreThenChildrenThenAttachments)
{
    NodePtr node = Node::create();      // 1
    NodePtr child = Node::create();     // 2
    NodeCorePtr core = Group::create(); // 3
    setName(node, "n");                 // 4
    node->addChild(child);
    node->setCore(core);
    addRefCP(node);
    recorder.take();

    subRefCP(node);

    EXPECT_EQ(recorder.take(), ksRecords()
                                   .destroy(1)
                                   .change(3, CoreParents)
                                   .destroy(3)
                                   .change(2, Parent)
                                   .destroy(2)
                                   .change(4, AttachmentParents)
                                   .destroy(4));
    EXPECT_TRUE(node == NullFC);
}

TEST_F(OSGDestructionTest, WhatIsHeldElsewhereSurvivesWithoutParents)
{
    NodePtr node = Node::create();
    const NodeRefPtr child(Node::create());
    const GroupRefPtr core(Group::create());
    const NameRefPtr name(Name::create());
    node->addChild(child);
    node->setCore(core);
    node->addAttachment(name.get());
    addRefCP(node);
    recorder.take();

    subRefCP(node);

    EXPECT_EQ(recorder.take(), ksRecords()
                                   .destroy(1)
                                   .change(3, CoreParents)
                                   .subRef(3)
                                   .change(2, Parent)
                                   .subRef(2)
                                   .change(4, AttachmentParents)
                                   .subRef(4));
    EXPECT_EQ(child.get().getRefCount(), 1);
    EXPECT_TRUE(child->getParent() == NullFC);
    EXPECT_EQ(core.get().getRefCount(), 1);
    EXPECT_TRUE(core->getParents().empty());
    EXPECT_EQ(name.get().getRefCount(), 1);
    EXPECT_TRUE(name->getParents().empty());
}

TEST_F(OSGDestructionTest, SubtreeGoesFromTheTop)
{
    NodePtr top = Node::create();
    const NodePtr middle = Node::create();
    const NodePtr bottom = Node::create();
    top->addChild(middle);
    middle->addChild(bottom);
    addRefCP(top);
    recorder.take();

    subRefCP(top);

    EXPECT_EQ(recorder.take(),
              ksRecords().destroy(1).change(2, Parent).destroy(2).change(3, Parent).destroy(3));
}

TEST_F(OSGDestructionTest, ChainOfNodesGoesCoreByCore)
{
    NodePtr root = Node::create();             // 1
    const NodePtr child = Node::create();      // 2
    const NodeCorePtr core = Group::create();  // 3
    const NodeCorePtr core2 = Group::create(); // 4
    root->addChild(child);
    root->setCore(core);
    child->setCore(core2);
    recorder.take();

    subRefCP(root);

    EXPECT_EQ(recorder.take(), ksRecords()
                                   .destroy(1)
                                   .change(3, CoreParents)
                                   .destroy(3)
                                   .change(2, Parent)
                                   .destroy(2)
                                   .change(4, CoreParents)
                                   .destroy(4));
}

TEST_F(OSGDestructionTest, SharedCoreGoesWithItsLastNode)
{
    NodePtr a = Node::create();
    NodePtr b = Node::create();
    const GroupPtr core = Group::create();
    const UInt32 id = core.getFieldContainerId();
    a->setCore(core);
    b->setCore(core);
    addRefCP(a);
    addRefCP(b);
    EXPECT_EQ(core.getRefCount(), 2);

    subRefCP(a);
    EXPECT_EQ(core.getRefCount(), 1);
    EXPECT_EQ(core->getParents().getValues(), (std::vector<NodePtr>{b}));
    subRefCP(b);
    EXPECT_TRUE(isGone(id));
}

TEST_F(OSGDestructionTest, MaterialReleasesItsImage)
{
    SimpleTexturedMaterialPtr material = SimpleTexturedMaterial::create();
    const ImageRefPtr image(Image::create());
    material->setImage(image);
    addRefCP(material);
    recorder.take();

    subRefCP(material);

    EXPECT_EQ(recorder.take(), ksRecords().destroy(1).change(2, Image::ParentsFieldMask).subRef(2));
    EXPECT_EQ(image.get().getRefCount(), 1);
    EXPECT_TRUE(image->getParents().empty());
}

/// A node with a child, a core and a name whose edits have been applied to aspect 1, so that every aspect
/// holds a reference on them; the node itself is held by nobody.
class OSGAppliedDestructionTest : public OSGDestructionTest
{
protected:
    OSGAppliedDestructionTest()
        : node(Node::create())
        , child(Node::create())
        , core(Group::create())
    {
        setName(node, "n");
        node->addChild(child);
        node->setCore(core);
        endEditCP(node);
        changes.applyTo(1);
    }

    /// Parent of the child in the given aspect.
    NodePtr parentOfChild(UInt32 aspect) const
    {
        const AspectScope scope(aspect);
        return child->getParent();
    }

    NodePtr node;
    const NodePtr child;
    const GroupPtr core;
};

TEST_F(OSGAppliedDestructionTest, CountsAreDoubled)
{
    EXPECT_EQ(child.getRefCount(), 2);
    EXPECT_EQ(core.getRefCount(), 2);
    EXPECT_TRUE(parentOfChild(1) == node);
    subRefCP(node);
}

TEST_F(OSGAppliedDestructionTest, BothAspectsReferencesAreReleased)
{
    const UInt32 childId = child.getFieldContainerId();
    const UInt32 coreId = core.getFieldContainerId();

    subRefCP(node);

    EXPECT_TRUE(isGone(childId));
    EXPECT_TRUE(isGone(coreId));
    EXPECT_EQ(recorder.take().destroyed, (std::vector<long long>{1, 3, 2, 4}));
}

TEST_F(OSGAppliedDestructionTest, EveryAspectsReleasesAreRecorded)
{
    const NodeRefPtr heldChild(child);
    const GroupRefPtr heldCore(core);
    recorder.take();

    subRefCP(node);

    const ksRecords records = recorder.take();
    EXPECT_EQ(records.subRefd, (std::vector<long long>{3, 2, 4, 3, 2}));
    EXPECT_TRUE(records.addRefd.empty());
    EXPECT_EQ(records.destroyed, (std::vector<long long>{1, 4}));
}

TEST_F(OSGAppliedDestructionTest, SurvivorsLoseTheirParentInBothAspects)
{
    addRefCP(child);

    subRefCP(node);

    EXPECT_TRUE(parentOfChild(0) == NullFC);
    EXPECT_TRUE(parentOfChild(1) == NullFC);
    NodePtr release = child;
    subRefCP(release);
}

TEST_F(OSGAppliedDestructionTest, NoReferenceIsReleasedTwice)
{
    // The child is held in both aspects. The node's copies release one reference each at once; applying the
    // list must not release that of aspect 1 a second time.
    addRefCP(child);
    changes.applyTo(1);
    ASSERT_EQ(child.getRefCount(), 4);

    subRefCP(node);
    EXPECT_EQ(child.getRefCount(), 2);
    changes.applyTo(1);
    EXPECT_EQ(child.getRefCount(), 2);

    const UInt32 id = child.getFieldContainerId();
    NodePtr release = child;
    subRefCP(release);
    EXPECT_FALSE(isGone(id));
    changes.applyTo(1);
    EXPECT_TRUE(isGone(id));
}

TEST_F(OSGAppliedDestructionTest, DestructionWhileApplyingReleasesEverything)
{
    const UInt32 childId = child.getFieldContainerId();
    addRefCP(node);
    changes.applyTo(1);
    ASSERT_EQ(node.getRefCount(), 2);
    subRefCP(node);
    EXPECT_EQ(node.getRefCount(), 1);

    changes.applyTo(1);

    EXPECT_TRUE(isGone(childId));
    EXPECT_TRUE(changes.empty());
}

TEST_F(OSGAppliedDestructionTest, SurvivorsOfADestructionWhileApplyingHaveNoParentInBothAspects)
{
    addRefCP(child);
    addRefCP(node);
    changes.applyTo(1);
    subRefCP(node);

    changes.applyTo(1);

    EXPECT_EQ(child.getRefCount(), 2);
    EXPECT_TRUE(parentOfChild(0) == NullFC);
    EXPECT_TRUE(parentOfChild(1) == NullFC);
    NodePtr release = child;
    subRefCP(release);
    subRefCP(release);
}

TEST_F(OSGAppliedDestructionTest, ChildThatMovedOnKeepsItsNewParent)
{
    // Aspect 1 still has the child under the old node when that is destroyed.
    const NodeRefPtr next(Node::create());
    next->addChild(child);
    endEditCP(next, Node::ChildrenFieldMask);

    subRefCP(node);

    EXPECT_TRUE(child->getParent() == next.get());
    changes.applyTo(1);
    EXPECT_TRUE(parentOfChild(1) == next.get());
    // The test's own reference and list entry count in both aspects.
    EXPECT_EQ(child.getRefCount(), 2);
}

TEST_F(OSGAppliedDestructionTest, ChildKeepsANewParentThatTheOtherAspectHasAlready)
{
    // Aspect 1 has got the child's new parent, but not yet the old one's new list of children.
    const NodeRefPtr next(Node::create());
    next->addChild(child);
    changes.clearAll();
    endEditCP(child, Parent);
    changes.applyTo(1);

    subRefCP(node);

    EXPECT_TRUE(parentOfChild(1) == next.get());
}

TEST_F(OSGDestructionTest, ShallowCopySharesCoreAndAttachments)
{
    const NodeRefPtr parent(Node::create());
    const NodeRefPtr node(Node::create());
    parent->addChild(node);
    node->addChild(Node::create());
    node->setCore(Group::create());
    setName(node, "n");
    node->setExternalFlags(6);
    node->setTravMask(2);
    node->updateVolume();
    const AttachmentPtr name = node->findAttachment(Name::getClassType());

    NodeRefPtr copy(NodePtr::dcast(node->shallowCopy()));

    for (UInt32 aspect = 0; aspect < OSG_NUM_ASPECTS; ++aspect) {
        const AspectScope scope(aspect);
        EXPECT_EQ(copy->getExternalFlags(), 6u) << "the values of the copied aspect are in all of them";
        EXPECT_EQ(copy->getTravMask(), 2u);
        EXPECT_FALSE(copy->getVolume().isValid());
        EXPECT_TRUE(copy->getParent() == NullFC);
        EXPECT_EQ(copy->getNChildren(), 0u);
        EXPECT_GE(copy->getCore()->getMFParents()->find(copy) - copy->getCore()->getMFParents()->begin(), 0);
        EXPECT_TRUE(copy->findAttachment(Name::getClassType()) == name);
        EXPECT_GE(name->findParent(copy.get()), 0);
    }
    EXPECT_EQ(node->getChild(0).getRefCount(), 1);
    EXPECT_EQ(node->getCore().getRefCount(), 3) << "one for the node, one for each aspect of its copy";
    EXPECT_EQ(name.getRefCount(), 3);

    changes.applyTo(1);
    EXPECT_EQ(node->getCore().getRefCount(), 4);
    EXPECT_EQ(name.getRefCount(), 4);
    copy = NullFC;
    changes.applyTo(1);
    EXPECT_EQ(node->getCore().getRefCount(), 2);
    EXPECT_EQ(name.getRefCount(), 2);
    EXPECT_EQ(name->getParents().size(), 1u);
    EXPECT_EQ(node->getCore()->getParents().size(), 1u);
}

TEST_F(OSGDestructionTest, CopyThatGoesBeforeTheOtherAspectHeardOfItLeavesNothing)
{
    const NodeRefPtr node(Node::create());
    const GroupRefPtr core(Group::create());
    node->setCore(core);
    endEditCP(node);
    changes.applyTo(1);
    const Int32 before = core.get().getRefCount();

    NodePtr copy = NodePtr::dcast(node->shallowCopy());
    subRefCP(copy);
    EXPECT_EQ(core.get().getRefCount(), before);
    changes.applyTo(1);

    EXPECT_EQ(core.get().getRefCount(), before);
    EXPECT_EQ(core->getParents().size(), 1u);
    const AspectScope scope(1);
    EXPECT_EQ(core->getParents().size(), 1u);
}

TEST_F(OSGDestructionTest, CopyOfAnAttachmentIsAttachedToNothing)
{
    const NodeRefPtr node(Node::create());
    setName(node, "n");

    const NameRefPtr copy(NamePtr::dcast(node->findAttachment(Name::getClassType())->shallowCopy()));

    EXPECT_EQ(copy->getFieldPtr()->getValue(), "n");
    EXPECT_TRUE(copy->getParents().empty());
}

TEST_F(OSGDestructionTest, CopiesOfOthersHaveNoParentsEither)
{
    const NodeRefPtr node(Node::create());
    node->setCore(Group::create());
    const NodeCoreRefPtr core(NodeCorePtr::dcast(node->getCore()->shallowCopy()));
    EXPECT_TRUE(core->getParents().empty());

    const SimpleTexturedMaterialRefPtr material(SimpleTexturedMaterial::create());
    const ImageRefPtr image(Image::create());
    material->setImage(image);
    const SimpleTexturedMaterialRefPtr copy(SimpleTexturedMaterialPtr::dcast(material->shallowCopy()));
    EXPECT_TRUE(copy->getImage() == NullFC);
    const ImageRefPtr imageCopy(ImagePtr::dcast(image->shallowCopy()));
    EXPECT_TRUE(imageCopy->getParents().empty());
    EXPECT_EQ(image.get().getRefCount(), 2);
}

} // namespace
