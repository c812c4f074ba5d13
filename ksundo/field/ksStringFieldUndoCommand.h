// SPDX-License-Identifier: MIT
#pragma once

#include <ksundo/field/ksTextFieldUndoCommand.h>

#include <OpenSG/OSGSFBaseTypes.h>

#include <string>

/// Sets a text field, an osg::SField<std::string>, of one container. Undo writes what the field held when the
/// command was built, which is empty when the field could not be found then. Successive edits of a text merge
/// as ksTextFieldUndoCommand says. A field of any other class is left alone.
class KSUNDO_EXPORT ksStringFieldUndoCommand
    : public ksTextFieldUndoCommand<ksStringFieldUndoCommand, osg::SField<std::string>, std::string>
{
    KS_UNDO_COMMAND(ksStringFieldUndoCommand)

public:
    /// Sets the field of \a container called \a fieldName to \a newValue when it is run, and not before.
    ksStringFieldUndoCommand(const QString &text, osg::FieldContainerPtr container,
                             const std::string &fieldName, std::string newValue,
                             QUndoCommand *parent = nullptr);

    /// The same, with an empty text.
    ksStringFieldUndoCommand(osg::FieldContainerPtr container, const std::string &fieldName,
                             std::string newValue, QUndoCommand *parent = nullptr);

    /// Sets the field of \a container with the id \a fieldId, counted from 1.
    ksStringFieldUndoCommand(const QString &text, osg::FieldContainerPtr container, int fieldId,
                             std::string newValue, QUndoCommand *parent = nullptr);

    /// The same, with an empty text.
    ksStringFieldUndoCommand(osg::FieldContainerPtr container, int fieldId, std::string newValue,
                             QUndoCommand *parent = nullptr);

private:
    friend ksTextFieldUndoCommand;

    static void read(const osg::SField<std::string> *field, std::string &value);
    static void write(const std::string &value, osg::SField<std::string> *field);
};
