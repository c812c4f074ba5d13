// SPDX-License-Identifier: MIT
#pragma once

#include <ksundo/field/ksTextFieldUndoCommand.h>

#include <OpenSG/OSGMFBaseTypes.h>

#include <string>
#include <vector>

/// Replaces the strings of a list field, an osg::MField<std::string>, of one container. Undo writes those
/// that the field held when the command was built, none when the field could not be found then. Successive
/// edits of a list merge as ksTextFieldUndoCommand says. A field of any other class is left alone.
class KSUNDO_EXPORT ksStringsFieldUndoCommand
    : public ksTextFieldUndoCommand<ksStringsFieldUndoCommand, osg::MField<std::string>,
                                    std::vector<std::string>>
{
    KS_UNDO_COMMAND(ksStringsFieldUndoCommand)

public:
    /// Sets the field of \a container called \a fieldName to the strings of \a newValues, which are copied,
    /// when it is run, and not before.
    ksStringsFieldUndoCommand(const QString &text, osg::FieldContainerPtr container,
                              const std::string &fieldName, const osg::MField<std::string> &newValues,
                              QUndoCommand *parent = nullptr);

    /// The same, with an empty text.
    ksStringsFieldUndoCommand(osg::FieldContainerPtr container, const std::string &fieldName,
                              const osg::MField<std::string> &newValues, QUndoCommand *parent = nullptr);

    /// Sets \a strings to those of \a field, in order.
    static void getStdStrings(const osg::MField<std::string> *field, std::vector<std::string> &strings);

    /// Sets \a field to \a strings, in order. The edit of its container is up to the caller.
    static void setStdStrings(const std::vector<std::string> &strings, osg::MField<std::string> *field);

private:
    friend ksTextFieldUndoCommand;

    static constexpr auto read = &getStdStrings;
    static constexpr auto write = &setStdStrings;
};
