// SPDX-License-Identifier: MIT
#pragma once

#include <vector>

class ksCheckedHistory;

/// A command class of the library that has an id of its own.
struct ksCommandClass
{
    /// As C++ spells it, an instance of a template with its argument.
    const char *name;

    int (*id)();
};

/// The command classes of the library, and which of them a history has seen.
namespace ksCommandClasses {

const std::vector<ksCommandClass> &all();

/// How many of them have been added to \a history.
int countIn(const ksCheckedHistory &history);

/// Lets \a history verify that all of them have been added to it.
void verifyIn(ksCheckedHistory &history);

} // namespace ksCommandClasses
