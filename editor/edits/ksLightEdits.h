// SPDX-License-Identifier: MIT
#pragma once

#include <ksundo/core/ksUndoCommand.h>

#include <OSGUberLight.h>
#include <OpenSG/OSGNode.h>
#include <OpenSG/OSGVector.h>

#include <QString>

#include <vector>

/// What an edit gives a light: a colour, or a number as the first component.
using ksLightValue = osg::Vec3f;

/// A value of lights, as the editor edits it.
struct ksLightProperty
{
    /// What osg::UberLight calls it.
    const char *name;

    /// How many components of a ksLightValue count: 3 or 1.
    int components;

    /// Whether it may have a value.
    bool (*accepts)(const ksLightValue &value);

    ksLightValue (*read)(const osg::NodePtr &light);

    /// A new command that sets the property of \a light, a node, to \a value. The caller owns it unless there
    /// is a \a parent.
    ksUndoCommand *(*make)(const QString &text, const osg::NodePtr &light, const ksLightValue &value,
                           QUndoCommand *parent);
};

/// The edits of lights that the editor offers.
namespace ksLightEdits {

/// The two lists of a light link set, as ksAddNodeToLightLinkSetUndoCommand knows them.
constexpr unsigned int SceneNodeList = 0;
constexpr unsigned int LightList = 3;

/// The six values. The attenuation is the number of an osg::UberLight::LightAttenuation.
const std::vector<ksLightProperty> &properties();

/// The one called \a name, or null.
const ksLightProperty *find(const QString &name);

/// A new command that makes \a node, which may be null, the visibility reference of \a light in the place of
/// the one it has. A node that another of \a lights refers to as well keeps its mark. The caller owns the
/// command; null when the light refers to the node already.
QUndoCommand *makeVisibilityReference(const osg::UberLightPtr &light, const osg::NodePtr &node,
                                      const std::vector<osg::UberLightPtr> &lights);

} // namespace ksLightEdits
