// SPDX-License-Identifier: MIT
#pragma once

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
