// SPDX-License-Identifier: MIT
#pragma once

#include <ksundo/field/ksTextFieldUndoCommand.h>

#include <OpenSG/OSGSFBaseTypes.h>

#include <string>
#include <utility>

/// Sets a text field, an osg::SField<std::string>, of one container. Successive edits of a text merge, and
/// what is missing is passed over, as ksTextFieldUndoCommand says.
class KSUNDO_EXPORT ksStringFieldUndoCommand
    : public ksTextFieldUndoCommand<ksStringFieldUndoCommand, osg::SField<std::string>, std::string>
{
    KS_UNDO_COMMAND(ksStringFieldUndoCommand)

public:
    /// Sets the field \a field of \a container, by name or by id, to \a newValue when it is run, not before.
    ksStringFieldUndoCommand(const QString &text, osg::FieldContainerPtr container, ksFieldKey field,
                             std::string newValue, QUndoCommand *parent = nullptr)
        : ksTextFieldUndoCommand(text, container, field, std::move(newValue), parent)
    {}

    /// The same, with an empty text.
    ksStringFieldUndoCommand(osg::FieldContainerPtr container, ksFieldKey field, std::string newValue,
                             QUndoCommand *parent = nullptr)
        : ksStringFieldUndoCommand(QString(), container, field, std::move(newValue), parent)
    {}

private:
    friend ksTextFieldUndoCommand;

    static void read(const osg::SField<std::string> *field, std::string &value) { value = field->getValue(); }
    static void write(const std::string &value, osg::SField<std::string> *field) { field->setValue(value); }
};

extern template class ksTextFieldUndoCommand<ksStringFieldUndoCommand, osg::SField<std::string>, std::string>;
