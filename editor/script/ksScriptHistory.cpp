// SPDX-License-Identifier: MIT
#include <editor/ksEditorError.h>
#include <editor/script/ksScriptCall.h>
#include <editor/script/ksScriptContainer.h>
#include <editor/script/ksScriptHistory.h>
#include <editor/script/ksScriptHost.h>
#include <editor/script/ksScriptRegistry.h>
#include <editor/script/ksScriptValues.h>

#include <ksundo/field/ksInvokeMultiCommand.h>

#include <memory>

using namespace ksScriptValues;

namespace {

const ksScriptRegistry::Global<ksScriptHistory> global("history");

} // namespace

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

void ksScriptHistory::undo()
{
    host.guard([this] { host.history().undo(); });
}

void ksScriptHistory::redo()
{
    host.guard([this] { host.history().redo(); });
}

void ksScriptHistory::mark()
{
    host.guard([this] { host.history().mark(); });
}

void ksScriptHistory::reset()
{
    host.guard([this] { host.history().reset(); });
}

void ksScriptHistory::clear()
{
    host.guard([this] { host.history().clear(); });
}

void ksScriptHistory::batch(const QString &text, const QJSValue &edits, bool merging, const QJSValue &action)
{
    host.guard([&] {
        if (!edits.isArray())
            throw ksEditorError("the edits of a batch are an array");
        const quint32 count = lengthOf(edits);
        std::unique_ptr<ksMultiCommand> batch;
        if (action.isUndefined())
            batch = std::make_unique<ksMultiCommand>(text);
        else
            batch = std::make_unique<ksInvokeMultiCommand>(text, ksScriptCall::make(host, action), "call()");
        bool changes = false;
        for (quint32 i = 0; i < count; ++i) {
            const QJSValue entry = edits.property(i);
            const auto *target = qobject_cast<ksScriptContainer *>(entry.property(0).toQObject());
            const quint32 parts = lengthOf(entry);
            if (target == nullptr || parts < 3 || parts > 4 || !entry.property(1).isString())
                throw ksEditorError("an edit of a batch is an array of a container, a field and a value");
            const ksScriptEdit edit{entry.property(1).toString(),
                                    entry.property(2),
                                    entry.property(3),
                                    text,
                                    merging ? ksMerging::WithPrevious : ksMerging::Never,
                                    batch.get()};
            changes = changes || !target->holds(edit);
            target->makeEdit(edit);
        }
        if (changes)
            host.add(batch.release());
    });
}

void ksScriptHistory::beginMacro(const QString &text)
{
    host.guard([&] { host.beginMacro(text); });
}

void ksScriptHistory::endMacro()
{
    host.guard([this] { host.endMacro(); });
}

void ksScriptHistory::openMacro(const QString &text)
{
    host.guard([&] { host.openMacro(text); });
}

void ksScriptHistory::closeMacro(bool succeeded)
{
    host.guard([&] { host.closeMacro(succeeded); });
}
