// SPDX-License-Identifier: MIT
#include "ksSceneDataManager.h"

#include <map>

namespace {

/// Ids of the roots by scene.
std::map<unsigned int, osg::UInt32> &rootIds()
{
    static std::map<unsigned int, osg::UInt32> ids;
    return ids;
}

} // namespace

osg::NodePtr ksSceneDataManager::getSceneRoot(unsigned int scene)
{
    const auto root = rootIds().find(scene);
    return root != rootIds().end()
               ? osg::NodePtr::dcast(osg::FieldContainerFactory::the()->getContainer(root->second))
               : osg::NodePtr();
}

void ksSceneDataManager::setSceneRoot(unsigned int scene, osg::NodePtr root)
{
    if (root)
        rootIds()[scene] = root.getFieldContainerId();
    else
        rootIds().erase(scene);
}
