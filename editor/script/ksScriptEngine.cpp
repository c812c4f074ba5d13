// SPDX-License-Identifier: MIT
#include <editor/ksEditorError.h>
#include <editor/script/ksScriptEngine.h>
#include <editor/script/ksScriptHistory.h>
#include <editor/script/ksScriptScene.h>

#include <QFile>

namespace {

/// Adds what is easier said in JavaScript, and gives the function that runs a script. A macro ends where its
/// function ends, whichever way it does. What a script throws becomes an Error, which the engine can tell
/// from a result.
constexpr const char *Prelude = R"((function(global) {
    global.history.macro = function(text, body) {
        global.history.beginMacro(text);
        try {
            return body();
        } finally {
            global.history.endMacro();
        }
    };
    global.check = global.history.check;
    global.print = function() { global.history.print(Array.prototype.map.call(arguments, String).join(" ")); };
    return function(script) {
        try {
            script();
        } catch (thrown) {
            throw thrown instanceof Error ? thrown : new Error("uncaught " + thrown);
        }
    };
})(this))";

constexpr const char *PreludeName = "ks-editor:prelude";

/// Throws ksEditorError when \a result is an error of the script \a path.
void refuseError(const QJSValue &result, const QString &path)
{
    if (!result.isError())
        return;
    QString place = path;
    if (!result.property(QStringLiteral("fileName")).toString().endsWith(QLatin1String(PreludeName)))
        place += QLatin1Char(':') + result.property(QStringLiteral("lineNumber")).toString();
    throw ksEditorError(place.toStdString() + ": " + result.toString().toStdString());
}

} // namespace

ksScriptEngine::ksScriptEngine(ksCheckedHistory &history, ksTranscript &transcript)
    : host(engine, history, transcript)
{
    QJSValue global = engine.globalObject();
    global.setProperty(QStringLiteral("scene"), engine.newQObject(new ksScriptScene(host)));
    global.setProperty(QStringLiteral("history"), engine.newQObject(new ksScriptHistory(host)));
    runner = engine.evaluate(QString::fromLatin1(Prelude), QLatin1String(PreludeName));
}

void ksScriptEngine::run(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        throw ksEditorError(path.toStdString() + ": " + file.errorString().toStdString());
    const QString program = QString::fromUtf8(file.readAll());
    // On one line with the script's first, so that lines keep their numbers.
    const QJSValue script =
        engine.evaluate(QStringLiteral("(function() {") + program + QStringLiteral("\n})"), path);
    refuseError(script, path);
    refuseError(runner.call({script}), path);
}
