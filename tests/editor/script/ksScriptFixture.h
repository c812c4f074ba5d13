// SPDX-License-Identifier: MIT
#pragma once

#include <editor/history/ksRecord.h>
#include <editor/history/ksRecordedHistory.h>
#include <editor/script/ksScriptEngine.h>
#include <tests/editor/ksEditorFixture.h>

#include <sstream>

/// The error that \a script ends by when \a engine runs it, without its path, and with the call stack on
/// lines of its own; empty when it succeeds. Its file is in \a folder.
inline std::string ksScriptErrorOf(ksScriptEngine &engine, const ksTestFolder &folder,
                                   const std::string &script)
{
    const QString path = folder.write("script.js", script);
    const std::string error = ksErrorOf([&] { engine.run(path); });
    return error.substr(std::min(error.size(), path.toStdString().size()));
}

/// The scene of the fixture \a Scene, which scripts run on.
template <class Scene>
class ksScriptFixture : public Scene
{
protected:
    /// Runs \a script, which is to succeed, and returns what it printed and the record of its steps.
    std::string run(const std::string &script)
    {
        out.str({});
        EXPECT_EQ(errorOf(script), "");
        return out.str();
    }

    /// The same, without the record of the steps.
    std::string printed(const std::string &script)
    {
        std::istringstream lines(run(script));
        std::string kept;
        for (std::string line; std::getline(lines, line);)
            if (line.rfind("step", 0) != 0 && line.rfind("all steps ", 0) != 0)
                kept += line + '\n';
        return kept;
    }

    /// The same without the call stack.
    std::string errorOf(const std::string &script)
    {
        const std::string error = ksScriptErrorOf(engine, folder, script);
        return error.substr(0, error.find('\n'));
    }

    /// Expects that \a script, which follows the line \a prelude, ends by \a error and does nothing.
    void expectErrorAfter(const std::string &prelude, const std::string &script, const std::string &error)
    {
        const int count = stack.count();
        EXPECT_EQ(errorOf(prelude + '\n' + script), ":2: Error: " + error) << script;
        EXPECT_EQ(stack.count(), count) << script;
    }

    ksTestFolder folder;
    std::ostringstream out;
    ksUndoStack stack;
    ksRecord record{out};
    ksRecordedHistory history{this->root, record, &stack};
    ksScriptEngine engine{history, out};
};
