// SPDX-License-Identifier: MIT
#include <editor/edits/ksFieldEdits.h>
#include <editor/history/ksCheckedHistory.h>
#include <editor/history/ksTranscript.h>
#include <editor/ksEditorError.h>
#include <editor/script/ksScriptContainer.h>
#include <editor/script/ksScriptHistory.h>
#include <editor/script/ksScriptHost.h>

#include <ksundo/core/ksMultiCommand.h>

#include <memory>

ksScriptHistory::ksScriptHistory(ksScriptHost &scriptHost)
    : host(scriptHost)
{}

int ksScriptHistory::index() const
{
    return host.history().stack()->index();
}

int ksScriptHistory::count() const
{
    return host.history().stack()->count();
}

void ksScriptHistory::refuseInMacro() const
{
    if (host.history().isInMacro())
        throw ksEditorError("not possible within a macro");
}

void ksScriptHistory::undo()
{
    host.guard([this] {
        refuseInMacro();
        if (!host.history().stack()->canUndo())
            throw ksEditorError("there is nothing to undo");
        host.history().undo();
    });
}

void ksScriptHistory::redo()
{
    host.guard([this] {
        refuseInMacro();
        if (!host.history().stack()->canRedo())
            throw ksEditorError("there is nothing to redo");
        host.history().redo();
    });
}

void ksScriptHistory::mark()
{
    host.history().mark();
}

void ksScriptHistory::reset()
{
    host.guard([this] {
        refuseInMacro();
        host.history().reset();
    });
}

void ksScriptHistory::clear()
{
    host.guard([this] {
        refuseInMacro();
        host.history().clear();
    });
}

void ksScriptHistory::batch(const QString &text, const QJSValue &edits, bool merging)
{
    host.guard([&] {
        const quint32 count = edits.property(QStringLiteral("length")).toUInt();
        auto batch = std::make_unique<ksMultiCommand>(text);
        for (quint32 i = 0; i < count; ++i) {
            const QJSValue entry = edits.property(i);
            const auto *target = qobject_cast<ksScriptContainer *>(entry.property(0).toQObject());
            if (target == nullptr)
                throw ksEditorError("an edit of a batch is an array of a container, a field and a value");
            ksFieldEdits::make(text, target->container(), entry.property(1).toString(),
                               entry.property(2).toVariant(),
                               merging ? ksMerging::WithPrevious : ksMerging::Never, batch.get());
        }
        host.history().add(batch.release());
    });
}

void ksScriptHistory::beginMacro(const QString &text)
{
    host.history().beginMacro(text);
}

void ksScriptHistory::endMacro()
{
    host.history().endMacro();
}

void ksScriptHistory::check()
{
    host.guard([this] {
        if (!host.history().check())
            throw ksEditorError("the scene differs from the history");
    });
}

void ksScriptHistory::print(const QString &text)
{
    host.transcript().line(text);
}
