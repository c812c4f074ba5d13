// SPDX-License-Identifier: MIT
#include <editor/ksEditorError.h>
#include <editor/script/ksScriptEngine.h>
#include <editor/script/ksScriptFunction.h>
#include <editor/script/ksScriptRegistry.h>

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
    global.print = function() { global.history.print(Array.prototype.map.call(arguments, String).join(" ")); };
    return function(script) {
        try {
            script();
        } catch (thrown) {
            throw thrown instanceof Error ? thrown : new Error("uncaught " + thrown);
        }
    };
})(this))";

/// Where in the script \a error comes from, ":" and a line; empty when it comes from none.
QString placeOf(const QJSValue &error)
{
    if (!error.property(QStringLiteral("fileName")).toString().contains(ksScriptHost::ownFileName()))
        return QLatin1Char(':') + error.property(QStringLiteral("lineNumber")).toString();
    const QStringList calls = error.property(QStringLiteral("stack")).toString().split(QLatin1Char('\n'));
    for (const QString &call : calls)
        if (!call.contains(ksScriptHost::ownFileName()))
            return call.mid(call.lastIndexOf(QLatin1Char(':')));
    return QString();
}

/// Throws ksScriptError when \a result is an error of the script \a path.
void refuseError(const QJSValue &result, const QString &path)
{
    if (result.isError())
        throw ksScriptError(path + placeOf(result) + QStringLiteral(": ") + result.toString());
}

} // namespace

ksScriptEngine::ksScriptEngine(ksEditHistory &history, std::ostream &out)
    : host(engine, history, out)
{
    QJSValue global = engine.globalObject();
    ksScriptRegistry::makeGlobals(host, [this, &global](const char *name, QObject *object) {
        global.setProperty(QLatin1String(name), engine.newQObject(object));
    });
    runner = engine.evaluate(QString::fromLatin1(Prelude), ksScriptHost::ownFileName());
}

void ksScriptEngine::addFunction(const QString &name, const std::function<void()> &function)
{
    const QJSValue object = engine.newQObject(new ksScriptFunction(host, function, &engine));
    engine.globalObject().setProperty(name, object.property(QStringLiteral("call")));
}

void ksScriptEngine::setArguments(const QStringList &arguments)
{
    engine.globalObject().setProperty(QStringLiteral("args"), engine.toScriptValue(arguments));
}

void ksScriptEngine::interrupt()
{
    engine.setInterrupted(true);
}

bool ksScriptEngine::takeInterruption()
{
    const bool wasInterrupted = engine.isInterrupted();
    // Otherwise nothing would run in this engine any more.
    engine.setInterrupted(false);
    return wasInterrupted;
}

void ksScriptEngine::run(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        throw ksScriptError(path + QStringLiteral(": ") + file.errorString());
    const QString program = QString::fromUtf8(file.readAll());
    // On one line with the script's first, so that lines keep their numbers.
    const QJSValue script =
        engine.evaluate(QStringLiteral("(function() {") + program + QStringLiteral("\n})"), path);
    const auto refuse = [&path](bool isInterrupted) {
        if (isInterrupted)
            throw ksScriptError(path + QStringLiteral(": interrupted"));
    };
    refuse(takeInterruption());
    refuseError(script, path);
    const QJSValue result = runner.call({script});
    const bool isInterrupted = takeInterruption();
    const QJSValue left = host.endMacrosLeft();
    refuse(isInterrupted);
    refuseError(result, path);
    refuseError(left, path);
}
