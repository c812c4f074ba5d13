// SPDX-License-Identifier: MIT
#include <editor/ksEditorError.h>
#include <editor/script/ksScriptContainer.h>
#include <editor/script/ksScriptHistory.h>
#include <editor/script/ksScriptHost.h>
#include <editor/script/ksScriptRegistry.h>
#include <editor/script/ksScriptValues.h>

#include <QScopeGuard>

using namespace ksScriptValues;

namespace {

const ksScriptRegistry::Global<ksScriptHistory> global("history");

} // namespace

ksScriptHistory::ksScriptHistory(ksScriptHost &scriptHost)
    : host(scriptHost)
{}

template <class Work>
void ksScriptHistory::step(const Work &work)
{
    host.guard([&] {
        host.refuseWithinBatch();
        host.refuseWithinCall();
        work();
    });
}

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
    step([this] { host.history().undo(); });
}

void ksScriptHistory::redo()
{
    step([this] { host.history().redo(); });
}

void ksScriptHistory::mark()
{
    step([this] { host.history().mark(); });
}

void ksScriptHistory::reset()
{
    step([this] { host.history().reset(); });
}

void ksScriptHistory::clear()
{
    step([this] { host.history().clear(); });
}

void ksScriptHistory::batch(const QString &text, const QJSValue &edits, bool merging, const QJSValue &action)
{
    host.guard([&] {
        if (!edits.isArray())
            throw ksEditorError("the edits of a batch are an array or a function");
        host.openBatch(text, merging ? ksMerging::WithPrevious : ksMerging::Never, action);
        bool succeeded = false;
        const auto close = qScopeGuard([&] {
            if (!succeeded)
                host.closeBatch(false);
        });
        const quint32 count = lengthOf(edits);
        for (quint32 i = 0; i < count; ++i) {
            const QJSValue entry = edits.property(i);
            auto *target = qobject_cast<ksScriptContainer *>(entry.property(0).toQObject());
            const quint32 parts = lengthOf(entry);
            if (target == nullptr || parts < 3 || parts > 4 || !entry.property(1).isString())
                throw ksEditorError("an edit of a batch is an array of a container, a field and a value");
            target->perform({entry.property(1).toString(), entry.property(2), entry.property(3), text});
        }
        succeeded = true;
        host.closeBatch(true);
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

void ksScriptHistory::openBatch(const QString &text, bool merging, const QJSValue &action)
{
    host.guard([&] { host.openBatch(text, merging ? ksMerging::WithPrevious : ksMerging::Never, action); });
}

void ksScriptHistory::closeBatch(bool succeeded)
{
    host.guard([&] { host.closeBatch(succeeded); });
}
