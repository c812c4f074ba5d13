// SPDX-License-Identifier: MIT
#include <editor/scene/ksFieldJson.h>

#include <OpenSG/OSGFieldFactory.h>
#include <OpenSG/OSGMFBaseTypes.h>
#include <OpenSG/OSGMFSysTypes.h>
#include <OpenSG/OSGSFBaseTypes.h>

#include <QByteArray>
#include <QJsonArray>
#include <QJsonObject>

#include <algorithm>
#include <memory>
#include <type_traits>

namespace {

/// \a field as one of the class \a FieldT; null when it is another.
template <class FieldT, class T>
auto as(T &field)
{
    using Result = std::conditional_t<std::is_const_v<T>, const FieldT, FieldT>;
    return field.getType() == FieldT::getClassType() ? static_cast<Result *>(&field) : nullptr;
}

QJsonValue bytesToJson(const void *bytes, std::size_t count)
{
    const QByteArray raw = QByteArray::fromRawData(static_cast<const char *>(bytes), static_cast<int>(count));
    return QJsonObject{{QStringLiteral("base64"), QString::fromLatin1(raw.toBase64())}};
}

std::optional<QByteArray> bytesFromJson(const QJsonValue &value)
{
    const QJsonValue text = value[QLatin1String("base64")];
    if (!text.isString())
        return std::nullopt;
    const auto bytes =
        QByteArray::fromBase64Encoding(text.toString().toLatin1(), QByteArray::AbortOnBase64DecodingErrors);
    return bytes ? std::optional(bytes.decoded) : std::nullopt;
}

/// What a text of all values of \a field is split into.
void pushValues(osg::Field &field, const std::string &text)
{
    if (field.getCardinality() == osg::FieldType::SINGLE_FIELD) {
        field.pushValueByStr(text.c_str());
        return;
    }
    for (std::size_t start = 0; start < text.size();) {
        const std::size_t end = std::min(text.find(',', start), text.size());
        field.pushValueByStr(text.substr(start, end - start).c_str());
        start = end + 1;
    }
}

} // namespace

QJsonValue ksFieldJson::writeText(const std::string &text)
{
    const QString read = QString::fromStdString(text);
    return read.toStdString() == text ? QJsonValue(read) : bytesToJson(text.data(), text.size());
}

std::optional<std::string> ksFieldJson::readText(const QJsonValue &value)
{
    if (value.isString())
        return value.toString().toStdString();
    const std::optional<QByteArray> bytes = bytesFromJson(value);
    return bytes ? std::optional(bytes->toStdString()) : std::nullopt;
}

QJsonValue ksFieldJson::write(const osg::Field &field)
{
    if (const auto *text = as<osg::SFString>(field))
        return writeText(text->getValue());
    if (const auto *texts = as<osg::MFString>(field)) {
        QJsonArray list;
        for (const std::string &text : texts->getValues())
            list.append(writeText(text));
        return list;
    }
    if (const auto *bytes = as<osg::MFUInt8>(field))
        return bytesToJson(bytes->getValues().data(), bytes->getValues().size());
    std::string text;
    return QString::fromStdString(field.getValueByStr(text));
}

bool ksFieldJson::read(osg::Field &field, const QJsonValue &value)
{
    if (auto *single = as<osg::SFString>(field)) {
        const std::optional<std::string> text = readText(value);
        if (text)
            single->setValue(*text);
        return text.has_value();
    }
    if (auto *list = as<osg::MFString>(field)) {
        osg::MFString::StorageType texts;
        for (const QJsonValue &element : value.toArray())
            if (const std::optional<std::string> text = readText(element))
                texts.push_back(*text);
        if (!value.isArray() || texts.size() != static_cast<std::size_t>(value.toArray().size()))
            return false;
        list->setValues(texts);
        return true;
    }
    if (auto *bytes = as<osg::MFUInt8>(field)) {
        const std::optional<QByteArray> values = bytesFromJson(value);
        if (values)
            bytes->getValues().assign(values->begin(), values->end());
        return values.has_value();
    }
    return value.isString() && readFieldText(field, value.toString().toStdString());
}

bool ksFieldJson::readFieldText(osg::Field &field, const std::string &text)
{
    const std::unique_ptr<osg::Field> parsed(osg::FieldFactory::the().createField(field.getType().getId()));
    pushValues(*parsed, text);
    std::string back;
    if (parsed->getValueByStr(back) != text)
        return false;
    field.setAbstrValue(*parsed);
    return true;
}
