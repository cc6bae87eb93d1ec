// What a panel begins with, and files that are there without saying anything.
#include "check/project_copy.h"

#include "jet/servo_defs/definition_list.h"
#include "jet/servo_defs/tool.h"
#include "support/lines_of.h"

#include <gtest/gtest.h>

#include <vector>

namespace servopanel::check::tests {

namespace {

std::string found(const ProjectCopy& copy) { return checkProject(copy.path(), plainReader).text; }

// Whether a finding stands in the line of the file in which a text stands.
::testing::AssertionResult has(
    const ProjectCopy& copy, const std::string& file, const std::string& text, const std::string& finding)
{
    const std::string report = found(copy);
    const std::string line = file + ':' + std::to_string(copy.line(file, text)) + ": " + finding;
    if (report.find(line) != std::string::npos) return ::testing::AssertionSuccess();
    return ::testing::AssertionFailure() << line << "\nis not in\n" << report;
}

} // namespace

TEST(WrongStart, AMachineThatIsNoNumber)
{
    const ProjectCopy copy;
    const std::string name = "\"Ch-1.intern<.aktuelle_maschine>\"";
    copy.replace("project.json", name + ": 1", name + ": \"one\"");
    EXPECT_TRUE(has(copy, "project.json", name,
        "variable " + name + " must be a whole number, without quotes: the panel may find no servos"));
}

TEST(WrongStart, AServoThatIsNoNumber)
{
    const ProjectCopy copy;
    const std::string name = "\"Ch-1.intern<.servo_zeiger>\"";
    copy.replace("project.json", name + ": 0", name + ": \"x\"");
    EXPECT_TRUE(
        has(copy, "project.json", name, "variable " + name + " must be a whole number, without quotes"));
}

TEST(WrongStart, ASwitchWordThatIsTrue)
{
    const ProjectCopy copy;
    const std::string name = "\"Ch1.M1_T_servo_3<.mM1_servo_schalt_3>\"";
    copy.replace("project.json", name + ": ", name + ": true, \"x\": ");
    EXPECT_TRUE(has(copy, "project.json", name, "variable " + name + " must be a whole number"));
}

TEST(HiddenItems, AreToldForEachServo)
{
    const ProjectCopy copy;
    std::string csv;
    for (const std::string& line :
        testing::linesOf(jet::toCsv(jet::loadDefinitions(copy.place("Servo/Servo.mdb")).rows))) {
        const bool isSetpoint = line.find("<.mM1_servo_para_5>") != std::string::npos;
        const bool isSwitch = line.find("<.mM1_servo_schalt_3>,") != std::string::npos;
        if (!isSetpoint && !isSwitch) csv += line + '\n';
    }
    copy.write("definitions.csv", csv);
    jet::ToolOutput output;
    jet::runTool(
        {"create", copy.place("Servo/Servo.mdb").string(), copy.place("definitions.csv").string(), "--force"},
        output);
    copy.remove("definitions.csv");
    const std::string report = found(copy);
    EXPECT_NE(report.find("Servo/Servo.mdb: servo 5 of machine M1 has names but no definitions for setpoint "
                          "1, setpoint 2, "),
        std::string::npos)
        << report;
    EXPECT_NE(
        report.find("servo 3 of machine M1 has names but no definitions for switch 1"), std::string::npos)
        << report;
    EXPECT_EQ(report.find("servo 4 of machine M1 has names"), std::string::npos) << report;
}

TEST(EmptyFile, OfTextsIsTold)
{
    for (const char* const content : {"", "# later\n"}) {
        const ProjectCopy copy;
        copy.write("Texts/de.txt", content);
        EXPECT_NE(found(copy).find("Texts/de.txt: has no texts: the operator sees the keys of texts instead"),
            std::string::npos)
            << '\'' << content << '\'';
    }
}

TEST(FooterFile, KnowsNoComments)
{
    const ProjectCopy copy;
    copy.replace("Servo/Servo.ini", "[Machine1]", "[Machine1]\r\n; as in [Machine2]\r\n;F1=no");
    EXPECT_TRUE(
        has(copy, "Servo/Servo.ini", "; as in", "\"[\" and \"]\" make this line the head of a section"));
    EXPECT_TRUE(has(copy, "Servo/Servo.ini", ";F1=no", "this file knows no comments"));
}

} // namespace servopanel::check::tests
