#include "basic/lines.h"

#include <gtest/gtest.h>

#include <optional>
#include <string_view>
#include <vector>

namespace {

using Views = std::vector<std::string_view>;

Views linesOf(std::string_view text)
{
    servopanel::basic::Lines lines{text};
    Views found;
    while (const std::optional<std::string_view> line = lines.next())
        found.push_back(*line);
    EXPECT_EQ(lines.next(), std::nullopt);
    return found;
}

TEST(Lines, EndWithAnyEnd)
{
    EXPECT_EQ(linesOf("a\r\nb\nc\rd"), (Views{"a", "b", "c", "d"}));
    EXPECT_EQ(linesOf("a\rb\rc\nd"), (Views{"a", "b", "c", "d"}));
}

TEST(Lines, AreEmptyBetweenTwoEnds)
{
    EXPECT_EQ(linesOf("a\r\n\r\nb"), (Views{"a", "", "b"}));
    EXPECT_EQ(linesOf("a\n\rb"), (Views{"a", "", "b"}));
    EXPECT_EQ(linesOf("a\r\r\nb"), (Views{"a", "", "b"}));
    EXPECT_EQ(linesOf("\na"), (Views{"", "a"}));
}

TEST(Lines, OfATextThatEndsWithAnEndHaveNoEmptyOneBehindIt)
{
    EXPECT_EQ(linesOf(""), Views{});
    EXPECT_EQ(linesOf("a"), Views{"a"});
    EXPECT_EQ(linesOf("a\r\n"), Views{"a"});
    EXPECT_EQ(linesOf("a\n"), Views{"a"});
    EXPECT_EQ(linesOf("a\r"), Views{"a"});
    EXPECT_EQ(linesOf("\n"), Views{""});
    EXPECT_EQ(linesOf("a\n\n"), (Views{"a", ""}));
}

TEST(Lines, KeepBlanksAndZeros) { EXPECT_EQ(linesOf({" a\t\n\0b", 6}), (Views{" a\t", {"\0b", 2}})); }

} // namespace
