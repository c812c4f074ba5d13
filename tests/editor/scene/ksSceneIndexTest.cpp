// SPDX-License-Identifier: MIT
#include <editor/edits/ksTreeEdits.h>
#include <editor/scene/ksSceneIndex.h>
#include <tests/editor/ksEditorFixture.h>

#include <ksundo/core/ksUndoStack.h>

#include <OpenSG/OSGChangeList.h>
#include <OpenSG/OSGThread.h>

namespace {

class ksSceneIndexTest : public ksEditorFixture
{
protected:
    /// Ends a step: the index is told, and the change list is cleared.
    void endStep()
    {
        index.noteChanges();
        osg::Thread::getCurrentChangeList()->clearAll();
    }

    osg::NodePtr addNode(const osg::NodePtr &parent, const char *name) const
    {
        const osg::NodePtr node = makeNode(name);
        CPEdit(parent, osg::Node::ChildrenFieldMask);
        parent->addChild(node);
        return node;
    }

    ksSceneIndex index{root.get()};
};

} // namespace

TEST_F(ksSceneIndexTest, FindsNodesByName)
{
    EXPECT_EQ(index.find("Root"), root.get());
    EXPECT_EQ(index.find("Child"), child);
    EXPECT_EQ(index.find("Nobody"), osg::NullFC);
    const osg::NodePtr outside = makeNode("Outside");
    EXPECT_EQ(index.find("Outside"), osg::NullFC);
    {
        CPEdit(child, osg::Node::ChildrenFieldMask);
        child->addChild(outside);
    }
    EXPECT_EQ(index.find("Outside"), outside);
}

/// Whatever the order in which they were made.
TEST_F(ksSceneIndexTest, FindsParentsBeforeTheirChildren)
{
    const osg::NodePtr last = addNode(root, "Twin");
    const osg::NodePtr middle = addNode(child, "Twin");
    const osg::NodePtr deep = addNode(middle, "Twin");
    EXPECT_EQ(index.find("Twin"), middle);
    EXPECT_EQ(index.findAll("Twin"), (std::vector<osg::NodePtr>{middle, deep, last}));
}

TEST_F(ksSceneIndexTest, FollowsNewNames)
{
    EXPECT_EQ(index.find("Child"), child);
    osg::setName(child, "Other");
    endStep();
    EXPECT_EQ(index.find("Child"), osg::NullFC);
    EXPECT_EQ(index.find("Other"), child);
    const osg::NodePtr nameless = osg::Node::create();
    {
        CPEdit(root.get(), osg::Node::ChildrenFieldMask);
        root->addChild(nameless);
    }
    endStep();
    osg::setName(nameless, "Late");
    endStep();
    EXPECT_EQ(index.find("Late"), nameless);
}

TEST_F(ksSceneIndexTest, FollowsTheTree)
{
    ksUndoStack stack;
    stack.add(ksTreeEdits::makeRemove(child));
    endStep();
    EXPECT_EQ(index.find("Child"), osg::NullFC);
    stack.undo();
    endStep();
    EXPECT_EQ(index.find("Child"), child);
    stack.redo();
    stack.clear();
    endStep();
    EXPECT_EQ(index.find("Child"), osg::NullFC);
}

TEST_F(ksSceneIndexTest, KnowsTheLightsOfTheScene)
{
    const osg::UberLightPtr light = osg::UberLight::create();
    const osg::NodePtr lamp = ksContainers::createNode("Lamp", light);
    EXPECT_TRUE(index.lights().empty());
    CPEdit(root.get(), osg::Node::ChildrenFieldMask);
    root->addChild(lamp);
    EXPECT_EQ(index.lights(), std::vector<osg::UberLightPtr>{light});
}

TEST_F(ksSceneIndexTest, KnowsTheOrderAfterMoves)
{
    ksUndoStack stack;
    const osg::NodePtr first = addNode(root, "Twin");
    const osg::NodePtr second = addNode(root, "Twin");
    const auto expectFirst = [this](const osg::NodePtr &node) {
        endStep();
        EXPECT_EQ(index.find("Twin"), node);
        EXPECT_EQ(index.findAll("Twin").front(), node);
    };
    expectFirst(first);
    stack.add(ksTreeEdits::makeMove(second, root, 0));
    expectFirst(second);
    stack.add(ksTreeEdits::makeRemove(second));
    expectFirst(first);
    stack.undo();
    expectFirst(second);
    osg::setName(second, "Other");
    expectFirst(first);
    osg::setName(second, "Twin");
    expectFirst(second);
    const osg::NodePtr above = addNode(root, "Above");
    stack.add(ksTreeEdits::makeMove(above, root, 0));
    endStep();
    stack.add(ksTreeEdits::makeAdd(above, makeNode("Twin")));
    expectFirst(above->getChild(0));
    stack.clear();
}

/// However many nodes have a name, finding the first of them does not walk through all.
TEST_F(ksSceneIndexTest, LooksAtOneOfManyOfOneName)
{
    std::vector<osg::NodePtr> twins;
    for (int i = 0; i < 1000; ++i)
        twins.push_back(addNode(child, "Twin"));
    EXPECT_EQ(index.find("Twin"), twins.front());
    endStep();
    const std::size_t before = index.visitedCount();
    for (int i = 0; i < 100; ++i) {
        EXPECT_EQ(index.find("Twin"), twins.front());
        osg::setName(child, "Name " + std::to_string(i));
        endStep();
    }
    ksUndoStack stack;
    for (int i = 0; i < 10; ++i) {
        EXPECT_EQ(index.find("Twin"), twins[static_cast<std::size_t>(i)]);
        stack.add(ksTreeEdits::makeRemove(twins[static_cast<std::size_t>(i)]));
        endStep();
    }
    EXPECT_LT(index.visitedCount() - before, 1000u);
}

TEST_F(ksSceneIndexTest, FindsNodesOfAChain)
{
    osg::NodePtr last = child;
    for (int i = 0; i < 500; ++i)
        last = addNode(last, "Link");
    EXPECT_EQ(index.findAll("Link").size(), 500u);
    EXPECT_EQ(index.findAll("Link").back(), last);
}

/// What it costs does not depend on the size of the scene.
TEST_F(ksSceneIndexTest, LooksAtEachContainerOnce)
{
    for (int i = 0; i < 1000; ++i)
        addNode(child, ("Node " + std::to_string(i)).c_str());
    index.find("Node 500");
    endStep();
    const std::size_t before = index.visitedCount();
    for (int i = 0; i < 100; ++i) {
        index.find("Node " + std::to_string(i));
        osg::setName(child, "Name " + std::to_string(i));
        addNode(root, "New");
        endStep();
    }
    // Of each round: the node that is found, the one renamed and the three containers that are new.
    EXPECT_LT(index.visitedCount() - before, 1000u);
}
