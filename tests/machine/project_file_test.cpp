#include "machine/project_file.h"

#include "basic/conversions.h"

#include "machine/variable_store.h"
#include "portable/temporary_folder.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace {

using namespace servopanel;
using basic::Variant;
using machine::ProjectFile;

std::vector<std::string> problemsOf(const ProjectFile& project)
{
    std::vector<std::string> texts;
    for (const machine::Problem& problem : project.problems)
        texts.push_back(problem.text());
    return texts;
}

using Problems = std::vector<std::string>;

// The value of the one variable, or the first problem.
Variant valueOf(std::string_view json)
{
    const ProjectFile project =
        ProjectFile::parse("{\"variables\": {\"x\": " + std::string{json} + "}}", "project.json");
    if (!project.problems.empty()) return "problem: " + project.problems.front().reason;
    return project.variables.front().value;
}

TEST(ProjectFile, TakesTheWholeProject)
{
    const ProjectFile project = ProjectFile::parse(R"({
        "title": "Linie", "resolution": 1024, "level": 5, "input": 0, "language": 2,
        "languages": [{"number": 1, "code": "de", "name": "Deutsch"}, {"number": 2, "code": "en"}],
        "variables": {"b": 1, "a": "x"},
        "screens": {"1109": "Maschinenwahl", "-5": "Test"},
        "machine": {"kind": "simulated", "period_ms": 50, "seed": 7, "takeover_ms": 250,
            "lines": [{"machine": "M1", "unit": "m/min", "ramp_per_s": 9.0, "phases": [{"speed": 180, "seconds": 75.0}]}],
            "servos": [{"machine": "M1", "servo": 3, "name": "Abwicklung",
                "values": [{"page": 1, "element": 2, "kind": "setpoint", "family": "servo_para2", "index": 3, "tau_ms": 600}],
                "faults": [{"text": "E1", "mean_interval_s": 60, "duration_s": 5, "stops": true,
                    "effects": [{"page": 1, "element": 2, "add": 4}]}]}]}
    })",
        "project.json");
    EXPECT_EQ(problemsOf(project), Problems{});
    EXPECT_EQ(project.title, "Linie");
    EXPECT_EQ(project.resolution, 1024);
    EXPECT_EQ(project.level, 5);
    EXPECT_EQ(project.input, 0);
    EXPECT_EQ(project.language, 2);
    ASSERT_EQ(project.languages.size(), 2U);
    EXPECT_EQ(project.languages[0].code, "de");
    EXPECT_EQ(project.languages[0].name, "Deutsch");
    EXPECT_EQ(project.languages[1].name, "en");
    ASSERT_EQ(project.variables.size(), 2U);
    EXPECT_EQ(project.variables[0].name, "b");
    ASSERT_EQ(project.screens.size(), 2U);
    EXPECT_EQ(project.screens[0].number, 1109);
    EXPECT_EQ(project.screens[0].name, "Maschinenwahl");
    EXPECT_EQ(project.screens[1].number, -5);
    ASSERT_TRUE(project.machine);
    EXPECT_DOUBLE_EQ(project.machine->periodSeconds, 0.05);
    EXPECT_EQ(project.machine->seed, 7U);
    EXPECT_DOUBLE_EQ(project.machine->takeoverSeconds, 0.25);
    ASSERT_EQ(project.machine->lines.size(), 1U);
    EXPECT_EQ(project.machine->lines[0].phases[0].speed, 180);
    ASSERT_EQ(project.machine->servos.size(), 1U);
    const machine::ServoRule& servo = project.machine->servos[0];
    EXPECT_EQ(servo.servo, 3);
    ASSERT_EQ(servo.values.size(), 1U);
    EXPECT_EQ(servo.values[0].setpoint->family, "servo_para2");
    EXPECT_DOUBLE_EQ(servo.values[0].tauSeconds, 0.6);
    ASSERT_EQ(servo.faults.size(), 1U);
    EXPECT_TRUE(servo.faults[0].stops);
    EXPECT_EQ(servo.faults[0].effects[0].add, 4);
}

