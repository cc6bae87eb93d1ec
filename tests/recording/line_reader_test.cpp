#include "recording/scenario/line_reader.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <string>

namespace {

using servopanel::basic::Array;
using servopanel::basic::Variant;
using servopanel::recording::LineReader;
using servopanel::recording::Malformed;

Variant value(std::string_view text)
{
    LineReader line{text};
    Variant result = line.value("the value");
    line.end();
    return result;
}

std::string problemOf(std::string_view text)
{
    try {
        value(text);
        return "none";
    } catch (const Malformed& problem) {
        return problem.reason;
    }
}

TEST(LineReader, TakesANumberInTheSmallestTypeThatHoldsIt)
{
    EXPECT_EQ(value("12"), Variant{std::int16_t{12}});
    EXPECT_EQ(value("-32768"), Variant{std::int16_t{-32768}});
    EXPECT_EQ(value("32768"), Variant{std::int32_t{32768}});
    EXPECT_EQ(value("-2147483648"), Variant{std::int32_t{-2147483647 - 1}});
    EXPECT_EQ(value("12.5"), Variant{12.5});
    EXPECT_EQ(value("12.0"), Variant{12.0});
    EXPECT_EQ(value("-0.5"), Variant{-0.5});
}

TEST(LineReader, TakesTextsAndBooleans)
{
    EXPECT_EQ(value("\"\""), Variant{""});
    EXPECT_EQ(value("\"a \"\"b\"\" [1, 2]\""), Variant{"a \"b\" [1, 2]"});
    EXPECT_EQ(value("true"), Variant{true});
    EXPECT_EQ(value("false"), Variant{false});
}

TEST(LineReader, TakesArrays)
{
    EXPECT_EQ(value("[]"), Variant{Array{}});
    EXPECT_EQ(value("[ ]"), Variant{Array{}});
    const Variant mixed = value("[1, 2.5,\"x, y\" , true]");
    ASSERT_TRUE(mixed.holds<Array>());
    EXPECT_EQ(
        mixed.get<Array>()->elements, (std::vector<Variant>{std::int16_t{1}, 2.5, Variant{"x, y"}, true}));
    EXPECT_EQ(mixed.get<Array>()->lowerBound, 0);
}

TEST(LineReader, SaysWhatIsWrongWithAValue)
{
    EXPECT_EQ(problemOf(""), "the value is missing");
    EXPECT_EQ(problemOf("abc"), "'abc' is no value");
    EXPECT_EQ(problemOf("1e5"), "'1e5' is no value");
    EXPECT_EQ(problemOf(".5"), "'.5' is no value");
    EXPECT_EQ(problemOf("+5"), "'+5' is no value");
    EXPECT_EQ(problemOf("nan"), "'nan' is no value");
    EXPECT_EQ(problemOf("2147483648"), "'2147483648' does not fit into 32 bits");
    EXPECT_EQ(problemOf("-2147483649"), "'-2147483649' does not fit into 32 bits");
    EXPECT_EQ(problemOf("\"abc"), "a quote is not closed");
    EXPECT_EQ(problemOf("\"abc\"d"), "'d' does not belong to a value");
    EXPECT_EQ(problemOf("[1, 2"), "']' is missing");
    EXPECT_EQ(problemOf("[1 2]"), "',' or ']' expected in an array");
    EXPECT_EQ(problemOf("[1,]"), "'' is no value");
    EXPECT_EQ(problemOf("[1]2"), "'2' does not belong to a value");
    EXPECT_EQ(problemOf("1 2"), "'2' is too much");
}

TEST(LineReader, TakesTokensWithAndWithoutQuotes)
{
    LineReader line{"  Servo\\A.gif \"C:\\My pictures\\\"\"B\"\".gif\"\tlast  "};
    EXPECT_EQ(line.word("a"), "Servo\\A.gif");
    EXPECT_EQ(line.peek(), "C:\\My pictures\\\"B\".gif");
    EXPECT_EQ(line.word("b"), "C:\\My pictures\\\"B\".gif");
    EXPECT_EQ(line.word("c"), "last");
    EXPECT_TRUE(line.atEnd());
    EXPECT_THROW(line.word("d"), Malformed);
}

TEST(LineReader, TakesWholeNumbersWithinBounds)
{
    EXPECT_EQ(LineReader{"5"}.whole("n", 1, 9), 5);
    EXPECT_THROW(LineReader{"0"}.whole("n", 1, 9), Malformed);
    EXPECT_THROW(LineReader{"10"}.whole("n", 1, 9), Malformed);
    EXPECT_THROW(LineReader{"5.0"}.whole("n", 1, 9), Malformed);
    EXPECT_THROW(LineReader{"x"}.whole("n", 1, 9), Malformed);
    EXPECT_THROW(LineReader{"70000"}.whole("n", -32768, 32767), Malformed);
}

TEST(LineReader, TakesFractions)
{
    EXPECT_EQ(LineReader{"-12.75"}.number("n"), -12.75);
    EXPECT_THROW(LineReader{"12,75"}.number("n"), Malformed);
}

} // namespace
