// SPDX-License-Identifier: MIT
#pragma once

#include <checker/history/ksExpectations.h>
#include <checker/history/ksMirror.h>
#include <checker/history/ksSceneSnapshot.h>
#include <editor/history/ksEditHistory.h>

#include <QObject>
#include <QString>

#include <functional>
#include <map>
#include <set>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

class ksMessage;
class ksTranscript;

/// A history that is checked after every step.
///
/// It keeps a snapshot of the scene for every index of the stack. After a step, the scene must be as the
/// snapshot of the present index says, as must be what commands keep out of the scene; and aspect 1, which
/// only follows the change list, must equal aspect 0 field by field. Within a macro, only aspect 1 is
/// checked, since the stack has no index then. Each step gives a block in the transcript: what was done, the
/// messages that the stack sent, equal ones in a row as one, the fields that changed, and the result of the
/// check.
///
/// While it lives, it is the receiver of the stack's messages; there may be one at a time.
class ksCheckedHistory : public QObject, public ksEditHistory
{
    Q_OBJECT

public:
    /// Starts with the scene below the node \a scene as it is. \a record must outlive the history; see
    /// ksEditHistory for the rest.
    ksCheckedHistory(const osg::NodePtr &scene, ksTranscript &record,
                     ksUndoStack *stack = ksUndoStack::get(0));

    /// Closes the history; aspect 1 has let go of the scene, too, then.
    ~ksCheckedHistory() override;

    /// Also expects what ksInexactUndo knows of the command.
    void add(QUndoCommand *command) override;

    /// The scene is looked at when the drag begins, where a command does not merge, and at the end only.
    void drag(int events, const std::function<QUndoCommand *(int event)> &make) override;

    /// For an action that adds, undoes and redoes on stack().
    using ksEditHistory::step;

    /// Begins a part of the transcript, called \a title.
    void beginPart(const QString &title);

    /// Checks without a step. Returns whether that found nothing.
    bool check();

    /// When \a holds is false, notes that \a text does not hold and counts a difference. Returns \a holds.
    bool verify(bool holds, const QString &text);

    /// Until all commands are forgotten, \a difference is no fault: when it is found, the snapshots that held
    /// the expected value take over the actual one.
    void expect(const ksExpectedDifference &difference);

    /// The same for all values within the tolerance.
    void expect(const ksExpectedRounding &rounding);

    /// Has \a goOn called before each step, which is not taken when that throws. One at a time; an empty one
    /// ends that.
    void setGoOn(std::function<void()> goOn) { mayGoOn = std::move(goOn); }

    /// Whether no step is being taken, and no macro is open.
    bool isBetweenSteps() const { return !isStepping() && !isInMacro(); }

    /// How many differences and failed verifications the transcript has had.
    int differenceCount() const;

    /// How often something was accepted that is not as it was, but as expect() says.
    int toleratedCount() const { return tolerated; }

    /// Whether a command with the id \a commandId has been added, on its own, in a macro or as another one's
    /// child.
    bool hasAdded(int commandId) const { return addedIds.count(commandId) > 0; }

    /// How many containers the scene has now.
    int containerCount() const;

private Q_SLOTS:
    void commandPerformed(const QUndoCommand *command, bool added);
    void forgetSnapshots();

private:
    static bool receiveMessage(const char *name, ksMessage &message, int);

    void beginStep(const QString &what) override;
    void finishStep() override;

    void noteAdded(const QUndoCommand &command);
    void takeSnapshots();
    void keepSnapshot(const ksSceneSnapshot &snapshot);
    void noteChanges();
    int compareWithHistory();
    int compareWithMirror();
    bool accept(const ksDifference &difference);
    bool acceptRounding(const ksDifference &difference);
    void takeOver(const ksDifference &difference, const QString &reason,
                  const std::function<bool(const ksSceneSnapshot &)> &holdsExpected);
    void noteMessages();
    void noteFaults(const QString &label, const std::vector<ksDifference> &differences);

    static ksCheckedHistory *receiver;

    ksTranscript &transcript;
    std::function<void()> mayGoOn;
    ksMirror mirror;

    /// By stack index: entry 0 is the scene before the first command.
    std::vector<ksSceneSnapshot> snapshots;
    ksSceneSnapshot beforeStep;
    ksSceneSnapshot current;
    ksSceneSnapshot mirrored;
    std::set<int> addedIds;
    ksExpectations expectations;

    /// By container, field and content: what that was before it came back, rounded, as this content.
    std::map<std::tuple<osg::UInt32, osg::UInt32, std::string>, std::string> originals;

    /// The message that came last, and how often it came in a row, as long as that is not written.
    QString message;
    int messageCount = 0;

    /// Whether a drag is under way; the index that its latest command has; and whether that one is the
    /// result of a merge that no snapshot shows as yet.
    bool dragging = false;
    int draggedIndex = 0;
    bool isSnapshotDue = false;
    int tolerated = 0;
};
