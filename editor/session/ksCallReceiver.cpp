// SPDX-License-Identifier: MIT
#include <editor/session/ksCallReceiver.h>

void ksCallReceiver::setLocked(bool locked)
{
    calls.writer("setLocked")(locked);
}

void ksCallReceiver::refresh()
{
    calls.writer("refresh")();
}
