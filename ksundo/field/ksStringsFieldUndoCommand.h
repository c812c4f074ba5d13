// SPDX-License-Identifier: MIT
#pragma once

#include <ksundo/field/ksTextFieldUndoCommand.h>

#include <OpenSG/OSGMFBaseTypes.h>

#include <vector>

/// Replaces the strings of a list field, an osg::MField<std::string>, of one container. Successive edits of a
/// list merge, and what is missing is passed over, as ksTextFieldUndoCommand says.
class KSUNDO_EXPORT ksStringsFieldUndoCommand
    : public ksTextFieldUndoCommand<ksStringsFieldUndoCommand, osg::MField<std::string>,
                                    std::vector<std::string>>
{
    KS_UNDO_COMMAND(ksStringsFieldUndoCommand)

public:
    /// Sets the field \a field of \a container, by name or by id, to the strings of \a newValues, which are
    /// copied, when it is run, not before.
    ksStringsFieldUndoCommand(const QString &text, osg::FieldContainerPtr container, ksFieldKey field,
                              const osg::MField<std::string> &newValues, QUndoCommand *parent = nullptr)
        : ksTextFieldUndoCommand(text, container, field, {newValues.begin(), newValues.end()}, parent)
    {}

    /// The same, with an empty text.
    ksStringsFieldUndoCommand(osg::FieldContainerPtr container, ksFieldKey field,
                              const osg::MField<std::string> &newValues, QUndoCommand *parent = nullptr)
        : ksStringsFieldUndoCommand(QString(), container, field, newValues, parent)
    {}

    /// Sets \a strings to those of \a field, which must not be null, in order.
    static void getStdStrings(const osg::MField<std::string> *field, std::vector<std::string> &strings)
    {
        Q_ASSERT(field != nullptr);
        strings.assign(field->begin(), field->end());
    }

    /// Sets \a field, which must not be null, to \a strings, in order. Its container is not told.
    static void setStdStrings(const std::vector<std::string> &strings, osg::MField<std::string> *field);

private:
    friend ksTextFieldUndoCommand;

    static constexpr auto read = &getStdStrings;
    static constexpr auto write = &setStdStrings;
};

extern template class ksTextFieldUndoCommand<ksStringsFieldUndoCommand, osg::MField<std::string>,
                                             std::vector<std::string>>;
