// SPDX-License-Identifier: MIT
#pragma once

#include <ksundo/core/ksBeforeAfterUndoCommand.h>
#include <ksundo/core/ksEndEdit.h>
#include <ksundo/field/ksFieldBaseUndoCommand.h>

/// Mechanics of the commands that replace the whole content of a text field.
///
/// The command keeps the content that the field had when the command was built, empty when the field could
/// not be found then, and the one to write. It absorbs a newer command, within its merge window, when that
/// one's old content is exactly this one's new content: a run of edits of the same text becomes one step.
/// Nothing else is compared, so that a command on another field or container which happens to hold this
/// command's new content is absorbed, too; what it would have written goes to this command's field on redo.
///
/// A field of any other class is left alone, and so is a container that has gone.
///
/// \tparam Command the class, whose static functions read(field, content) and write(content, field) say how
/// \tparam FieldT the class of the field
/// \tparam Content what the command keeps of it
template <class Command, class FieldT, class Content>
class KSUNDO_EXPORT ksTextFieldUndoCommand
    : public ksBeforeAfterUndoCommand<ksTextFieldUndoCommand<Command, FieldT, Content>, Content,
                                      ksFieldBaseUndoCommand>
{
    static_assert(std::is_base_of_v<osg::Field, FieldT>, "FieldT must be a field");

    using Base = ksBeforeAfterUndoCommand<ksTextFieldUndoCommand, Content, ksFieldBaseUndoCommand>;

public:
    /// Takes over the new content of \a other.
    bool mergeWith(const QUndoCommand *other) override
    {
        if (!this->absorb(other))
            return false;
        this->after = static_cast<const ksTextFieldUndoCommand *>(other)->after;
        return true;
    }

    /// Demands, beyond ksUndoCommand's conditions, that \a other goes on from this command's new content.
    bool canMergeWith(const QUndoCommand *other) const override
    {
        // Which field it is does not matter. NOLINTNEXTLINE(bugprone-parent-virtual-call)
        return ksUndoCommand::canMergeWith(other) &&
               static_cast<const ksTextFieldUndoCommand *>(other)->before == this->after;
    }

    /// The container, NullFC when it is gone, and its field, null when there is none of this command's class.
    std::pair<osg::FieldContainerPtr, FieldT *> getField() const;

protected:
    /// Sets the field \a field of \a container to \a newContent when it is run, not before.
    ksTextFieldUndoCommand(const QString &text, osg::FieldContainerPtr container, ksFieldKey field,
                           Content &&newContent, QUndoCommand *parent);

private:
    friend Base;

    void apply(const Content &, const Content &content) const;
};

// What asks for a field's class stands outside, so that the library's own commands have it from the library,
// and not from an application to which the scene graph's templates may be hidden.

template <class Command, class FieldT, class Content>
ksTextFieldUndoCommand<Command, FieldT, Content>::ksTextFieldUndoCommand(const QString &text,
                                                                         osg::FieldContainerPtr container,
                                                                         ksFieldKey field,
                                                                         Content &&newContent,
                                                                         QUndoCommand *parent)
    : Base(Content(), std::move(newContent), text, container, field, parent)
{
    if (const FieldT *target = getField().second)
        Command::read(target, this->before);
}

template <class Command, class FieldT, class Content>
std::pair<osg::FieldContainerPtr, FieldT *> ksTextFieldUndoCommand<Command, FieldT, Content>::getField() const
{
    return this->template findTarget<FieldT>();
}

template <class Command, class FieldT, class Content>
void ksTextFieldUndoCommand<Command, FieldT, Content>::apply(const Content &, const Content &content) const
{
    const auto [container, field] = getField();
    if (field == nullptr)
        return;
    Command::write(content, field);
    ksEndEdit(container, this->fieldMask);
}
