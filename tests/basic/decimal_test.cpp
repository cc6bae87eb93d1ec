#include "basic/conversions.h"

#include <gtest/gtest.h>

#include <limits>

namespace {

using servopanel::basic::decimal;

TEST(Decimal, WritesWholeNumbersWithoutBlanks)
{
    EXPECT_EQ(decimal(std::int32_t{0}), "0");
    EXPECT_EQ(decimal(std::int32_t{-7}), "-7");
    EXPECT_EQ(decimal(std::numeric_limits<std::int32_t>::min()), "-2147483648");
}

TEST(Decimal, WritesDoublesWith15Digits)
{
    EXPECT_EQ(decimal(0.1 + 0.2), "0.3");
    EXPECT_EQ(decimal(1.0 / 3.0), "0.333333333333333");
    EXPECT_EQ(decimal(100.0), "100");
    EXPECT_EQ(decimal(-12.50), "-12.5");
    EXPECT_EQ(decimal(123456789012345.0), "123456789012345");
    EXPECT_EQ(decimal(0.0001), "0.0001");
}

TEST(Decimal, WritesSinglesWith7Digits)
{
    EXPECT_EQ(decimal(0.1F), "0.1");
    EXPECT_EQ(decimal(1.0F / 3.0F), "0.3333333");
    EXPECT_EQ(decimal(1234567.0F), "1234567");
    EXPECT_EQ(decimal(0.5859375F), "0.5859375");
}

TEST(Decimal, ChangesToAnExponentForLargeAndSmallNumbers)
{
    EXPECT_EQ(decimal(1e15), "1E+15");
    EXPECT_EQ(decimal(1.5e300), "1.5E+300");
    EXPECT_EQ(decimal(0.00001), "1E-05");
    EXPECT_EQ(decimal(12345678.0F), "1.234568E+07");
}

TEST(Decimal, WritesCurrencyExactly)
{
    const auto text = [](std::int64_t scaled) {
        return servopanel::basic::toText(servopanel::basic::Currency{scaled});
    };
    EXPECT_EQ(text(0), "0");
    EXPECT_EQ(text(12500), "1.25");
    EXPECT_EQ(text(-1), "-0.0001");
    EXPECT_EQ(text(100000), "10");
    EXPECT_EQ(text(std::numeric_limits<std::int64_t>::max()), "922337203685477.5807");
    EXPECT_EQ(text(std::numeric_limits<std::int64_t>::min()), "-922337203685477.5808");
}

TEST(Decimal, KnowsNoNegativeZero)
{
    EXPECT_EQ(decimal(-0.0), "0");
    EXPECT_EQ(decimal(-0.0F), "0");
}

} // namespace
