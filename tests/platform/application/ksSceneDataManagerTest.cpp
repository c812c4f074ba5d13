// SPDX-License-Identifier: MIT
#include <OpenSG/OSGRefPtr.h>
#include <ksSceneDataManager.h>

#include <gtest/gtest.h>

#include <limits>

namespace {

constexpr unsigned int lastScene = std::numeric_limits<unsigned int>::max();

class ksSceneDataManagerTest : public testing::Test
{
protected:
    ~ksSceneDataManagerTest() override
    {
        for (const unsigned int scene : {0u, 1u, lastScene})
            ksSceneDataManager::setSceneRoot(scene, osg::NullFC);
    }

    osg::NodeRefPtr first{osg::Node::create()};
    osg::NodeRefPtr second{osg::Node::create()};
};

TEST_F(ksSceneDataManagerTest, ThereAreNoScenesAtFirst)
{
    EXPECT_TRUE(ksSceneDataManager::getSceneRoot(0) == osg::NullFC);
    EXPECT_TRUE(ksSceneDataManager::getSceneRoot(lastScene) == osg::NullFC);
}

TEST_F(ksSceneDataManagerTest, EverySceneHasItsRoot)
{
    ksSceneDataManager::setSceneRoot(0, first);
    ksSceneDataManager::setSceneRoot(lastScene, second);

    EXPECT_TRUE(ksSceneDataManager::getSceneRoot(0) == first.get());
    EXPECT_TRUE(ksSceneDataManager::getSceneRoot(1) == osg::NullFC);
    EXPECT_TRUE(ksSceneDataManager::getSceneRoot(lastScene) == second.get());
}

TEST_F(ksSceneDataManagerTest, RootIsNotHeld)
{
    ksSceneDataManager::setSceneRoot(1, first);
    EXPECT_EQ(first.get().getRefCount(), 1);

    first = osg::NullFC;
    EXPECT_TRUE(ksSceneDataManager::getSceneRoot(1) == osg::NullFC);
}

TEST_F(ksSceneDataManagerTest, SceneCanGetAnotherRootAndBeClosed)
{
    ksSceneDataManager::setSceneRoot(0, first);
    ksSceneDataManager::setSceneRoot(0, second);
    EXPECT_TRUE(ksSceneDataManager::getSceneRoot(0) == second.get());

    ksSceneDataManager::setSceneRoot(0, osg::NullFC);
    EXPECT_TRUE(ksSceneDataManager::getSceneRoot(0) == osg::NullFC);
}

} // namespace
