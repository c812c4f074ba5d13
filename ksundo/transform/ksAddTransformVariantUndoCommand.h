// SPDX-License-Identifier: MIT
#pragma once

#include <ksundo/transform/detail/ksTransformVariantListUndoCommand.h>

/// Inserts a transform variant into a node's list: Insert transform variant 'Box'.
///
/// The node gets a variants attachment when it has none; undo takes away the attachment again that the
/// command made, once the list is empty, and redo then puts back the very same one. The variant is kept alive
/// by the command. Undo removes what stands at the index then, be it another variant: who changes the list
/// other than through the stack shifts what its commands concern. A node or variant that has gone makes the
/// step a silent no-op. The command never merges, and its message has "id" only.
class KSUNDO_EXPORT ksAddTransformVariantUndoCommand : public ksDetail::ksTransformVariantListUndoCommand
{
    KS_UNDO_COMMAND(ksAddTransformVariantUndoCommand)

public:
    /// Inserts \a variant at \a index, counted from 0; what stands there and after moves up. \a node and
    /// \a variant may be null: the command then does nothing. \a notification receives the node's id and the
    /// index after every step, whatever its direction; it must not be empty, else a step throws
    /// std::bad_function_call at its end.
    ksAddTransformVariantUndoCommand(osg::NodePtr node, osg::TransformVariantPtr variant, unsigned long index,
                                     QUndoCommand *parent, Notification notification);

    void undo() override; ///< removes the variant
    void redo() override; ///< inserts the variant
};
