// SPDX-License-Identifier: MIT
#include "ksEditorFixture.h"

#include <ksOpenSGUtils.h>
#include <ksOpenScene.h>
#include <ksSceneDataManager.h>

namespace {

using ksOpenSceneTest = ksEditorFixture;

} // namespace

TEST_F(ksOpenSceneTest, IsKnownAsLongAsItIsOpen)
{
    {
        const ksOpenScene scene(root);
        EXPECT_EQ(ksOpenSGUtils::getRoot(), root.get());
        EXPECT_EQ(ksSceneDataManager::getSceneRoot(0), root.get());
    }
    EXPECT_EQ(ksOpenSGUtils::getRoot(), osg::NullFC);
    EXPECT_EQ(ksSceneDataManager::getSceneRoot(0), osg::NullFC);
}
