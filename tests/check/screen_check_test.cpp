// The size of the screen that a project states.
#include "check/project_copy.h"

#include <gtest/gtest.h>

namespace servopanel::check::tests {

namespace {

std::string found(const std::string& resolution, const std::string& inches)
{
    const ProjectCopy copy;
    copy.replace("project.json", "\"resolution\": 1280,",
        "\"resolution\": " + resolution + ",\n  \"screen\": {\n    \"diagonal_inches\": " + inches
            + "\n  },");
    const std::string text = checkProject(copy.path(), plainReader).text;
    const std::size_t at = text.find(": screen: ");
    if (at == std::string::npos) return {};
    const std::size_t begin = text.rfind('\n', at) + 1;
    return text.substr(begin, text.find('\n', at) - begin);
}

} // namespace

TEST(ScreenCheck, ASmallScreenHasRowsThatAreTooLow)
{
    EXPECT_EQ(found("800", "10.4"),
        "project.json:5: screen: on 10.4 inches with 800 pixels of width the rows of the pages are only 6.3 "
        "mm high: a "
        "finger may meet the row beside; from 14.8 inches on they have 9 mm");
}

TEST(ScreenCheck, ALargeEnoughOneIsNoFinding)
{
    EXPECT_EQ(found("800", "14.8"), "");
    EXPECT_EQ(found("1024", "14.7"), "");
    EXPECT_EQ(found("1280", "13.9"), "");
    EXPECT_NE(found("1024", "14.6"), "");
    EXPECT_NE(found("1280", "13.8"), "");
}

} // namespace servopanel::check::tests
