// SPDX-License-Identifier: MIT
#pragma once

#include <editor/history/ksRecord.h>

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

    /// The script to run on it, empty if none, and what it is given.
    QString script;
    QStringList scriptArguments;

    /// How the record is written.
    ksRecordStyle record;

    /// How many seconds the edits may take; 0 is without limit.
    double timeLimit = 0;

    /// How many megabytes of memory the program may take; 0 is what the machine has to give.
    double memoryLimit = 0;

    /// The file to save the edited model in; empty if none.
    QString output;

    /// How the arguments are to be written.
    static QString usage();

    /// What each argument and each exit code means, a line each; \a ownStatus are those of the program's own.
    static QString help(const QString &ownStatus = {});

    /// Reads the arguments that follow the program's name. Throws ksEditorError, with the reason, when they
    /// are not as usage() says. Of those that follow --help or --version, none is read.
    static ksEditorOptions parse(const QStringList &arguments);
};
