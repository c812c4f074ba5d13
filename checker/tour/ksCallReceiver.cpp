// SPDX-License-Identifier: MIT
#include <checker/tour/ksCallReceiver.h>

void ksCallReceiver::setLocked(bool locked)
{
    calls.writer("setLocked")(locked);
}

void ksCallReceiver::refresh()
{
    calls.writer("refresh")();
}
