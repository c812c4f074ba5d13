// SPDX-License-Identifier: MIT
#include <editor/session/ksOpenScene.h>
#include <tests/editor/ksEditorFixture.h>

#include <ksOpenSGUtils.h>
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
