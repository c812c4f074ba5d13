// SPDX-License-Identifier: MIT
#pragma once

#include <ksundo/field/ksFieldBaseUndoCommand.h>
#include <ksundo/material/detail/ksContainerContext.h>

#include <memory>

namespace ksDetail {

/// Base class of the commands that run one field command, the inner one, in the context of two containers.
class KSUNDO_EXPORT ksWrappedFieldUndoCommand : public ksUndoCommand, public ksContainerContext
{
public:
    void undo() override { inner().undo(); }
    void redo() override { inner().redo(); }

    /// Lets the inner command absorb the inner command of \a other.
    bool mergeWith(const QUndoCommand *other) override;

    /// Adds "id", then "container", the id of the container that the inner command changes as unsigned int.
    void makeMessage(ksMessage &message) const override;

    /// Demands, beyond ksUndoCommand's conditions, the same context, and that the inner commands can merge.
    bool canMergeWith(const QUndoCommand *other) const override;

protected:
    /// Takes over \a command. A command without an inner one may be destroyed, but nothing else.
    ksWrappedFieldUndoCommand(const QString &text, ksFieldBaseUndoCommand *command,
                              const osg::FieldContainerPtr &first, const osg::FieldContainerPtr &second,
                              QUndoCommand *parent);

private:
    ksFieldBaseUndoCommand &inner() const
    {
        Q_ASSERT(command != nullptr);
        return *command;
    }

    std::unique_ptr<ksFieldBaseUndoCommand> command;
};

} // namespace ksDetail
