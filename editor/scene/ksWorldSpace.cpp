// SPDX-License-Identifier: MIT
#include <editor/scene/ksWorldSpace.h>

#include <OpenSG/OSGTransform.h>

osg::Matrix4d ksWorldSpace::above(const osg::NodePtr &node)
{
    osg::Matrix4d result;
    for (osg::NodePtr parent = node->getParent(); parent != osg::NullFC; parent = parent->getParent())
        if (const auto transform = osg::TransformPtr::dcast(parent->getCore()))
            result.multLeft(osg::inPrecisionOf<osg::Matrix4d>(transform->getMatrix()));
    return result;
}
