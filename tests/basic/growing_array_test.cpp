#include "basic/growing_array.h"
#include "support/error_number.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>

namespace {

using servopanel::basic::GrowingArray;
using servopanel::testing::errorNumber;
using Texts = GrowingArray<std::string, 1000>;

TEST(GrowingArray, ReadsWhatWasNeverWrittenAsEmpty)
{
    Texts texts;
    EXPECT_EQ(std::as_const(texts)[999], "");
    texts[3] = "three";
    EXPECT_EQ(std::as_const(texts)[0], "");
    EXPECT_EQ(std::as_const(texts)[4], "");
    EXPECT_EQ(texts[2], "");
}

TEST(GrowingArray, KeepsWhatWasWritten)
{
    Texts texts;
    for (int i = 0; i < 1000; ++i)
        texts[i] = std::to_string(i);
    texts[5] = "another";
    EXPECT_EQ(std::as_const(texts)[0], "0");
    EXPECT_EQ(std::as_const(texts)[5], "another");
    EXPECT_EQ(std::as_const(texts)[999], "999");
}

// Room for the few that most use, then for all: INI files are read much, and moving records is what costs.
TEST(GrowingArray, MovesItsElementsOnceOnly)
{
    Texts texts;
    const std::string* first = &texts[0];
    texts[127] = "x";
    EXPECT_EQ(&texts[0], first);
    texts[128] = "y";
    first = &texts[0];
    texts[999] = "z";
    EXPECT_EQ(&texts[0], first);
}

TEST(GrowingArray, RefusesIndicesOutsideWithError9)
{
    Texts texts;
    for (const int index : {-1, 1000, -2147483647, 2147483647}) {
        EXPECT_EQ(errorNumber([&] { texts[index] = "x"; }), 9) << index;
        EXPECT_EQ(errorNumber([&] { return std::as_const(texts)[index]; }), 9) << index;
    }
}

} // namespace
