// A project.json with a mistake in its signs.
#include "check/project_copy.h"

#include <gtest/gtest.h>

namespace servopanel::check::tests {

TEST(BrokenDescription, IsTheOnlyThingThatIsTold)
{
    const ProjectCopy copy;
    // A comma is missing in the middle: languages, variables and machine stand behind it.
    copy.replace("project.json", " \"level\": 5,", " \"level\": 5");
    copy.write("Texts/it.txt", "a = b\n");
    copy.remove("Standard/OK.wmf");
    const Report report = checkProject(copy.path(), plainReader);
    EXPECT_EQ(report.result, Report::Result::Findings);
    const std::string line = std::to_string(copy.line("project.json", "\"level\": 5") + 1);
    EXPECT_EQ(report.text.rfind("project.json:" + line + ": syntax error", 0), 0U) << report.text;
    EXPECT_NE(report.text.find("\nthe rest was not looked at: project.json cannot be read to its end\n"
                               "1 finding in 1 file\n"),
        std::string::npos)
        << report.text;
}

TEST(BrokenDescription, StandsBeforeOtherFiles)
{
    const ProjectCopy copy;
    copy.cut("project.json");
    copy.append("Parameter/Program.ini", "nothing\n");
    const Report report = checkProject(copy.path(), plainReader);
    EXPECT_EQ(report.text.rfind("project.json:", 0), 0U) << report.text;
    EXPECT_NE(report.text.find("\nParameter/Program.ini:"), std::string::npos) << report.text;
    EXPECT_NE(report.text.find("\n2 findings in 2 files\n"), std::string::npos) << report.text;
}

} // namespace servopanel::check::tests
