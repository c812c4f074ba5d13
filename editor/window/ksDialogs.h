// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <functional>

class QWidget;

/// What the main window asks the user and tells them, each in a dialog that they have to answer.
class ksDialogs
{
public:
    enum class Answer
    {
        Save,
        Discard,
        Cancel
    };

    ksDialogs() = default;
    virtual ~ksDialogs() = default;
    ksDialogs(const ksDialogs &) = delete;
    ksDialogs &operator=(const ksDialogs &) = delete;

    /// What is to be done with the unsaved edits of the document \a title.
    virtual Answer askToSave(QWidget *parent, const QString &title);

    /// A model to open, a file to save in, for which \a proposed is a proposal, and a script to run; empty
    /// when the user cancels.
    virtual QString askForModel(QWidget *parent, const QString &folder);
    virtual QString askForFile(QWidget *parent, const QString &proposed);
    virtual QString askForScript(QWidget *parent, const QString &folder);

    /// How many steps the history is to keep, of which it keeps \a current now; -1 when the user cancels.
    virtual int askForLimit(QWidget *parent, int current);

    /// Says what went wrong.
    virtual void complain(QWidget *parent, const QString &text);

    /// Shows a text about the program.
    virtual void inform(QWidget *parent, const QString &title, const QString &text);

    /// Runs \a work, which calls what it is given now and then, with what has been done from 0 to 1, and is
    /// told whether to go on. When it takes long, that is shown and can be cancelled.
    virtual void showProgress(QWidget *parent, const QString &text,
                              const std::function<void(const std::function<bool(double)> &progress)> &work);
};
