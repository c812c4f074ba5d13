// SPDX-License-Identifier: MIT
#pragma once

#include <checker/tour/ksTourPart.h>

/// The part of a tour with what a history makes of edits: batches, drags, macros, the mark, and edits whose
/// target has gone.
class ksHistoryTour : private ksTourPart
{
public:
    using ksTourPart::ksTourPart;

    void run();

private:
    void editBatches();
    void dragAndMerge();
    void dragWithoutMerging();
    void runMacro();
    void markAndReset();
    void loseTarget();
};
