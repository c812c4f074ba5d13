// SPDX-License-Identifier: MIT
#pragma once

#include <ksundo/material/detail/ksWrappedFieldUndoCommand.h>

/// Runs one field command on a part of a material, and touches the component settings and the material
/// afterwards, so that both take notice of the change: the planar projection of the settings, then the colour
/// components of the material. Containers that have gone, or were null, are passed over. Two such commands
/// merge when material, settings and inner commands do.
class KSUNDO_EXPORT ksMaterialUndoCommand : public ksDetail::ksWrappedFieldUndoCommand
{
    KS_UNDO_COMMAND(ksMaterialUndoCommand)

public:
    /// Takes over \a command, which must have no parent, and must not be null if this one is to run.
    ksMaterialUndoCommand(const QString &text, ksFieldBaseUndoCommand *command,
                          osg::FieldContainerPtr material, osg::FieldContainerPtr componentSettings,
                          QUndoCommand *parent = nullptr);

    void undo() override; ///< that of the inner command, then the touches
    void redo() override; ///< that of the inner command, then the touches

    /// Adds "id" and "container", then, unless they were null, "material" and "componentSettings": container
    /// ids as unsigned int.
    void makeMessage(ksMessage &message) const override;
};
