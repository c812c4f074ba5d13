// SPDX-License-Identifier: MIT
#pragma once

#include <OSGUberLight.h>
#include <OpenSG/OSGGroup.h>

#include <support/ksSceneFixture.h>
#include <support/ksWatched.h>

/// A small scene with lights.
///
///     root
///       lamp    a light whose change handler can be watched
///       torch   a light
class ksLightFixture : public ksSceneFixture
{
protected:
    ksLightFixture()
    {
        append(root, lamp);
        append(root, torch);
    }

    static osg::UberLightPtr lightOf(const osg::NodePtr &node)
    {
        return osg::UberLightPtr::dcast(node->getCore());
    }

    osg::UInt32 lampId() const { return lamp.get().getFieldContainerId(); }

    /// Takes a node out of the scene, which destroys it.
    void destroy(osg::NodeRefPtr &node)
    {
        {
            const osg::CPEditor edit(root, osg::Node::ChildrenFieldMask);
            root->subChild(node);
        }
        ASSERT_EQ(countOf(node.get()), 1);
        node = osg::NullFC;
    }

    osg::NodeRefPtr root{nodeWith(osg::Group::create())};
    osg::NodeRefPtr lamp{nodeWith(ksWatched<osg::UberLight>::create())};
    osg::NodeRefPtr torch{nodeWith(osg::UberLight::create())};
};
