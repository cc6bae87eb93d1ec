#include "basic/text.h"
#include "support/error_number.h"

#include <gtest/gtest.h>

#include <limits>
#include <memory>

namespace {

using namespace servopanel::basic;
using servopanel::testing::errorNumber;

TEST(Format, FillsUpWithZeros)
{
    EXPECT_EQ(Format(std::int16_t{7}, "00"), "07");
    EXPECT_EQ(Format(std::int16_t{7}, "0000"), "0007");
    EXPECT_EQ(Format(std::int16_t{0}, "00"), "00");
    EXPECT_EQ(Format(std::int16_t{123}, "00"), "123");
    EXPECT_EQ(Format(std::int32_t{1234567}, "0"), "1234567");
}

TEST(Format, PutsTheSignBeforeTheZeros)
{
    EXPECT_EQ(Format(std::int16_t{-1}, "000"), "-001");
    EXPECT_EQ(Format(-123.0, "00"), "-123");
}

TEST(Format, RoundsHalvesAwayFromZero)
{
    EXPECT_EQ(Format(0.5, "00"), "01");
    EXPECT_EQ(Format(2.5, "00"), "03");
    EXPECT_EQ(Format(-2.5, "00"), "-03");
    EXPECT_EQ(Format(2.4999, "00"), "02");
    EXPECT_EQ(Format(99.5, "00"), "100");
}

TEST(Format, ShowsNoSignForWhatRoundsToZero)
{
    EXPECT_EQ(Format(-0.4, "00"), "00");
    EXPECT_EQ(Format(-0.0, "0"), "0");
}

TEST(Format, WritesLargeNumbersInFull)
{
    EXPECT_EQ(Format(1e15, "0"), "1000000000000000");
    EXPECT_EQ(Format(1e20, "0"), "100000000000000000000");
}

TEST(Format, TakesTextsForTheNumberThatTheyAre)
{
    EXPECT_EQ(Format("7", "00"), "07");
    EXPECT_EQ(Format(" 7.5 ", "00"), "08");
    EXPECT_EQ(Format("abc", "00"), "abc");
    EXPECT_EQ(Format("", "00"), "");
}

TEST(Format, IsEmptyForNothing)
{
    EXPECT_EQ(Format(Null{}, "00"), "");
    EXPECT_EQ(Format(Variant{}, "00"), "");
}

TEST(Format, FailsForWhatHasNoNumber)
{
    EXPECT_EQ(errorNumber([] { return Format(std::numeric_limits<double>::infinity(), "00"); }), 6);
    EXPECT_EQ(errorNumber([] { return Format(Array{}, "00"); }), 13);
    EXPECT_EQ(errorNumber([] { return Format(Variant{std::make_shared<Object>()}, "00"); }), 13);
}

} // namespace
