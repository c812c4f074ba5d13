// SPDX-License-Identifier: MIT
#include <ksundo/field/ksStringFieldUndoCommand.h>

ksStringFieldUndoCommand::ksStringFieldUndoCommand(const QString &text, osg::FieldContainerPtr container,
                                                   const std::string &fieldName, std::string newValue,
                                                   QUndoCommand *parent)
    : ksTextFieldUndoCommand(text, container, fieldName, std::move(newValue), parent)
{}

ksStringFieldUndoCommand::ksStringFieldUndoCommand(osg::FieldContainerPtr container,
                                                   const std::string &fieldName, std::string newValue,
                                                   QUndoCommand *parent)
    : ksStringFieldUndoCommand(QString(), container, fieldName, std::move(newValue), parent)
{}

ksStringFieldUndoCommand::ksStringFieldUndoCommand(const QString &text, osg::FieldContainerPtr container,
                                                   int fieldId, std::string newValue, QUndoCommand *parent)
    : ksTextFieldUndoCommand(text, container, fieldId, std::move(newValue), parent)
{}

ksStringFieldUndoCommand::ksStringFieldUndoCommand(osg::FieldContainerPtr container, int fieldId,
                                                   std::string newValue, QUndoCommand *parent)
    : ksStringFieldUndoCommand(QString(), container, fieldId, std::move(newValue), parent)
{}

void ksStringFieldUndoCommand::read(const osg::SField<std::string> *field, std::string &value)
{
    value = field->getValue();
}

void ksStringFieldUndoCommand::write(const std::string &value, osg::SField<std::string> *field)
{
    field->setValue(value);
}
