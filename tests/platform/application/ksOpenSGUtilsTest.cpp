// SPDX-License-Identifier: MIT
#include <OpenSG/OSGRefPtr.h>
#include <ksOpenSGUtils.h>

#include <gtest/gtest.h>

namespace {

class ksOpenSGUtilsTest : public testing::Test
{
protected:
    ~ksOpenSGUtilsTest() override { ksOpenSGUtils::setRoot(osg::NullFC); }
};

TEST_F(ksOpenSGUtilsTest, ThereIsNoRootAtFirst)
{
    EXPECT_TRUE(ksOpenSGUtils::getRoot() == osg::NullFC);
}

TEST_F(ksOpenSGUtilsTest, RootIsKnownButNotHeld)
{
    osg::NodeRefPtr root(osg::Node::create());

    ksOpenSGUtils::setRoot(root);
    EXPECT_TRUE(ksOpenSGUtils::getRoot() == root.get());
    EXPECT_EQ(root.get().getRefCount(), 1);

    root = osg::NullFC;
    EXPECT_TRUE(ksOpenSGUtils::getRoot() == osg::NullFC);
}

TEST_F(ksOpenSGUtilsTest, RootCanBeReplacedAndTakenAway)
{
    const osg::NodeRefPtr first(osg::Node::create());
    const osg::NodeRefPtr second(osg::Node::create());

    ksOpenSGUtils::setRoot(first);
    ksOpenSGUtils::setRoot(second);
    EXPECT_TRUE(ksOpenSGUtils::getRoot() == second.get());

    ksOpenSGUtils::setRoot(osg::NullFC);
    EXPECT_TRUE(ksOpenSGUtils::getRoot() == osg::NullFC);
}

} // namespace
