// SPDX-License-Identifier: MIT
#include <editor/history/ksRecord.h>
#include <editor/history/ksRecordedHistory.h>
#include <editor/script/ksScriptEngine.h>
#include <editor/session/ksEditorOptions.h>
#include <editor/session/ksEditorSession.h>
#include <editor/session/ksOpenScene.h>
#include <editor/session/ksVerdict.h>

#include <QScopeGuard>

#include <memory>

ksEditorSession::ksEditorSession(std::ostream &record, std::ostream &errorStream)
    : ksHeadlessSession("ks-editor", "Edits 3D models, in a window, or as a script says with a line a step.",
                        record, errorStream)
{}

int ksEditorSession::edit(osg::NodeRefPtr root, const ksEditorOptions &options, ksRecord &record,
                          ksVerdict &verdict)
{
    const ksOpenScene scene(root.get());
    ksRecordedHistory history(root.get(), record);
    const auto count = qScopeGuard([&history, &verdict] {
        verdict.count(history.stepCount(), QStringLiteral("step"), QStringLiteral("steps"));
    });
    if (!options.script.isEmpty())
        runScript(
            options, [&record](const QString &line) { record.print(line); },
            [&history](std::ostream &prints) { return std::make_unique<ksScriptEngine>(history, prints); });
    saveOutput(root.get(), options, record);
    return Done;
}
