// SPDX-License-Identifier: MIT
#pragma once

#include <ksundo/core/ksContainerUndoCommand.h>

#include <OSGUBRDFMaterial.h>
#include <OpenSG/OSGMaterial.h>

/// Sets the environment of a physically based material: "Change Environment".
///
/// Undo sets the environment that the material had when the command was built, or none. The command keeps
/// none of the materials alive: an environment that has gone is set as none, and without the material a step
/// is a silent no-op. It never merges.
class KSUNDO_EXPORT ksSetEnvironmentUndoCommand
    : public ksContainerUndoCommand<ksSetEnvironmentUndoCommand, osg::UBRDFMaterialPtr, osg::UInt32>
{
    KS_UNDO_COMMAND(ksSetEnvironmentUndoCommand)

public:
    /// Neither \a material nor \a environment may be null. Somebody else than the material's present
    /// environment should hold \a environment: the old one is released before the new one is taken, and if
    /// that goes with it, the material is left without an environment.
    ksSetEnvironmentUndoCommand(osg::UBRDFMaterialPtr material, osg::MaterialPtr environment,
                                QUndoCommand *parent = nullptr);

    /// Adds "id", then "material", the material's id as unsigned int.
    void makeMessage(ksMessage &message) const override;

private:
    friend ksContainerUndoCommand;

    void apply(const osg::UBRDFMaterialPtr &material, osg::UInt32 fromId, osg::UInt32 environmentId) const;
};
