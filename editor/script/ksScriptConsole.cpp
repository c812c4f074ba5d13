// SPDX-License-Identifier: MIT
#include <editor/script/ksScriptConsole.h>
#include <editor/script/ksScriptHost.h>
#include <editor/script/ksScriptRegistry.h>

#include <ostream>

namespace {

const ksScriptRegistry::Global<ksScriptConsole> global("console");

} // namespace

void ksScriptConsole::write(const QString &text)
{
    host.out() << text.toStdString() << '\n';
}

void ksScriptConsole::complain(const QString &text)
{
    host.warn(text);
}
