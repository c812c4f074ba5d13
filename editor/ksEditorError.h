// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <stdexcept>

/// What kept the editor from doing what was asked. The message, in UTF-8, names the file, if there is one,
/// and the reason. It is one line, but that the call stack of a script follows on lines of its own, which are
/// indented, and that names may hold whatever they do: who shows it escapes that.
class ksEditorError : public std::runtime_error
{
public:
    using std::runtime_error::runtime_error;
    explicit ksEditorError(const QString &message)
        : std::runtime_error(message.toStdString())
    {}
};

/// A script that cannot be read, or ended by an error. The message also names the line.
class ksScriptError : public ksEditorError
{
public:
    using ksEditorError::ksEditorError;
};

/// Something that was to be written cannot be.
class ksOutputError : public ksEditorError
{
public:
    using ksEditorError::ksEditorError;
};
