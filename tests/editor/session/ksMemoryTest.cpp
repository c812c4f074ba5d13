// SPDX-License-Identifier: MIT
#include <editor/session/ksMemory.h>

#include <gtest/gtest.h>

#include <limits>
#include <new>
#include <unistd.h>
#include <vector>

namespace {

constexpr qint64 Megabyte = 1024 * 1024;

bool canTake(qint64 bytes)
{
    try {
        const std::vector<char> taken(static_cast<std::size_t>(bytes));
        return !taken.empty();
    } catch (const std::bad_alloc &) {
        return false;
    }
}

} // namespace

TEST(ksMemory, KnowsWhatTheProcessUses)
{
    const qint64 before = ksMemory::used();
    EXPECT_GT(before, Megabyte);
    const std::vector<char> taken(64 * Megabyte, 'x');
    EXPECT_GT(ksMemory::used(), before + 32 * Megabyte);
}

TEST(ksMemory, LeavesTheMachineSome)
{
    EXPECT_EQ(ksMemory::limit(100), 100 * Megabyte);
    EXPECT_EQ(ksMemory::limit(100, Megabyte), 100 * Megabyte);
    // What the machine has to give changes from one call to the next.
    const qint64 machine = sysconf(_SC_PHYS_PAGES) * sysconf(_SC_PAGESIZE);
    for (const qint64 limit : {ksMemory::limit(0), ksMemory::limit(0, std::numeric_limits<qint64>::max())}) {
        EXPECT_GT(limit, Megabyte);
        EXPECT_LT(limit, 2 * machine);
    }
    EXPECT_LE(ksMemory::limit(0, 0), 2048 * Megabyte);
    EXPECT_LE(ksMemory::limit(0, Megabyte), 2148 * Megabyte);
}

TEST(ksMemoryGuard, MakesAllocationsFail)
{
    if (!ksMemoryGuard::isEffective())
        GTEST_SKIP() << "the sanitizers reserve more memory than there is";
    {
        const ksMemoryGuard guard(ksMemory::used() + 100 * Megabyte);
        EXPECT_TRUE(canTake(10 * Megabyte));
        EXPECT_FALSE(canTake(200 * Megabyte));
    }
    EXPECT_TRUE(canTake(200 * Megabyte));
}
