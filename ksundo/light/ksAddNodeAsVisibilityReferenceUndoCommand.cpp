// SPDX-License-Identifier: MIT
#include <ksundo/core/ksFindContainer.h>
#include <ksundo/core/ksTouch.h>
#include <ksundo/light/ksAddNodeAsVisibilityReferenceUndoCommand.h>

#include <ksMessage.h>

namespace {

/// The bit of a node's external flags that marks the visibility references of lights.
constexpr osg::UInt32 visibilityReferenceFlag = 0x10;

} // namespace

ksAddNodeAsVisibilityReferenceUndoCommand::ksAddNodeAsVisibilityReferenceUndoCommand(osg::UberLightPtr light,
                                                                                     osg::NodePtr node,
                                                                                     bool remove,
                                                                                     QUndoCommand *parent)
    : ksUndoCommand(QStringLiteral("Add Node as Visibility Reference"), parent)
    , lightId(light.getFieldContainerId())
    , nodeId(node.getFieldContainerId())
    , remove(remove)
{}

void ksAddNodeAsVisibilityReferenceUndoCommand::undo()
{
    apply(!remove);
}

void ksAddNodeAsVisibilityReferenceUndoCommand::redo()
{
    apply(remove);
}

void ksAddNodeAsVisibilityReferenceUndoCommand::makeMessage(ksMessage &message) const
{
    ksUndoCommand::makeMessage(message);
    message.set("lightCommand", lightId, true);
}

bool ksAddNodeAsVisibilityReferenceUndoCommand::canMergeWith(const QUndoCommand *) const
{
    return false;
}

void ksAddNodeAsVisibilityReferenceUndoCommand::apply(bool removing) const
{
    const auto light = ksFindContainer<osg::UberLightPtr>(lightId);
    const auto node = ksFindContainer<osg::NodePtr>(nodeId);
    if (light == osg::NullFC || node == osg::NullFC)
        return;
    osg::NodePtr &reference = light->getSFVisibilityReference()->getValue();
    const osg::UInt32 flags = node->getExternalFlags();
    if (removing) {
        node->setExternalFlags(flags & ~visibilityReferenceFlag);
        osg::setRefdCP(reference, osg::NodePtr());
    } else {
        osg::setRefdCP(reference, node);
        node->setExternalFlags(flags | visibilityReferenceFlag);
        ksTouch(node, osg::Node::ExternalFlagsFieldMask);
    }
    ksTouch(light, osg::UberLightBase::VisibilityReferenceFieldMask);
    // Gone by now if only the light held it.
    ksTouch(ksFindContainer<osg::NodePtr>(nodeId), osg::Node::ExternalFlagsFieldMask);
}
