#include "check/planted.h"
#include "support/lines_of.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace servopanel::check::tests {

namespace {

std::string together(const std::vector<std::string>& lines)
{
    std::string text;
    for (const std::string& line : lines)
        text += line + '\n';
    return text;
}

std::string expectedLine(const ProjectCopy& copy, const Expected& expected)
{
    std::string line = expected.file;
    if (!expected.text.empty()) line += ':' + std::to_string(copy.line(expected.file, expected.text));
    return line + ": " + expected.finding;
}

} // namespace

TEST(Check, TheDemonstrationProjectLacksNothing)
{
    const Report report = checkProject(DEMO_PROJECT, plainReader);
    EXPECT_EQ(
        report.text, "nothing is missing (2 machines, 15 servos, 4 languages, at 800, 1024 and 1280)\n");
    EXPECT_EQ(report.result, Report::Result::Good);
}

TEST(Check, FindsEveryPlantedMistakeAndNothingElse)
{
    const ProjectCopy copy;
    for (const Planted& mistake : plantedMistakes())
        mistake.plant(copy);
    std::vector<std::string> expected;
    for (const Planted& mistake : plantedMistakes())
        for (const Expected& line : mistake.expected)
            expected.push_back(expectedLine(copy, line));

    const Report report = checkProject(copy.path(), plainReader);
    EXPECT_EQ(report.result, Report::Result::Findings);
    std::vector<std::string> found = testing::linesOf(report.text);
    ASSERT_FALSE(found.empty());
    const std::string count = found.back();
    found.pop_back();
    EXPECT_EQ(count.substr(0, count.find(' ')), std::to_string(expected.size())) << count;
    std::sort(found.begin(), found.end());
    std::sort(expected.begin(), expected.end());
    EXPECT_EQ(together(found), together(expected));
}

} // namespace servopanel::check::tests
