// SPDX-License-Identifier: MIT
#include <ksundo/field/ksFieldBaseUndoCommand.h>

#include <OpenSG/OSGFieldContainerType.h>
#include <OpenSG/OSGNode.h>
#include <ksMessage.h>

#include <cctype>
#include <cstring>

namespace {

int lowered(char letter)
{
    return std::tolower(static_cast<unsigned char>(letter));
}

/// Field names that commands must not find: both are the scene graph's own business.
bool isHidden(const osg::FieldContainerType &type, const osg::FieldDescription &description)
{
    const bool isNodeVolume =
        type == osg::Node::getClassType() && description.getFieldMask() == osg::Node::VolumeFieldMask;
    return isNodeVolume || std::strcmp(description.getCName(), "parents") == 0;
}

} // namespace

ksFieldBaseUndoCommand::ksFieldBaseUndoCommand(const QString &text, osg::FieldContainerPtr container,
                                               std::string fieldName, QUndoCommand *parent)
    : ksUndoCommand(text, parent)
{
    if (container != osg::NullFC)
        aimAt(container, findField(container, fieldName));
}

ksFieldBaseUndoCommand::ksFieldBaseUndoCommand(const QString &text, osg::FieldContainerPtr container,
                                               int fieldId, QUndoCommand *parent)
    : ksUndoCommand(text, parent)
{
    if (container != osg::NullFC)
        aimAt(container, container->getType().getFieldDescription(static_cast<osg::UInt32>(fieldId)));
}

const osg::FieldDescription *ksFieldBaseUndoCommand::findField(osg::FieldContainerPtr container,
                                                               const std::string &name)
{
    if (name.empty())
        return nullptr;
    const int firstLetter = lowered(name.front());
    const char *rest = name.c_str() + 1;
    const osg::FieldContainerType &type = container->getType();
    for (osg::UInt32 id = 1; id <= type.getNumFieldDescs(); ++id) {
        const osg::FieldDescription *description = type.getFieldDescription(id);
        if (description == nullptr)
            continue;
        const char *fieldName = description->getCName();
        if (lowered(fieldName[0]) == firstLetter && std::strcmp(fieldName + 1, rest) == 0 &&
            !isHidden(type, *description))
            return description;
    }
    return nullptr;
}

osg::UInt32 ksFieldBaseUndoCommand::containerId() const
{
    return fcId;
}

void ksFieldBaseUndoCommand::makeMessage(ksMessage &message) const
{
    ksUndoCommand::makeMessage(message);
    message.set("container", fcId, true);
    message.set("fieldId", fieldId, true);
}

bool ksFieldBaseUndoCommand::canMergeWith(const QUndoCommand *other) const
{
    if (!ksUndoCommand::canMergeWith(other))
        return false;
    const auto *newer = static_cast<const ksFieldBaseUndoCommand *>(other);
    return newer->fcId == fcId && newer->fieldId == fieldId && newer->fieldMask == fieldMask;
}

void ksFieldBaseUndoCommand::aimAt(const osg::FieldContainerPtr &container,
                                   const osg::FieldDescription *description)
{
    if (description == nullptr)
        return;
    fcId = container.getFieldContainerId();
    fieldId = description->getFieldId();
    fieldMask = description->getFieldMask();
}

osg::Field *ksFieldBaseUndoCommand::fieldOf(const osg::FieldContainerPtr &container) const
{
    if (container == osg::NullFC)
        return nullptr;
    const osg::FieldDescription *description = container->getType().getFieldDescription(fieldId);
    return description == nullptr ? nullptr : description->getField(container);
}
