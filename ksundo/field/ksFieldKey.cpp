// SPDX-License-Identifier: MIT
#include <ksundo/field/ksFieldKey.h>

#include <OpenSG/OSGFieldContainer.h>
#include <OpenSG/OSGFieldContainerType.h>
#include <OpenSG/OSGNode.h>

#include <cctype>

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

const osg::FieldDescription *findByName(const osg::FieldContainerType &type, std::string_view name)
{
    const int firstLetter = lowered(name.front());
    const std::string_view rest = name.substr(1);
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

} // namespace

const osg::FieldDescription *ksFieldKey::findIn(const osg::FieldContainerPtr &container) const
{
    if (container == osg::NullFC)
        return nullptr;
    const osg::FieldContainerType &type = container->getType();
    return name.empty() ? type.getFieldDescription(id) : findByName(type, name);
}
