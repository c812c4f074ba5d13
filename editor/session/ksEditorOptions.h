// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QStringList>

/// The command line of a program without a window.
struct ksEditorOptions
{
    /// What the program is asked to do.
    enum Task
    {
        EditModel,
        ShowHelp,
        ShowVersion
    };

    Task task = EditModel;

    /// The model to load.
    QString model;

    /// The script to run on it; empty if none.
    QString script;

    /// The file to save the edited model in; empty if none.
    QString output;

    /// How the arguments are to be written.
    static QString usage();

    /// What each argument means, a line each.
    static QString help();

    /// Reads the arguments that follow the program's name. Throws ksEditorError, with the reason, when they
    /// are not as usage() says. Of those that follow --help or --version, none is read.
    static ksEditorOptions parse(const QStringList &arguments);
};
