// SPDX-License-Identifier: MIT
#pragma once

#include <ksundo/ksExport.h>

#include <QUndoCommand>

#include <typeindex>

class ksMessage;

/// Base class of every undoable command, the composite ksMultiCommand excepted.
///
/// It adds to QUndoCommand a creation time, which lets successive edits of the same kind merge into one undo
/// step, a switch and a window for that merging, and the command's own share of the message that ksUndoStack
/// sends to the application after every step.
///
/// A derived class overrides redo() and undo(), takes its id from KS_UNDO_COMMAND(), and, when its commands
/// may merge, overrides mergeWith() on top of absorb().
///
/// Ownership: a command built with a parent belongs to the parent; any other belongs to the stack from the
/// moment it is pushed. Commands are built and run on the thread that owns the stack.
class KSUNDO_EXPORT ksUndoCommand : public QUndoCommand
{
public:
    /// The merge window of a new command, in seconds.
    static constexpr double defaultMergeResponseDelta = 0.4;

    /// Builds a command that the history shows as \a text. The current time becomes the creation time; the
    /// merge window is the default one and the command may merge.
    explicit ksUndoCommand(const QString &text, QUndoCommand *parent = nullptr);

    /// Sets the length of the merge window: the command may be absorbed by the one before it when it was
    /// created less than \a seconds after that one's latest edit. A negative value, and not a number, means
    /// without limit.
    void setMergeResponseDelta(const double &seconds) { mergeResponseDelta = seconds; }

    /// Tells whether this command may be absorbed by the one before it. Whether this command may absorb later
    /// ones is for those to say.
    void setMergeEnabled(bool enabled) { mergeEnabled = enabled; }

    /// Declares this command a part of the gesture \a number, 0 for none. Commands of one gesture merge
    /// without limit of time, those of different ones never. ksUndoStack calls it for what is added between
    /// beginGesture() and endGesture(), the children of a composite included. A command that holds others of
    /// its own hands the number on before it asks whether these merge.
    void setGesture(unsigned int number) { gesture = number; }

    /// The gesture that this command is a part of, 0 for none.
    unsigned int getGesture() const { return gesture; }

    /// The id of the command class \a type: 1, 2, 3 ... in the order in which the running process first asks.
    /// Ids differ from run to run and must never be stored. Commands with equal ids are taken for commands of
    /// one class: on a stack, all ids but -1 must come from here. Not to be called by several threads at
    /// once.
    static int makeId(std::type_index type);

    /// Adds what the application should know about this command to \a message: "id", the id() as an int.
    /// Overrides call the base class first and then add keys of their own.
    virtual void makeMessage(ksMessage &message) const;

    /// Whether this command, the older one, may absorb \a other, the newer one, which must be a
    /// ksUndoCommand and not null:
    ///  - \a other has merging enabled (this command's own switch does not matter);
    ///  - both have the same id();
    ///  - both are parts of the same gesture, or \a other was created within its own merge window after this
    ///    command's latest edit, or its window is without limit, and neither is a part of a gesture.
    virtual bool canMergeWith(const QUndoCommand *other) const
    {
        const auto *newer = static_cast<const ksUndoCommand *>(other);
        if (!newer->mergeEnabled || newer->gesture != gesture || newer->id() != id())
            return false;
        if (gesture != 0)
            return true;
        const double window = newer->mergeResponseDelta;
        const bool isLimited = window >= 0.0; // not a number is without limit, too
        return !isLimited || creationTime > newer->creationTime - window;
    }

protected:
    /// The step that all merging commands share: when canMergeWith(\a other) holds, takes over the creation
    /// time of \a other, so that the merge window slides along with a continuous edit, and returns true.
    bool absorb(const QUndoCommand *other)
    {
        if (!canMergeWith(other))
            return false;
        creationTime = static_cast<const ksUndoCommand *>(other)->creationTime;
        return true;
    }

    /// When this command, or the latest one that it absorbed, was built: seconds since the Unix epoch, to the
    /// microsecond.
    double creationTime;

    /// Length of the merge window in seconds; negative means without limit.
    double mergeResponseDelta = defaultMergeResponseDelta;

    /// Whether this command may be absorbed by the one before it.
    bool mergeEnabled = true;

private:
    unsigned int gesture = 0;
};

/// Gives a command class its own id: a static commandId() and the id() that returns it. To be placed at the
/// top of the class; what follows is private. Every instance of a class template has an id of its own.
#define KS_UNDO_COMMAND(Class)                                         \
public:                                                                \
    static int commandId()                                             \
    {                                                                  \
        static const int cmdId = ksUndoCommand::makeId(typeid(Class)); \
        return cmdId;                                                  \
    }                                                                  \
    int id() const override                                            \
    {                                                                  \
        return commandId();                                            \
    }                                                                  \
                                                                       \
private:
