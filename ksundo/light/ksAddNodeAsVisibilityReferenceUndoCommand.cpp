// SPDX-License-Identifier: MIT
#include <ksundo/core/ksEndEdit.h>
#include <ksundo/light/ksAddNodeAsVisibilityReferenceUndoCommand.h>

#include <ksMessage.h>
#include <ksPlatform.h>

namespace {

/// The bit of a node's external flags that marks the visibility references of lights.
constexpr osg::UInt32 visibilityReferenceFlag = 0x10;

} // namespace

ksAddNodeAsVisibilityReferenceUndoCommand::ksAddNodeAsVisibilityReferenceUndoCommand(osg::UberLightPtr light,
                                                                                     osg::NodePtr node,
                                                                                     bool remove,
                                                                                     QUndoCommand *parent)
    : ksContainerUndoCommand(QStringLiteral("Add Node as Visibility Reference"), light, !remove, remove,
                             parent)
    , nodeId(ksPlatform::idOf(node))
{}

void ksAddNodeAsVisibilityReferenceUndoCommand::makeMessage(ksMessage &message) const
{
    ksUndoCommand::makeMessage(message);
    message.set("lightCommand", containerId, true);
}

void ksAddNodeAsVisibilityReferenceUndoCommand::apply(const osg::UberLightPtr &light, bool,
                                                      bool removing) const
{
    const auto node = ksFindContainer<osg::NodePtr>(nodeId);
    if (node == osg::NullFC)
        return;
    osg::NodePtr &reference = light->getSFVisibilityReference()->getValue();
    const osg::UInt32 flags = ksPlatform::externalFlags(node);
    if (removing) {
        ksPlatform::setExternalFlags(node, flags & ~visibilityReferenceFlag);
        osg::setRefdCP(reference, osg::NodePtr());
    } else {
        if (reference != node)
            osg::setRefdCP(reference, osg::NodePtr());
        // Both may have gone with the reference before.
        const auto living = ksFindContainer<osg::UberLightPtr>(containerId);
        if (living != osg::NullFC && ksFindContainer<osg::NodePtr>(nodeId) != osg::NullFC) {
            osg::setRefdCP(living->getSFVisibilityReference()->getValue(), node);
            ksPlatform::setExternalFlags(node, flags | visibilityReferenceFlag);
            ksEndEdit(node, ksPlatform::externalFlagsMask);
        }
    }
    ksEndEdit(ksFindContainer<osg::UberLightPtr>(containerId),
              osg::UberLightBase::VisibilityReferenceFieldMask);
    // Gone by now if only the light held it.
    ksEndEdit(ksFindContainer<osg::NodePtr>(nodeId), ksPlatform::externalFlagsMask);
}
