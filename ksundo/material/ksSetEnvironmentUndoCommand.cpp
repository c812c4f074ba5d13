// SPDX-License-Identifier: MIT
#include <ksundo/core/detail/ksNotNull.h>
#include <ksundo/core/ksEndEdit.h>
#include <ksundo/material/ksSetEnvironmentUndoCommand.h>

#include <ksMessage.h>
#include <ksPlatform.h>

#include <QCoreApplication>

ksSetEnvironmentUndoCommand::ksSetEnvironmentUndoCommand(osg::UBRDFMaterialPtr material,
                                                         osg::MaterialPtr environment, QUndoCommand *parent)
    : ksContainerUndoCommand(QCoreApplication::translate("ksSetEnvironmentUndoCommand", "Change Environment"),
                             material, ksPlatform::idOf(ksDetail::ksNotNull(material)->getEnvironment()),
                             ksPlatform::idOf(ksDetail::ksNotNull(environment)), parent)
{}

void ksSetEnvironmentUndoCommand::makeMessage(ksMessage &message) const
{
    ksUndoCommand::makeMessage(message);
    if (containerId != 0)
        message.set("material", containerId, true);
}

void ksSetEnvironmentUndoCommand::apply(const osg::UBRDFMaterialPtr &material, osg::UInt32,
                                        osg::UInt32 id) const
{
    osg::MaterialPtr &environment = material->getSFEnvironment()->getValue();
    if (environment != ksFindContainer<osg::MaterialPtr>(id))
        osg::setRefdCP(environment, osg::MaterialPtr());
    // Both may have gone with the environment before.
    const auto living = ksFindContainer<osg::UBRDFMaterialPtr>(containerId);
    if (living == osg::NullFC)
        return;
    osg::setRefdCP(living->getSFEnvironment()->getValue(), ksFindContainer<osg::MaterialPtr>(id));
    ksEndEdit(living, osg::UBRDFMaterialBase::EnvironmentFieldMask);
}
