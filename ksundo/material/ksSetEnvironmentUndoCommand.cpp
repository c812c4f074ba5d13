// SPDX-License-Identifier: MIT
#include <ksundo/core/ksFindContainer.h>
#include <ksundo/core/ksTouch.h>
#include <ksundo/material/ksSetEnvironmentUndoCommand.h>

#include <ksMessage.h>

#include <QCoreApplication>

ksSetEnvironmentUndoCommand::ksSetEnvironmentUndoCommand(osg::UBRDFMaterialPtr material,
                                                         osg::MaterialPtr environment, QUndoCommand *parent)
    : ksUndoCommand(QCoreApplication::translate("ksSetEnvironmentUndoCommand", "Change Environment"), parent)
    , materialId(material.getFieldContainerId())
    , oldEnvironmentId(material->getEnvironment().getFieldContainerId())
    , newEnvironmentId(environment.getFieldContainerId())
{}

void ksSetEnvironmentUndoCommand::undo()
{
    apply(oldEnvironmentId);
}

void ksSetEnvironmentUndoCommand::redo()
{
    apply(newEnvironmentId);
}

void ksSetEnvironmentUndoCommand::makeMessage(ksMessage &message) const
{
    ksUndoCommand::makeMessage(message);
    if (materialId != 0)
        message.set("material", materialId, true);
}

bool ksSetEnvironmentUndoCommand::canMergeWith(const QUndoCommand *) const
{
    return false;
}

void ksSetEnvironmentUndoCommand::apply(osg::UInt32 environmentId) const
{
    const auto material = ksFindContainer<osg::UBRDFMaterialPtr>(materialId);
    if (material == osg::NullFC)
        return;
    osg::setRefdCP(material->getSFEnvironment()->getValue(),
                   ksFindContainer<osg::MaterialPtr>(environmentId));
    ksTouch(material, osg::UBRDFMaterialBase::EnvironmentFieldMask);
}
