// SPDX-License-Identifier: MIT
#pragma once

#include <ksundo/core/ksUndoCommand.h>
#include <ksundo/transform/ksTransformVariantPlace.h>

/// Removes a transform variant from a node's list, and the variants attachment with the last one.
///
/// The variant and the attachment are those of the moment when the command is built; it keeps both alive and
/// undo puts the very same ones back. Undo does nothing when there was no variant at the index. A node that
/// has gone makes the step a silent no-op.
class KSUNDO_EXPORT ksRemoveTransformSwitchVariantUndoCommand : public ksUndoCommand
{
    KS_UNDO_COMMAND(ksRemoveTransformSwitchVariantUndoCommand)

public:
    using Notification = ksTransformVariantPlace::Notification;

    /// \param index position from 0
    /// \param notification must not be empty: a step throws std::bad_function_call at its end otherwise
    ksRemoveTransformSwitchVariantUndoCommand(osg::NodePtr node, unsigned long index, QUndoCommand *parent,
                                              Notification notification);

    void undo() override;
    void redo() override;

    /// Never.
    bool canMergeWith(const QUndoCommand *other) const override;

private:
    ksTransformVariantPlace place;
};
