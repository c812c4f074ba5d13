// SPDX-License-Identifier: MIT
#pragma once

#include <editor/history/ksEditHistory.h>

#include <iosfwd>

/// A history that writes one line for each step.
class ksRecordedHistory : public ksEditHistory
{
public:
    /// The lines go to \a stream, which must outlive the history.
    ksRecordedHistory(const osg::NodePtr &scene, std::ostream &stream,
                      ksUndoStack *stack = ksUndoStack::get(0));

    /// The number of steps so far; a macro is one.
    int stepCount() const { return steps; }

private:
    void beginStep(const QString &what) override;
    void finishStep() override;

    std::ostream &record;
    int steps = 0;
};
