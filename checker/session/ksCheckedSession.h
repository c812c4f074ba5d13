// SPDX-License-Identifier: MIT
#pragma once

#include <editor/session/ksHeadlessSession.h>

#include <cstddef>

class ksCheckedHistory;
class ksTranscript;

/// A session of ks-checker: runs the tour or a script on the model and checks every step.
class ksCheckedSession : public ksHeadlessSession
{
public:
    /// What the program exits with when it found a difference, or containers that were not released; also
    /// when an error ended the edits.
    static constexpr int DifferenceFound = 4;

    /// The transcript goes to \a record. Both must outlive the session.
    ksCheckedSession(std::ostream &record, std::ostream &errorStream);

    int run(const ksEditorOptions &options) override;

private:
    int edit(osg::NodeRefPtr root, const ksEditorOptions &options, ksRecord &record,
             ksVerdict &verdict) override;

    /// Runs the tour, or the script.
    void runEdits(ksCheckedHistory &history, const ksEditorOptions &options, ksRecord &record,
                  ksTranscript &transcript);

    const char *ownStatusHelp() const override;

    /// That of a difference, where there was one.
    int exitCodeAfter(int exitCode) const override;

    /// The first id of those that the session's containers get.
    std::size_t firstId = 0;

    int differences = 0;
};