TEST(ProjectFile, AValueGivesTheTypeToo)
{
    EXPECT_EQ(valueOf("12"), Variant(std::int16_t{12}));
    EXPECT_EQ(valueOf("-32768"), Variant(std::int16_t{-32768}));
    EXPECT_EQ(valueOf("32768"), Variant(std::int32_t{32768}));
    EXPECT_EQ(valueOf("-2147483648"), Variant(std::numeric_limits<std::int32_t>::min()));
    EXPECT_EQ(valueOf("12.0"), Variant(12.0));
    EXPECT_EQ(valueOf("1e3"), Variant(1000.0));
    EXPECT_EQ(valueOf("\"ä\""), Variant("ä"));
    EXPECT_EQ(valueOf("true"), Variant(true));
    EXPECT_EQ(valueOf("[1, 2.5]"), basic::doubles({1, 2.5}));
    EXPECT_EQ(valueOf("[]"), basic::doubles({}));
}

TEST(ProjectFile, AVariableMayNameItsType)
{
    EXPECT_EQ(valueOf(R"({"type": "int16", "value": 12})"), Variant(std::int16_t{12}));
    EXPECT_EQ(valueOf(R"({"type": "int32", "value": 12})"), Variant(std::int32_t{12}));
    EXPECT_EQ(valueOf(R"({"type": "single", "value": 0.1})"), Variant(0.1F));
    EXPECT_EQ(valueOf(R"({"type": "double", "value": 12})"), Variant(12.0));
    EXPECT_EQ(valueOf(R"({"type": "boolean", "value": true})"), Variant(true));
    EXPECT_EQ(valueOf(R"({"type": "text", "value": "12"})"), Variant("12"));
    EXPECT_EQ(valueOf(R"({"type": "doubles", "value": [1]})"), basic::doubles({1}));
    EXPECT_EQ(valueOf(R"({"type": "singles", "value": [0.1, 2]})"),
        Variant(basic::Array{basic::VariantType::Single, 0, {0.1F, 2.0F}}));
    EXPECT_EQ(valueOf(R"({"type": "int16s", "value": [1, 2]})"),
        Variant(basic::Array{basic::VariantType::Int16, 0, {std::int16_t{1}, std::int16_t{2}}}));
}

TEST(ProjectFile, SaysWhatIsWrongWithAVariable)
{
    EXPECT_EQ(
        valueOf("null"), Variant("problem: must be a number, a text, true, false or a list of numbers"));
    EXPECT_EQ(
        valueOf("3000000000"), Variant("problem: the number has more than 32 bits; write it with a point"));
    EXPECT_EQ(valueOf("18446744073709551615"),
        Variant("problem: the number has more than 32 bits; write it with a point"));
    EXPECT_EQ(valueOf("[1, \"2\"]"), Variant("problem: a list may hold numbers only"));
    EXPECT_EQ(valueOf(R"({"type": "word", "value": 1})"), Variant("problem: \"word\" is no type"));
    EXPECT_EQ(valueOf(R"({"type": "int16"})"),
        Variant("problem: an object must have \"type\" and \"value\" and nothing else"));
    EXPECT_EQ(valueOf(R"({"type": "int16", "value": [1]})"),
        Variant("problem: this type takes one value, not a list"));
    EXPECT_EQ(
        valueOf(R"({"type": "doubles", "value": 1})"), Variant("problem: this type takes a list of numbers"));
}

TEST(ProjectFile, TakesTheDiagonalOfTheScreenAndRefusesSenselessOnes)
{
    const auto parsed = [](const std::string& screen) {
        return ProjectFile::parse("{\"variables\": {}, \"screen\": " + screen + "}", "project.json");
    };
    EXPECT_EQ(parsed(R"({"diagonal_inches": 12.1})").diagonalInches, 12.1);
    EXPECT_EQ(parsed("{}").diagonalInches, std::nullopt);
    EXPECT_EQ(problemsOf(parsed("{}")), Problems{});
    for (const std::string number : {"0", "-15", "381"}) {
        const ProjectFile project = parsed("{\"diagonal_inches\": " + number + "}");
        EXPECT_EQ(project.diagonalInches, std::nullopt) << number;
        EXPECT_EQ(problemsOf(project),
            (Problems{"project.json: /screen/diagonal_inches: a panel's screen has 4 to 100 inches"}))
            << number;
    }
    EXPECT_EQ(problemsOf(parsed(R"({"diagonal_inches": "15"})")),
        (Problems{"project.json: /screen/diagonal_inches: must be a number"}));
    EXPECT_EQ(problemsOf(parsed("15")), (Problems{"project.json: /screen: must be an object in braces"}));
}

