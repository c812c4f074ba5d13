// SPDX-License-Identifier: MIT
#include "Allocations.h"

#include <cerrno>
#include <cstdlib>

namespace {

Allocations total;

void count(std::size_t bytes)
{
    ++total.number;
    total.bytes += bytes;
}

} // namespace

Allocations Allocations::now()
{
    return total;
}

// The C library's own functions, which the ones below stand in front of for the whole process.
extern "C" {

void *systemMalloc(std::size_t size) __asm__("__libc_malloc");
void *systemCalloc(std::size_t number, std::size_t size) __asm__("__libc_calloc");
void *systemRealloc(void *memory, std::size_t size) __asm__("__libc_realloc");
void *systemMemalign(std::size_t alignment, std::size_t size) __asm__("__libc_memalign");

__attribute__((visibility("default"))) void *malloc(std::size_t size)
{
    count(size);
    return systemMalloc(size);
}

__attribute__((visibility("default"))) void *calloc(std::size_t number, std::size_t size)
{
    count(number * size);
    return systemCalloc(number, size);
}

__attribute__((visibility("default"))) void *realloc(void *memory, std::size_t size)
{
    count(size);
    return systemRealloc(memory, size);
}

__attribute__((visibility("default"))) void *aligned_alloc(std::size_t alignment, std::size_t size)
{
    count(size);
    return systemMemalign(alignment, size);
}

__attribute__((visibility("default"))) int posix_memalign(void **memory, std::size_t alignment,
                                                          std::size_t size)
{
    count(size);
    *memory = systemMemalign(alignment, size);
    return *memory == nullptr ? ENOMEM : 0;
}
}
