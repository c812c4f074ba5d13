// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstring>

/// The position of a virtual function in its class's table, counted from 0; the two destructor entries count.
/// As the Itanium C++ ABI lays pointers to members out.
template <class Function>
std::size_t ksVirtualSlot(Function function)
{
    std::size_t offset;
    static_assert(sizeof function == 2 * sizeof offset);
    std::memcpy(&offset, &function, sizeof offset);
    return (offset - 1) / sizeof(void *);
}
