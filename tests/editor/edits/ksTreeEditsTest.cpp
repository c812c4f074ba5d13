// SPDX-License-Identifier: MIT
#include <editor/edits/ksMeshMaterialUndoCommand.h>
#include <editor/edits/ksTransformEdits.h>
#include <editor/edits/ksTreeEdits.h>
#include <tests/editor/ksEditorFixture.h>

#include <ksundo/core/ksUndoStack.h>

#include <OSGTransformVariantsAttachment.h>
#include <OSGUberMaterial.h>

namespace {

/// "Root" with the children "Child" and "Second", and "Leaf" below the first.
class ksTreeEditsTest : public ksEditorFixture
{
protected:
    ksTreeEditsTest()
    {
        CPEdit(root.get(), osg::Node::ChildrenFieldMask);
        CPEdit(child, osg::Node::ChildrenFieldMask);
        root->addChild(second);
        child->addChild(leaf);
    }
    ~ksTreeEditsTest() override { stack.clear(); }

    std::vector<osg::NodePtr> childrenOf(const osg::NodePtr &node) const
    {
        const osg::MFNodePtr &children = node->getChildren();
        return {children.begin(), children.end()};
    }

    using Nodes = std::vector<osg::NodePtr>;

    ksUndoStack stack;
    const osg::NodePtr second = makeNode("Second");
    const osg::NodePtr leaf = makeNode("Leaf");
};

} // namespace

TEST_F(ksTreeEditsTest, RemoveANodeAndPutItBack)
{
    stack.add(ksTreeEdits::makeRemove(child));
    EXPECT_EQ(childrenOf(root), Nodes{second});
    EXPECT_EQ(stack.undoText(), QStringLiteral("Remove 'Child'"));
    stack.undo();
    EXPECT_EQ(childrenOf(root), (Nodes{child, second}));
    stack.redo();
    const osg::UInt32 id = child.getFieldContainerId();
    EXPECT_NE(osg::FieldContainerFactory::the()->getContainer(id), osg::NullFC);
    stack.clear();
    EXPECT_EQ(osg::FieldContainerFactory::the()->getContainer(id), osg::NullFC);
}

TEST_F(ksTreeEditsTest, LeaveANodeWhoseNewParentHasGone)
{
    stack.add(ksTreeEdits::makeMove(child, second, -1));
    stack.undo();
    {
        CPEdit(root.get(), osg::Node::ChildrenFieldMask);
        root->subChild(second);
    }
    ksSyncAspects();
    stack.redo();
    EXPECT_EQ(childrenOf(root), Nodes{child});
    stack.undo();
    EXPECT_EQ(childrenOf(root), Nodes{child});
}

TEST_F(ksTreeEditsTest, RefuseToNestTooDeep)
{
    osg::NodePtr last = leaf;
    for (int level = 3; level < ksContainers::MostLevels - 1; ++level) {
        const osg::NodePtr next = makeNode("Link");
        CPEdit(last, osg::Node::ChildrenFieldMask);
        last->addChild(next);
        last = next;
    }
    stack.add(ksTreeEdits::makeMove(second, last, -1));
    stack.undo();
    const osg::NodeRefPtr added(makeNode("Added"));
    const osg::NodeRefPtr tooDeep(makeNode("Too deep"));
    const osg::NodePtr below = makeNode("Below");
    stack.add(ksTreeEdits::makeAdd(second, below));
    const std::string end = ": nodes nest 1000 deep at most";
    EXPECT_THAT(ksErrorOf([&] { ksTreeEdits::makeMove(second, last, -1); }), testing::EndsWith(end));
    EXPECT_THAT(ksErrorOf([&] { ksTreeEdits::makeMove(child, below, -1); }), testing::EndsWith(end));
    stack.add(ksTreeEdits::makeAdd(last, added));
    EXPECT_THAT(ksErrorOf([&] { ksTreeEdits::makeAdd(added, tooDeep); }), testing::EndsWith(end));
}

TEST_F(ksTreeEditsTest, MoveANode)
{
    stack.add(ksTreeEdits::makeMove(leaf, root, 1));
    EXPECT_EQ(childrenOf(root), (Nodes{child, leaf, second}));
    EXPECT_TRUE(childrenOf(child).empty());
    // Within its parent, the index is the one that it gets.
    stack.add(ksTreeEdits::makeMove(child, root, 2));
    EXPECT_EQ(childrenOf(root), (Nodes{leaf, second, child}));
    stack.add(ksTreeEdits::makeMove(leaf, second, -1));
    EXPECT_EQ(childrenOf(second), Nodes{leaf});
    while (stack.canUndo())
        stack.undo();
    EXPECT_EQ(childrenOf(root), (Nodes{child, second}));
    EXPECT_EQ(childrenOf(child), Nodes{leaf});
}

