// SPDX-License-Identifier: MIT
#include <ksNodeUtils.h>

#include <gtest/gtest.h>

namespace {

TEST(ksNodeUtilsTreeTest, HasParentAtAnyHeight)
{
    const osg::NodeRefPtr root(osg::Node::create());
    const osg::NodePtr middle = osg::Node::create();
    const osg::NodePtr leaf = osg::Node::create();
    const osg::NodePtr sibling = osg::Node::create();
    root->addChild(middle);
    middle->addChild(leaf);
    middle->addChild(sibling);

    EXPECT_TRUE(ksNodeUtils::hasParent(leaf, middle));
    EXPECT_TRUE(ksNodeUtils::hasParent(leaf, root));
    EXPECT_TRUE(ksNodeUtils::hasParent(middle, root));
    EXPECT_FALSE(ksNodeUtils::hasParent(leaf, leaf));
    EXPECT_FALSE(ksNodeUtils::hasParent(root, root));
    EXPECT_FALSE(ksNodeUtils::hasParent(middle, leaf));
    EXPECT_FALSE(ksNodeUtils::hasParent(leaf, sibling));
}

TEST(ksNodeUtilsTreeTest, NullHasNoParentAndIsNone)
{
    const osg::NodeRefPtr node(osg::Node::create());

    EXPECT_FALSE(ksNodeUtils::hasParent(node, osg::NullFC));
    EXPECT_FALSE(ksNodeUtils::hasParent(osg::NullFC, node));
    EXPECT_FALSE(ksNodeUtils::hasParent(osg::NullFC, osg::NullFC));
}

} // namespace
