// SPDX-License-Identifier: MIT
#pragma once

#include <OpenSG/OSGNode.h>

/// The scenes that the application has open, each a tree below the root of the whole scene graph.
class ksSceneDataManager
{
public:
    ksSceneDataManager() = delete;

    /// The root of scene \a scene, counted from 0. Null if there is no such scene or its root has gone.
    static osg::NodePtr getSceneRoot(unsigned int scene);

    /// Makes \a root the root of scene \a scene; null closes the scene. It takes no reference: the scene
    /// graph keeps the root alive.
    static void setSceneRoot(unsigned int scene, osg::NodePtr root);
};
