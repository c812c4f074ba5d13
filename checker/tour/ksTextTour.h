// SPDX-License-Identifier: MIT
#pragma once

#include <checker/tour/ksTourPart.h>

/// The part of a tour with the commands on texts and lists of texts: typing, which becomes one step, and
/// edits that do not go on from each other.
class ksTextTour : private ksTourPart
{
public:
    using ksTourPart::ksTourPart;

    void run();

private:
    void type();
    void list();
};
