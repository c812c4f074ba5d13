// SPDX-License-Identifier: MIT
#pragma once

#include <OpenSG/OSGBaseTypes.h>

#include <functional>
#include <string>

OSG_BEGIN_NAMESPACE

/// Receives one line of the scene graph's log, without a line end.
typedef std::function<void(const std::string &)> LogSink;

/// Replaces the receiver of the log and returns the previous one. An empty sink stands for standard error,
/// the receiver at the start. May be called at any time, from any thread.
LogSink setLogSink(LogSink sink);

/// Writes @p text to the log.
void logNotice(const std::string &text);

/// Writes "WARNING: " and @p text to the log.
void logWarning(const std::string &text);

OSG_END_NAMESPACE
