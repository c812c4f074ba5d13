// SPDX-License-Identifier: MIT
#pragma once

#include <editor/edits/ksMerging.h>

#include <ksundo/transform/ksTransformValueUndoCommands.h>
#include <ksundo/transform/ksTransformationUndoCommand.h>

#include <OSGTransformVariant.h>
#include <OpenSG/OSGNode.h>

#include <QString>

#include <string>
#include <vector>

/// Which transform of a node an edit means, and how.
struct ksTransformTarget
{
    osg::NodePtr node;

    /// -1 the node's own, from 0 on those of its variants.
    int index = -1;

    /// Whether values are in world space; they are in the space of the node's parent otherwise.
    bool world = false;

    /// For the rotation direction: the axis that it is for, and whether it is on. An undo restores the
    /// direction and leaves these two.
    int directionAxis = 0;
    bool directionOn = true;
};

/// A vector value of transforms, as the editor edits it.
struct ksTransformProperty
{
    /// What osg::Transform3D calls it, and the field that holds it.
    const char *name;
    osg::UInt32 field;

    /// Whether it can be taken in world space.
    bool hasSpace;

    /// Whether variants have it, too.
    bool hasIndex;

    /// Whether its commands call a callback of their own.
    bool hasCallback;

    osg::Vec3f (*read)(const ksTransformTarget &target);

    /// A new command that sets the property of \a target to \a value. The caller owns it unless there is a \a
    /// parent.
    ksUndoCommand *(*make)(const ksTransformTarget &target, const osg::Vec3f &value,
                           const ksTransformCallback &callback, QUndoCommand *parent);
};

/// The edits of transforms that the editor offers.
namespace ksTransformEdits {

/// The ten vector values.
const std::vector<ksTransformProperty> &properties();

/// The one called \a name, or null.
const ksTransformProperty *find(const QString &name);

/// Throws ksEditorError when \a position in world space has none in the space of \a node's parent.
void refuseUnreachable(const osg::NodePtr &node, const osg::Vec3f &position);

/// A new command that applies \a values to the transform of \a node that \a index means. The caller owns it.
ksTransformationUndoCommand *makeApply(const osg::NodePtr &node, const ksTransformation &values, int index,
                                       bool syncs, ksTransformationUndoCommand::Notification notification,
                                       QUndoCommand *parent = nullptr);

/// Adds the commands that give the own transform of \a node what \a variant applies to \a batch, if both have
/// a transform.
void addApplied(const osg::NodePtr &node, const osg::TransformVariantPtr &variant, QUndoCommand *batch);

/// A new variant called \a name, with a transform that is as \a node's own is now.
osg::TransformVariantPtr makeVariant(const osg::NodePtr &node, const std::string &name);

} // namespace ksTransformEdits
