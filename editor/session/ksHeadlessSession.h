// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <iosfwd>

struct ksEditorOptions;

/// One run of the editor without a window: loads a model, runs the tour or a script on it, and checks every
/// step.
class ksHeadlessSession
{
public:
    /// The transcript goes to \a record, warnings and errors to \a errorStream. Both must outlive the
    /// session.
    ksHeadlessSession(std::ostream &record, std::ostream &errorStream);

    /// Runs the session and returns the program's exit code: 0 when every check found nothing, 1 when there
    /// was a difference, when the model or the script cannot be read, or when the script ended by an error.
    /// The scene has been released then, and the undo stack is empty.
    int run(const ksEditorOptions &options);

private:
    int runChecked(const ksEditorOptions &options);

    std::ostream &out;
    std::ostream &errors;
};
