// SPDX-License-Identifier: MIT
#pragma once

#include <ksundo/core/ksUndoCommand.h>

#include <OSGTransformVariant.h>

#include <functional>

/// Sets which components of a transform variant apply.
///
/// The old flags are those of the moment when the command is built. Every step that finds the variant sets
/// its flags and then calls the notification; a variant that has gone makes the step a silent no-op. The
/// command never merges.
class KSUNDO_EXPORT ksTransformVariantOptionsUndoCommand : public ksUndoCommand
{
    KS_UNDO_COMMAND(ksTransformVariantOptionsUndoCommand)

public:
    /// \param variant must not be NullFC
    /// \param notification must not be empty: a step throws std::bad_function_call after it has written
    /// otherwise
    ksTransformVariantOptionsUndoCommand(osg::TransformVariantPtr variant, unsigned long long flags,
                                         QUndoCommand *parent, std::function<void()> notification);

    void undo() override;
    void redo() override;

    /// Never.
    bool canMergeWith(const QUndoCommand *other) const override;

private:
    void apply(unsigned long long flags) const;

    osg::UInt32 variantId;
    unsigned long long oldFlags;
    unsigned long long newFlags;
    std::function<void()> notification;
};
