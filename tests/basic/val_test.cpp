#include "basic/text.h"
#include "support/error_number.h"

#include <gtest/gtest.h>

#include <string>

namespace {

using servopanel::basic::Val;
using servopanel::testing::errorNumber;

struct Row {
    const char* text;
    double value;
};

TEST(Val, ReadsTheLeadingNumber)
{
    const Row rows[]{{"12", 12}, {"12abc", 12}, {"-3.5 mm", -3.5}, {"+7", 7}, {".5", 0.5}, {"5.", 5},
        {"1.2.3", 1.2}, {"0123456789", 123456789}, {"1,5", 1}, {"007", 7}, {"1E2", 100}, {"1e+2", 100},
        {"1D2", 100}, {"1d-1", 0.1}, {"1E", 1}, {"1E+", 1}, {"1Ex", 1}, {"1E2E3", 100}, {"1D2D3", 100},
        {"1E2.5", 100}, {"1H5", 1}};
    for (const Row& row : rows)
        EXPECT_EQ(Val(row.text), row.value) << '"' << row.text << '"';
}

TEST(Val, SkipsBlanksAnywhere)
{
    const Row rows[]{
        {"  12", 12}, {"1 2 3", 123}, {"\t4\n5\r6", 456}, {"- 6", -6}, {"1 E 2", 100}, {"1. 5", 1.5}};
    for (const Row& row : rows)
        EXPECT_EQ(Val(row.text), row.value) << '"' << row.text << '"';
}

TEST(Val, IsZeroWithoutALeadingNumber)
{
    for (const char* text : {"", " ", "abc", "-", "+", ".", "-.", "--5", "+-5", "e5", "inf", "nan", "mm 5",
             "&", "&H", "&HG", "&15", "ä5"})
        EXPECT_EQ(Val(text), 0.0) << '"' << text << '"';
}

TEST(Val, ReadsHexadecimalDigits)
{
    const Row rows[]{{"&HF", 15}, {"&HFF", 255}, {"&hff rest", 255}, {"&HFFFF", -1}, {"&H10000", 65536},
        {"& H 1 0", 16}, {"&HFFFFFFFF", -1}};
    for (const Row& row : rows)
        EXPECT_EQ(Val(row.text), row.value) << '"' << row.text << '"';
}

TEST(Val, TakesNumbersTooSmallForZero) { EXPECT_EQ(Val("1E-999"), 0.0); }

TEST(Val, ReportsNumbersBeyondTheRange)
{
    EXPECT_EQ(errorNumber([] { return Val("1E999"); }), 6);
    EXPECT_EQ(errorNumber([] { return Val("1" + std::string(400, '0')); }), 6);
    EXPECT_EQ(errorNumber([] { return Val("&H123456789"); }), 6);
}

} // namespace
