// SPDX-License-Identifier: MIT
#include "ksFieldReader.h"

#include <OpenSG/OSGFieldContainerFactory.h>
#include <OpenSG/OSGMFBaseTypes.h>
#include <OpenSG/OSGMFSysTypes.h>
#include <OpenSG/OSGMFVecTypes.h>
#include <OpenSG/OSGSFAttachmentMap.h>
#include <OpenSG/OSGSFBaseTypes.h>

#include <algorithm>
#include <charconv>
#include <optional>
#include <string_view>

namespace {

constexpr std::size_t LongestText = 80;

/// The bytes of \a field's values, if it is one of \a FieldTs; otherwise nothing.
template <class... FieldTs>
std::optional<std::string_view> bytesAs(const osg::Field &field)
{
    std::optional<std::string_view> bytes;
    const auto takeAs = [&field, &bytes](const auto *typed) {
        using FieldT = std::remove_const_t<std::remove_pointer_t<decltype(typed)>>;
        if (field.getType() != FieldT::getClassType())
            return false;
        const auto &values = static_cast<const FieldT &>(field).getValues();
        bytes.emplace(reinterpret_cast<const char *>(values.data()), values.size() * sizeof(values[0]));
        return true;
    };
    static_cast<void>((takeAs(static_cast<const FieldTs *>(nullptr)) || ...));
    return bytes;
}

/// The bytes of a list of geometry or pixels, which come in amounts that are not to be turned into text at
/// every check; nothing for any other field.
std::optional<std::string_view> plainBytes(const osg::Field &field)
{
    if (field.getCardinality() == osg::FieldType::SINGLE_FIELD)
        return std::nullopt;
    return bytesAs<osg::MFUInt8, osg::MFInt32, osg::MFUInt32, osg::MFReal32, osg::MFVec2f, osg::MFVec3f,
                   osg::MFPnt3f>(field);
}

std::string plainText(const osg::Field &field)
{
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
    if (!ksFieldReader::refersToContainers(field))
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

std::string ksFieldReader::content(const osg::Field &field)
{
    if (const auto bytes = plainBytes(field))
        return std::string(*bytes);
    if (const auto *texts = dynamic_cast<const osg::MFString *>(&field)) {
        std::string content;
        for (const std::string &text : texts->getValues())
            content += std::to_string(text.size()) + ':' + text;
        return content;
    }
    return plainText(field);
}

bool ksFieldReader::holds(const osg::Field &field, const std::string &known)
{
    if (const auto bytes = plainBytes(field))
        return *bytes == known;
    return content(field) == known;
}

std::string ksFieldReader::text(const osg::Field &field)
{
    const auto bytes = plainBytes(field);
    const bool isLarge = bytes && bytes->size() > LongestText;
    std::string text = isLarge ? std::string() : readableText(field);
    if (isLarge || text.size() > LongestText) {
        text.resize(std::min(text.size(), LongestText));
        text += "... (" + std::to_string(field.getSize()) + " values, hash " +
                std::to_string(std::hash<std::string>()(content(field))) + ')';
    }
    return field.getCardinality() == osg::FieldType::MULTI_FIELD ? '[' + text + ']' : text;
}

bool ksFieldReader::refersToContainers(const osg::Field &field)
{
    const std::string_view type = field.getContentType().getCName();
    return (type.size() > 3 && type.substr(type.size() - 3) == "Ptr") ||
           field.getType() == osg::SFAttachmentMap::getClassType();
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
