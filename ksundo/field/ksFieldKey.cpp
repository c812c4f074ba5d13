// SPDX-License-Identifier: MIT
#include <ksundo/field/ksFieldKey.h>

#include <OpenSG/OSGFieldContainer.h>
#include <OpenSG/OSGFieldContainerType.h>
#include <OpenSG/OSGNode.h>

#include <cstring>

namespace {

/// Whether commands must not find the field: some are the scene graph's own business.
bool isHidden(const osg::FieldContainerType &type, const osg::FieldDescription &description)
{
    const bool isNodeVolume =
        description.getFieldMask() == osg::Node::VolumeFieldMask && type == osg::Node::getClassType();
    return isNodeVolume || std::strcmp(description.getCName(), "parents") == 0;
}

const osg::FieldDescription *findByName(const osg::FieldContainerType &type, std::string_view name)
{
    const char first = name.front();
    const char otherCase =
        (first | 0x20) >= 'a' && (first | 0x20) <= 'z' ? static_cast<char>(first ^ 0x20) : first;
    const std::string_view rest = name.substr(1);
    const osg::UInt32 count = type.getNumFieldDescs();
    for (osg::UInt32 id = 1; id <= count; ++id) {
        const osg::FieldDescription *description = type.getFieldDescription(id);
        if (description == nullptr)
            continue;
        const char *fieldName = description->getCName();
        const bool startsAlike = *fieldName == first || *fieldName == otherCase;
        if (startsAlike && first != '\0' && rest == fieldName + 1 && !isHidden(type, *description))
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
