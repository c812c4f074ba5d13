// SPDX-License-Identifier: MIT
#pragma once

#include <editor/history/ksEditHistory.h>
#include <editor/history/ksFieldChange.h>

#include <QObject>
#include <QString>
#include <QStringList>

#include <cstddef>
#include <map>
#include <utility>
#include <vector>

class QUndoCommand;
class ksRecord;

/// A history that writes a line into the record for each step that it takes, with what has changed; with all
/// changes, and what was done within a macro, when the record is verbose. Steps are counted as the stack
/// does: the third command is step 3, whenever it is done, undone and redone.
///
/// Aspect 1 follows the scene, step by step, and tells what was before.
class ksRecordedHistory : public QObject, public ksEditHistory
{
    Q_OBJECT

public:
    /// \a sessionRecord must outlive the history; see ksEditHistory for the rest.
    ksRecordedHistory(const osg::NodePtr &scene, ksRecord &sessionRecord,
                      ksUndoStack *stack = ksUndoStack::get(0));

    /// Closes the history; aspect 1 has let go of the scene, too, then.
    ~ksRecordedHistory() override;

    /// The number of steps that were added so far; one that merged into the one before it is none.
    int stepCount() const { return steps; }

private:
    void beginStep(const QString &what) override;
    void finishStep() override;

    /// Adds what has changed now to what has changed in the step before.
    void collectChanges();

    /// What the step has changed in the end.
    std::vector<ksFieldChange> takeChanges();

    void write(const std::vector<ksFieldChange> &changes) const;
    QString title() const;

    /// That of the command, where there is one.
    QString text() const;
    QString eventName() const;

    ksRecord &record;
    int steps = 0;

    /// The step that is being run: what it is, what is done within its macro, the index before it, whether it
    /// is a macro in which something was done, and what the stack has told since.
    QString doing;
    QStringList parts;
    int earlierIndex = 0;
    int earlierCount = 0;
    bool isMacro = false;
    bool isAddition = false;
    bool isCleared = false;

    /// What the step has changed so far, and where in that each field of a container is.
    std::vector<ksFieldChange> collected;
    std::map<std::pair<osg::UInt32, osg::UInt32>, std::size_t> places;
};
