#include "basic/text.h"

#include <gtest/gtest.h>

#include <string_view>

namespace {

using servopanel::basic::trim;
using servopanel::basic::upperCase;

TEST(UpperCase, CoversAscii)
{
    EXPECT_EQ(upperCase("abcxyz ABC 019 _[]{}"), "ABCXYZ ABC 019 _[]{}");
    EXPECT_EQ(upperCase(""), "");
}

TEST(UpperCase, CoversLatinLetters)
{
    EXPECT_EQ(upperCase("äöüàéîñøþ"), "ÄÖÜÀÉÎÑØÞ");
    EXPECT_EQ(upperCase("ÄÖÜÀÉÎÑØÞ"), "ÄÖÜÀÉÎÑØÞ");
    EXPECT_EQ(upperCase("ÿ"), "Ÿ");
    EXPECT_EQ(upperCase("Ŋŋ"), "ŊŊ");
    EXPECT_EQ(upperCase("āčęğıķĺŀłňőřšťůŷźżž"), "ĀČĘĞıĶĹĿŁŇŐŘŠŤŮŶŹŻŽ");
    EXPECT_EQ(upperCase("ĀČĘĞİĶĹĿŁŇŐŘŠŤŮŶŸŹŻŽ"), "ĀČĘĞİĶĹĿŁŇŐŘŠŤŮŶŸŹŻŽ");
}

TEST(UpperCase, LeavesWhatHasNoCapital)
{
    EXPECT_EQ(upperCase("ß"), "ß");
    EXPECT_EQ(upperCase("÷×µ§°"), "÷×µ§°");
    EXPECT_EQ(upperCase("ĸŉſ"), "ĸŉſ");
    EXPECT_EQ(upperCase("ƀƒʒώя"), "ƀƒʒώя");
    EXPECT_EQ(upperCase("€ 日本 กา"), "€ 日本 กา");
}

TEST(UpperCase, PassesBrokenTextThrough)
{
    EXPECT_EQ(upperCase("a\xC3"), "A\xC3");
    EXPECT_EQ(upperCase("\xC3z\xA4"), "\xC3Z\xA4");
    EXPECT_EQ(upperCase("\xE4"), "\xE4");
    EXPECT_EQ(upperCase(std::string_view{"ä"}.substr(0, 1)), "\xC3");
}

TEST(Trim, TakesBlanksFromTheEnds)
{
    EXPECT_EQ(trim("  a b "), "a b");
    EXPECT_EQ(trim("   "), "");
    EXPECT_EQ(trim("\ta "), "\ta");
}

} // namespace
