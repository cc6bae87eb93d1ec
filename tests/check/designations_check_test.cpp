// Designations that lead to nothing hide all that belongs to a machine: each is told once, at its line.
#include "check/project_copy.h"

#include <gtest/gtest.h>

namespace servopanel::check::tests {

namespace {

constexpr const char* project = "project.json";
constexpr const char* second = "\"parameter<.maschinenbez_2>\"";
constexpr const char* notLookedAt = "\nwhat belongs to machine 2 was not looked at, because of the "
                                    "designation: once it is mended, more may be "
                                    "found\n";

std::string found(const ProjectCopy& copy) { return checkProject(copy.path(), plainReader).text; }

std::string atLineOf(const ProjectCopy& copy, const std::string& text)
{
    return "project.json:" + std::to_string(copy.line(project, text)) + ": ";
}

void expectOnly(const std::string& report, const std::string& finding)
{
    EXPECT_EQ(report.find(finding), 0U) << finding << "\nis not the first line of\n" << report;
    EXPECT_NE(report.find(notLookedAt), std::string::npos) << report;
    EXPECT_NE(report.find("\n1 finding in 1 file "), std::string::npos) << report;
}

class WrongDesignation : public ::testing::TestWithParam<const char*> { };

} // namespace

TEST_P(WrongDesignation, IsToldOnceAtItsLine)
{
    const ProjectCopy copy;
    copy.replace(project, std::string{second} + ": \"M2\"", std::string{second} + ": " + GetParam());
    expectOnly(found(copy), atLineOf(copy, second) + "variable " + second + " is ");
}

INSTANTIATE_TEST_SUITE_P(OfTheSecondMachine, WrongDesignation,
    ::testing::Values("\"M3\"", "2", "\"m2\"", "\"M/2\"", "\"\"", "[1, 2]", "true"));

TEST(Designation, OfTheFirstMachineMayBeWrongAsWell)
{
    const ProjectCopy copy;
    const std::string first = "\"parameter<.maschinenbez_1>\"";
    copy.replace(project, first + ": \"M1\"", first + ": \"m1\"");
    const std::string report = found(copy);
    EXPECT_EQ(report.find(atLineOf(copy, first) + "variable " + first
                  + " is \"m1\", and the name of no variable begins with \"Ch1.m1_T_servo_\""),
        0U)
        << report;
    EXPECT_NE(report.find("\n1 finding in 1 file "), std::string::npos) << report;
}

TEST(Designation, ThatCannotBeTakenIsToldWithItsReasonAlone)
{
    const ProjectCopy copy;
    copy.replace(project, std::string{second} + ": \"M2\"", std::string{second} + ": [\"M2\"]");
    expectOnly(found(copy),
        atLineOf(copy, second) + "variables/parameter<.maschinenbez_2>: a list may hold numbers only");
}

TEST(Designation, ThatIsMissingIsToldWhereTheVariablesBegin)
{
    const ProjectCopy copy;
    copy.removeLine(project, std::string{"  "} + second);
    expectOnly(found(copy), atLineOf(copy, "\"variables\"") + "variable " + second + " is missing");
}

// Beyond the number of machines nobody reads it: it may stay from an older machine.
TEST(Designation, BeyondTheNumberOfMachinesIsNotCompared)
{
    const ProjectCopy copy;
    copy.replace(project, "  \"parameter<.mit_navi>\"",
        "  \"parameter<.maschinenbez_3>\": \"M2\",\n  \"parameter<.mit_navi>\"");
    const std::string report = found(copy);
    EXPECT_EQ(report.find("nothing is missing"), 0U) << report;
}

} // namespace servopanel::check::tests
