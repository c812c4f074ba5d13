// SPDX-License-Identifier: MIT
#pragma once

#include <OpenSG/OSGNode.h>
#include <OpenSG/OSGRefPtr.h>

#include <QString>

#include <iosfwd>
#include <string>

struct ksEditorOptions;

/// One run of a program without a window: opens a model and edits it.
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
        OutputError = 5
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
    /// returns the exit code. Or shows the help or the version.
    int start(int argc, char **argv);

    /// Runs the session and returns the exit code: ModelError when the model cannot be read, ScriptError when
    /// the script cannot, or ends by an error, OutputError when the edited scene cannot be saved, which is
    /// not tried when something else went wrong, else what edit() returns. The scene has been released then.
    virtual int run(const ksEditorOptions &options);

protected:
    /// Edits the scene below \a root, and lets go of it, by the script in the file \a script, which may be
    /// empty. Returns the exit code. May throw ksEditorError.
    virtual int edit(osg::NodeRefPtr root, const QString &script) = 0;

    /// Saves the scene below \a root as the options say, if they do. For edit() to call when all is well.
    void saveOutput(const osg::NodePtr &root) const;

    std::ostream &out;

private:
    osg::NodeRefPtr load(const QString &model) const;

    std::string usage() const;

    const char *const name;
    const char *const purpose;
    std::ostream &errors;
    QString output;
};
