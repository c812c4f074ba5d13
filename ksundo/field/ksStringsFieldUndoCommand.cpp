// SPDX-License-Identifier: MIT
#include <ksundo/field/ksStringsFieldUndoCommand.h>

ksStringsFieldUndoCommand::ksStringsFieldUndoCommand(const QString &text, osg::FieldContainerPtr container,
                                                     ksFieldKey field,
                                                     const osg::MField<std::string> &newValues,
                                                     QUndoCommand *parent)
    : ksTextFieldUndoCommand(text, container, field, {newValues.begin(), newValues.end()}, parent)
{}

void ksStringsFieldUndoCommand::setStdStrings(const std::vector<std::string> &strings,
                                              osg::MField<std::string> *field)
{
    Q_ASSERT(field != nullptr);
    field->clear();
    for (const std::string &string : strings)
        field->push_back(string);
}
