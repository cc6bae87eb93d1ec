#include "portable/text_decoding.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

namespace {

using namespace std::string_view_literals;
using servopanel::portable::decodeLines;
using servopanel::portable::isUtf8;
using Lines = std::vector<std::string>;

TEST(DecodeLines, EndsLinesAtEveryKindOfLineEnd)
{
    EXPECT_EQ(decodeLines("a\r\nb\nc\rd"), (Lines{"a", "b", "c", "d"}));
    EXPECT_EQ(decodeLines("a\r\n\r\nb"), (Lines{"a", "", "b"}));
    EXPECT_EQ(decodeLines("a\n\rb"), (Lines{"a", "", "b"}));
    EXPECT_EQ(decodeLines("a\r\r\nb"), (Lines{"a", "", "b"}));
}

TEST(DecodeLines, HasNoLineAfterTheLastLineEnd)
{
    EXPECT_EQ(decodeLines(""), Lines{});
    EXPECT_EQ(decodeLines("a\r\n"), Lines{"a"});
    EXPECT_EQ(decodeLines("\n"), Lines{""});
    EXPECT_EQ(decodeLines("a\n\n"), (Lines{"a", ""}));
}

TEST(DecodeLines, StripsNothingButTheLineEnd) { EXPECT_EQ(decodeLines("  a \t\n"), Lines{"  a \t"}); }

TEST(DecodeLines, TakesValidUtf8AsItIs)
{
    EXPECT_EQ(decodeLines("Länge\r\nЖ\n語\n😀"), (Lines{"Länge", "Ж", "語", "😀"}));
}

TEST(DecodeLines, DropsTheByteOrderMark)
{
    EXPECT_EQ(decodeLines("\xEF\xBB\xBF[Größe]"), Lines{"[Größe]"});
    EXPECT_EQ(decodeLines("\xEF\xBB\xBF"), Lines{});
    EXPECT_EQ(decodeLines("\xEF\xBB\xBF\xE4"), Lines{"ä"});
}

TEST(DecodeLines, TakesTheWholeFileAsWindows1252WhenOneByteIsNotUtf8)
{
    EXPECT_EQ(decodeLines("L\xE4nge\n10 \x80"), (Lines{"Länge", "10 €"}));
    EXPECT_EQ(decodeLines("ä\n\xE4"), (Lines{"Ã¤", "ä"}));
}

TEST(DecodeLines, KeepsTheUndefinedBytesOfWindows1252)
{
    EXPECT_EQ(decodeLines("\x81\x8D\x8F\x90\x9D\xFF"), Lines{"\u0081\u008D\u008F\u0090\u009Dÿ"});
}

TEST(IsUtf8, AcceptsShortestFormsOnly)
{
    for (const std::string_view good : {"\x7F"sv, "\xC2\x80"sv, "\xDF\xBF"sv, "\xE0\xA0\x80"sv,
             "\xED\x9F\xBF"sv, "\xEE\x80\x80"sv, "\xF0\x90\x80\x80"sv, "\xF4\x8F\xBF\xBF"sv, "\0"sv})
        EXPECT_TRUE(isUtf8(good)) << testing::PrintToString(good);
    for (const std::string_view bad : {"\x80"sv, "\xC0\x80"sv, "\xC1\xBF"sv, "\xE0\x9F\xBF"sv,
             "\xED\xA0\x80"sv, "\xF0\x8F\xBF\xBF"sv, "\xF4\x90\x80\x80"sv, "\xF5\x80\x80\x80"sv, "\xC3"sv,
             "\xE4\xB8"sv, "\xC3\x41"sv, "\xE4\xB8\x41"sv, "\xFF"sv})
        EXPECT_FALSE(isUtf8(bad)) << testing::PrintToString(bad);
}

TEST(IsUtf8, LooksAtEveryByteOfALongText)
{
    const std::string ascii(200, 'a');
    EXPECT_TRUE(isUtf8(ascii));
    for (std::size_t i = 0; i < ascii.size(); ++i) {
        std::string text = ascii;
        text[i] = '\xE4';
        EXPECT_FALSE(isUtf8(text)) << i;
        EXPECT_TRUE(isUtf8(text.replace(i, 1, "ä"))) << i;
    }
}

} // namespace
