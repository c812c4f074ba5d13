// SPDX-License-Identifier: MIT
#include <ksundo/field/ksStringsFieldUndoCommand.h>

ksStringsFieldUndoCommand::ksStringsFieldUndoCommand(const QString &text, osg::FieldContainerPtr container,
                                                     const std::string &fieldName,
                                                     const osg::MField<std::string> &newValues,
                                                     QUndoCommand *parent)
    : ksTextFieldUndoCommand(text, container, fieldName, {newValues.begin(), newValues.end()}, parent)
{}

ksStringsFieldUndoCommand::ksStringsFieldUndoCommand(osg::FieldContainerPtr container,
                                                     const std::string &fieldName,
                                                     const osg::MField<std::string> &newValues,
                                                     QUndoCommand *parent)
    : ksStringsFieldUndoCommand(QString(), container, fieldName, newValues, parent)
{}

void ksStringsFieldUndoCommand::getStdStrings(const osg::MField<std::string> *field,
                                              std::vector<std::string> &strings)
{
    strings.assign(field->begin(), field->end());
}

void ksStringsFieldUndoCommand::setStdStrings(const std::vector<std::string> &strings,
                                              osg::MField<std::string> *field)
{
    field->clear();
    for (const std::string &string : strings)
        field->push_back(string);
}
