// SPDX-License-Identifier: MIT
#include <editor/session/ksMemory.h>

#include <gtest/gtest.h>

#include <limits>
#include <new>
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
    EXPECT_GE(ksMemory::limit(0), ksMemory::used());
    EXPECT_LT(ksMemory::limit(0), 1024 * 1024 * Megabyte);
    EXPECT_EQ(ksMemory::limit(100, Megabyte), 100 * Megabyte);
    EXPECT_LE(ksMemory::limit(0, 0), 2048 * Megabyte);
    EXPECT_LE(ksMemory::limit(0, 0), ksMemory::limit(0, Megabyte));
    EXPECT_LE(ksMemory::limit(0, std::numeric_limits<qint64>::max()), 1024 * 1024 * Megabyte);
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