TEST_F(ksTreeEditsTest, RefuseWhatIsNotPossible)
{
    const std::string rootLabel = ksContainers::label(root).toStdString();
    const std::string childLabel = ksContainers::label(child).toStdString();
    EXPECT_EQ(ksErrorOf([this] { ksTreeEdits::makeRemove(root); }),
              rootLabel + " has no parent and cannot be removed");
    EXPECT_EQ(ksErrorOf([this] { ksTreeEdits::makeMove(root, child, -1); }),
              rootLabel + " has no parent and cannot be moved");
    for (const osg::NodePtr &place : {child, leaf})
        EXPECT_EQ(ksErrorOf([&] { ksTreeEdits::makeMove(child, place, -1); }),
                  childLabel + " cannot be moved below itself");
    for (const int index : {-2, 2})
        EXPECT_EQ(ksErrorOf([&] { ksTreeEdits::makeMove(child, root, index); }),
                  rootLabel + " has no place " + std::to_string(index) + " for a child");
    EXPECT_EQ(ksTreeEdits::makeMove(child, root, 0), nullptr);
    EXPECT_EQ(ksTreeEdits::makeMove(second, root, -1), nullptr);
}

TEST_F(ksTreeEditsTest, CopyANodeWithAllThatIsItsOwn)
{
    const auto variants = osg::TransformVariantsAttachment::create();
    variants->insertVariant(0, ksTransformEdits::makeVariant(child, "Corner"));
    {
        CPEditAll(child);
        CPEditAll(childSettings());
        child->addAttachment(variants);
        child->setExternalFlags(osg::NodeExternalFlags::VisibilityReference);
        childSettings()->setLayer(7);
    }
    const osg::NodeRefPtr copy(ksTreeEdits::copy(child));
    EXPECT_EQ(copy->getParent(), osg::NullFC);
    EXPECT_STREQ(osg::getName(copy.get()), "Child");
    EXPECT_NE(copy->getCore(), child->getCore());
    EXPECT_NE(ksSettingsOf(copy.get()), childSettings());
    EXPECT_EQ(ksSettingsOf(copy.get())->getLayer(), 7);
    EXPECT_EQ(copy->getExternalFlags(), 0u);
    ASSERT_EQ(copy->getNChildren(), 1u);
    EXPECT_STREQ(osg::getName(copy->getChild(0)), "Leaf");
    const auto copied = osg::TransformVariantsAttachmentPtr::dcast(
        copy->findAttachment(osg::TransformVariantsAttachment::getClassType()));
    ASSERT_EQ(copied->getVariants().size(), 1u);
    EXPECT_EQ(copied->getVariants()[0]->getName(), "Corner");
    EXPECT_NE(copied->getVariants()[0]->getTransform(), variants->getVariants()[0]->getTransform());
}

/// Aspect 1 follows.
TEST_F(ksTreeEditsTest, RecordTheirEdits)
{
    const osg::ksMeshPtr mesh = osg::ksMesh::create();
    {
        CPEdit(leaf, osg::Node::CoreFieldMask);
        leaf->setCore(mesh);
    }
    ksSyncAspects();
    stack.add(ksTreeEdits::makeRemove(child));
    ksExpectSync(root.get());
    stack.undo();
    ksExpectSync(root.get());
    stack.add(ksTreeEdits::makeMove(leaf, second, -1));
    ksExpectSync(second);
    stack.add(new ksMeshMaterialUndoCommand(mesh, osg::UberMaterial::create()));
    ksExpectSync(mesh);
    stack.undo();
    ksExpectSync(mesh);
}

TEST_F(ksTreeEditsTest, SetTheMaterialOfAMesh)
{
    const osg::ksMeshPtr mesh = osg::ksMesh::create();
    const osg::UberMaterialPtr oak = osg::UberMaterial::create();
    const osg::UberMaterialPtr pine = osg::UberMaterial::create();
    const osg::UInt32 id = oak.getFieldContainerId();
    {
        CPEdit(leaf, osg::Node::CoreFieldMask);
        CPEdit(mesh, osg::ksMesh::MaterialFieldMask);
        leaf->setCore(mesh);
        mesh->setMaterial(oak);
    }
    stack.add(new ksMeshMaterialUndoCommand(mesh, pine));
    EXPECT_EQ(mesh->getMaterial(), pine);
    EXPECT_EQ(stack.undoText(), QStringLiteral("Set material of 'Leaf'"));
    stack.add(new ksMeshMaterialUndoCommand(mesh, osg::NullFC));
    stack.undo();
    stack.undo();
    EXPECT_EQ(mesh->getMaterial(), oak);
    stack.redo();
    stack.clear();
    EXPECT_EQ(osg::FieldContainerFactory::the()->getContainer(id), osg::NullFC);
}
