// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <string>

struct aiString;

/// Texts of a model file. Assimp has room for 1,023 bytes of each, and cuts longer ones wherever that is.
namespace ksModelText {

/// \a text in UTF-8, without the part of a character that it may end with.
std::string whole(const aiString &text);

/// The same as Qt's texts.
QString shown(const aiString &text);

/// Whether \a text is as long as there is room, so that some of it may be missing.
bool mayBeCut(const aiString &text);

/// Whether there is no room for \a text, of which Assimp has a part or nothing then.
bool isTooLong(const std::string &text);

} // namespace ksModelText
