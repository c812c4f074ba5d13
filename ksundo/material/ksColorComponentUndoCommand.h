// SPDX-License-Identifier: MIT
#pragma once

#include <ksundo/material/detail/ksWrappedFieldUndoCommand.h>

/// Runs one field command on a colour component, and tells which component of which container that concerns.
/// The component is known by its id, wherever it stands among the others by then.
/// Nothing but the inner command's own container is notified. Two such commands merge when component, parent
/// container and inner commands do.
class KSUNDO_EXPORT ksColorComponentUndoCommand : public ksDetail::ksWrappedFieldUndoCommand
{
    KS_UNDO_COMMAND(ksColorComponentUndoCommand)

public:
    /// Takes over \a command, which must have no parent, and must not be null if this one is to run.
    ksColorComponentUndoCommand(const QString &text, ksFieldBaseUndoCommand *command,
                                osg::FieldContainerPtr component, osg::FieldContainerPtr parentContainer,
                                QUndoCommand *parent = nullptr);

    /// Adds "id" and "container", then, unless they were null, "component" and "parent": container ids as
    /// unsigned int.
    void makeMessage(ksMessage &message) const override;
};
