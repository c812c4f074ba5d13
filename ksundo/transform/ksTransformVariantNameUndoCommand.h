// SPDX-License-Identifier: MIT
#pragma once

#include <ksundo/core/ksContainerUndoCommand.h>
#include <ksundo/core/ksHandles.h>

#include <OSGTransformVariant.h>

#include <functional>
#include <string>

/// Renames a transform variant: "Transform Variant Name".
///
/// The old name is that of the moment when the command is built. Every step that finds the variant renames it
/// and then calls the notification; a variant that has gone makes the step a silent no-op. The command never
/// merges.
class KSUNDO_EXPORT ksTransformVariantNameUndoCommand
    : public ksContainerUndoCommand<ksTransformVariantNameUndoCommand, osg::TransformVariantPtr, std::string>
{
    KS_UNDO_COMMAND(ksTransformVariantNameUndoCommand)

public:
    /// Receives the name before the step and the name after it.
    using Notification = std::function<void(const std::string &, const std::string &)>;

    /// Names \a variant, which must not be null. \a notification must not be empty, else a step throws
    /// std::bad_function_call after it has written.
    ksTransformVariantNameUndoCommand(osg::TransformVariantPtr variant, std::string name,
                                      QUndoCommand *parent, Notification notification);

private:
    friend ksContainerUndoCommand;

    void apply(const osg::TransformVariantPtr &variant, const std::string &from, const std::string &to) const;

    Notification notification;
};
