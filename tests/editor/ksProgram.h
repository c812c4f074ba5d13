// SPDX-License-Identifier: MIT
#pragma once

#include <QProcess>
#include <QStringList>

#include <algorithm>
#include <string>

/// One run of a program without a window, from its start to its end.
struct ksProgram
{
    ksProgram(const QString &path, const QStringList &arguments)
    {
        QProcess process;
        // The program is to do without: a display, and what a desktop session sets.
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        for (const char *name : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM", "XDG_RUNTIME_DIR"})
            environment.remove(QString::fromLatin1(name));
        process.setProcessEnvironment(environment);
        process.start(path, arguments);
        if (process.waitForFinished(-1) && process.exitStatus() == QProcess::NormalExit)
            exitCode = process.exitCode();
        output = process.readAllStandardOutput().toStdString();
        errors = process.readAllStandardError().toStdString();
    }

    int errorLines() const { return static_cast<int>(std::count(errors.begin(), errors.end(), '\n')); }

    /// -1 when the program crashed.
    int exitCode = -1;
    std::string output;
    std::string errors;
};
