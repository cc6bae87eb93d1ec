#include "basic/arithmetic.h"
#include "support/error_number.h"

#include <gtest/gtest.h>

namespace {

using servopanel::basic::CheckedArray;
using servopanel::testing::errorNumber;

TEST(CheckedArray, StartsWithEmptyElements)
{
    const CheckedArray<std::int16_t, 3, 1> numbers{};
    EXPECT_EQ(numbers[1], 0);
    EXPECT_EQ(numbers[3], 0);
}

TEST(CheckedArray, RefusesIndicesOutsideWithError9)
{
    CheckedArray<std::int16_t, 3, 1> numbers;
    numbers[1] = 10;
    numbers[3] = 30;
    EXPECT_EQ(numbers[1], 10);
    EXPECT_EQ(numbers[3], 30);
    EXPECT_EQ(errorNumber([&] { return numbers[0]; }), 9);
    EXPECT_EQ(errorNumber([&] { return numbers[4]; }), 9);
    EXPECT_EQ(errorNumber([&] { return numbers[-32768]; }), 9);
    EXPECT_EQ(errorNumber([&] { return numbers[2147483647]; }), 9);
}

TEST(CheckedArray, CountsFromZeroUnlessToldOtherwise)
{
    CheckedArray<bool, 2> flags;
    flags.fill(true);
    EXPECT_TRUE(flags[0]);
    EXPECT_TRUE(flags[1]);
    EXPECT_EQ(errorNumber([&] { return flags[2]; }), 9);
}

} // namespace
