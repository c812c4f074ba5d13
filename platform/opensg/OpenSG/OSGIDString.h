// SPDX-License-Identifier: MIT
#pragma once

#include <OpenSG/OSGBaseTypes.h>

#include <ostream>
#include <string>

OSG_BEGIN_NAMESPACE

/// The name of a type or field.
class IDString
{
public:
    IDString(void) = default;
    IDString(const Char8 *text)
        : _text(text != nullptr ? text : "")
    {}
    IDString(const std::string &text)
        : _text(text)
    {}

    const Char8 *str(void) const { return _text.c_str(); }
    UInt32 length(void) const { return static_cast<UInt32>(_text.size()); }
    bool isEmpty(void) const { return _text.empty(); }

    bool operator==(const IDString &other) const { return _text == other._text; }
    bool operator!=(const IDString &other) const { return _text != other._text; }
    bool operator<(const IDString &other) const { return _text < other._text; }

    friend std::ostream &operator<<(std::ostream &stream, const IDString &id) { return stream << id._text; }

private:
    std::string _text;
};

OSG_END_NAMESPACE
