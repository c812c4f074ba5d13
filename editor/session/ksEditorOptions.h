// SPDX-License-Identifier: MIT
#pragma once

#include <editor/history/ksRecord.h>

#include <QString>
#include <QStringList>

/// The command line of a program, which may have a window.
struct ksEditorOptions
{
    /// What the program is asked to do.
    enum Task
    {
        EditModel,
        ShowWindow,
        ShowHelp,
        ShowVersion
    };

    Task task = EditModel;

    /// The model to load; in a window it may be empty.
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

    /// The file that a picture of the window is to be written to, instead of showing it; empty if none.
    QString screenshot;

    /// The name of the node that is selected in the window at first; empty if none.
    QString selected;

    /// Whether a program has a window.
    enum class Window
    {
        None,
        Offered
    };

    /// How the arguments are to be written, when the program is called \a program.
    static QString usage(const QString &program, Window window = Window::None);

    /// What each argument and each exit code means, a line each; \a ownStatus are those of the program's own.
    static QString help(Window window = Window::None, const QString &ownStatus = {});

    /// Reads the arguments that follow the program's name. Throws ksEditorError, with the reason, when they
    /// are not as usage() says. Of those that follow --help or --version, none is read.
    static ksEditorOptions parse(const QStringList &arguments, Window window = Window::None);
};
