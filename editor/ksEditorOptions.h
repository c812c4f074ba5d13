// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QStringList>

/// The editor's command line.
struct ksEditorOptions
{
    /// The model to load.
    QString model;

    /// The script to run on it; empty for the built-in tour.
    QString script;

    /// How the command line is to be written, with a line end.
    static QString usage();

    /// Reads the arguments that follow the program's name. Throws ksEditorError, with the reason, when they
    /// are not as usage() says.
    static ksEditorOptions parse(const QStringList &arguments);
};
