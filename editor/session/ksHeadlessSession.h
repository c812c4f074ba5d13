// SPDX-License-Identifier: MIT
#pragma once

#include <editor/session/ksEditorOptions.h>

#include <OpenSG/OSGNode.h>
#include <OpenSG/OSGRefPtr.h>

#include <QString>

#include <functional>
#include <iosfwd>
#include <memory>
#include <string>

class ksInterrupter;
class ksRecord;
class ksScriptEngine;
class ksVerdict;

/// One run of a program: opens a model and edits it, without a window unless a derived class brings one.
class ksHeadlessSession
{
public:
    /// What such a program exits with.
    enum ExitCode
    {
        Done = 0,
        ModelError = 1,
        UsageError = 2,
        ScriptError = 3,
        OutputError = 5,
        WindowError = 6
    };

    /// \a program is what the program is called in all that it says, \a summary what it does, in a sentence.
    /// The record goes to \a record, warnings and errors to \a errorStream. All four must outlive the
    /// session.
    ksHeadlessSession(const char *program, const char *summary, std::ostream &record,
                      std::ostream &errorStream);
    virtual ~ksHeadlessSession() = default;
    ksHeadlessSession(const ksHeadlessSession &) = delete;
    ksHeadlessSession &operator=(const ksHeadlessSession &) = delete;

    /// What main() does: starts the scene graph and Qt, runs the session that the command line asks for, and
    /// returns the exit code. Or shows the help or the version. What the two streams have is coloured where
    /// they are a terminal's and the environment does not have NO_COLOR.
    int start(int argc, char **argv);

    /// Runs the session and returns the exit code: ModelError when the model cannot be read, ScriptError when
    /// the script cannot, ends by an error or is ended, OutputError when something cannot be written, else
    /// what edit() returns. The edited scene is not saved when something went wrong. The record closes with a
    /// verdict, however the session ends. The scene has been released then. A signal ends the session as an
    /// error does; opening and saving a file go on to their end before.
    virtual int run(const ksEditorOptions &options);

protected:
    /// Edits the scene below \a root, and lets go of it, by the script of \a options, if there is one.
    /// Returns the exit code. What is counted goes to \a verdict, also when an error ends the edits. May
    /// throw ksEditorError, and anything else that is derived from std::exception.
    virtual int edit(osg::NodeRefPtr root, const ksEditorOptions &options, ksRecord &record,
                     ksVerdict &verdict) = 0;

    /// What to exit with when edit() ended by an error that itself gives \a exitCode.
    virtual int exitCodeAfter(int exitCode) const { return exitCode; }

    /// Whether there is a window.
    virtual ksEditorOptions::Window window() const { return ksEditorOptions::Window::None; }

    /// What start() does when the options ask for a window. Qt is to be started with argv[0]. Returns the
    /// exit code.
    virtual int showWindow(const ksEditorOptions &options, char **argv);

    /// Shows \a text as an error.
    void complain(const QString &text) const;

    /// What the help says of exit codes that are the program's own, a line each.
    virtual const char *ownStatusHelp() const { return ""; }

    /// Runs the script of \a options by the engine that \a make makes for the stream that scripts print to.
    /// Lines that they print go to \a print, and warnings of theirs are the session's.
    void runScript(const ksEditorOptions &options, const std::function<void(const QString &)> &print,
                   const std::function<std::unique_ptr<ksScriptEngine>(std::ostream &)> &make);

    /// Runs \a work. At a signal, or at a limit of \a options, \a interrupt is called by another thread,
    /// which must make \a work throw ksScriptError; that then says what it was.
    void runInterruptibly(const ksEditorOptions &options, const std::function<void()> &interrupt,
                          const std::function<void()> &work);

    /// Saves the scene below \a root as the options say, if they do. For edit() to call when all is well.
    void saveOutput(const osg::NodePtr &root, const ksEditorOptions &options, ksRecord &record);

private:
    int runSteps(const ksEditorOptions &options, ksRecord &record, ksVerdict &verdict, QString &error);
    osg::NodeRefPtr load(const ksEditorOptions &options, ksRecord &record);

    /// Throws ksScriptError when the session is to end.
    void refuseInterruption(const ksEditorOptions &options) const;

    /// Ends the process, from another thread, when the work does not end for \a reason.
    [[noreturn]] void endByForce(const ksEditorOptions &options, const QString &reason) const;
    int show(const QString &text);

    /// Shows \a text as a warning, which the verdict counts.
    void warn(const QString &text);

    QString usage() const;

    const char *const name;
    const char *const purpose;
    std::ostream &out;
    std::ostream &errors;
    bool colouredErrors = false;
    int warnings = 0;

    /// That of the run that is going on.
    ksInterrupter *interrupter = nullptr;
    ksRecord *sessionRecord = nullptr;
};