TEST(ProjectFile, KeepsTheGoodPartsBesideBadOnes)
{
    const ProjectFile project =
        ProjectFile::parse(R"({"title": 5, "resolution": 900, "level": 9, "colour": "red",
        "language": 4, "languages": [{"number": 1, "code": "de"}, {"number": "2", "code": "en"}, 7],
        "variables": {"good": 1, "bad": null, "also good": 2}, "screens": {"x": "a", "40000": "b", "1": 2, "2": "c"}})",
            "project.json");
    EXPECT_EQ(problemsOf(project),
        (Problems{
            "project.json: /title: must be a text in quotes",
            "project.json: /resolution: must be 800, 1024 or 1280",
            "project.json: /level: must be from 0 to 5",
            "project.json: /languages/1/number: must be a whole number",
            "project.json: /languages/2: must be an object in braces",
            "project.json: /language: is not among the languages",
            "project.json: /variables/bad: must be a number, a text, true, false or a list of numbers",
            "project.json: /screens/x: the number of a screen has 16 bits",
            "project.json: /screens/40000: the number of a screen has 16 bits",
            "project.json: /screens/1: must be the name of the screen, a text in quotes",
            "project.json: /colour: is not known here",
        }));
    EXPECT_EQ(project.resolution, 1280);
    EXPECT_EQ(project.language, 1);
    EXPECT_EQ(project.languages.size(), 1U);
    EXPECT_EQ(project.variables.size(), 2U);
    EXPECT_EQ(project.screens.size(), 1U);
    EXPECT_FALSE(project.machine);
}

TEST(ProjectFile, TheWidthOfTheScreenIsOneNumber)
{
    const auto widths = [](const std::string& members, const std::string& variables) {
        const ProjectFile project =
            ProjectFile::parse("{" + members + "\"variables\": {" + variables + "}}", "project.json");
        servopanel::machine::VariableStore store;
        project.declareVariables(store);
        const auto* const width = store.find(servopanel::machine::resolutionVariable);
        return std::pair{project.resolution, width == nullptr ? 0 : servopanel::basic::toInt32(*width)};
    };
    const std::string variable = "\"parameter<.aufloesung>\": ";
    EXPECT_EQ(widths("\"resolution\": 800, ", ""), (std::pair{800, 800}));
    EXPECT_EQ(widths("\"resolution\": 800, ", variable + "1280"), (std::pair{800, 800}));
    EXPECT_EQ(widths("", variable + "1024"), (std::pair{1024, 1024}));
    EXPECT_EQ(widths("", variable + "[1, 2]"), (std::pair{1280, 1280}));
    EXPECT_EQ(widths("", ""), (std::pair{1280, 1280}));
}

TEST(ProjectFile, SaysSoWhenTwoWidthsDiffer)
{
    const auto problems = [](const std::string& width) {
        return problemsOf(ProjectFile::parse(
            R"({"resolution": 800, "variables": {"parameter<.aufloesung>": )" + width + "}}",
            "project.json"));
    };
    EXPECT_TRUE(problems("800").empty());
    ASSERT_EQ(problems("1280").size(), 1U);
    EXPECT_NE(problems("1280").front().find("differs from resolution, which is 800; resolution counts"),
        std::string::npos);
}

TEST(ProjectFile, NamesTheLineWhereItBreaksOffAndKeepsWhatStandsBefore)
{
    const ProjectFile project = ProjectFile::parse(
        "{\n\"title\": \"Linie\",\n\"variables\": {\n\"a\": 1,\n\"b\": [1, 2\n\"c\": 3\n}}", "project.json");
    EXPECT_EQ(project.title, "Linie");
    ASSERT_EQ(project.variables.size(), 1U);
    EXPECT_EQ(project.variables[0].name, "a");
    ASSERT_EQ(project.problems.size(), 1U);
    EXPECT_EQ(project.problems[0].place, "line 5");
    EXPECT_EQ(project.problems[0].reason, "a comma or \"]\" is missing behind 2");
    EXPECT_EQ(project.problems[0].reason.find("json.exception"), std::string::npos);
}

