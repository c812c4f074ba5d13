// SPDX-License-Identifier: MIT
#pragma once

#include <ksundo/core/ksContainerUndoCommand.h>

#include <OSGUberLight.h>
#include <OpenSG/OSGNode.h>

/// Makes a node the visibility reference of a light, or takes that away, and marks the node in its external
/// flags accordingly: "Add Node as Visibility Reference". It never merges.
///
/// The light holds a reference on the node, which is released with the field: a node that nobody else holds
/// goes then. The reference before is released first: a node that only that one holds, as its child, goes
/// with it, and the light is left without a reference. Undo does the opposite: it leaves the light without a
/// reference, or with the node as its reference, whatever it had before. A light or node that has gone, or
/// was null, makes a step a silent no-op.
class KSUNDO_EXPORT ksAddNodeAsVisibilityReferenceUndoCommand
    : public ksContainerUndoCommand<ksAddNodeAsVisibilityReferenceUndoCommand, osg::UberLightPtr, bool>
{
    KS_UNDO_COMMAND(ksAddNodeAsVisibilityReferenceUndoCommand)

public:
    /// Redo adds the reference or, with \a remove, removes it.
    ksAddNodeAsVisibilityReferenceUndoCommand(osg::UberLightPtr light, osg::NodePtr node, bool remove,
                                              QUndoCommand *parent = nullptr);

    /// Adds "id", then "lightCommand", the light's id as unsigned int, 0 for none.
    void makeMessage(ksMessage &message) const override;

private:
    friend ksContainerUndoCommand;

    void apply(const osg::UberLightPtr &light, bool, bool removing) const;

    osg::UInt32 nodeId;
};
