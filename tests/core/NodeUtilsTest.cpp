// SPDX-License-Identifier: MIT
#include <ksundo/core/NodeUtils.h>

#include <OpenSG/OSGGroup.h>
#include <OpenSG/OSGNode.h>
#include <OpenSG/OSGRefPtr.h>
#include <OpenSG/OSGSimpleAttachments.h>
#include <OpenSG/OSGTransform.h>

#include <gmock/gmock.h>

namespace {

class NodeUtilsTest : public testing::Test
{
protected:
    osg::NodeRefPtr node{osg::Node::create()};
};

} // namespace

TEST_F(NodeUtilsTest, GivesNoNameForANodeWithoutACore)
{
    EXPECT_EQ(NodeUtils::getName(node), nullptr);
    osg::setName(node.get(), std::string("named"));
    EXPECT_EQ(NodeUtils::getName(node), nullptr);
}

TEST_F(NodeUtilsTest, PrefersTheNameOfTheNode)
{
    node->setCore(osg::Group::create());
    osg::setName(node->getCore(), std::string("core"));
    osg::setName(node.get(), std::string("node"));
    EXPECT_STREQ(NodeUtils::getName(node), "node");
}

TEST_F(NodeUtilsTest, FallsBackToTheNameOfTheCore)
{
    node->setCore(osg::Group::create());
    osg::setName(node->getCore(), std::string("core"));
    EXPECT_STREQ(NodeUtils::getName(node), "core");
}

TEST_F(NodeUtilsTest, FallsBackToTheNameOfTheTypeOfTheCore)
{
    node->setCore(osg::Group::create());
    EXPECT_STREQ(NodeUtils::getName(node), "Group");
    node->setCore(osg::Transform::create());
    EXPECT_STREQ(NodeUtils::getName(node), "Transform");
}

TEST_F(NodeUtilsTest, TakesAnEmptyNameForAName)
{
    node->setCore(osg::Group::create());
    osg::setName(node->getCore(), std::string("core"));
    osg::setName(node.get(), std::string());
    EXPECT_STREQ(NodeUtils::getName(node), "");
}

TEST_F(NodeUtilsTest, GivesTheNameAsBytesAndAsText)
{
    node->setCore(osg::Group::create());
    osg::setName(node.get(), std::string("Gr\u00f6\u00dfe"));
    EXPECT_STREQ(NodeUtils::getName(node), "Gr\xc3\xb6\xc3\x9f"
                                           "e");
    EXPECT_EQ(NodeUtils::displayName(node), QStringLiteral("Gr\u00f6\u00dfe"));
}

TEST_F(NodeUtilsTest, GivesNothingForANullNode)
{
    EXPECT_EQ(NodeUtils::getName(osg::NullFC), nullptr);
    EXPECT_EQ(NodeUtils::displayName(osg::NullFC), QString());
}
