// SPDX-License-Identifier: MIT
#include <editor/ksEditorError.h>
#include <editor/script/ksScriptEngine.h>
#include <editor/script/ksScriptFunction.h>
#include <editor/script/ksScriptRegistry.h>

#include <QFile>
#include <QFileInfo>
#include <QJSValueIterator>
#include <QRegularExpression>
#include <QStringList>

namespace {

constexpr int MostCalls = 10;

/// The calls that \a error, see ksScriptPrelude's tell(), comes out of, the innermost first, each as
/// "function@file:line"; those of the editor's own code are left out, and those in the middle of an endless
/// recursion.
QStringList callsOf(const QJSValue &error)
{
    QStringList calls;
    for (const QString &call : error.property(QStringLiteral("stack")).toString().split(QLatin1Char('\n')))
        if (!call.isEmpty() && !call.contains(ksScriptHost::ownFileName()) &&
            !call.endsWith(QStringLiteral(":0")) && !call.startsWith(QLatin1Char('[')) &&
            (calls.isEmpty() || calls.last() != call))
            calls += call;
    return calls;
}

QString lineOf(const QString &call)
{
    return call.mid(call.lastIndexOf(QLatin1Char(':')) + 1);
}

/// Where in the script \a error comes from, ":" and a line; empty when it comes from none.
QString placeOf(const QJSValue &error)
{
    const QStringList calls = callsOf(error);
    if (!calls.isEmpty())
        return QLatin1Char(':') + lineOf(calls.first());
    const QString line = error.property(QStringLiteral("lineNumber")).toString();
    return line.isEmpty() ||
                   error.property(QStringLiteral("fileName")).toString().contains(ksScriptHost::ownFileName())
               ? QString()
               : QLatin1Char(':') + line;
}

/// The call stack of \a error, a line each; empty when the script has called nothing.
QString stackOf(const QJSValue &error, const QString &file)
{
    const QStringList calls = callsOf(error);
    QString text;
    for (int i = 0; calls.size() > 1 && i < calls.size() && i < MostCalls; ++i) {
        const QString function = calls[i].section(QLatin1Char('@'), 0, 0);
        text += QStringLiteral("\n    at ") + (function.isEmpty() ? QString() : function + QLatin1Char(' ')) +
                file + QLatin1Char(':') + lineOf(calls[i]);
    }
    if (calls.size() > MostCalls)
        text += QStringLiteral("\n    and %1 more").arg(calls.size() - MostCalls);
    return text;
}

/// What \a error says. The engine wraps the error of an object that has no such method in one of its own.
QString messageOf(const QJSValue &error)
{
    static const QRegularExpression wrapped(
        QStringLiteral("^TypeError: Property '[^']*' of object (TypeError: .*) is not a function$"));
    const QString message = error.property(QStringLiteral("text")).toString();
    const QRegularExpressionMatch match = wrapped.match(message);
    return match.hasMatch() ? match.captured(1) : message;
}

void refuseInterrupted(bool isInterrupted, const QString &path)
{
    if (isInterrupted)
        throw ksScriptError(path + QStringLiteral(": interrupted"));
}

} // namespace

ksScriptEngine::ksScriptEngine(ksEditHistory &history, std::ostream &out)
    : host(engine, history, out)
{
    QJSValue global = engine.globalObject();
    QJSValue names = engine.newArray();
    quint32 count = 0;
    ksScriptRegistry::makeGlobals(host, [&](const char *name, QObject *object) {
        global.setProperty(QLatin1String(name), host.object(object, engine.newObject()));
        names.setProperty(count++, QLatin1String(name));
    });
    QJSValue types = engine.newArray();
    count = 0;
    ksScriptRegistry::visitClasses([&](const QMetaObject &type, const QStringList &parts) {
        types.setProperty(count++, host.type(type, parts));
    });
    host.prelude("setGlobals").call({global, names, types});
}

void ksScriptEngine::addFunction(const QString &name, const std::function<void()> &function)
{
    const QJSValue object = engine.newQObject(new ksScriptFunction(host, function, &engine));
    engine.globalObject().setProperty(name, object.property(QStringLiteral("call")));
}

void ksScriptEngine::setArguments(const QStringList &arguments)
{
    QJSValue array = engine.newArray(static_cast<uint>(arguments.size()));
    for (int i = 0; i < arguments.size(); ++i)
        array.setProperty(static_cast<quint32>(i), arguments[i]);
    engine.globalObject().setProperty(QStringLiteral("args"), array);
}

bool ksScriptEngine::takeInterruption()
{
    // Also when it is to end, but has called nothing since.
    const bool wasToEnd = host.resume();
    const bool wasInterrupted = engine.isInterrupted() || wasToEnd;
    // Otherwise nothing would run in this engine any more.
    engine.setInterrupted(false);
    return wasInterrupted;
}

void ksScriptEngine::refuseError(const QJSValue &result, const QString &path) const
{
    if (result.isUndefined())
        return;
    const QJSValue told = result.isError() ? host.prelude("tell").call({result}) : result;
    const QString message = path + placeOf(told) + QStringLiteral(": ") + messageOf(told) +
                            stackOf(told, QFileInfo(path).fileName());
    if (host.isOutputFailure(told))
        throw ksOutputError(message);
    throw ksScriptError(message);
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
    refuseInterrupted(takeInterruption(), path);
    refuseError(script.isError() ? script : QJSValue(), path);
    host.setScriptFile(path);
    finish(host.prelude("run").call({script}), path);
}

QString ksScriptEngine::evaluate(const QString &text, const QString &name)
{
    host.setScriptFile(QString());
    const QJSValue result = engine.evaluate(text, name);
    const QString shown = result.isUndefined() || result.isError() ? QString() : result.toString();
    finish(result.isError() ? result : QJSValue(), name);
    return shown;
}

QStringList ksScriptEngine::globalNames() const
{
    QStringList names;
    for (QJSValueIterator property(engine.globalObject()); property.next();)
        names += property.name();
    return names;
}

void ksScriptEngine::finish(const QJSValue &result, const QString &path)
{
    const bool isInterrupted = takeInterruption();
    const QJSValue left = host.endWhatIsLeft();
    refuseInterrupted(isInterrupted, path);
    refuseError(result, path);
    refuseError(left, path);
}
