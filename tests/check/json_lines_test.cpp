#include "check/json_lines.h"

#include <gtest/gtest.h>

#include <string>

namespace servopanel::check {

TEST(JsonLines, KnowMembersAndEntries)
{
    const JsonLines lines{
        "{\n \"a\": 1,\n \"b\": [\n  1,\n  {\"c\":\n 2}\n ],\n \"d/e\": {\"\\u0066\": [[1],\n[2]]}\n}"};
    EXPECT_EQ(lines.line("/a"), 2);
    EXPECT_EQ(lines.line("/b"), 3);
    EXPECT_EQ(lines.line("/b/0"), 4);
    EXPECT_EQ(lines.line("/b/1"), 5);
    EXPECT_EQ(lines.line("/b/1/c"), 5);
    EXPECT_EQ(lines.line("/d/e"), 8);
    EXPECT_EQ(lines.line("/d/e/f/1"), 9);
    EXPECT_EQ(lines.line("/d/e/f/1/0"), 9);
}

TEST(JsonLines, GiveTheLineAroundWhatIsMissing)
{
    const JsonLines lines{"{\n\"a\": {\n\"b\": 1}}"};
    EXPECT_EQ(lines.line("/a/c"), 2);
    EXPECT_EQ(lines.line("/x"), 0);
    EXPECT_EQ(lines.line(""), 0);
}

TEST(JsonLines, TakeTheLastOfTwo) { EXPECT_EQ(JsonLines{"{\"a\": 1,\n\"a\": 2}"}.line("/a"), 2); }

TEST(JsonLines, LiveThroughAnything)
{
    EXPECT_EQ(JsonLines{""}.line("/a"), 0);
    EXPECT_EQ(JsonLines{"{\"a"}.line("/a"), 0);
    EXPECT_EQ(JsonLines{"]]}}\"\\"}.line("/a"), 0);
    EXPECT_EQ(JsonLines{"{\"a\": 1,\n\"b\": tru\n\"c\""}.line("/b"), 2);
    EXPECT_EQ(JsonLines(std::string(1'000'000, '[')).line("/0"), 1);
}

} // namespace servopanel::check
