// SPDX-License-Identifier: MIT
#pragma once

#include <tests/editor/ksEditorFixture.h>

#include <OSGTransform3D.h>

/// The same two nodes with transforms: the root is moved by (10, 20, 30) and doubled in size, the child is as
/// transforms are at first.
class ksTransformScene : public ksEditorFixture
{
protected:
    ksTransformScene()
    {
        for (const osg::NodePtr &node : {root.get(), child}) {
            CPEdit(node, osg::Node::CoreFieldMask);
            node->setCore(osg::Transform3D::create());
        }
        CPEditAll(transformOf(root));
        transformOf(root)->setTranslation(osg::Vec3f(10, 20, 30));
        transformOf(root)->setScale(osg::Vec3f(2, 2, 2));
    }

    static osg::Transform3DPtr transformOf(const osg::NodePtr &node)
    {
        return osg::Transform3DPtr::dcast(node->getCore());
    }
};
