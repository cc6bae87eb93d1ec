#include "basic/conversions.h"
#include "support/error_number.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

namespace {

using servopanel::basic::numberFromText;
using servopanel::testing::errorNumber;

TEST(NumberFromText, ReadsTheWholeText)
{
    EXPECT_EQ(numberFromText("12"), 12.0);
    EXPECT_EQ(numberFromText("  12  "), 12.0);
    EXPECT_EQ(numberFromText("+12"), 12.0);
    EXPECT_EQ(numberFromText("-0.25"), -0.25);
    EXPECT_EQ(numberFromText(".5"), 0.5);
    EXPECT_EQ(numberFromText("5."), 5.0);
    EXPECT_EQ(numberFromText("1E3"), 1000.0);
    EXPECT_EQ(numberFromText("2e-1"), 0.2);
}

TEST(NumberFromText, ReadsHexadecimalNumbersWithTheirSign)
{
    EXPECT_EQ(numberFromText("&HF"), 15.0);
    EXPECT_EQ(numberFromText("&HFF"), 255.0);
    EXPECT_EQ(numberFromText("&hffff"), -1.0);
    EXPECT_EQ(numberFromText("&H8000"), -32768.0);
    EXPECT_EQ(numberFromText("&H18000"), 98304.0);
    EXPECT_EQ(numberFromText("&HC0C0C0"), 12632256.0);
    EXPECT_EQ(numberFromText("&HFFFFFFFF"), -1.0);
}

TEST(NumberFromText, RefusesWhatIsNoNumber)
{
    for (const char* text : {"", " ", "a", "12a", "1 2", "1,5", "--1", "++1", "+-1", "-+1", "+", "-", ".",
             "e5", "inf", "nan", "infinity", "INF", "NAN", "INFINITY", "0x10", "&H", "&HG", "&HFG",
             "&H123456789", "&H-1", "&X12", "1H5", "\t1"})
        EXPECT_EQ(errorNumber([&] { return numberFromText(text); }), 13) << '"' << text << '"';
}

TEST(NumberFromText, ReadsNothingBehindTheText)
{
    EXPECT_EQ(numberFromText(std::string_view{"1234"}.substr(0, 2)), 12.0);
    EXPECT_EQ(numberFromText(std::string_view{"&H1234"}.substr(0, 4)), 18.0);
}

TEST(NumberFromText, ReportsNumbersBeyondTheRangeAsOverflow)
{
    EXPECT_EQ(errorNumber([] { return numberFromText("1E999"); }), 6);
    EXPECT_EQ(errorNumber([] { return numberFromText("-1E999"); }), 6);
    EXPECT_EQ(errorNumber([] { return numberFromText(std::string(400, '9')); }), 6);
}

TEST(NumberFromText, TakesNumbersTooSmallForZero)
{
    EXPECT_EQ(numberFromText("1E-999"), 0.0);
    EXPECT_EQ(numberFromText("-0.5E-999"), 0.0);
    EXPECT_EQ(numberFromText("0." + std::string(400, '0') + "1"), 0.0);
}

} // namespace
