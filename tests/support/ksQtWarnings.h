// SPDX-License-Identifier: MIT
#pragma once

#include <QtGlobal>

#include <string>
#include <utility>
#include <vector>

/// Collects Qt's warnings, instead of printing them, for as long as it lives. One at a time.
class ksQtWarnings
{
public:
    ksQtWarnings()
        : previous(qInstallMessageHandler(&collect))
    {
        lines.clear();
    }
    ~ksQtWarnings() { qInstallMessageHandler(previous); }
    Q_DISABLE_COPY(ksQtWarnings)

    /// The warnings since the last call.
    std::vector<std::string> take() { return std::exchange(lines, {}); }

private:
    static void collect(QtMsgType, const QMessageLogContext &, const QString &line)
    {
        lines.push_back(line.toStdString());
    }

    static inline std::vector<std::string> lines;
    QtMessageHandler previous;
};
