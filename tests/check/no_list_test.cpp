// Projects of which the panel finds no servos, because Parameter/Program.ini is not there or cannot be used.
#include "check/project_copy.h"

#include <gtest/gtest.h>

#include <functional>

namespace servopanel::check::tests {

namespace {

struct Case {
    std::string name;
    std::function<void(const ProjectCopy&)> spoil;
    int findings = 0; // of Program.ini itself
};

class NoList : public ::testing::TestWithParam<Case> { };

std::string found(const ProjectCopy& copy) { return checkProject(copy.path(), plainReader).text; }

std::string utf16(const std::string& text)
{
    std::string wide = "\xFF\xFE";
    for (const char sign : text) {
        wide += sign;
        wide += '\0';
    }
    return wide;
}

} // namespace

TEST_P(NoList, OfServosHidesNothingThatTheRestOfTheProjectNames)
{
    const ProjectCopy copy;
    GetParam().spoil(copy);
    copy.remove("Servo/Servo_M1_6_800.gif");
    copy.remove("Standard/OK.wmf");
    copy.write("Servo/Servo_Diag_800.gif", "no picture");
    copy.write("Servo/Other.gif", "no picture");
    copy.removeLine("project.json", "  \"Ch1.M1_T_servo_17<.mM1_servo_para_ob_17>\"");
    copy.removeLine("project.json", "  \"Ch1.M2_T_servo_4<.mM2_fetext_41>\"");
    for (const char* const code : {"de", "en", "ar", "zh"})
        copy.removeLine(std::string{"Texts/"} + code + ".txt", "Servo.M2.Servo2.1 =");
    const std::string report = found(copy);
    for (const std::string finding : {"Parameter/Program.ini", "Servo/Servo_M1_6_800.gif: no such picture",
             "Standard/OK.wmf: no such picture", "Servo/Servo_Diag_800.gif: is no picture",
             "Servo/Other.gif: is no picture",
             "variable \"Ch1.M1_T_servo_17<.mM1_servo_para_ob_17>\" is missing",
             "variable \"Ch1.M2_T_servo_4<.mM2_fetext_41>\" is missing",
             "\"Servo.M2.Servo2.1\" is missing in all languages",
             "\nthe servos were not looked at as the panel shows them, because it finds none of machine M1 "
             "and "
             "M2; those that variables and definitions name were looked at: once it does, more may be "
             "found\n"})
        EXPECT_NE(report.find(finding), std::string::npos) << finding << "\nis not in\n" << report;
    // Nothing that only follows from the list.
    const std::string count = std::to_string(GetParam().findings + 7) + " findings in ";
    EXPECT_NE(report.find('\n' + count), std::string::npos) << report;
}

INSTANTIATE_TEST_SUITE_P(Lists, NoList,
    ::testing::Values(
        Case{"Missing", [](const ProjectCopy& copy) { copy.remove("Parameter/Program.ini"); }, 1},
        Case{"WithoutServos",
            [](const ProjectCopy& copy) {
                copy.write("Parameter/Program.ini", "[Project]\nServoWithMenu=TRUE\n");
            },
            3},
        Case{"InUtf16",
            [](const ProjectCopy& copy) {
                copy.write("Parameter/Program.ini", utf16(copy.content("Parameter/Program.ini")));
            },
            1}),
    [](const auto& each) { return each.param.name; });

TEST(NoListOfServos, AndNothingThatNamesOneIsSaid)
{
    const ProjectCopy copy;
    copy.remove("Parameter");
    copy.remove("Servo/Servo.mdb");
    std::string project = copy.content("project.json");
    for (std::size_t at = 0; (at = project.find("_T_servo_", at)) != std::string::npos;)
        project.replace(at, 9, "_T_drive_");
    copy.write("project.json", project);
    EXPECT_NE(
        found(copy).find(
            "\nthe servos were not looked at, because the panel finds none of machine M1 and M2: once it "
            "does, more may be found\n"),
        std::string::npos)
        << found(copy);
}

TEST(GoodList, OfServosIsNotMentioned)
{
    EXPECT_EQ(found(ProjectCopy{}).find("the servos were not looked at"), std::string::npos);
}

} // namespace servopanel::check::tests
