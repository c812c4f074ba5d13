// SPDX-License-Identifier: MIT
#include "ksFuzzTarget.h"
#include "ksFuzzedObject.h"

#include <ksundo/field/ksInvokeBoolFieldUndoCommand.h>
#include <ksundo/field/ksInvokeMultiCommand.h>

#include <OpenSG/OSGRefPtr.h>

#include <QMetaMethod>

#include <algorithm>
#include <string>
#include <support/OSGProbeContainer.h>
#include <support/ksErrorLines.h>
#include <vector>

namespace {

using Lines = std::vector<std::string>;

/// The calls that a command makes of the method \a signature, in Qt's form, when it passes on \a value.
/// What a method that wants something else than a number gets is an error.
Lines callsOf(const std::string &signature, bool value)
{
    static const std::vector<std::string> numbers = {"flag(bool)",       "number(int)",  "number(short)",
                                                     "wide(qulonglong)", "small(uchar)", "optional(uint)",
                                                     "answer(bool)"};
    for (const std::string &number : numbers)
        if (signature == number)
            return {number + (value ? " 1" : " 0")};
    if (signature == "optional()")
        return {"optional(uint) 7"};
    if (signature == "plain()" || signature == "number()")
        return {signature};
    return {};
}

/// What is logged when the commands call the method \a index.
Lines errorsOf(const QMetaMethod &method, bool hasArgument)
{
    static const std::vector<std::string> arguments = {"bool", "int", "short", "qulonglong", "uchar", "uint"};
    const QList<QByteArray> types = method.parameterTypes();
    const bool isNumber = types.size() == 1 && std::find(arguments.begin(), arguments.end(),
                                                         types.first().toStdString()) != arguments.end();
    if (types.isEmpty() || (hasArgument && isNumber))
        return {};
    return {"Could not invoke: ksFuzzedObject::" + method.methodSignature().toStdString()};
}

void requireLines(const Lines &actual, const Lines &expected, const std::string &what)
{
    const auto joined = [](const Lines &lines) {
        std::string text;
        for (const std::string &line : lines)
            text += line + '\n';
        return text;
    };
    ksRequireEqual(joined(actual), joined(expected), what);
}

/// Commands call whatever method an input names, and nothing else.
void invoke(std::string_view input)
{
    const std::string signature(input.substr(0, input.find('\0')));
    ksErrorLines errors;
    ksFuzzedObject object;
    const osg::RefPtr<osg::ProbeContainerPtr> probe(osg::ProbeContainer::create());

    const QByteArray normalized = QMetaObject::normalizedSignature(signature.c_str());
    int index = object.metaObject()->indexOfMethod(signature.c_str());
    if (index < 0)
        index = object.metaObject()->indexOfMethod(normalized.constData());
    const QMetaMethod method = object.metaObject()->method(index);
    Lines missing;
    if (index < 0)
        missing.push_back("Method not found: ksFuzzedObject::" + normalized.toStdString());

    ksInvokeBoolFieldUndoCommand command(probe, "flag", true, &object, signature.c_str());
    requireLines(errors.take(), missing, "a command is built for " + signature);
    const std::string called = index < 0 ? std::string() : method.methodSignature().toStdString();
    for (const bool value : {true, false}) {
        command.redo();
        ksRequire(probe->getFlag() == value, "a redo has not switched the flag");
        requireLines(object.take(), callsOf(called, value), "a redo calls " + called);
        requireLines(errors.take(), index < 0 ? Lines() : errorsOf(method, true), "a redo calls " + called);
        command.undo();
        ksRequire(probe->getFlag() == value, "an undo has done something");
        requireLines(object.take(), {}, "an undo calls " + called);
    }

    ksInvokeMultiCommand composite(QString(), &object, signature.c_str());
    requireLines(errors.take(), missing, "a composite is built for " + signature);
    const bool takesNothing = index >= 0 && method.parameterCount() == 0;
    for (const bool undoing : {false, true}) {
        undoing ? composite.undo() : composite.redo();
        requireLines(object.take(), takesNothing ? callsOf(called, false) : Lines(),
                     "a composite calls " + called);
        requireLines(errors.take(), index < 0 ? Lines() : errorsOf(method, false),
                     "a composite calls " + called);
    }
}

const ksFuzzTarget methods("methods", &invoke);

} // namespace
