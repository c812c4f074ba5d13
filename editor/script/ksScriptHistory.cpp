// SPDX-License-Identifier: MIT
#include <editor/edits/ksFieldEdits.h>
#include <editor/ksEditorError.h>
#include <editor/script/ksScriptContainer.h>
#include <editor/script/ksScriptHistory.h>
#include <editor/script/ksScriptHost.h>
#include <editor/script/ksScriptRegistry.h>

#include <ksundo/core/ksMultiCommand.h>

#include <memory>
#include <ostream>

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

void ksScriptHistory::batch(const QString &text, const QJSValue &edits, bool merging)
{
    host.guard([&] {
        if (!edits.isArray())
            throw ksEditorError("the edits of a batch are an array");
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
    host.guard([&] { host.beginMacro(text); });
}

void ksScriptHistory::endMacro()
{
    host.guard([this] { host.endMacro(); });
}

void ksScriptHistory::print(const QString &text)
{
    host.out() << text.toStdString() << '\n';
}