TEST(ProjectFile, SurvivesACutAnywhereAndKeepsMoreTheLaterItComes)
{
    const std::string whole =
        R"({"title": "Linie", "languages": [{"number": 1, "code": "de"}, {"number": 2, "code": "en"}],
        "variables": {"a": 1, "b": [1, 2], "c": {"type": "int16", "value": 3}}, "screens": {"1": "x"}})";
    std::size_t kept = 0;
    for (std::size_t length = 0; length < whole.size(); ++length) {
        const ProjectFile project = ProjectFile::parse(whole.substr(0, length), "project.json");
        EXPECT_FALSE(project.problems.empty()) << length;
        const std::size_t now = project.languages.size() + project.variables.size() + project.screens.size()
            + (project.title.empty() ? 0U : 1U);
        EXPECT_GE(now, kept) << length;
        kept = now;
    }
    EXPECT_EQ(kept, 7U);
    EXPECT_TRUE(ProjectFile::parse(whole, "project.json").problems.empty());
}

TEST(ProjectFile, SaysSoWhenThereIsNoProject)
{
    EXPECT_EQ(ProjectFile::parse("", "project.json").problems.at(0).place, "line 1");
    EXPECT_EQ(problemsOf(ProjectFile::parse("[]", "project.json")),
        (Problems{"project.json: must be an object in braces"}));
    EXPECT_EQ(problemsOf(ProjectFile::parse("{}", "project.json")),
        (Problems{"project.json: /variables: is missing"}));
    EXPECT_EQ(ProjectFile::parse("{} {}", "project.json").problems.at(0).place, "line 1");
    const tests::TemporaryFolder folder;
    const ProjectFile missing = ProjectFile::load(folder.path() / "project.json");
    ASSERT_EQ(missing.problems.size(), 1U);
    EXPECT_NE(missing.problems[0].reason.find("there is no such file"), std::string::npos);
}

