// SPDX-License-Identifier: MIT
#pragma once

#include <ksundo/transform/detail/ksTransformVariantListUndoCommand.h>

/// Removes a transform variant from a node's list, and the variants attachment with the last one: Remove
/// transform variant 'Box'.
///
/// The variant and the attachment are those of the moment when the command is built; it keeps both alive and
/// undo puts the very same ones back. Redo removes what stands at the index then, be it another variant: who
/// changes the list other than through the stack shifts what its commands concern. Undo does nothing when
/// there was no variant at the index. A node that has gone makes the step a silent no-op. The command never
/// merges, and its message has "id" only.
class KSUNDO_EXPORT ksRemoveTransformSwitchVariantUndoCommand
    : public ksDetail::ksTransformVariantListUndoCommand
{
    KS_UNDO_COMMAND(ksRemoveTransformSwitchVariantUndoCommand)

public:
    /// Removes the variant at \a index, counted from 0. \a node may be null: the command then does nothing.
    /// \a notification receives the node's id and the index after every step, whatever its direction; it must
    /// not be empty, else a step throws std::bad_function_call at its end.
    ksRemoveTransformSwitchVariantUndoCommand(osg::NodePtr node, unsigned long index, QUndoCommand *parent,
                                              Notification notification);

    void undo() override; ///< inserts the variant
    void redo() override; ///< removes the variant
};
