// SPDX-License-Identifier: MIT
#pragma once

#include <checker/tour/ksTourPart.h>

class ksTourExtras;

/// The part of a tour with the commands on texts and lists of texts: typing, which becomes one step, and
/// edits that do not go on from each other.
class ksTextTour : private ksTourPart
{
public:
    /// The extras, which must be in the scene, must outlive the part.
    ksTextTour(ksCheckedHistory &checkedHistory, const ksTourTargets &chosenTargets,
               const ksTourExtras &tourExtras);

    void run();

private:
    void type();
    void list();

    const ksTourExtras &extras;
};