TEST(ProjectFile, WhatIsNestedAbsurdlyDeepIsLeftOutAndTheRestRead)
{
    const std::string deep = std::string(450'000, '[').append(450'000, ']');
    const ProjectFile project = ProjectFile::parse(
        R"({"title": "Deep", "variables": {"a": )" + deep + R"(, "b": 2}, "level": 3})", "project.json");
    EXPECT_EQ(project.title, "Deep");
    EXPECT_EQ(project.level, 3);
    EXPECT_TRUE(project.isWhole);
    ASSERT_FALSE(project.problems.empty());
    EXPECT_EQ(project.problems[0].text(), "project.json: /variables: is nested deeper than 64 levels");
}

TEST(ProjectFile, TellsWhatIsGivenTwice)
{
    const ProjectFile project =
        ProjectFile::parse(R"({"variables": {"a": 1, "b": 2, "a": 3}})", "project.json");
    EXPECT_EQ(
        problemsOf(project), (Problems{"project.json: /variables/a: is there twice; the last one counts"}));
    ASSERT_EQ(project.variables.size(), 2U);
    EXPECT_EQ(project.variables[0].value, Variant(std::int16_t{3}));
}

TEST(ProjectFile, DeclaresItsVariables)
{
    const tests::TemporaryFolder folder;
    const ProjectFile project =
        ProjectFile::load(folder.file("project.json", R"({"variables": {"a": 1, "b": "x"}})"));
    machine::VariableStore store;
    project.declareVariables(store);
    EXPECT_EQ(store.names(), (std::vector<std::string>{"a", "b", "parameter<.aufloesung>"}));
    EXPECT_EQ(store.ReadValue("b"), Variant("x"));
}

// One rule of a servo's values beside a good one; the problems that it makes.
Problems problemsOfValue(const std::string& rule)
{
    const ProjectFile project =
        ProjectFile::parse(R"({"variables": {}, "machine": {"kind": "simulated", "servos":
        [{"machine": "M1", "servo": 1, "values": [{"page": 1, "element": 2, "kind": "constant", "value": 1}, )"
                + rule + "]}]}}",
            "p");
    Problems problems;
    for (const machine::Problem& problem : project.problems) {
        const std::string place = "/machine/servos/0/values/1";
        EXPECT_EQ(problem.place.substr(0, place.size()), place);
        problems.push_back(problem.place.substr(place.size()) + ": " + problem.reason);
    }
    EXPECT_EQ(project.machine->servos.at(0).values.size(), problems.empty() ? 2U : 1U);
    return problems;
}

TEST(MachineSettings, LeaveOutRulesThatCannotWork)
{
    EXPECT_EQ(problemsOfValue(R"({"page": 1, "element": 3, "kind": "constant", "value": 1})"), Problems{});
    EXPECT_EQ(problemsOfValue(R"({"page": 3, "element": 40, "kind": "constant", "value": 1})"),
        (Problems{"/page: must be from 1 to 2", "/element: must be from 0 to 39"}));
    EXPECT_EQ(problemsOfValue(R"({"page": 1, "element": 2, "kind": "constant", "value": 1})"),
        (Problems{"/element: this place has a value already"}));
    EXPECT_EQ(problemsOfValue(R"({"page": 1, "element": 3, "kind": "guess"})"),
        (Problems{"/kind: \"guess\" is not known"}));
    EXPECT_EQ(
        problemsOfValue(R"({"page": 1, "element": 3, "kind": "value", "source": {"page": 1, "element": 9}})"),
        (Problems{"/source: must be the place of an earlier value of this servo"}));
    EXPECT_EQ(problemsOfValue(
                  R"({"page": 1, "element": 3, "kind": "setpoint", "family": "servo_para2", "index": 4})"),
        (Problems{"/index: must be from 0 to 3"}));
    EXPECT_EQ(
        problemsOfValue(R"({"page": 1, "element": 3, "kind": "setpoint", "family": "para", "index": 4})")
            .at(0),
        "/family: \"para\" is no family of setpoints");
    EXPECT_EQ(problemsOfValue(R"({"page": 1, "element": 3, "kind": "integral", "low": 5})"),
        (Problems{"/low: low and high go together"}));
    EXPECT_EQ(problemsOfValue(R"({"page": 1, "element": 3, "kind": "integral", "low": 5, "high": 5})"),
        (Problems{"/low: must be below high"}));
    EXPECT_EQ(problemsOfValue(
                  R"({"page": 1, "element": 3, "kind": "swing", "low": "x", "high": 1, "period_s": 0})"),
        (Problems{"/low: must be a number or a setpoint", "/period_s: 0 is out of range"}));
}

// What needs a value with a mistake is left out with it; one mistake is one report.
TEST(MachineSettings, LeaveOutWhatNeedsARuleThatCannotWork)
{
    const ProjectFile project = ProjectFile::parse(
        R"({"variables": {}, "machine": {"kind": "simulated", "servos": [{"machine": "M1", "servo": 1,
        "values": [{"page": 1, "element": 2, "kind": "constant", "value": 1, "tau_ms": -600},
                   {"page": 1, "element": 3, "kind": "value", "source": {"page": 1, "element": 2}},
                   {"page": 1, "element": 4, "kind": "value", "source": {"page": 1, "element": 3}},
                   {"page": 1, "element": 5, "kind": "constant", "value": 1}],
        "faults": [{"text": "x", "mean_interval_s": 1, "duration_s": 1,
                    "effects": [{"page": 1, "element": 2, "add": 1}]}]}]}})",
        "p");
    EXPECT_EQ(problemsOf(project), (Problems{"p: /machine/servos/0/values/0/tau_ms: -600 is out of range"}));
    EXPECT_EQ(project.machine->servos.at(0).values.size(), 1U);
    EXPECT_EQ(project.machine->servos.at(0).faults.size(), 1U);
}

TEST(MachineSettings, KnowTheirShortestPeriod)
{
    const auto problems = [](const std::string& period) {
        return problemsOf(ProjectFile::parse(
            R"({"variables": {}, "machine": {"kind": "simulated", "period_ms": )" + period + "}}", "p"));
    };
    EXPECT_EQ(problems("10"), Problems{});
    EXPECT_EQ(problems("9"), (Problems{"p: /machine/period_ms: 9 is out of range"}));
}

