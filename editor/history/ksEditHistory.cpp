// SPDX-License-Identifier: MIT
#include <editor/history/ksEditHistory.h>
#include <editor/ksEditorError.h>

#include <QScopedValueRollback>
#include <QUndoCommand>

#include <memory>

namespace {

QString named(const char *what, const QString &text)
{
    return QLatin1String(what) + QStringLiteral(" \"") + text + QLatin1Char('"');
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
    try {
        action();
    } catch (...) {
        finishStep();
        throw;
    }
    finishStep();
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

void ksEditHistory::endMacro()
{
    refuseWithinStep();
    if (openMacros == 0)
        throw ksEditorError("there is no open macro");
    // It counts as ended already when those who are told of it throw.
    --openMacros;
    finish([this] { undoStack->endMacro(); });
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
