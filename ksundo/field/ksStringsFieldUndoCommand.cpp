// SPDX-License-Identifier: MIT
#include <ksundo/field/ksStringsFieldUndoCommand.h>

template class ksTextFieldUndoCommand<ksStringsFieldUndoCommand, osg::MField<std::string>,
                                      std::vector<std::string>>;

void ksStringsFieldUndoCommand::setStdStrings(const std::vector<std::string> &strings,
                                              osg::MField<std::string> *field)
{
    Q_ASSERT(field != nullptr);
    field->clear();
    for (const std::string &string : strings)
        field->push_back(string);
}