TEST(MachineSettings, ReportAMisspeltMemberButKeepTheRule)
{
    const ProjectFile project =
        ProjectFile::parse(R"({"variables": {}, "machine": {"kind": "simulated", "servos":
        [{"machine": "M1", "servo": 1, "values": [{"page": 1, "element": 2, "kind": "constant", "value": 1, "gain": 2}]}]}})",
            "p");
    EXPECT_EQ(problemsOf(project), (Problems{"p: /machine/servos/0/values/0/gain: is not known here"}));
    EXPECT_EQ(project.machine->servos.at(0).values.size(), 1U);
}

TEST(MachineSettings, KnowOnlyTheSimulatedMachine)
{
    const ProjectFile project = ProjectFile::parse(R"({"variables": {}, "machine": {"kind": "real"}})", "p");
    EXPECT_EQ(problemsOf(project), (Problems{"p: /machine/kind: only \"simulated\" is known"}));
    EXPECT_FALSE(project.machine);
}

ProjectFile withLanguages(const std::string& languages)
{
    return ProjectFile::parse("{\"languages\": [" + languages + "], \"variables\": {}}", "project.json");
}

TEST(ProjectFile, TakesTheDirectionOfALanguageFromItsCode)
{
    const ProjectFile project = withLanguages(
        R"({"number": 1, "code": "de"}, {"number": 2, "code": "ar"}, {"number": 3, "code": "he-IL"},
           {"number": 4, "code": "fa", "direction": "ltr"}, {"number": 5, "code": "yi", "direction": "rtl"})");
    EXPECT_EQ(problemsOf(project), Problems{});
    ASSERT_EQ(project.languages.size(), 5U);
    EXPECT_FALSE(project.languages[0].rightToLeft);
    EXPECT_TRUE(project.languages[1].rightToLeft);
    EXPECT_TRUE(project.languages[2].rightToLeft);
    EXPECT_FALSE(project.languages[3].rightToLeft);
    EXPECT_TRUE(project.languages[4].rightToLeft);
}

TEST(ProjectFile, TakesFontAndDigitsOfALanguage)
{
    const ProjectFile project = withLanguages(
        R"({"number": 1, "code": "ar", "font": "Noto Sans Arabic", "digits": "arabic-indic"},
           {"number": 2, "code": "zh", "digits": "latin"})");
    EXPECT_EQ(problemsOf(project), Problems{});
    ASSERT_EQ(project.languages.size(), 2U);
    EXPECT_EQ(project.languages[0].font, "Noto Sans Arabic");
    EXPECT_TRUE(project.languages[0].arabicIndicDigits);
    EXPECT_EQ(project.languages[1].font, "");
    EXPECT_FALSE(project.languages[1].arabicIndicDigits);
}

TEST(ProjectFile, KeepsALanguageWhoseLookIsWrong)
{
    const ProjectFile project = withLanguages(
        R"({"number": 1, "code": "ar", "direction": "left", "digits": 5, "font": 12, "fnt": "x"})");
    EXPECT_EQ(problemsOf(project),
        (Problems{"project.json: /languages/0/direction: must be \"ltr\" or \"rtl\"",
            "project.json: /languages/0/font: must be a text in quotes",
            "project.json: /languages/0/digits: must be a text in quotes",
            "project.json: /languages/0/fnt: is not known here"}));
    ASSERT_EQ(project.languages.size(), 1U);
    EXPECT_TRUE(project.languages[0].rightToLeft);
}

TEST(ProjectFile, RefusesLanguagesThatCannotBeTold)
{
    const ProjectFile project = withLanguages(
        R"({"number": 1, "code": "de"}, {"number": 1, "code": "en"}, {"number": 2, "code": "../en"})");
    EXPECT_EQ(problemsOf(project),
        (Problems{"project.json: /languages/1/number: is that of another language",
            "project.json: /languages/2/code: must be the name of a file in Texts, without folder and "
            "extension"}));
    EXPECT_EQ(project.languages.size(), 1U);
}

} // namespace
