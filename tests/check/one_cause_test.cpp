// Mistakes of which much follows: the report names the cause, with its line, and not what follows.
#include "check/planted.h"
#include "check/project_copy.h"

#include "jet/servo_defs/definition_list.h"
#include "jet/servo_defs/tool.h"

#include <gtest/gtest.h>

#include <sstream>

namespace servopanel::check::tests {

namespace {

constexpr const char* project = "project.json";
constexpr const char* footer = "Servo/Servo.ini";
constexpr const char* program = "Parameter/Program.ini";

// Keeps those definitions whose line in CSV form has none of these words.
void removeDefinitions(const ProjectCopy& copy, const std::string& word)
{
    std::istringstream lines{jet::toCsv(jet::loadDefinitions(copy.place("Servo/Servo.mdb")).rows)};
    std::string csv;
    for (std::string line; std::getline(lines, line);)
        if (line.find(word) == std::string::npos) csv += line + '\n';
    copy.write("definitions.csv", csv);
    jet::ToolOutput output;
    jet::runTool(
        {"create", copy.place("Servo/Servo.mdb").string(), copy.place("definitions.csv").string(), "--force"},
        output);
    EXPECT_EQ(output.errors, "");
    copy.remove("definitions.csv");
}

const std::vector<Planted>& mistakes()
{
    static const std::vector<Planted> planted{
        {"AMachineWithoutDefinitions", [](const ProjectCopy& copy) { removeDefinitions(copy, "M2,"); },
            {{"Servo/Servo.mdb", "", "machine M2: has no row: every input is shown and open to everyone"}}},
        {"NoDatabase", [](const ProjectCopy& copy) { copy.remove("Servo/Servo.mdb"); },
            {{"Servo/Servo.mdb", "", "no such file: every input is shown and open to everyone"}}},
        {"ADatabaseThatBreaksOff", [](const ProjectCopy& copy) { copy.cut("Servo/Servo.mdb"); },
            {{"Servo/Servo.mdb", "", ""}}},
        {"ServoNumbersInOtherForms",
            [](const ProjectCopy& copy) {
                copy.replace(program, "\nServo2=2\n", "\nServo2=02\n");
                copy.replace(program, "\nServo3=3\n", "\nServo3=0x03\n");
            },
            {}},
        {"ServoNumbersThatTheLibraryReads",
            [](const ProjectCopy& copy) {
                copy.replace(program, "\nServo2=2\n", "\nServo2=+2\n");
                copy.replace(program, "\nServo3=3\n", "\nServo3=3 ; winder\n");
                copy.remove("Servo/Servo_M1_3_1280.gif");
            },
            {{program, "Servo2=+2", "[1Machine] Servo2 is \"+2\", which is no whole number"},
                {program, "Servo3=3 ;", "[1Machine] Servo3 is \"3 ; winder\", which is no whole number"},
                {"Servo/Servo_M1_3_1280.gif", "", "no such picture"}}},
        {"OneServoInTwoForms",
            [](const ProjectCopy& copy) {
                copy.replace(program, "\nServo2=2\n", "\nServo2=2\nServo13=02\n");
            },
            {{program, "Servo13=02",
                 "[1Machine] Servo13 is servo 2, as in line 10: the menu has two keys for one servo"},
                {program, "Servo13=02", "[1Machine] Servo13 is read by nobody; it may be misspelt"}}},
        {"AFlagThatIsANumber",
            [](const ProjectCopy& copy) {
                copy.replace(project, "\"Ch1.M1_T_servo_2<.mM1_servopassiv_2>\": false",
                    "\"Ch1.M1_T_servo_2<.mM1_servopassiv_2>\": 1");
            },
            {{project, "_servopassiv_2>",
                "variable \"Ch1.M1_T_servo_2<.mM1_servopassiv_2>\" is neither true nor false: the servo is "
                "not "
                "shown"}}},
        {"TwoMachinesOfOneDesignation",
            [](const ProjectCopy& copy) {
                copy.replace(project, "\"parameter<.maschinenbez_2>\": \"M2\"",
                    "\"parameter<.maschinenbez_2>\": \"M1\"");
            },
            {{project, "maschinenbez_2",
                "variable \"parameter<.maschinenbez_2>\" is the designation of machine 1 as well: both have "
                "the "
                "same variables, texts and pictures"}}},
        {"ABlankInADesignation",
            [](const ProjectCopy& copy) {
                copy.replace(project, "\"parameter<.maschinenbez_2>\": \"M2\"",
                    "\"parameter<.maschinenbez_2>\": \"M2 \"");
            },
            {{project, "maschinenbez_2",
                "variable \"parameter<.maschinenbez_2>\" has blanks around the designation \"M2 \": "
                "variables, "
                "texts and pictures of the machine are looked for with them"}}},
        {"AFooterKeyWithAnotherPicture",
            [](const ProjectCopy& copy) { copy.replace(footer, "F3=Standard\\Pw", "F3=Standard\\Password"); },
            {{footer, "F3=Standard",
                "[Footer] F3 is \"Standard\\Password\", and there is no picture whose name begins so: the "
                "key "
                "stays without one"}}},
        {"ASimulatedServoThatThereIsNot",
            [](const ProjectCopy& copy) {
                copy.replace(
                    project, "{\"machine\": \"M1\", \"servo\": 14,", "{\"machine\": \"M9\", \"servo\": 44,");
            },
            {{project, "\"M9\"",
                "machine: no variable belongs to servo 44 of machine M9: nothing of it is simulated"}}},
        {"ASimulatedMachineWithoutALine",
            [](const ProjectCopy& copy) {
                copy.replace(project, "{\"machine\": \"M2\", \"unit\"", "{\"machine\": \"M3\", \"unit\"");
            },
            {{project, "{\"machine\": \"M2\"",
                "machine: there is no line of machine M2: its servos stand still"}}},
        {"AFlagOfChangesThatIsAText",
            [](const ProjectCopy& copy) {
                copy.replace(project, "\"Ch1.M1_T_servo_14<.mM1_servoaender_14>\": 0",
                    "\"Ch1.M1_T_servo_14<.mM1_servoaender_14>\": \"x\"");
            },
            {{project, "_servoaender_14>", ""}}},
        {"AFooterPictureOfAnotherSize",
            [](const ProjectCopy& copy) {
                fs::copy_file(copy.place("Servo/Servo_M1_1_1280.gif"), copy.place("Standard/F_Exit_800.gif"),
                    fs::copy_options::overwrite_existing);
            },
            {{"Standard/F_Exit_800.gif", "", "has 487 x 146 pixels, its place has 60 x 37: it is cut off"}}},
        {"ValuesThatNobodyMeans",
            [](const ProjectCopy& copy) {
                copy.replace(
                    project, "\"parameter<.maschinenanzahl>\": 2", "\"parameter<.maschinenanzahl>\": \"2\"");
                copy.replace(project, "\"parameter<.mit_navi>\": true", "\"parameter<.mit_navi>\": 1");
                copy.replace(project, "\"Ch1.M1_T_servo_1<.mM1_servo_schalt_1>\": 5",
                    "\"Ch1.M1_T_servo_1<.mM1_servo_schalt_1>\": 245");
                copy.replace(project, "\"Ch1.M1_T_servo_1<.mM1_servo_zeich_1>\": [312450017",
                    "\"Ch1.M1_T_servo_1<.mM1_servo_zeich_1>\": [12345678901");
            },
            {{project, "maschinenanzahl",
                 "variable \"parameter<.maschinenanzahl>\" must be a whole number, without quotes"},
                {project, "mit_navi", "variable \"parameter<.mit_navi>\" is neither true nor false"},
                {project, "servo_schalt_1>",
                    "variable \"Ch1.M1_T_servo_1<.mM1_servo_schalt_1>\" is 245, of which only the lowest "
                    "four bits"},
                {project, "servo_zeich_1>",
                    "variable \"Ch1.M1_T_servo_1<.mM1_servo_zeich_1>\" has 12345678901, which is no drawing "
                    "number of up to nine digits"}}},
        {"ANumberThatIsTooLarge",
            [](const ProjectCopy& copy) {
                copy.replace(project, "\"Ch1.M1_T_servo_14<.mM1_servoaender_14>\": 0",
                    "\"Ch1.M1_T_servo_14<.mM1_servoaender_14>\": 0, "
                    "\"Ch1.M1_T_servo_44<.mM1_servoaender_44>\": "
                    "{\"type\": \"int16\", \"value\": 70000}");
            },
            {{project, "70000",
                "variables/Ch1.M1_T_servo_44<.mM1_servoaender_44>: the number is too large for the type "
                "\"int16\""}}},
        {"AVariableThatCannotBeTaken",
            [](const ProjectCopy& copy) {
                copy.replace(project, "\"Ch1.M1_T_servo_14<.mM1_servoaender_14>\": 0",
                    "\"Ch1.M1_T_servo_14<.mM1_servoaender_14>\": null");
            },
            {{project, "_servoaender_14>", "variables/Ch1.M1_T_servo_14<.mM1_servoaender_14>: "}}},
        {"MisspeltVariables",
            [](const ProjectCopy& copy) { copy.replace(project, "\"variables\"", "\"variabels\""); },
            {{project, "", "variables: is missing"}, {project, "variabels", "variabels: is not known here"}}},
        {"NoVariables",
            [](const ProjectCopy& copy) {
                copy.write(project, R"({"languages": [{"number": 1, "code": "de"}], "variables": {}})");
                for (const char* const code : {"en", "ar", "zh"})
                    copy.remove(std::string{"Texts/"} + code + ".txt");
            },
            {{project, "variables", "variables: there is none: the panel finds no machine"}}},
        {"AScreenAndAnOptionThatNobodyMeans",
            [](const ProjectCopy& copy) {
                copy.replace(project, "\"1231\"", "\"123l\"");
                copy.replace(program, "ServoWithMachineType=1", "ServoWithMachineType=0");
            },
            {{project, "\"screens\"", "screens/123l: the number of a screen has 16 bits"},
                {program, "ServoWithMachineType",
                    "[Project] ServoWithMachineType is \"0\", and the names of the servos' pictures have the "
                    "designation, such as Servo_M2_4_800.gif: the panel finds none of them\n"}}},
        {"MoreServosAndMachinesThanTheirNumbers",
            [](const ProjectCopy& copy) {
                copy.replace(
                    project, "\"parameter<.servo_anzahl_1>\": 12", "\"parameter<.servo_anzahl_1>\": 11");
                copy.replace(
                    project, "\"parameter<.maschinenanzahl>\": 2", "\"parameter<.maschinenanzahl>\": 1");
            },
            {{program, "Servo12=20",
                 "[1Machine] lists a servo beyond the number in \"parameter<.servo_anzahl_1>\" of "
                 "project.json: "
                 "the panel does not show it"},
                {program, "[2Machine]",
                    "[2Machine] lists servos of a machine beyond the number in "
                    "\"parameter<.maschinenanzahl>\" of "
                    "project.json: the panel does not show them"},
                {footer, "[Machine2]", "section [Machine2] is read by nobody; it may be misspelt"}}},
        {"AFolderTwice", [](const ProjectCopy& copy) { fs::create_directory(copy.place("servo")); },
            {{"servo", "",
                "differs from Servo in capital and small letters only: what is in one of them is not read"}}},
        {"ALanguageWithoutAName",
            [](const ProjectCopy& copy) { copy.replace(project, "\"name\": \"中文\"", "\"name\": \"\""); },
            {{project, "\"zh\"", "languages/3/name: is empty; the operator sees the code"}}},
        {"ACodeTwice",
            [](const ProjectCopy& copy) {
                copy.replace(project, "\"name\": \"中文\"}",
                    "\"name\": \"中文\"},\n  {\"number\": 5, \"code\": \"zh\", \"name\": \"again\"}");
            },
            {{project, "again",
                "languages/4/code: is that of another language: the panel goes on without it"}}},
    };
    return planted;
}

class OneCause : public ::testing::TestWithParam<Planted> { };

} // namespace

TEST_P(OneCause, IsToldByItselfWithItsLine)
{
    const ProjectCopy copy;
    GetParam().plant(copy);
    const std::string report = checkProject(copy.path(), plainReader).text;
    for (const Expected& expected : GetParam().expected) {
        std::string line = expected.file;
        if (!expected.text.empty()) line += ':' + std::to_string(copy.line(expected.file, expected.text));
        line += ": " + expected.finding;
        EXPECT_NE(("\n" + report).find('\n' + line), std::string::npos) << line << "\nis not in\n" << report;
    }
    const std::size_t count = GetParam().expected.size();
    const std::string end = count == 0 ? "nothing is missing" : std::to_string(count) + " finding";
    EXPECT_NE(("\n" + report).find('\n' + end), std::string::npos) << report;
}

INSTANTIATE_TEST_SUITE_P(Mistakes, OneCause, ::testing::ValuesIn(mistakes()),
    [](const auto& mistake) { return mistake.param.what; });

} // namespace servopanel::check::tests
