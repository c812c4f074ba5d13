// SPDX-License-Identifier: MIT
#include <editor/session/ksOpenScene.h>

#include <ksOpenSGUtils.h>
#include <ksSceneDataManager.h>

ksOpenScene::ksOpenScene(const osg::NodePtr &root)
{
    ksOpenSGUtils::setRoot(root);
    ksSceneDataManager::setSceneRoot(0, root);
}

ksOpenScene::~ksOpenScene()
{
    ksSceneDataManager::setSceneRoot(0, osg::NullFC);
    ksOpenSGUtils::setRoot(osg::NullFC);
}
