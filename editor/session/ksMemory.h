// SPDX-License-Identifier: MIT
#pragma once

#include <QtGlobal>

/// The memory of the process and of the machine, in bytes.
namespace ksMemory {

/// How much the process has in use.
qint64 used();

/// How much the process may have in use: \a megabytes, or, when that is 0, what it has and most of what the
/// machine still has to give.
qint64 limit(double megabytes);

/// The same for reading a file of \a fileSize bytes, which by default is given no more than any such file may
/// need.
qint64 limit(double megabytes, qint64 fileSize);

} // namespace ksMemory

/// Makes allocations fail that would take the process beyond a limit, for as long as it lives. Does nothing
/// under AddressSanitizer and its like, which reserve more than there is.
class ksMemoryGuard
{
public:
    explicit ksMemoryGuard(qint64 limit);
    ~ksMemoryGuard();
    ksMemoryGuard(const ksMemoryGuard &) = delete;
    ksMemoryGuard &operator=(const ksMemoryGuard &) = delete;

    /// Whether it works in this build.
    static bool isEffective();

private:
    quint64 previous = 0;
    bool isSet = false;
};
