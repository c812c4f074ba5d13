// SPDX-License-Identifier: MIT
#include <checker/history/ksCheckedHistory.h>
#include <checker/session/ksCheckedScript.h>
#include <editor/ksEditorError.h>

ksCheckedScript::ksCheckedScript(ksCheckedHistory &history, std::ostream &out)
    : ksScriptEngine(history, out)
{
    addFunction(QStringLiteral("check"), [&history] {
        if (!history.check())
            throw ksEditorError("the scene differs from the history");
    });
}
