// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>

/// How often the process has allocated memory, and how much, counted from its start, and what it keeps of it.
/// Every library's allocations count, those by operator new included. A reallocation counts as one of its new
/// size. What is kept is counted in the sizes of the blocks that malloc gives out.
struct Allocations
{
    std::size_t number = 0;
    std::size_t bytes = 0;
    std::ptrdiff_t kept = 0;

    static Allocations now();

    Allocations operator-(const Allocations &earlier) const
    {
        return {number - earlier.number, bytes - earlier.bytes, kept - earlier.kept};
    }
};
