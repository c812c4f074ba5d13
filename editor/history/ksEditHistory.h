// SPDX-License-Identifier: MIT
#pragma once

#include <ksundo/core/ksUndoStack.h>

#include <OpenSG/OSGNode.h>
#include <OpenSG/OSGRefPtr.h>

#include <QString>

#include <functional>
#include <utility>
#include <vector>

class QUndoCommand;

/// Where edits go: the history of one scene.
///
/// Whoever edits builds commands and hands them over. A history runs them on an undo stack, one step at a
/// time; what else it does at the two ends of a step is the affair of the class derived from this one.
///
/// What is not possible at the moment throws ksEditorError and changes nothing. When a command throws, the
/// step is finished all the same, and the exception passes on.
class ksEditHistory
{
public:
    virtual ~ksEditHistory();
    ksEditHistory(const ksEditHistory &) = delete;
    ksEditHistory &operator=(const ksEditHistory &) = delete;

    /// Runs \a command as one step. It must not be null and belongs to the history, also when it throws.
    virtual void add(QUndoCommand *command);

    /// Adds the commands that \a make gives for the numbers from 0 to \a events - 1, which follow each other
    /// as those of a drag do, as one step; null stands for none. When \a make throws, those before stay.
    virtual void drag(int events, const std::function<QUndoCommand *(int event)> &make);

    /// One step each. Not possible without a command to undo or redo, within a macro and within a step.
    void undo();
    void redo();

    /// Remembers the index.
    void mark();

    /// Goes back to the index that mark() has remembered, 0 if none. Not possible within a macro
    /// and within a step.
    void reset();

    /// Forgets all commands, and the mark. Not possible within a macro and within a step.
    void clear();

    /// Opens a macro called \a text: what is added until the matching endMacro() is one command. Macros nest.
    /// Not possible within a step; nor is endMacro() without an open macro. When somebody who is told of the
    /// end throws, the macro has ended all the same.
    void beginMacro(const QString &text);

    /// A macro in which nothing was done leaves the stack as it was. One that is not to be kept leaves no
    /// command: what it did is undone. Only the outermost macro may be dropped so.
    void endMacro(bool keep = true);

    /// Has \a observer called at the end of each step, while the change list still tells what it changed. One
    /// at a time; an empty one ends that.
    void setObserver(std::function<void()> observer) { stepObserver = std::move(observer); }

    bool isInMacro() const { return openMacros > 0; }

    /// The number of open macros.
    int macroDepth() const { return openMacros; }

    ksUndoStack *stack() const { return undoStack; }
    osg::NodePtr root() const { return sceneRoot.get(); }

protected:
    /// For the scene below \a scene, on which the history keeps a reference. Clears \a stack, which must
    /// outlive the history.
    ksEditHistory(const osg::NodePtr &scene, ksUndoStack *stack);

    /// Runs \a action as one step that is called \a what. Within another step that is not a macro it is a
    /// part of that one.
    void step(const QString &what, const std::function<void()> &action);

    /// Whether a step is being run.
    bool isStepping() const { return stepping; }

    /// Has the observer called, for what has changed without a step of this history.
    void callObserver() const
    {
        if (stepObserver)
            stepObserver();
    }

    /// Ends open macros, undoes everything, since containers may refer to each other in a circle by now,
    /// clears the stack, breaks the circles that are left, and lets go of the scene; none of this is a step.
    /// The destructor does so at the latest.
    void close();

private:
    /// Called before and after what each step does. The steps within a macro lie between the two of the
    /// macro, and isInMacro() is true then.
    virtual void beginStep(const QString &what) = 0;
    virtual void finishStep() = 0;

    /// Runs \a action, the rest of a step, and finishes the step, also when that throws.
    void finish(const std::function<void()> &action);

    /// Throw when a step is being run, and when a macro is open, too.
    void refuseWithinStep() const;
    void refuseWithinStepOrMacro() const;

    osg::NodeRefPtr sceneRoot;
    ksUndoStack *undoStack;
    std::function<void()> stepObserver;
    int openMacros = 0;

    /// The innermost of them, in which nothing has been done: the stack forgets what can be redone when it is
    /// told of one.
    std::vector<QString> emptyMacros;
    bool stepping = false;
};
