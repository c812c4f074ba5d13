// SPDX-License-Identifier: MIT
#include <editor/scene/ksFieldReader.h>
#include <editor/scene/ksFieldReferences.h>

#include <OpenSG/OSGMFBaseTypes.h>
#include <OpenSG/OSGMFSysTypes.h>
#include <OpenSG/OSGMFVecTypes.h>
#include <OpenSG/OSGSFBaseTypes.h>
#include <OpenSG/OSGSFMathTypes.h>
#include <OpenSG/OSGSFSysTypes.h>
#include <OpenSG/OSGSFVecTypes.h>

#include <algorithm>
#include <optional>
#include <string_view>
#include <unordered_map>

namespace {

constexpr std::size_t LongestText = 80;

template <class T>
std::string_view bytesOf(const T *values, std::size_t count)
{
    return std::string_view(reinterpret_cast<const char *>(values), count * sizeof(T));
}

template <class T, auto Namespace>
std::string_view bytesOf(const osg::SField<T, Namespace> &field)
{
    return bytesOf(&field.getValue(), 1);
}

template <class T, auto Namespace>
std::string_view bytesOf(const osg::MField<T, Namespace> &field)
{
    return bytesOf(field.getValues().data(), field.getValues().size());
}

/// The values of a field of the class \a FieldT, which has plain ones.
template <class FieldT>
std::string_view bytesAs(const osg::Field &field)
{
    return bytesOf(static_cast<const FieldT &>(field));
}

/// The bytes of a field of one type, where its values are plain; geometry and pixels come in amounts that are
/// not to be turned into text at every check.
using Bytes = std::string_view (*)(const osg::Field &);

/// Null when \a type is none of \a FieldTs.
template <class... FieldTs>
Bytes bytesAmong(const osg::FieldType &type)
{
    Bytes bytes = nullptr;
    static_cast<void>(((type == FieldTs::getClassType() && (bytes = &bytesAs<FieldTs>, true)) || ...));
    return bytes;
}

std::optional<std::string_view> plainBytes(const osg::Field &field)
{
    thread_local std::unordered_map<const osg::FieldType *, Bytes> known;
    const osg::FieldType &type = field.getType();
    auto found = known.find(&type);
    if (found == known.end())
        found =
            known
                .emplace(&type,
                         bytesAmong<osg::SFBool, osg::SFInt8, osg::SFUInt8, osg::SFInt16, osg::SFUInt16,
                                    osg::SFInt32, osg::SFUInt32, osg::SFInt64, osg::SFUInt64, osg::SFReal32,
                                    osg::SFReal64, osg::SFBitVector, osg::SFVec2f, osg::SFVec3f, osg::SFVec4f,
                                    osg::SFPnt3f, osg::SFColor3f, osg::SFColor4f, osg::SFQuaternion,
                                    osg::SFMatrix, osg::MFUInt8, osg::MFInt32, osg::MFUInt32, osg::MFReal32,
                                    osg::MFVec2f, osg::MFVec3f, osg::MFPnt3f>(type))
                .first;
    return found->second != nullptr ? std::optional(found->second(field)) : std::nullopt;
}

/// The text of the field, and of a volume what its text leaves out.
std::string plainText(const osg::Field &field)
{
    std::string text;
    field.getValueByStr(text);
    if (const auto *volume = dynamic_cast<const osg::SFDynamicVolume *>(&field)) {
        text += volume->getValue().isEmpty() ? " empty" : "";
        text += volume->getValue().isValid() ? " valid" : "";
        text += volume->getValue().isStatic() ? " static" : "";
    }
    return text;
}

std::string containerText(const osg::FieldContainerPtr &container)
{
    return std::string(container->getTypeName()) + ' ' + std::to_string(container.getFieldContainerId());
}

std::string readableText(const osg::Field &field)
{
    if (!ksFieldReferences::arePossibleIn(field))
        return plainText(field);
    std::string text;
    ksFieldReferences::visit(field, [&text](const osg::FieldContainerPtr &container) {
        text += (text.empty() ? "" : ", ") + containerText(container);
    });
    return text.empty() && field.getCardinality() == osg::FieldType::SINGLE_FIELD ? "null" : text;
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
    const bool isOneValue = bytes && field.getCardinality() == osg::FieldType::SINGLE_FIELD;
    if (!isOneValue && (isLarge || text.size() > LongestText)) {
        text.resize(std::min(text.size(), LongestText));
        text += "... (" + std::to_string(field.getSize()) + " values, hash " +
                std::to_string(std::hash<std::string>()(content(field))) + ')';
    }
    return field.getCardinality() == osg::FieldType::MULTI_FIELD ? '[' + text + ']' : text;
}
