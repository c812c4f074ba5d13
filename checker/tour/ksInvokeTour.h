// SPDX-License-Identifier: MIT
#pragma once

#include <checker/tour/ksCallReceiver.h>
#include <checker/tour/ksTourPart.h>

class ksTourExtras;

/// The part of a tour with the commands that call a Qt method. It receives the calls, and must outlive the
/// steps of the history that it made.
class ksInvokeTour : private ksTourPart
{
public:
    /// The extras, which must be in the scene, must outlive the part.
    ksInvokeTour(ksCheckedHistory &checkedHistory, const ksTourTargets &chosenTargets,
                 const ksTourExtras &tourExtras);

    void run();

private:
    void switchFlag();
    void editBatch();

    const ksTourExtras &extras;
    ksCallReceiver receiver;
};
