// SPDX-License-Identifier: MIT
#pragma once

#include <checker/tour/ksCallReceiver.h>
#include <checker/tour/ksTourPart.h>

/// The part of a tour with the commands that call a Qt method. It receives the calls, and must outlive the
/// steps of the history that it made.
class ksInvokeTour : private ksTourPart
{
public:
    using ksTourPart::ksTourPart;

    void run();

private:
    void switchFlag();
    void editBatch();

    ksCallReceiver receiver;
};
