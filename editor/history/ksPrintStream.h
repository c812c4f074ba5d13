// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <functional>
#include <ostream>
#include <streambuf>
#include <string>

/// A stream that hands over whole lines, such as those that a script prints.
class ksPrintStream : private std::streambuf, public std::ostream
{
public:
    /// \a takeLine gets each line without its end. When it throws ksEditorError, the stream goes bad, and
    /// \a fail is called.
    ksPrintStream(std::function<void(const QString &)> takeLine, std::function<void()> fail);

private:
    int overflow(int character) override;
    std::streamsize xsputn(const char *text, std::streamsize count) override;

    const std::function<void(const QString &)> take;
    const std::function<void()> onFailure;
    std::string pending;
};
