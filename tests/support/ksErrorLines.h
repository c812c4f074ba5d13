// SPDX-License-Identifier: MIT
#pragma once

#include <ksLog.h>

#include <QtGlobal>

#include <string>
#include <utility>
#include <vector>

/// Collects the lines of the application's error log, instead of printing them, for as long as it lives.
class ksErrorLines
{
public:
    ksErrorLines()
        : previous(ksLog::setErrorHandler([this](const std::string &line) { lines.push_back(line); }))
    {}
    ~ksErrorLines() { ksLog::setErrorHandler(std::move(previous)); }
    Q_DISABLE_COPY(ksErrorLines)

    /// The lines since the last call.
    std::vector<std::string> take() { return std::exchange(lines, {}); }

private:
    std::vector<std::string> lines;
    ksLog::Handler previous;
};
