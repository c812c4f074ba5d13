// SPDX-License-Identifier: MIT
#include "ksFuzzTarget.h"

#include <checker/history/ksCheckedHistory.h>
#include <checker/history/ksTranscript.h>
#include <editor/history/ksRecord.h>
#include <editor/script/ksScriptEngine.h>
#include <editor/session/ksInterrupter.h>
#include <editor/session/ksOpenScene.h>
#include <tests/editor/export/ksEverythingEdited.h>
#include <tests/editor/ksEditorFixture.h>

#include <sstream>

namespace {

constexpr double MostSeconds = 0.5;

/// Runs \a script on \a history. It may end by an error, or be ended.
void runScript(ksCheckedHistory &history, const std::string &script)
{
    static const ksTestFolder folder;
    std::ostringstream out;
    ksScriptEngine engine(history, out);
    ksInterrupter interrupter;
    interrupter.start(MostSeconds, 0, [&engine] { engine.interrupt(); });
    const QString path = folder.write("script.js", script);
    const std::string error = ksErrorOf([&] { engine.run(path); });
    interrupter.stop();
    ksRequire(error.empty() || error.rfind(path.toStdString(), 0) == 0, "a script ends by " + error);
}

/// A script ends, and everything that it has done can be undone and redone.
void editByScript(std::string_view text)
{
    const std::ptrdiff_t living = ksLivingContainers();
    {
        std::ostringstream out;
        const osg::NodeRefPtr root(ksContainers::createNode("Root", osg::Transform3D::create()));
        const ksEverythingEdited edited(root.get());
        const ksOpenScene scene(root.get());
        ksRecord record(out, {});
        ksTranscript transcript(record);
        ksUndoStack stack;
        ksCheckedHistory history(root, transcript, &stack);
        runScript(history, std::string(text));
        for (const bool undoing : {true, false, true})
            while (undoing ? stack.canUndo() : stack.canRedo())
                undoing ? history.undo() : history.redo();
        history.check();
        transcript.finish();
        ksRequire(history.differenceCount() == 0, "the scene differs from the history:\n" + out.str());
    }
    ksRequire(ksLivingContainers() == living, "containers are left");
}

const ksFuzzTarget scripts("scripts", &editByScript);

} // namespace
