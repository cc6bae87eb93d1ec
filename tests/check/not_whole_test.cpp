// A project.json with a mistake in its signs.
#include "check/bad_projects.h"
#include "check/project_copy.h"

#include <gtest/gtest.h>

namespace servopanel::check::tests {

// A comma is missing in the middle: languages, variables and machine stand behind it.
TEST(BrokenDescription, HidesNothingThatNeedsNoneOfIt)
{
    const ProjectCopy copy;
    copy.replace("project.json", " \"level\": 5,", " \"level\": 5");
    copy.replace("Texts/de.txt", "Servo.M1.Servo1.2 = ", "Servo.M1.Servo1.2 - x\nServo.M1.Servo1.2 = ");
    copy.removeLine("Texts/zh.txt", "Servo.M1.Servo5.3 =");
    copy.replace("Parameter/Program.ini", "Diag2Servo6=FALSE", "Diag2Servo6=NO\nServoPick6=1");
    copy.replace("Servo/Servo.ini", "F6=TRUE\n", "");
    copy.write("Servo/Servo_M1_6_800.gif", "no picture");
    copy.write("Servo/Servo.mdb", rubbish(5'000));
    copy.remove("Standard");
    const Report report = checkProject(copy.path(), plainReader);
    EXPECT_EQ(report.result, Report::Result::Findings);
    const auto at = [&](const std::string& file, const std::string& text) {
        return file + ':' + std::to_string(copy.line(file, text)) + ": ";
    };
    const std::string first = at("project.json", "\"level\": 5")
        + "a comma is missing behind 5: the panel goes on without what follows\n";
    EXPECT_EQ(report.text.rfind(first, 0), 0U) << report.text;
    for (const std::string& finding : {at("Texts/de.txt", "Servo1.2 - x") + "no \"=\"",
             std::string{"Texts/zh.txt: \"Servo.M1.Servo5.3\" is missing here"},
             at("Parameter/Program.ini", "=NO") + "[1Machine] Diag2Servo6 is \"NO\"",
             at("Parameter/Program.ini", "ServoPick6") + "[1Machine] ServoPick6 is read by nobody",
             at("Servo/Servo.ini", "[Machine1]") + "[Machine1] F6 is missing",
             std::string{"Servo/Servo_M1_6_800.gif: is no picture"}, std::string{"Servo/Servo.mdb: "},
             std::string{"Standard: no such folder"}})
        EXPECT_NE(report.text.find('\n' + finding), std::string::npos) << finding << "\nis not in\n"
                                                                       << report.text;
    const std::string end =
        "\nservos, pages and variables were not looked at: project.json cannot be read to its "
        "end\n9 findings in 8 files\n";
    EXPECT_TRUE(report.text.ends_with(end)) << report.text;
}

TEST(BrokenDescription, IsTheOnlyFindingOfAProjectThatIsGoodOtherwise)
{
    const ProjectCopy copy;
    copy.replace("project.json", " \"level\": 5,", " \"level\": 5");
    EXPECT_NE(checkProject(copy.path(), plainReader).text.find("\n1 finding in 1 file\n"), std::string::npos)
        << checkProject(copy.path(), plainReader).text;
}

TEST(BrokenDescription, StandsBeforeOtherFiles)
{
    const ProjectCopy copy;
    copy.cut("project.json");
    copy.append("Parameter/Program.ini", "nothing\n");
    const Report report = checkProject(copy.path(), plainReader);
    EXPECT_EQ(report.text.rfind("project.json:", 0), 0U) << report.text;
    EXPECT_NE(report.text.find("\nParameter/Program.ini:"), std::string::npos) << report.text;
}

} // namespace servopanel::check::tests
