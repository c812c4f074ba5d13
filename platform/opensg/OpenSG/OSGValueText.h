// SPDX-License-Identifier: MIT
#pragma once

#include <OpenSG/OSGBaseTypes.h>

#include <charconv>
#include <cstring>
#include <string>

OSG_BEGIN_NAMESPACE

/// Text of values, independent of the locale. For every value type:
/// - `static bool getFromString(T &value, const Char8 *text)`: false, and no change, if the text is no such
/// value;
/// - `static void putToString(const T &value, std::string &text)`: appends; reading it gives the value back
/// exactly.
///
/// This one serves vectors, colours, quaternions and matrices: their numbers, separated by spaces.
template <class T, class = void>
struct ValueText
{
    static bool getFromString(T &value, const Char8 *text)
    {
        T result;
        const Char8 *const end = text + std::strlen(text);
        for (UInt32 i = 0; i < T::Size; ++i) {
            while (*text == ' ' || *text == ',') {
                ++text;
            }
            const std::from_chars_result read = std::from_chars(text, end, result.getValues()[i]);
            if (read.ec != std::errc()) {
                return false;
            }
            text = read.ptr;
        }
        if (text != end) {
            return false;
        }
        value = result;
        return true;
    }

    static void putToString(const T &value, std::string &text);
};

template <class T>
struct ValueText<T, std::enable_if_t<std::is_arithmetic_v<T>>>
{
    static bool getFromString(T &value, const Char8 *text)
    {
        const Char8 *const end = text + std::strlen(text);
        T result;
        const std::from_chars_result read = std::from_chars(text, end, result);
        if (read.ec != std::errc() || read.ptr != end) {
            return false;
        }
        value = result;
        return true;
    }

    static void putToString(const T &value, std::string &text)
    {
        Char8 buffer[32];
        text.append(buffer, std::to_chars(buffer, buffer + sizeof(buffer), value).ptr);
    }
};

/// "TRUE" or "FALSE"; reads small letters, 1 and 0 as well.
template <>
struct ValueText<bool>
{
    static bool getFromString(bool &value, const Char8 *text)
    {
        const std::string word(text);
        if (word == "TRUE" || word == "true" || word == "1") {
            value = true;
        } else if (word == "FALSE" || word == "false" || word == "0") {
            value = false;
        } else {
            return false;
        }
        return true;
    }

    static void putToString(const bool &value, std::string &text) { text += value ? "TRUE" : "FALSE"; }
};

template <>
struct ValueText<std::string>
{
    static bool getFromString(std::string &value, const Char8 *text)
    {
        value = text;
        return true;
    }

    static void putToString(const std::string &value, std::string &text) { text += value; }
};

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
