// SPDX-License-Identifier: MIT
#pragma once

#include <ksundo/core/ksNonMergingUndoCommand.h>
#include <ksundo/field/ksFieldBaseUndoCommand.h>

#include <optional>

/// Switches a flag of one container: a bool field, or an integer field of any width, into which it writes 0
/// or 1.
///
/// Redo and undo are the same exchange of the field's value with the stored one, which is a bool: an integer
/// other than 0 comes back as 1. The command never merges. A field of any other class is left alone, and so
/// is a container that has gone.
class KSUNDO_EXPORT ksBoolFieldUndoCommand : public ksNonMergingUndoCommand<ksFieldBaseUndoCommand>
{
    KS_UNDO_COMMAND(ksBoolFieldUndoCommand)

public:
    /// Sets the field \a field of \a container, by name or by id, to \a value when it is run, not before.
    ksBoolFieldUndoCommand(const QString &text, osg::FieldContainerPtr container, ksFieldKey field,
                           bool value, QUndoCommand *parent = nullptr);

    /// The same, with an empty text.
    ksBoolFieldUndoCommand(osg::FieldContainerPtr container, ksFieldKey field, bool value,
                           QUndoCommand *parent = nullptr)
        : ksBoolFieldUndoCommand(QString(), container, field, value, parent)
    {}

    void undo() override { apply(); } ///< the same exchange as redo()
    void redo() override { apply(); } ///< exchanges the field's value and the stored one

protected:
    /// What the next redo or undo writes.
    bool value;

private:
    void apply();

    /// Writes \a newValue and tells what the field held; nothing when there is no such field.
    void write(bool newValue, std::optional<bool> &previous) const;
};
