// SPDX-License-Identifier: MIT
#include <editor/edits/ksMeshMaterialUndoCommand.h>
#include <editor/scene/ksContainers.h>

ksMeshMaterialUndoCommand::ksMeshMaterialUndoCommand(const osg::ksMeshPtr &mesh,
                                                     const osg::MaterialPtr &material, QUndoCommand *parent)
    : ksContainerUndoCommand(QStringLiteral("Set material of '") + ksContainers::nameOf(mesh) +
                                 QLatin1Char('\''),
                             mesh, false, true, parent)
    , oldMaterial(mesh->getMaterial())
    , newMaterial(material)
{}

void ksMeshMaterialUndoCommand::apply(const osg::ksMeshPtr &mesh, bool, bool isNew) const
{
    CPEdit(mesh, osg::ksMesh::MaterialFieldMask);
    mesh->setMaterial((isNew ? newMaterial : oldMaterial).get());
}
