// SPDX-License-Identifier: MIT
#pragma once

#include <ksundo/core/ksUndoCommand.h>

#include <OSGUberLight.h>
#include <OpenSG/OSGNode.h>

/// Makes a node the visibility reference of a light, or takes that away, and marks the node in its external
/// flags accordingly.
///
/// Undo does the opposite: it leaves the light without a reference, or with the node as its reference,
/// whatever it had before. A light or node that has gone, or was null, makes a step a silent no-op.
class KSUNDO_EXPORT ksAddNodeAsVisibilityReferenceUndoCommand : public ksUndoCommand
{
    KS_UNDO_COMMAND(ksAddNodeAsVisibilityReferenceUndoCommand)

public:
    /// \param remove false: redo adds the reference; true: redo removes it
    ksAddNodeAsVisibilityReferenceUndoCommand(osg::UberLightPtr light, osg::NodePtr node, bool remove,
                                              QUndoCommand *parent = nullptr);

    void undo() override;
    void redo() override;

    /// Adds "id", then "lightCommand", the light's id as unsigned int, 0 for none.
    void makeMessage(ksMessage &message) const override;

    /// Never.
    bool canMergeWith(const QUndoCommand *other) const override;

private:
    void apply(bool removing) const;

    osg::UInt32 lightId;
    osg::UInt32 nodeId;
    bool remove;
};
