// SPDX-License-Identifier: MIT
#pragma once

#include <ksundo/core/ksUndoCommand.h>

#include <support/ksCommandTime.h>
#include <variant>

/// Which of its three constructors builds a command: without a word on merging, with the merge switch, or
/// with the merge window.
using ksMergeForm = std::variant<std::monostate, bool, double>;

/// Builds a Command by the constructor of \a form: what it is told about merging stands after \a head and
/// before what the returned function takes.
template <class Command, class... Head>
auto ksBuilderOf(const ksMergeForm &form, const Head &...head)
{
    return [form, head...](const auto &...tail) -> Command * {
        if (const bool *mergeEnabled = std::get_if<bool>(&form))
            return new Command(head..., *mergeEnabled, tail...);
        if (const double *mergeResponseDelta = std::get_if<double>(&form))
            return new Command(head..., *mergeResponseDelta, tail...);
        return new Command(head..., tail...);
    };
}

/// How long after \a older \a newer may have been made to merge into it, of three distances on both sides of
/// the default window and of one of two seconds; 0 when it never may.
inline double ksMergeWindow(const ksUndoCommand &older, ksUndoCommand &newer)
{
    double window = 0;
    for (const double distance : {0.375, 1.875, 2.125}) {
        ksCommandTime::of(newer) = ksCommandTime::of(const_cast<ksUndoCommand &>(older)) + distance;
        if (older.canMergeWith(&newer))
            window = distance;
    }
    return window;
}
