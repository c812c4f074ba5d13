// SPDX-License-Identifier: MIT
#pragma once

#include <ksundo/core/ksMultiCommand.h>
#include <ksundo/material/detail/ksContainerContext.h>

/// Several commands on parts of a material as one step, after which the component settings and the material
/// are touched as by ksMaterialUndoCommand. Two such commands merge when material, settings and all children
/// do.
class KSUNDO_EXPORT ksMaterialMultiUndoCommand : public ksMultiCommand, public ksDetail::ksContainerContext
{
    KS_UNDO_COMMAND(ksMaterialMultiUndoCommand)

public:
    /// Builds a command without children, for a material and its component settings, either of which may be
    /// null.
    ksMaterialMultiUndoCommand(const QString &text, osg::FieldContainerPtr material,
                               osg::FieldContainerPtr componentSettings);

    void undo() override;                               ///< undoes the children, then the touches
    void redo() override;                               ///< redoes the children, then the touches
    bool mergeWith(const QUndoCommand *other) override; ///< demands the same material and settings as well

    /// Adds what ksMultiCommand does, then, unless they were null, "material" and "componentSettings":
    /// container ids as unsigned int.
    void makeMessage(ksMessage &message) const override;
};
