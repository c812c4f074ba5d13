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
    connect(scriptHost.history().stack(), &ksUndoStack::cleared, this, &QObject::deleteLater);
}

ksScriptCall *ksScriptCall::make(ksScriptHost &host, const QJSValue &function)
{
    if (!function.isCallable())
        throw ksEditorError("the action is a function");
    return new ksScriptCall(host, function);
}

void ksScriptCall::call()
{
    if (engine != nullptr)
        host.call(function);
}
