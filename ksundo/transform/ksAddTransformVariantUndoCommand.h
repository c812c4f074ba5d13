// SPDX-License-Identifier: MIT
#pragma once

#include <ksundo/core/ksUndoCommand.h>
#include <ksundo/transform/ksTransformVariantPlace.h>

/// Inserts a transform variant into a node's list.
///
/// The node gets a variants attachment when it has none; undo takes away the attachment again that the
/// command made, once the list is empty, and redo then puts back the very same one. The variant is kept alive
/// by the command. A node or variant that has gone makes the step a silent no-op.
class KSUNDO_EXPORT ksAddTransformVariantUndoCommand : public ksUndoCommand
{
    KS_UNDO_COMMAND(ksAddTransformVariantUndoCommand)

public:
    using Notification = ksTransformVariantPlace::Notification;

    /// \param index position from 0; what stands there and after moves up
    /// \param notification must not be empty: a step throws std::bad_function_call at its end otherwise
    ksAddTransformVariantUndoCommand(osg::NodePtr node, osg::TransformVariantPtr variant, unsigned long index,
                                     QUndoCommand *parent, Notification notification);

    void undo() override;
    void redo() override;

    /// Never.
    bool canMergeWith(const QUndoCommand *other) const override;

private:
    void provideAttachment(const osg::NodePtr &node);

    ksTransformVariantPlace place;
};
