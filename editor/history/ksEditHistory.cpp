// SPDX-License-Identifier: MIT
#include <editor/history/ksEditHistory.h>
#include <editor/ksEditorError.h>
#include <editor/scene/ksReferenceCycles.h>

#include <QScopedValueRollback>
#include <QUndoCommand>

#include <memory>
#include <typeinfo>

namespace {

QString named(const char *what, const QString &text)
{
    return QLatin1String(what) + QStringLiteral(" \"") + text + QLatin1Char('"');
}

/// Whether \a macro and the macros in it have no commands.
bool isEmpty(const QUndoCommand &macro)
{
    for (int i = 0; i < macro.childCount(); ++i) {
        const QUndoCommand &child = *macro.child(i);
        if (typeid(child) != typeid(QUndoCommand) || !isEmpty(child))
            return false;
    }
    return true;
}

} // namespace

ksEditHistory::ksEditHistory(const osg::NodePtr &scene, ksUndoStack *stack)
    : sceneRoot(scene)
    , undoStack(stack)
{
    undoStack->clear();
}

ksEditHistory::~ksEditHistory()
{
    close();
}

void ksEditHistory::close()
{
    for (; openMacros > 0; --openMacros)
        undoStack->endMacro();
    while (undoStack->canUndo())
        undoStack->undo();
    undoStack->clear();
    // What was done before the stack was cleared stays.
    if (root() != osg::NullFC)
        ksReferenceCycles::release(root());
    sceneRoot = osg::NodeRefPtr();
}

void ksEditHistory::step(const QString &what, const std::function<void()> &action)
{
    if (stepping) {
        action();
        return;
    }
    beginStep(what);
    finish(action);
}

void ksEditHistory::finish(const std::function<void()> &action)
{
    const QScopedValueRollback<bool> guard(stepping, true);
    const auto end = [this] {
        callObserver();
        finishStep();
    };
    try {
        action();
    } catch (...) {
        end();
        throw;
    }
    end();
}

void ksEditHistory::add(QUndoCommand *command)
{
    std::unique_ptr<QUndoCommand> owned(command);
    step(named("add", command->text()), [this, &owned] {
        undoStack->add(owned.get());
        static_cast<void>(owned.release());
    });
}

void ksEditHistory::drag(int events, const std::function<QUndoCommand *(int event)> &make)
{
    if (events == 0)
        return;
    std::unique_ptr<QUndoCommand> first(make(0));
    step(named("drag", first->text()) + QStringLiteral(", %1 events").arg(events), [&] {
        add(first.release());
        for (int event = 1; event < events; ++event)
            add(make(event));
    });
}

void ksEditHistory::undo()
{
    refuseWithinStepOrMacro();
    if (!undoStack->canUndo())
        throw ksEditorError("there is nothing to undo");
    step(named("undo", undoStack->undoText()), [this] { undoStack->undo(); });
}

void ksEditHistory::redo()
{
    refuseWithinStepOrMacro();
    if (!undoStack->canRedo())
        throw ksEditorError("there is nothing to redo");
    step(named("redo", undoStack->redoText()), [this] { undoStack->redo(); });
}

void ksEditHistory::mark()
{
    step(QStringLiteral("mark index %1").arg(undoStack->index()), [this] { undoStack->mark(); });
}

void ksEditHistory::reset()
{
    refuseWithinStepOrMacro();
    step(QStringLiteral("reset from index %1").arg(undoStack->index()), [this] { undoStack->reset(); });
}

void ksEditHistory::clear()
{
    refuseWithinStepOrMacro();
    step(QStringLiteral("clear"), [this] { undoStack->clear(); });
}

void ksEditHistory::beginMacro(const QString &text)
{
    refuseWithinStep();
    beginStep(named("macro", text));
    undoStack->beginMacro(text);
    ++openMacros;
}

void ksEditHistory::endMacro(bool keep)
{
    refuseWithinStep();
    if (openMacros == 0)
        throw ksEditorError("there is no open macro");
    // It counts as ended already when those who are told of it throw.
    --openMacros;
    finish([this, keep] {
        undoStack->endMacro();
        if (openMacros == 0 && (!keep || isEmpty(*undoStack->currentCommand())))
            dropLast();
    });
}

void ksEditHistory::dropLast()
{
    undoStack->undo();
    // The stack forgets what is undone when a command comes, and does not keep one that is obsolete.
    auto command = std::make_unique<QUndoCommand>();
    command->setObsolete(true);
    undoStack->add(command.release());
}

void ksEditHistory::refuseWithinStep() const
{
    if (stepping)
        throw ksEditorError("not possible within another step");
}

void ksEditHistory::refuseWithinStepOrMacro() const
{
    refuseWithinStep();
    if (openMacros > 0)
        throw ksEditorError("not possible within a macro");
}
