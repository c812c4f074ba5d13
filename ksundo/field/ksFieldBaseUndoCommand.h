// SPDX-License-Identifier: MIT
#pragma once

#include <ksundo/core/detail/ksFieldCast.h>
#include <ksundo/core/ksFindContainer.h>
#include <ksundo/core/ksUndoCommand.h>
#include <ksundo/field/ksFieldKey.h>

#include <utility>

/// Base class of the commands that change one field of one container.
///
/// It knows its target by the container's id and the field's id and mask. Derived classes find the living
/// container and the field at every step: a command neither keeps its container alive nor fails when that has
/// gone, but does nothing then. The same holds for a command whose field could not be found when it was
/// built; its ids are 0.
class KSUNDO_EXPORT ksFieldBaseUndoCommand : public ksUndoCommand
{
public:
    /// Aims at the field \a field of \a container, which may be NullFC.
    ksFieldBaseUndoCommand(const QString &text, osg::FieldContainerPtr container, ksFieldKey field,
                           QUndoCommand *parent = nullptr);

    /// The first field of \a container that is called \a name; null when there is none, and for NullFC. Case
    /// matters, but for the first letter: diffuse finds Diffuse, DIFFUSE does not. A field "parents" is never
    /// found, nor is the volume of a node: both are the scene graph's own business.
    static const osg::FieldDescription *findField(osg::FieldContainerPtr container, const std::string &name)
    {
        return ksFieldKey(name).findIn(container);
    }

    /// The id of the container that the command changes; 0 when its field could not be found.
    osg::UInt32 containerId() const { return fcId; }

    /// Adds "id", then "container" and "fieldId", the ids of the target as unsigned int, 0 when there is
    /// none.
    void makeMessage(ksMessage &message) const override;

    /// Demands, beyond ksUndoCommand's conditions, the same field of the same container.
    bool canMergeWith(const QUndoCommand *other) const override;

protected:
    /// The target's container, NullFC when it has gone, and its field when that exists and is exactly a
    /// \a FieldT, null otherwise.
    template <class FieldT>
    std::pair<osg::FieldContainerPtr, FieldT *> findTarget() const
    {
        const auto container = ksFindContainer<osg::FieldContainerPtr>(fcId);
        return {container, ksDetail::ksFieldCast<FieldT>(ksDetail::ksFindField(container, fieldId))};
    }

    osg::UInt32 fcId = 0;         ///< the container's id, 0 for none
    osg::UInt32 fieldId = 0;      ///< the field's id, counted from 1; 0 for none
    osg::BitVector fieldMask = 0; ///< the field's mask, 0 for none
};
