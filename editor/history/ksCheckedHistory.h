// SPDX-License-Identifier: MIT
#pragma once

#include <editor/history/ksMirror.h>
#include <editor/history/ksSceneSnapshot.h>

#include <ksundo/core/ksUndoStack.h>

#include <OpenSG/OSGNode.h>
#include <OpenSG/OSGRefPtr.h>

#include <QObject>
#include <QString>

#include <functional>
#include <set>
#include <string>
#include <vector>

class ksMessage;
class ksTranscript;

/// A difference that is right: going back, the field \a field of the container \a container holds \a actual
/// where it once held \a expected, both as ksFieldReader::text() gives them.
struct ksExpectedDifference
{
    osg::UInt32 container;
    osg::UInt32 field;
    std::string expected;
    std::string actual;

    /// Why that is right, for the transcript.
    QString reason;
};

/// A difference that is right: the numbers in single precision that the field \a field of the container \a
/// container holds are calculated by each step, and come back only as far as that carries.
struct ksExpectedRounding
{
    osg::UInt32 container;
    osg::UInt32 field;

    /// How far each number may be from what it was.
    double tolerance;

    /// Where the numbers come from, for the transcript.
    QString reason;
};

/// An undo stack that is checked after every step.
///
/// It keeps a snapshot of the scene for every index of the stack. After a step, the scene must be as the
/// snapshot of the present index says, as must be what commands keep out of the scene; and aspect 1, which
/// only follows the change list, must equal aspect 0 field by field. Each step gives a block in the
/// transcript: what was done, the messages that the stack sent, equal ones in a row as one, the fields that
/// changed, and the result of the check.
///
/// While it lives, it is the receiver of the stack's messages; there may be one at a time.
class ksCheckedHistory : public QObject
{
    Q_OBJECT

public:
    /// Starts with the scene below the node \a scene as it is. The stack is cleared. Keeps a reference on \a
    /// scene; \a record and \a stack must outlive the history.
    ksCheckedHistory(const osg::NodePtr &scene, ksTranscript &record,
                     ksUndoStack *stack = ksUndoStack::get(0));

    /// Undoes all, since containers may refer to each other in a circle by now, clears the stack and lets go
    /// of the scene; aspect 1 has done so too then.
    ~ksCheckedHistory() override;

    /// Runs \a action, which may add, undo and redo on stack(), as one step that is called \a what, and
    /// checks. Within a macro, only aspect 1 is checked, since the stack has no index then. Returns whether
    /// the check found nothing.
    bool step(const QString &what, const std::function<void()> &action);

    /// The same for an \a action that adds commands which all become one: the scene is looked at after the
    /// last one only.
    bool drag(const QString &what, const std::function<void()> &action);

    /// Adds \a command as one step.
    bool add(QUndoCommand *command);

    /// One step each.
    bool undo();
    bool redo();
    bool mark();
    bool reset();
    bool clear();

    /// Opens a macro called \a text; steps are parts of it until endMacro(), which checks. Macros nest.
    void beginMacro(const QString &text);
    bool endMacro();

    /// Whether a macro is open; it must not be undone or redone then.
    bool isInMacro() const { return openMacros > 0; }

    /// Checks without a step.
    bool check();

    /// When \a holds is false, notes that \a text does not hold and counts a difference. Returns \a holds.
    bool verify(bool holds, const QString &text);

    /// From now on, \a difference is no fault: when it is found, the snapshots that held the expected value
    /// take over the actual one.
    void expect(const ksExpectedDifference &difference);

    /// The same for all values within the tolerance.
    void expect(const ksExpectedRounding &rounding);

    ksUndoStack *stack() const { return undoStack; }
    osg::NodePtr root() const { return sceneRoot.get(); }

    /// How many differences and failed verifications there have been.
    int differenceCount() const { return faults; }

    /// Whether a command with the id \a commandId has been added, on its own, in a macro or as another one's
    /// child.
    bool hasAdded(int commandId) const { return addedIds.count(commandId) > 0; }

    /// How many containers the scene has now.
    int containerCount() const;

private Q_SLOTS:
    void commandPerformed(const QUndoCommand *command, bool added);

private:
    static bool receiveMessage(const char *name, ksMessage &message, int);

    void noteAdded(const QUndoCommand &command);
    bool finishStep(const ksSceneSnapshot &before);
    void takeSnapshots();
    void keepSnapshot(const ksSceneSnapshot &snapshot);
    void noteChanges(const ksSceneSnapshot &before);
    int compareWithHistory();
    int compareWithMirror();
    bool accept(const ksDifference &difference);
    bool acceptRounding(const ksDifference &difference);
    void takeOver(const ksDifference &difference, const QString &reason,
                  const std::function<bool(const ksSceneSnapshot &)> &holdsExpected);
    void noteMessages();
    void noteFaults(const QString &label, const std::vector<ksDifference> &differences);

    static ksCheckedHistory *receiver;

    osg::NodeRefPtr sceneRoot;
    ksTranscript &transcript;
    ksUndoStack *undoStack;
    ksMirror mirror;

    /// By stack index: entry 0 is the scene before the first command.
    std::vector<ksSceneSnapshot> snapshots;
    ksSceneSnapshot current;
    ksSceneSnapshot mirrored;
    std::set<int> addedIds;
    std::vector<ksExpectedDifference> expectations;
    std::vector<ksExpectedRounding> roundings;

    /// The message that came last, and how often it came in a row, as long as that is not written.
    QString message;
    int messageCount = 0;
    ksSceneSnapshot beforeMacro;
    int openMacros = 0;
    bool dragging = false;
    int faults = 0;
};
