// SPDX-License-Identifier: MIT
#pragma once

#include <ksundo/field/ksFieldBaseUndoCommand.h>

/// Switches a flag of one container: a bool field, or an integer field of any width, into which it writes 0
/// or 1.
///
/// Redo and undo are the same exchange of the field's value with the stored one, which is a bool: an integer
/// other than 0 comes back as 1. The command never merges. A field of any other class is left alone.
class KSUNDO_EXPORT ksBoolFieldUndoCommand : public ksFieldBaseUndoCommand
{
    KS_UNDO_COMMAND(ksBoolFieldUndoCommand)

public:
    /// Sets the field of \a container called \a fieldName to \a value when it is run, and not before.
    ksBoolFieldUndoCommand(const QString &text, osg::FieldContainerPtr container,
                           const std::string &fieldName, bool value, QUndoCommand *parent = nullptr);

    /// The same, with an empty text.
    ksBoolFieldUndoCommand(osg::FieldContainerPtr container, const std::string &fieldName, bool value,
                           QUndoCommand *parent = nullptr);

    /// Sets the field of \a container with the id \a fieldId, counted from 1.
    ksBoolFieldUndoCommand(const QString &text, osg::FieldContainerPtr container, int fieldId, bool value,
                           QUndoCommand *parent = nullptr);

    /// The same, with an empty text.
    ksBoolFieldUndoCommand(osg::FieldContainerPtr container, int fieldId, bool value,
                           QUndoCommand *parent = nullptr);

    void undo() override;
    void redo() override;

    /// Never.
    bool canMergeWith(const QUndoCommand *other) const override;

protected:
    /// What the next redo or undo writes.
    bool value;

private:
    void apply();

    /// Does the exchange when the field in \a container is an osg::SField<T, fieldNamespace>; tells whether
    /// it was.
    template <class T, osg::Int32 fieldNamespace = 0>
    bool apply(osg::FieldContainerPtr container);
};
