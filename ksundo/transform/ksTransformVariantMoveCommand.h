// SPDX-License-Identifier: MIT
#pragma once

#include <ksundo/core/ksContainerUndoCommand.h>
#include <ksundo/transform/detail/ksTransformVariantPlaces.h>

#include <OpenSG/OSGNode.h>

#include <functional>
#include <utility>
#include <vector>

/// Moves transform variants of a node to another position of its list: Move transform variant 'Box'.
///
/// Which variant stands where, and must stand where, is recorded when the command is built. A step takes the
/// variants out, the last first, and puts them back, the first first, so that every recorded index is valid
/// when it is used; it holds references on them meanwhile. What it takes out is what stands at the recorded
/// index then: after a change of the list other than through the stack that may be other variants, which
/// leave the list, while those recorded come in once more. Variants that have gone are skipped. A node that
/// has gone makes the step a silent no-op. The command never merges.
class KSUNDO_EXPORT ksTransformVariantMoveCommand
    : public ksContainerUndoCommand<ksTransformVariantMoveCommand, osg::NodePtr,
                                    ksDetail::ksTransformVariantPlaces>
{
    KS_UNDO_COMMAND(ksTransformVariantMoveCommand)

public:
    /// Receives the node's id, the indexes where the variants were before the step, and those where they are
    /// after it.
    using Notification = std::function<void(unsigned int, const QList<int> &, const QList<int> &)>;

    /// Moves the variants at \a indexes, which must differ, so that they end up from \a to on, in the order
    /// of the vector. Indexes without a variant are skipped. When the variants would end up beyond the list's
    /// end, or there are none, the command moves nothing and notifies with empty lists.
    /// \a node may be null: the command then does nothing. \a notification must not be empty, else a step
    /// throws std::bad_function_call at its end.
    ksTransformVariantMoveCommand(osg::NodePtr node, const std::vector<int> &indexes, int to,
                                  QUndoCommand *parent, Notification notification);

    /// Moves the variant at \a from so that it ends up at \a to. Both must be indexes of the list; otherwise
    /// the command moves nothing.
    ksTransformVariantMoveCommand(osg::NodePtr node, int from, int to, QUndoCommand *parent,
                                  Notification notification)
        : ksTransformVariantMoveCommand(node, std::vector<int>{from}, to, parent, std::move(notification))
    {}

private:
    friend ksContainerUndoCommand;

    using Places = ksDetail::ksTransformVariantPlaces;

    void apply(const osg::NodePtr &node, const Places &from, const Places &to) const;
    void putBack(const Places &places) const;

    // The step takes itself back, as long as it holds what is out of the list.
    void takeBack(const osg::NodePtr &, const Places &, const Places &) const {}

    Notification notification;
};
