// SPDX-License-Identifier: MIT
#include <editor/ksEditorError.h>
#include <editor/script/ksScriptCall.h>
#include <editor/script/ksScriptHost.h>

ksScriptCall::ksScriptCall(ksScriptHost &scriptHost, const QJSValue &called)
    : QObject(scriptHost.history().stack())
    , host(scriptHost)
    , engine(&scriptHost.engine())
    , function(called)
{
    // Scripts run without an event loop, which deleteLater() would wait for.
    connect(scriptHost.history().stack(), &ksUndoStack::cleared, this, [this] { delete this; });
}

void ksScriptCall::refuseUnlessFunction(const QJSValue &value)
{
    if (!value.isCallable())
        throw ksEditorError("the action is a function");
}

ksScriptCall *ksScriptCall::make(ksScriptHost &host, const QJSValue &function)
{
    refuseUnlessFunction(function);
    return new ksScriptCall(host, function);
}

void ksScriptCall::call()
{
    if (engine != nullptr)
        host.call(function);
}
