// SPDX-License-Identifier: MIT
#pragma once

#include <ksundo/core/ksUndoCommand.h>

#include <OSGTransformVariant.h>

#include <functional>
#include <string>

/// Renames a transform variant.
///
/// The old name is that of the moment when the command is built. Every step that finds the variant renames it
/// and then calls the notification; a variant that has gone makes the step a silent no-op. The command never
/// merges.
class KSUNDO_EXPORT ksTransformVariantNameUndoCommand : public ksUndoCommand
{
    KS_UNDO_COMMAND(ksTransformVariantNameUndoCommand)

public:
    /// Receives the name before the step and the name after it.
    using Notification = std::function<void(const std::string &, const std::string &)>;

    /// \param variant must not be NullFC
    /// \param notification must not be empty: a step throws std::bad_function_call after it has written
    /// otherwise
    ksTransformVariantNameUndoCommand(osg::TransformVariantPtr variant, std::string name,
                                      QUndoCommand *parent, Notification notification);

    void undo() override;
    void redo() override;

    /// Never.
    bool canMergeWith(const QUndoCommand *other) const override;

private:
    void rename(const std::string &from, const std::string &to) const;

    osg::UInt32 variantId;
    std::string oldName;
    std::string newName;
    Notification notification;
};
