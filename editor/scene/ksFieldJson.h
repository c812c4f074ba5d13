// SPDX-License-Identifier: MIT
#pragma once

#include <OpenSG/OSGField.h>

#include <QJsonValue>

#include <optional>
#include <string>

/// What fields and texts are in JSON, so that reading gives back exactly what was written.
namespace ksFieldJson {

/// A string; an object with the bytes in base64 for a text that is no UTF-8.
QJsonValue writeText(const std::string &text);

/// Nothing when \a value is not what writeText() makes.
std::optional<std::string> readText(const QJsonValue &value);

/// The value of \a field, which holds no container handles: texts, lists of texts and bytes as such,
/// everything else as the text that the scene graph has for it.
QJsonValue write(const osg::Field &field);

/// Sets \a field to what write() made of one of the same type. False, and no change, when \a value is not
/// what it makes.
bool read(osg::Field &field, const QJsonValue &value);

/// Sets \a field to \a text, the values of a list separated by commas. False, and no change, when that is not
/// the text that the scene graph has for it then.
bool readFieldText(osg::Field &field, const std::string &text);

} // namespace ksFieldJson
