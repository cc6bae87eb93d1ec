#include "basic/arithmetic.h"
#include "basic/conversions.h"
#include "support/error_number.h"

#include <gtest/gtest.h>

#include <limits>

namespace {

using namespace servopanel::basic;
using servopanel::testing::errorNumber;

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();

TEST(Arithmetic16, KeepsTheEndsOfTheRange)
{
    EXPECT_EQ(add16(32766, 1), 32767);
    EXPECT_EQ(subtract16(-32767, 1), -32768);
    EXPECT_EQ(multiply16(-128, 256), -32768);
    EXPECT_EQ(multiply16(327, 100), 32700);
}

TEST(Arithmetic16, ReportsOverflowAsError6)
{
    EXPECT_EQ(errorNumber([] { return add16(32767, 1); }), 6);
    EXPECT_EQ(errorNumber([] { return add16(-32768, -1); }), 6);
    EXPECT_EQ(errorNumber([] { return subtract16(-32768, 1); }), 6);
    EXPECT_EQ(errorNumber([] { return multiply16(328, 100); }), 6);
    EXPECT_EQ(errorNumber([] { return multiply16(-32768, -32768); }), 6);
    EXPECT_EQ(errorNumber([] { return narrow16(std::numeric_limits<std::int32_t>::min()); }), 6);
}

TEST(Int, RoundsTowardsMinusInfinity)
{
    EXPECT_EQ(Int(2.9), 2.0);
    EXPECT_EQ(Int(-0.5), -1.0);
    EXPECT_EQ(Int(-3.0), -3.0);
}

TEST(RoundToInt16, TakesTheEvenNeighbourOfAHalf)
{
    EXPECT_EQ(roundToInt16(0.5), 0);
    EXPECT_EQ(roundToInt16(1.5), 2);
    EXPECT_EQ(roundToInt16(2.5), 2);
    EXPECT_EQ(roundToInt16(-0.5), 0);
    EXPECT_EQ(roundToInt16(-1.5), -2);
    EXPECT_EQ(roundToInt16(-2.5), -2);
    EXPECT_EQ(roundToInt16(2.5000001), 3);
    EXPECT_EQ(roundToInt16(-2.5000001), -3);
    EXPECT_EQ(roundToInt16(0.49999999999999994), 0);
}

TEST(RoundToInt16, ChecksTheRangeAfterRounding)
{
    EXPECT_EQ(roundToInt16(32767.49), 32767);
    EXPECT_EQ(roundToInt16(-32768.5), -32768);
    EXPECT_EQ(errorNumber([] { return roundToInt16(32767.5); }), 6);
    EXPECT_EQ(errorNumber([] { return roundToInt16(-32768.51); }), 6);
    EXPECT_EQ(errorNumber([] { return roundToInt16(1e300); }), 6);
    EXPECT_EQ(errorNumber([] { return roundToInt16(notANumber); }), 6);
    EXPECT_EQ(errorNumber([] { return roundToInt32(2147483647.5); }), 6);
    EXPECT_EQ(roundToInt32(2147483647.4), 2147483647);
}

TEST(Divide, TellsDivisionByZeroFromAnUndefinedQuotient)
{
    EXPECT_EQ(divide(1, 4), 0.25);
    EXPECT_EQ(errorNumber([] { return divide(1, 0); }), 11);
    EXPECT_EQ(errorNumber([] { return divide(-1, 0); }), 11);
    EXPECT_EQ(errorNumber([] { return divide(0, 0); }), 6);
    EXPECT_EQ(errorNumber([] { return divide(1e300, 1e-300); }), 6);
}

TEST(Checked, LetsOnlyFiniteNumbersThrough)
{
    EXPECT_EQ(checked(1e308), 1e308);
    EXPECT_EQ(errorNumber([] { return checked(infinity); }), 6);
    EXPECT_EQ(errorNumber([] { return checked(notANumber); }), 6);
}

TEST(Single, RoundsToSinglePrecision)
{
    EXPECT_EQ(single(0.8), 0.8F);
    EXPECT_EQ(errorNumber([] { return single(1e39); }), 6);
    EXPECT_EQ(errorNumber([] { return single(notANumber); }), 6);
}

} // namespace
