// SPDX-License-Identifier: MIT
#pragma once

#include <ksundo/core/NodeUtils.h>
#include <ksundo/core/ksMergeOption.h>
#include <ksundo/transform/ksFunctionUndoCommand.h>
#include <ksundo/transform/ksTransformUndoBaseCommand.h>

#include <QString>

/// Changes one value of one transform node.
///
/// Its text is a verb and the node's name in apostrophes, as it is when the command is built: Translate
/// 'Box'. Commands merge when they concern the same node in the same mode and with the same index.
///
/// \tparam T the value's type: anything that can be copied and assigned
template <class T>
class ksTransformUndoCommand : public ksFunctionUndoCommand<T>, public ksTransformUndoBaseCommand
{
public:
    /// Sets the property to \a value, in that of the node's transforms which \a index tells: -1 its own, from
    /// 0 on that of the variant which stands there when a step is done. \a verb, translated, is what the text
    /// begins with, \a modeFlag an option of the property's getter and setter. \a merging tells whether the
    /// command may be absorbed by the one before it (a bool), or the length of its merge window in seconds (a
    /// double). \a node may be null: the command then does nothing.
    ksTransformUndoCommand(const QString &verb, osg::NodePtr node, T value, bool modeFlag,
                           ksMergeOption merging, QUndoCommand *parent = nullptr, int index = -1)
        : ksFunctionUndoCommand<T>(textOf(verb, node), node, std::move(value), parent)
        , modeFlag(modeFlag)
        , index(index)
    {
        merging.applyTo(*this);
    }

    /// The same, with merging as every command begins.
    ksTransformUndoCommand(const QString &verb, osg::NodePtr node, T value, bool modeFlag,
                           QUndoCommand *parent = nullptr, int index = -1)
        : ksTransformUndoCommand(verb, node, std::move(value), modeFlag, ksMergeOption(), parent, index)
    {}

    /// Adds "id" and "node", then "transformCommand", which is true.
    void makeMessage(ksMessage &message) const override
    {
        ksFunctionUndoCommand<T>::makeMessage(message);
        message.set("transformCommand", true, true);
    }

    /// Demands, beyond the same node, the same mode and index.
    bool canMergeWith(const QUndoCommand *other) const override
    {
        if (!ksFunctionUndoCommand<T>::canMergeWith(other))
            return false;
        const auto *newer = static_cast<const ksTransformUndoCommand *>(other);
        return newer->modeFlag == modeFlag && newer->index == index;
    }

protected:
    bool modeFlag; ///< an option of the property's getter and setter
    int index;     ///< which of the node's transforms

private:
    static QString textOf(const QString &verb, const osg::NodePtr &node)
    {
        return verb + QLatin1String(" '") + NodeUtils::displayName(node) + QLatin1Char('\'');
    }
};
