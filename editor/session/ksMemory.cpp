// SPDX-License-Identifier: MIT
#include <editor/session/ksMemory.h>

#include <algorithm>
#include <fstream>
#include <limits>
#include <string>
#include <sys/resource.h>
#include <unistd.h>

#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
#define KS_SANITIZED
#elif defined(__has_feature)
#if __has_feature(address_sanitizer) || __has_feature(thread_sanitizer) || __has_feature(memory_sanitizer)
#define KS_SANITIZED
#endif
#endif

namespace {

constexpr qint64 Kilobyte = 1024;
constexpr double Megabyte = 1024.0 * 1024.0;

/// How much of what is left the process may take.
constexpr double Share = 0.8;

struct Size
{
    qint64 reserved = 0;
    qint64 used = 0;
};

Size sizeOfProcess()
{
    Size size;
    std::ifstream("/proc/self/statm") >> size.reserved >> size.used;
    const qint64 page = sysconf(_SC_PAGESIZE);
    return {size.reserved * page, size.used * page};
}

/// The number in the file \a path; \a otherwise when there is none.
qint64 numberIn(const char *path, qint64 otherwise)
{
    qint64 number = 0;
    return std::ifstream(path) >> number ? number : otherwise;
}

qint64 available()
{
    qint64 free = sysconf(_SC_PHYS_PAGES) * sysconf(_SC_PAGESIZE);
    std::ifstream info("/proc/meminfo");
    std::string key;
    for (qint64 value = 0; info >> key >> value;
         info.ignore(std::numeric_limits<std::streamsize>::max(), '\n'))
        if (key == "MemAvailable:")
            free = value * Kilobyte;
    // A container may have less than the machine.
    const qint64 most = numberIn("/sys/fs/cgroup/memory.max", -1);
    if (most >= 0)
        free = std::min(free, most - numberIn("/sys/fs/cgroup/memory.current", 0));
    return std::max<qint64>(free, 0);
}

} // namespace

qint64 ksMemory::used()
{
    return sizeOfProcess().used;
}

qint64 ksMemory::limit(double megabytes)
{
    if (megabytes > 0)
        return static_cast<qint64>(std::min(megabytes * Megabyte, 1e18));
    return used() + static_cast<qint64>(static_cast<double>(available()) * Share);
}

qint64 ksMemory::limit(double megabytes, qint64 fileSize)
{
    if (megabytes > 0)
        return limit(megabytes);
    // A small file may have large ones beside it, and what is packed becomes much more.
    constexpr qint64 Base = 2LL * 1024 * 1024 * 1024;
    constexpr qint64 PerByte = 100;
    return std::min(limit(0),
                    Base + PerByte * std::min<qint64>(fileSize, std::numeric_limits<qint64>::max() / 200));
}

ksMemoryGuard::ksMemoryGuard(qint64 limit)
{
    rlimit now = {};
    if (!isEffective() || getrlimit(RLIMIT_AS, &now) != 0)
        return;
    previous = now.rlim_cur;
    const Size size = sizeOfProcess();
    const qint64 more = std::max<qint64>(limit - size.used, 0);
    now.rlim_cur = std::min(now.rlim_cur, static_cast<rlim_t>(size.reserved + more));
    isSet = setrlimit(RLIMIT_AS, &now) == 0;
}

ksMemoryGuard::~ksMemoryGuard()
{
    rlimit now = {};
    if (!isSet || getrlimit(RLIMIT_AS, &now) != 0)
        return;
    now.rlim_cur = previous;
    setrlimit(RLIMIT_AS, &now);
}

bool ksMemoryGuard::isEffective()
{
#ifdef KS_SANITIZED
    return false;
#else
    return true;
#endif
}
