// SPDX-License-Identifier: MIT
#include "ksFieldReader.h"

#include <OpenSG/OSGFieldContainerFactory.h>
#include <OpenSG/OSGMFBaseTypes.h>
#include <OpenSG/OSGMFSysTypes.h>
#include <OpenSG/OSGMFVecTypes.h>
#include <OpenSG/OSGSFAttachmentMap.h>
#include <OpenSG/OSGSFBaseTypes.h>

#include <charconv>
#include <optional>
#include <string_view>

namespace {

constexpr std::size_t LongestText = 80;

std::size_t bytesHash(const void *bytes, std::size_t size)
{
    return std::hash<std::string_view>()({static_cast<const char *>(bytes), size});
}

/// The hash of \a field from the bytes of its values, if it is one of \a FieldTs.
template <class... FieldTs>
std::optional<std::size_t> plainListHash(const osg::Field &field)
{
    std::optional<std::size_t> hash;
    const auto hashAs = [&field, &hash](const auto *typed) {
        using FieldT = std::remove_const_t<std::remove_pointer_t<decltype(typed)>>;
        if (field.getType() != FieldT::getClassType())
            return false;
        const auto &values = static_cast<const FieldT &>(field).getValues();
        hash = bytesHash(values.data(), values.size() * sizeof(values[0]));
        return true;
    };
    static_cast<void>((hashAs(static_cast<const FieldTs *>(nullptr)) || ...));
    return hash;
}

/// The field's text, exact but for the bounds between the texts of a list.
std::string plainText(const osg::Field &field)
{
    if (const auto *texts = dynamic_cast<const osg::MFString *>(&field)) {
        std::string result;
        for (const std::string &text : texts->getValues())
            result += (result.empty() ? "" : ", ") + ('"' + text + '"');
        return result;
    }
    std::string text;
    return field.getValueByStr(text);
}

std::string containerText(const osg::FieldContainerPtr &container)
{
    return std::string(container->getTypeName()) + ' ' + std::to_string(container.getFieldContainerId());
}

std::string readableText(const osg::Field &field)
{
    if (field.getType() == osg::SFString::getClassType())
        return '"' + plainText(field) + '"';
    if (!ksFieldReader::refersToContainers(field) && field.getType() != osg::SFAttachmentMap::getClassType())
        return plainText(field);
    std::string text;
    ksFieldReader::visitContainers(field, [&text](const osg::FieldContainerPtr &container) {
        text += (text.empty() ? "" : ", ") + containerText(container);
    });
    return text.empty() && field.getCardinality() == osg::FieldType::SINGLE_FIELD ? "null" : text;
}

/// Calls \a visit with the containers whose ids stand in \a text, which is that of a field of handles. So
/// handles of every class are read alike.
void visitIds(const std::string &text, const std::function<void(const osg::FieldContainerPtr &)> &visit)
{
    const char *const end = text.data() + text.size();
    for (const char *at = text.data(); at < end; ++at) {
        osg::UInt32 id = 0;
        const std::from_chars_result read = std::from_chars(at, end, id);
        if (read.ec != std::errc())
            continue;
        at = read.ptr;
        const osg::FieldContainerPtr container = osg::FieldContainerFactory::the()->getContainer(id);
        if (container != osg::NullFC)
            visit(container);
    }
}

} // namespace

std::size_t ksFieldReader::hash(const osg::Field &field)
{
    // Geometry and pixels come in amounts that are not to be turned into text at every check.
    if (field.getCardinality() == osg::FieldType::MULTI_FIELD)
        if (const auto hash = plainListHash<osg::MFUInt8, osg::MFInt32, osg::MFUInt32, osg::MFReal32,
                                            osg::MFVec2f, osg::MFVec3f, osg::MFPnt3f>(field))
            return *hash;
    return std::hash<std::string>()(plainText(field));
}

std::string ksFieldReader::text(const osg::Field &field)
{
    std::string text = readableText(field);
    if (text.size() > LongestText)
        text = text.substr(0, LongestText) + "... (" + std::to_string(field.getSize()) + " values, hash " +
               std::to_string(hash(field)) + ')';
    return field.getCardinality() == osg::FieldType::MULTI_FIELD ? '[' + text + ']' : text;
}

bool ksFieldReader::refersToContainers(const osg::Field &field)
{
    const std::string_view type = field.getContentType().getCName();
    return type.size() > 3 && type.substr(type.size() - 3) == "Ptr";
}

void ksFieldReader::visitContainers(const osg::Field &field,
                                    const std::function<void(const osg::FieldContainerPtr &)> &visit)
{
    if (const auto *attachments = dynamic_cast<const osg::SFAttachmentMap *>(&field)) {
        for (const auto &[key, attachment] : attachments->getValue())
            visit(attachment);
    } else if (refersToContainers(field))
        visitIds(plainText(field), visit);
}
