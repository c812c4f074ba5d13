// SPDX-License-Identifier: MIT
#include <editor/scene/ksLooseNumber.h>

#include <gmock/gmock.h>

#include <cmath>

namespace {

using std::nullopt;

constexpr long long Lowest = std::numeric_limits<long long>::min();
constexpr unsigned long long Highest = std::numeric_limits<unsigned long long>::max();

QVariant text(const char *digits)
{
    return QString::fromLatin1(digits);
}

} // namespace

TEST(ksLooseNumber, TakesWholeNumbersOfEveryKind)
{
    EXPECT_EQ(ksLooseNumber::to<int>(-7), -7);
    EXPECT_EQ(ksLooseNumber::to<int>(7u), 7);
    EXPECT_EQ(ksLooseNumber::to<int>(7.0), 7);
    EXPECT_EQ(ksLooseNumber::to<unsigned>(7.0F), 7u);
    EXPECT_EQ(ksLooseNumber::to<short>(text("-12")), -12);
}

TEST(ksLooseNumber, TakesTheWholeRangeOfEveryType)
{
    EXPECT_EQ(ksLooseNumber::to<unsigned char>(255), 255);
    EXPECT_EQ(ksLooseNumber::to<unsigned char>(256), nullopt);
    EXPECT_EQ(ksLooseNumber::to<unsigned char>(-1), nullopt);
    EXPECT_EQ(ksLooseNumber::to<signed char>(-128), -128);
    EXPECT_EQ(ksLooseNumber::to<signed char>(-129), nullopt);
    EXPECT_EQ(ksLooseNumber::to<unsigned>(4294967295.0), 4294967295u);
    EXPECT_EQ(ksLooseNumber::to<unsigned>(4294967296.0), nullopt);
}

TEST(ksLooseNumber, Takes64BitsFromText)
{
    EXPECT_EQ(ksLooseNumber::to<unsigned long long>(text("18446744073709551615")), Highest);
    EXPECT_EQ(ksLooseNumber::to<unsigned long long>(text("18446744073709551616")), nullopt);
    EXPECT_EQ(ksLooseNumber::to<long long>(text("-9223372036854775808")), Lowest);
    EXPECT_EQ(ksLooseNumber::to<long long>(QVariant(Highest)), nullopt);
    EXPECT_EQ(ksLooseNumber::to<unsigned long long>(QVariant(Highest)), Highest);
}

TEST(ksLooseNumber, Refuses64BitsThatADoubleCannotHold)
{
    EXPECT_EQ(ksLooseNumber::to<long long>(-9223372036854775808.0), Lowest);
    EXPECT_EQ(ksLooseNumber::to<long long>(9223372036854775808.0), nullopt);
    EXPECT_EQ(ksLooseNumber::to<unsigned long long>(18446744073709551616.0), nullopt);
    EXPECT_EQ(ksLooseNumber::to<unsigned long long>(-1.0), nullopt);
}

TEST(ksLooseNumber, RefusesWhatIsNoWholeNumber)
{
    EXPECT_EQ(ksLooseNumber::to<int>(0.5), nullopt);
    EXPECT_EQ(ksLooseNumber::to<int>(std::nan("")), nullopt);
    EXPECT_EQ(ksLooseNumber::to<int>(HUGE_VAL), nullopt);
    EXPECT_EQ(ksLooseNumber::to<int>(true), nullopt);
    EXPECT_EQ(ksLooseNumber::to<int>(text("seven")), nullopt);
    EXPECT_EQ(ksLooseNumber::to<unsigned>(text("-1")), nullopt);
    EXPECT_EQ(ksLooseNumber::to<int>(QVariant()), nullopt);
}

TEST(ksLooseNumber, TakesFloatsOfBothWidths)
{
    EXPECT_EQ(ksLooseNumber::to<double>(0.1), 0.1);
    EXPECT_EQ(ksLooseNumber::to<float>(0.1), 0.1F);
    EXPECT_EQ(ksLooseNumber::to<float>(3), 3.0F);
    EXPECT_EQ(ksLooseNumber::to<float>(1e39), nullopt);
    EXPECT_EQ(ksLooseNumber::to<double>(1e39), 1e39);
    EXPECT_EQ(ksLooseNumber::to<float>(HUGE_VAL), HUGE_VALF);
    EXPECT_EQ(ksLooseNumber::to<double>(text("1")), nullopt);
    EXPECT_EQ(ksLooseNumber::to<double>(false), nullopt);
}
