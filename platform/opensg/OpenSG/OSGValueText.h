// SPDX-License-Identifier: MIT
#pragma once

#include <OpenSG/OSGBaseTypes.h>

#include <cctype>
#include <charconv>
#include <cstdlib>
#include <cstring>
#include <string>
#include <type_traits>

OSG_BEGIN_NAMESPACE

/// Text of values, independent of the locale. For every value type:
/// - `static bool getFromString(T &value, const Char8 *text)`: false, and no change, if the text says nothing
///   of such a value;
/// - `static void putToString(const T &value, std::string &text)`: appends; reading what it wrote of
///   numbers, texts and vectors gives the value back exactly.
///
/// This one serves vectors, colours and quaternions: their numbers, separated by spaces. Numbers that are
/// missing are read as 0.
template <class T, class = void>
struct ValueText
{
    static bool getFromString(T &value, const Char8 *text);
    static void putToString(const T &value, std::string &text);
};

/// Reads the number that @p text starts with, after spaces and commas, and moves @p text behind it; 0, and no
/// move, if there is none. A leading 0x makes an integer hexadecimal, a leading 0 octal.
template <class T>
T readNumber(const Char8 *&text)
{
    const Char8 *start = text + std::strspn(text, " \t\n\r,");
    T result = 0;
    if constexpr (std::is_integral_v<T>) {
        Char8 *end = nullptr;
        if constexpr (std::is_signed_v<T>) {
            result = static_cast<T>(std::strtoll(start, &end, 0));
        } else {
            result = static_cast<T>(std::strtoull(start, &end, 0));
        }
        text = end != start ? end : text;
    } else {
        start += *start == '+' ? 1 : 0;
        const std::from_chars_result read = std::from_chars(start, start + std::strlen(start), result);
        text = read.ptr != start ? read.ptr : text;
    }
    return result;
}

/// Text behind the number has no effect.
template <class T>
struct ValueText<T, std::enable_if_t<std::is_arithmetic_v<T>>>
{
    static bool getFromString(T &value, const Char8 *text)
    {
        value = readNumber<T>(text);
        return true;
    }

    static void putToString(const T &value, std::string &text)
    {
        Char8 buffer[32];
        text.append(buffer, std::to_chars(buffer, buffer + sizeof(buffer), value).ptr);
    }
};

/// "TRUE" or "FALSE"; reads them in letters of any case, whatever follows.
template <>
struct ValueText<bool>
{
    static bool getFromString(bool &value, const Char8 *text)
    {
        const bool isTrue = startsWith(text, "true");
        if (isTrue || startsWith(text, "false")) {
            value = isTrue;
            return true;
        }
        return false;
    }

    static void putToString(const bool &value, std::string &text) { text += value ? "TRUE" : "FALSE"; }

private:
    static bool startsWith(const Char8 *text, const Char8 *word)
    {
        while (*word != '\0' && std::tolower(static_cast<UChar8>(*text)) == *word) {
            ++text;
            ++word;
        }
        return *word == '\0';
    }
};

/// In quotes; reads the text without them as well.
template <>
struct ValueText<std::string>
{
    static bool getFromString(std::string &value, const Char8 *text)
    {
        value = text;
        if (value.size() > 1 && value.front() == '"' && value.back() == '"') {
            value = value.substr(1, value.size() - 2);
        }
        return true;
    }

    static void putToString(const std::string &value, std::string &text) { text += '"' + value + '"'; }
};

/// For values that have no text: reads and writes nothing.
template <class T>
struct NoValueText
{
    static bool getFromString(T &, const Char8 *) { return false; }
    static void putToString(const T &, std::string &) {}
};

template <class T, class Void>
bool ValueText<T, Void>::getFromString(T &value, const Char8 *text)
{
    for (UInt32 i = 0; i < T::Size; ++i) {
        value.getValues()[i] = readNumber<typename T::ValueType>(text);
    }
    return true;
}

template <class T, class Void>
void ValueText<T, Void>::putToString(const T &value, std::string &text)
{
    for (UInt32 i = 0; i < T::Size; ++i) {
        if (i > 0) {
            text += ' ';
        }
        ValueText<typename T::ValueType>::putToString(value.getValues()[i], text);
    }
}

OSG_END_NAMESPACE
