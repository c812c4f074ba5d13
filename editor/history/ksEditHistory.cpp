// SPDX-License-Identifier: MIT
#include <editor/history/ksEditHistory.h>
#include <editor/ksEditorError.h>
#include <editor/scene/ksReferenceCycles.h>

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
    for (; openMacros > static_cast<int>(emptyMacros.size()); --openMacros)
        undoStack->endMacro();
    openMacros = 0;
    emptyMacros.clear();
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
        for (const QString &text : std::exchange(emptyMacros, {}))
            undoStack->beginMacro(text);
        undoStack->add(owned.get());
        static_cast<void>(owned.release());
    });
}

void ksEditHistory::drag(int events, const std::function<QUndoCommand *(int event)> &make)
{
    int event = 0;
    std::unique_ptr<QUndoCommand> next;
    const auto makeNext = [&] {
        while (next == nullptr && event < events)
            next.reset(make(event++));
        return next != nullptr;
    };
    if (!makeNext())
        return;
    step(named("drag", next->text()) + QStringLiteral(", %1 events").arg(events), [&] {
        while (makeNext())
            add(next.release());
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
    emptyMacros.push_back(text);
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
        if (!emptyMacros.empty()) {
            emptyMacros.pop_back();
            return;
        }
        undoStack->endMacro();
        if (openMacros == 0 && !keep) {
            undoStack->undo();
            undoStack->forgetUndone();
        }
    });
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
