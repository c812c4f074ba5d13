// SPDX-License-Identifier: MIT
#include "Allocations.h"

#include <cerrno>
#include <cstdlib>
#include <malloc.h>

namespace {

Allocations total;

/// Counts \a memory, of which \a bytes were asked for, and returns it.
void *counted(void *memory, std::size_t bytes)
{
    ++total.number;
    total.bytes += bytes;
    total.kept += static_cast<std::ptrdiff_t>(malloc_usable_size(memory));
    return memory;
}

void forget(void *memory)
{
    total.kept -= static_cast<std::ptrdiff_t>(malloc_usable_size(memory));
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
void systemFree(void *memory) __asm__("__libc_free");

__attribute__((visibility("default"))) void *malloc(std::size_t size)
{
    return counted(systemMalloc(size), size);
}

__attribute__((visibility("default"))) void *calloc(std::size_t number, std::size_t size)
{
    return counted(systemCalloc(number, size), number * size);
}

__attribute__((visibility("default"))) void *realloc(void *memory, std::size_t size)
{
    forget(memory);
    return counted(systemRealloc(memory, size), size);
}

__attribute__((visibility("default"))) void *aligned_alloc(std::size_t alignment, std::size_t size)
{
    return counted(systemMemalign(alignment, size), size);
}

__attribute__((visibility("default"))) int posix_memalign(void **memory, std::size_t alignment,
                                                          std::size_t size)
{
    *memory = counted(systemMemalign(alignment, size), size);
    return *memory == nullptr ? ENOMEM : 0;
}

__attribute__((visibility("default"))) void free(void *memory)
{
    forget(memory);
    systemFree(memory);
}
}
