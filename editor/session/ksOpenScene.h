// SPDX-License-Identifier: MIT
#pragma once

#include <OpenSG/OSGNode.h>

/// Makes a scene the application's only one for as long as the object lives: its root is that of the whole
/// scene graph, and that of scene 0. The object keeps no reference on it.
class ksOpenScene
{
public:
    explicit ksOpenScene(const osg::NodePtr &root);
    ~ksOpenScene();
    ksOpenScene(const ksOpenScene &) = delete;
    ksOpenScene &operator=(const ksOpenScene &) = delete;
};
