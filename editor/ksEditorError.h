// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <stdexcept>

/// What kept the editor from doing what was asked. The message is one line in UTF-8 that names the file, if
/// there is one, and the reason; the editor shows it as it is.
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

/// A file that cannot be written. The message names the file.
class ksOutputError : public ksEditorError
{
public:
    using ksEditorError::ksEditorError;
};
