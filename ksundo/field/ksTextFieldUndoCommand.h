// SPDX-License-Identifier: MIT
#pragma once

#include <ksundo/core/ksTouch.h>
#include <ksundo/field/ksFieldBaseUndoCommand.h>

/// Mechanics of the commands that replace the whole content of a text field.
///
/// The command keeps the content that the field had when the command was built, and the one to write. It
/// absorbs a newer command, within its merge window, when that one's old content is exactly this one's new
/// content: a run of edits of the same text becomes one step. Nothing else is compared, so that a command on
/// another field or container which happens to hold this command's new content is absorbed, too; what it
/// would have written goes to this command's field on redo.
///
/// \tparam Command the class, which says how content is read and written
/// \tparam FieldT the class of the field
/// \tparam Content what the command keeps of it
template <class Command, class FieldT, class Content>
class ksTextFieldUndoCommand : public ksFieldBaseUndoCommand
{
public:
    void undo() override { write(oldContent); }
    void redo() override { write(newContent); }

    bool mergeWith(const QUndoCommand *other) override
    {
        if (!absorb(other))
            return false;
        newContent = static_cast<const ksTextFieldUndoCommand *>(other)->newContent;
        return true;
    }

    /// Demands, beyond ksUndoCommand's conditions, that \a other goes on from this command's new content.
    bool canMergeWith(const QUndoCommand *other) const override
    {
        // Which field it is does not matter. NOLINTNEXTLINE(bugprone-parent-virtual-call)
        return ksUndoCommand::canMergeWith(other) &&
               static_cast<const ksTextFieldUndoCommand *>(other)->oldContent == newContent;
    }

    /// The container, NullFC when it is gone, and its field, null when there is none of this command's class.
    std::pair<osg::FieldContainerPtr, FieldT *> getField() const { return findTarget<FieldT>(); }

protected:
    /// \param field the name of the field, or its id counted from 1
    template <class FieldKey>
    ksTextFieldUndoCommand(const QString &text, osg::FieldContainerPtr container, const FieldKey &field,
                           Content newContent, QUndoCommand *parent)
        : ksFieldBaseUndoCommand(text, container, field, parent)
        , newContent(std::move(newContent))
    {
        if (const FieldT *target = getField().second)
            Command::read(target, oldContent);
    }

private:
    void write(const Content &content) const
    {
        const auto [container, field] = getField();
        if (field == nullptr)
            return;
        Command::write(content, field);
        ksTouch(container, fieldMask);
    }

    Content oldContent;
    Content newContent;
};
