// SPDX-License-Identifier: MIT
#include <editor/scene/ksNodePaths.h>
#include <tests/editor/ksEditorFixture.h>

namespace {

class ksNodePathsTest : public ksEditorFixture
{
protected:
    osg::NodePtr add(const char *name) const
    {
        const osg::NodePtr node = makeNode(name);
        CPEdit(child, osg::Node::ChildrenFieldMask);
        child->addChild(node);
        return node;
    }
};

} // namespace

TEST_F(ksNodePathsTest, LeadToTheNode)
{
    EXPECT_EQ(ksNodePaths::of(root), "");
    EXPECT_EQ(ksNodePaths::of(child), "Child");
    const std::pair<const char *, const char *> cases[] = {{"Leg", "Child/Leg"}, {"Leg", "Child/#1"},
                                                           {"a/b", "Child/#2"},  {"#0", "Child/#3"},
                                                           {"", "Child/#4"},     {"Top", "Child/Top"}};
    for (const auto &[name, path] : cases) {
        const osg::NodePtr node = add(name);
        EXPECT_EQ(ksNodePaths::of(node), path);
        EXPECT_EQ(ksNodePaths::find(root, path), node) << path;
    }
    EXPECT_EQ(ksNodePaths::find(root, ""), root.get());
}

TEST_F(ksNodePathsTest, LeadNowhereElse)
{
    for (const char *path : {"child", "Child/", "/Child", "Child/#0", "#", "#1", "#-1", "#0x", "Child//Leg"})
        EXPECT_EQ(ksNodePaths::find(root, path), osg::NullFC) << path;
}
