// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QStringList>

/// The command line of a program without a window.
struct ksEditorOptions
{
    /// The model to load.
    QString model;

    /// The script to run on it; empty if none.
    QString script;

    /// How the arguments are to be written.
    static QString usage();

    /// Reads the arguments that follow the program's name. Throws ksEditorError, with the reason, when they
    /// are not as usage() says.
    static ksEditorOptions parse(const QStringList &arguments);
};
