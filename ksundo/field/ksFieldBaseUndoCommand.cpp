// SPDX-License-Identifier: MIT
#include <ksundo/field/ksFieldBaseUndoCommand.h>

#include <OpenSG/OSGFieldContainerType.h>
#include <OpenSG/OSGNode.h>
#include <ksMessage.h>

#include <cctype>
#include <string_view>

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
    return isNodeVolume || std::string_view(description.getCName()) == "parents";
}

} // namespace

ksFieldBaseUndoCommand::ksFieldBaseUndoCommand(const QString &text, osg::FieldContainerPtr container,
                                               std::string fieldName, QUndoCommand *parent)
    : ksUndoCommand(text, parent)
{
    if (const osg::FieldDescription *description = findField(container, fieldName))
        aimAt(container, *description, description->getFieldId());
}

ksFieldBaseUndoCommand::ksFieldBaseUndoCommand(const QString &text, osg::FieldContainerPtr container,
                                               int fieldId, QUndoCommand *parent)
    : ksUndoCommand(text, parent)
{
    if (container == osg::NullFC)
        return;
    const auto id = static_cast<osg::UInt32>(fieldId);
    if (const osg::FieldDescription *description = container->getType().getFieldDescription(id))
        aimAt(container, *description, id);
}

const osg::FieldDescription *ksFieldBaseUndoCommand::findField(osg::FieldContainerPtr container,
                                                               const std::string &name)
{
    if (container == osg::NullFC || name.empty())
        return nullptr;
    const int firstLetter = lowered(name.front());
    const std::string_view rest = std::string_view(name).substr(1);
    const osg::FieldContainerType &type = container->getType();
    for (osg::UInt32 id = 1; id <= type.getNumFieldDescs(); ++id) {
        const osg::FieldDescription *description = type.getFieldDescription(id);
        if (description == nullptr)
            continue;
        const std::string_view fieldName = description->getCName();
        if (!fieldName.empty() && lowered(fieldName.front()) == firstLetter && fieldName.substr(1) == rest &&
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
                                   const osg::FieldDescription &description, osg::UInt32 id)
{
    fcId = container.getFieldContainerId();
    fieldId = id;
    fieldMask = description.getFieldMask();
}

osg::Field *ksFieldBaseUndoCommand::anyFieldOf(const osg::FieldContainerPtr &container) const
{
    if (container == osg::NullFC)
        return nullptr;
    const osg::FieldDescription *description = container->getType().getFieldDescription(fieldId);
    return description == nullptr ? nullptr : description->getField(container);
}
