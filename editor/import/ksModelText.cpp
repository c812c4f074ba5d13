// SPDX-License-Identifier: MIT
#include <editor/import/ksModelText.h>

#include <assimp/types.h>

#include <cstddef>

namespace {

bool isContinuation(char byte)
{
    return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U;
}

/// How many bytes the character that begins with \a byte has.
std::size_t lengthOf(char byte)
{
    const auto first = static_cast<unsigned char>(byte);
    if (first < 0xC0U)
        return 1;
    return first < 0xE0U ? 2 : first < 0xF0U ? 3 : 4;
}

} // namespace

std::string ksModelText::whole(const aiString &text)
{
    std::string result(text.C_Str());
    std::size_t start = result.size();
    while (start > 0 && isContinuation(result[start - 1]))
        --start;
    if (start > 0 && start - 1 + lengthOf(result[start - 1]) > result.size())
        result.resize(start - 1);
    return result;
}

QString ksModelText::shown(const aiString &text)
{
    return QString::fromStdString(whole(text));
}

bool ksModelText::mayBeCut(const aiString &text)
{
    return text.length + 1 >= MAXLEN;
}

bool ksModelText::isTooLong(const std::string &text)
{
    return text.size() >= MAXLEN;
}
