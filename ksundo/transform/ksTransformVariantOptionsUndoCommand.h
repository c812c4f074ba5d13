// SPDX-License-Identifier: MIT
#pragma once

#include <ksundo/core/ksContainerUndoCommand.h>
#include <ksundo/core/ksHandles.h>

#include <OSGTransformVariant.h>

#include <functional>

/// Sets which components of a transform variant apply: "Transform Variant Options".
///
/// The old flags are those of the moment when the command is built. Every step that finds the variant sets
/// its flags and then calls the notification; a variant that has gone makes the step a silent no-op. The
/// command never merges.
class KSUNDO_EXPORT ksTransformVariantOptionsUndoCommand
    : public ksContainerUndoCommand<ksTransformVariantOptionsUndoCommand, osg::TransformVariantPtr,
                                    unsigned long long>
{
    KS_UNDO_COMMAND(ksTransformVariantOptionsUndoCommand)

public:
    /// Sets the flags of \a variant, which must not be null: a bit for each component, as the application
    /// defines them. \a notification must not be empty, else a step throws std::bad_function_call after it
    /// has written.
    ksTransformVariantOptionsUndoCommand(osg::TransformVariantPtr variant, unsigned long long flags,
                                         QUndoCommand *parent, std::function<void()> notification);

private:
    friend ksContainerUndoCommand;

    void apply(const osg::TransformVariantPtr &variant, unsigned long long from,
               unsigned long long flags) const;

    std::function<void()> notification;
};
