// SPDX-License-Identifier: MIT
#include <editor/history/ksRecordedHistory.h>
#include <editor/script/ksScriptEngine.h>
#include <editor/session/ksEditorSession.h>
#include <editor/session/ksOpenScene.h>

#include <ostream>

ksEditorSession::ksEditorSession(std::ostream &record, std::ostream &errorStream)
    : ksHeadlessSession("ks-editor", "Edits a 3D model as a script says, and writes a line a step.", record,
                        errorStream)
{}

int ksEditorSession::edit(osg::NodeRefPtr root, const QString &script)
{
    const ksOpenScene scene(root.get());
    ksRecordedHistory history(root.get(), out);
    if (!script.isEmpty())
        ksScriptEngine(history, out).run(script);
    saveOutput(root.get());
    out << "OK: " << history.stepCount() << " steps\n";
    return Done;
}
