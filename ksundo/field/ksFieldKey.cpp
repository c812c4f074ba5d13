// SPDX-License-Identifier: MIT
#include <ksundo/field/ksFieldKey.h>

#include <OpenSG/OSGFieldContainer.h>
#include <OpenSG/OSGFieldContainerType.h>
#include <OpenSG/OSGNode.h>

#include <cctype>
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
    const auto firstLetter = static_cast<unsigned char>(name.front());
    const auto lower = static_cast<char>(std::tolower(firstLetter));
    const auto upper = static_cast<char>(std::toupper(firstLetter));
    const std::string_view rest = name.substr(1);
    const osg::UInt32 count = type.getNumFieldDescs();
    for (osg::UInt32 id = 1; id <= count; ++id) {
        const osg::FieldDescription *description = type.getFieldDescription(id);
        if (description == nullptr)
            continue;
        const char *fieldName = description->getCName();
        const bool startsAlike = *fieldName != '\0' && (*fieldName == lower || *fieldName == upper);
        if (startsAlike && rest == fieldName + 1 && !isHidden(type, *description))
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
