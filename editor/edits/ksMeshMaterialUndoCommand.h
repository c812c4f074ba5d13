// SPDX-License-Identifier: MIT
#pragma once

#include <editor/scene/ksMesh.h>

#include <ksundo/core/ksContainerUndoCommand.h>
#include <ksundo/core/ksHeldReference.h>

/// Gives a mesh another material, or none. The command keeps both alive. A mesh that has gone makes a step a
/// silent no-op. It never merges.
class ksMeshMaterialUndoCommand
    : public ksContainerUndoCommand<ksMeshMaterialUndoCommand, osg::ksMeshPtr, bool>
{
    KS_UNDO_COMMAND(ksMeshMaterialUndoCommand)

public:
    /// \a material may be null.
    ksMeshMaterialUndoCommand(const osg::ksMeshPtr &mesh, const osg::MaterialPtr &material,
                              QUndoCommand *parent = nullptr);

private:
    friend ksContainerUndoCommand;

    void apply(const osg::ksMeshPtr &mesh, bool, bool isNew) const;

    ksHeldReference<osg::MaterialPtr> oldMaterial;
    ksHeldReference<osg::MaterialPtr> newMaterial;
};
