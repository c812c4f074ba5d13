// SPDX-License-Identifier: MIT
#include <editor/script/ksScriptFunction.h>
#include <editor/script/ksScriptHost.h>

#include <utility>

ksScriptFunction::ksScriptFunction(const ksScriptHost &scriptHost, std::function<void()> called,
                                   QObject *parent)
    : QObject(parent)
    , host(scriptHost)
    , function(std::move(called))
{}

void ksScriptFunction::call() const
{
    host.guard(function);
}
