// SPDX-License-Identifier: MIT
#include <editor/scene/ksWorldSpace.h>
#include <tests/editor/ksTransformScene.h>

using ksWorldSpaceTest = ksTransformScene;

TEST_F(ksWorldSpaceTest, IsTheProductOfTheMatricesAbove)
{
    EXPECT_EQ(ksWorldSpace::above(root), osg::Matrix4d());
    const osg::NodePtr leaf = ksContainers::createNode("Leaf", osg::Group::create());
    CPEdit(child, osg::Node::ChildrenFieldMask);
    child->addChild(leaf);
    CPEditAll(transformOf(child));
    transformOf(child)->setTranslation(osg::Vec3f(1, 0, 0));
    osg::endEditCP(transformOf(child), osg::Transform3D::TranslationFieldMask);
    EXPECT_EQ(ksWorldSpace::above(child)[3][0], 10);
    EXPECT_EQ(ksWorldSpace::above(leaf)[3][0], 12);
    EXPECT_EQ(ksWorldSpace::above(leaf)[0][0], 2);
}
