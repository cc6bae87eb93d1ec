// Start values of another type than the library means: each is told at its line, and nothing that follows from it.
#include "check/project_copy.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <string>
#include <vector>

namespace servopanel::check::tests {

namespace {

struct Mistyped {
    std::string name; // of the variable, or the end of it
    std::string good; // in the demonstration project
    std::vector<std::string> wrong;
    std::string finding; // behind the variable's name
};

constexpr const char* noWhole = "must be a whole number, without quotes";
constexpr const char* noFlag = "is neither true nor false: ";
constexpr const char* noFraction = "must be a number with a decimal point, without quotes, such as 0.0: ";

const std::vector<Mistyped>& variables()
{
    static const std::vector<Mistyped> each{
        {"parameter<.maschinenanzahl>", "2", {"\"2\"", "2.5", "true", "\"two\""}, noWhole},
        {"parameter<.servo_anzahl_1>", "12", {"\"12\"", "true", "\"all\""}, noWhole},
        {"parameter<.mit_navi>", "true", {"\"true\"", "7"}, noFlag},
        {"Ch-1.param_client<.arabisch>", "false", {"\"no\"", "7"}, noFlag},
        {"Ch-1.intern<.navi_password_countdown>", "0", {"false", "0.5", "\"x\""}, noWhole},
        {"Ch-1.intern<.aktuelle_maschine>", "1", {"true", "1.5", "\"one\""}, noWhole},
        {"Ch-1.intern<.passwort>", "5", {"false", "4.5", "\"5\""}, noWhole},
        {"Ch-1.intern<.servo_zeiger>", "0", {"false", "1.5", "\"x\""}, noWhole},
        {"Ch-1.intern<.ocxname>", "\"\"", {"5", "false"}, "is no text: "},
        {"Ch-1.intern_v<.l2_03>", "0.0", {"false", "\"0\"", "0"}, noFraction},
        {"Ch1.M1_T_servo_14<.mM1_servoaender_14>", "0", {"false", "\"0\"", "0.5"}, noWhole},
        {"Ch1.M1_T_servo_1<.mM1_servo_schalt_1>", "5", {"true", "\"5\"", "5.5"}, noWhole},
        {"Ch1.M1_T_servo_1<.mM1_fetext_11>", "\"\"", {"0", "true"}, "is no text: "},
    };
    return each;
}

enum class Form { First, Second, Third, List };

std::string wrongValue(const Mistyped& variable, Form form)
{
    if (form == Form::List) return "[1, 2]";
    return variable.wrong[std::min(static_cast<std::size_t>(form), variable.wrong.size() - 1)];
}

class StartType : public ::testing::TestWithParam<Form> { };

} // namespace

// All at once: a variable that gets no usable value in its place would bring findings about others.
TEST_P(StartType, IsToldOnceAtItsLine)
{
    const ProjectCopy copy;
    for (const Mistyped& variable : variables()) {
        const std::string name = '"' + variable.name + "\": ";
        copy.replace("project.json", name + variable.good, name + wrongValue(variable, GetParam()));
    }
    const std::string report = checkProject(copy.path(), plainReader).text;
    for (const Mistyped& variable : variables()) {
        const std::string name = '"' + variable.name + '"';
        std::string line = "project.json:" + std::to_string(copy.line("project.json", name));
        line.append(": variable ").append(name).append(" ");
        line += GetParam() == Form::List ? "is a list, and one value belongs here" : variable.finding;
        EXPECT_NE(('\n' + report).find('\n' + line), std::string::npos) << line << "\nis not in\n" << report;
    }
    EXPECT_NE(
        report.find('\n' + std::to_string(variables().size()) + " findings in 1 file "), std::string::npos)
        << report;
}

INSTANTIATE_TEST_SUITE_P(
    Forms, StartType, ::testing::Values(Form::First, Form::Second, Form::Third, Form::List));

// One alone, from which most would follow.
TEST(StartTypes, OfTheAccessLevelIsTheOnlyFinding)
{
    const ProjectCopy copy;
    const std::string name = "\"Ch-1.intern<.passwort>\"";
    copy.replace("project.json", name + ": 5", name + ": false");
    const std::string report = checkProject(copy.path(), plainReader).text;
    EXPECT_EQ(report.find("project.json:" + std::to_string(copy.line("project.json", name)) + ": variable "
                  + name + " must be a whole number, without quotes: the access level"),
        0U)
        << report;
    EXPECT_NE(report.find("\n1 finding in 1 file "), std::string::npos) << report;
}

// As an editor of JSON may write them.
TEST(StartTypes, MayBeWrittenInOtherWays)
{
    const ProjectCopy copy;
    copy.replace("project.json", "\"Ch-1.intern<.passwort>\": 5", "\"Ch-1.intern<.passwort>\": 5.0");
    copy.replace("project.json", "\"Ch-1.intern<.servo_zeiger>\": 0",
        "\"Ch-1.intern<.servo_zeiger>\": {\"type\": \"int16\", \"value\": 0}");
    copy.replace("project.json", "\"parameter<.mit_navi>\": true", "\"parameter<.mit_navi>\": -1");
    const std::string report = checkProject(copy.path(), plainReader).text;
    EXPECT_EQ(report.find("nothing is missing"), 0U) << report;
}

} // namespace servopanel::check::tests
