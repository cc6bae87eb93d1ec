#include "jet/servo_defs_fixture.h"

#include <cmath>
#include <limits>

namespace servopanel::jet {

namespace {

using namespace testing;

class Check : public ServoDefs {
protected:
    // A project of two machines; the third servo of the first is not used.
    static void fill(const tests::TemporaryFolder& project)
    {
        project.file("project.json",
            R"({"title": "x", "variables": {"parameter<.maschinenbez_1>": "M1", "parameter<.maschinenbez_2>": "M2"}})");
        project.file(
            "Parameter/Program.ini", "[1Machine]\nServo1=1\nServo2=12\nServo3=0\n[2Machine]\nServo1=4\n");
    }
    static std::string parameter(const std::string& machine, const std::string& family, int servo)
    {
        const std::string number = std::to_string(servo);
        return "Ch1." + machine + "_T_servo_" + number + "<.m" + machine + family + number + ">";
    }
    // One row with good limits.
    static std::string row(const std::string& machine, const std::string& variable, int element)
    {
        return machine + "," + variable + ",9,0," + std::to_string(element) + ",8,1,1\n";
    }
};

TEST_F(Check, FindsNothingInGoodDefinitions)
{
    EXPECT_EQ(run({"check", database(twoRows)}), 0);
    EXPECT_EQ(text, "2 definitions, 0 findings\n");
}

TEST_F(Check, FindsWrongLimitsAndLevels)
{
    EXPECT_EQ(
        run({"check",
            database("M1,A,10,0,0,5,6,1\nM1,B,10,0,0,11,-1,6\nM1,C,0,10,0,,1,1\nM1,D,0,10,0,5,5,-1\n")}),
        1);
    EXPECT_EQ(text,
        "row 1 (M1, A, 0): Min 6 is above Max 5\n"
        "row 2 (M1, B, 0): Max 11 is above abs_max 10\n"
        "row 2 (M1, B, 0): Min -1 is below abs_min 0\n"
        "row 2 (M1, B, 0): there is no access level 6\n"
        "row 3 (M1, C, 0): Max has no value\n"
        "row 3 (M1, C, 0): abs_min 10 is above abs_max 0\n"
        "row 3 (M1, C, 0): Min 1 is below abs_min 10\n"
        "row 4 (M1, D, 0): abs_min 10 is above abs_max 0\n"
        "row 4 (M1, D, 0): Max 5 is above abs_max 0\n"
        "row 4 (M1, D, 0): Min 5 is below abs_min 10\n"
        "row 4 (M1, D, 0): there is no access level -1\n"
        "4 definitions, 11 findings\n");
}

TEST_F(Check, FindsWhatIsNoNumberForThePanel)
{
    constexpr double infinite = std::numeric_limits<double>::infinity();
    NewTable table{"PRESET_DEFS",
        {{"machine_type", ColumnType::Text, 10}, {"var_name", ColumnType::Text, 10},
            {"abs_max", ColumnType::Double}, {"abs_min", ColumnType::Double},
            {"offset_or_bitno", ColumnType::Int32}, {"Max", ColumnType::Text, 10},
            {"Min", ColumnType::Double}, {"Pass", ColumnType::Double}},
        {{"M1", "A", 10.0, 0.0, std::int32_t{1}, "8", 1.0, 1.0},
            {"M1", "B", infinite, -infinite, std::int32_t{40000}, "high", -std::nan(""), 1e9}}};
    EXPECT_EQ(run({"check", database(newDatabase(table, {}))}), 1);
    EXPECT_EQ(text,
        "row 2 (M1, B, 40000): abs_max 'inf' is no finite number\n"
        "row 2 (M1, B, 40000): abs_min '-inf' is no finite number\n"
        "row 2 (M1, B, 40000): Max 'high' is no finite number\n"
        "row 2 (M1, B, 40000): Min '-nan' is no finite number\n"
        "row 2 (M1, B, 40000): offset_or_bitno '40000' is no number of 16 bits\n"
        "row 2 (M1, B, 40000): Pass '1e+09' is no number of 16 bits\n"
        "2 definitions, 6 findings\n");
}

// The panel finds a variable without regard to case, but takes the rows of its own machine type exactly.
TEST_F(Check, FindsDuplicatesAsThePanelWould)
{
    EXPECT_EQ(run({"check",
                  database(row("M1", "Speed", 0) + row("M1", "Speed", 1) + row("m1", "Speed", 0)
                      + row("M1", "SPEED", 0) + row("M1", "Speed", 1) + row("\"M1, Speed\"", "x", 0)
                      + row("M1", "\"Speed, x\"", 0))}),
        1);
    EXPECT_EQ(text,
        "row 4 (M1, SPEED, 0): defined in row 1 already, in other letter case; the last one counts\n"
        "row 5 (M1, Speed, 1): defined in row 2 already; the last one counts\n"
        "7 definitions, 2 findings\n");
}

TEST_F(Check, FindsElementsThatAVariableDoesNotHave)
{
    const struct {
        std::string family;
        int elements;
    } families[]{{"_servo_para_", 20}, {"_servo_para2_", 4}, {"_servo_schalt_", 4}, {"_servo_zeich_", 2}};
    for (const auto& [family, elements] : families) {
        const std::string name = parameter("M1", family, 3);
        const std::string rows = row("M1", name, 0) + row("M1", name, elements - 1);
        EXPECT_EQ(run({"check", database(rows)}), 0) << text;
        EXPECT_EQ(run({"check", database(rows + row("M1", name, elements) + row("M1", name, -1))}), 1);
        const std::string finding = family + " has elements 0 to " + std::to_string(elements - 1) + " only\n";
        EXPECT_EQ(text,
            "row 3 (M1, " + name + ", " + std::to_string(elements) + "): " + finding + "row 4 (M1, " + name
                + ", -1): " + finding + "4 definitions, 2 findings\n");
    }
}

TEST_F(Check, ComparesWithTheServosOfAProject)
{
    const tests::TemporaryFolder project;
    fill(project);
    const std::string file = database("M1,Ch1.M1_T_servo_12<.mM1_servo_para_12>,9,0,0,8,1,1\n"
                                      "M1,Ch1.M1_T_servo_3<.mM1_servo_zeich_3>,9,0,0,8,1,1\n"
                                      "M1,Ch1.M2_T_servo_4<.mM2_servo_para2_4>,9,0,0,8,1,1\n"
                                      "M1,Ch1.M1_T_servo_1<.mM1_servo_para_12>,9,0,0,8,1,1\n");
    EXPECT_EQ(run({"check", file, "--project", project.path().string()}), 1);
    EXPECT_EQ(text,
        "row 2 (M1, Ch1.M1_T_servo_3<.mM1_servo_zeich_3>, 0): the project has no servo 3 of machine M1\n"
        "row 3 (M1, Ch1.M2_T_servo_4<.mM2_servo_para2_4>, 0): the variable belongs to machine M2\n"
        "row 4 (M1, Ch1.M1_T_servo_1<.mM1_servo_para_12>, 0): the variable is no parameter of a servo\n"
        "machine M2: has no row\n"
        "servo 1 of machine M1: has no definitions\n"
        "4 definitions, 5 findings\n");
}

// Whatever the panel takes for the number of a servo is one here.
TEST_F(Check, TakesNumbersOfServosAsThePanelDoes)
{
    const tests::TemporaryFolder project;
    fill(project);
    project.file("Parameter/Program.ini", "[1Machine]\nServo1=0x02\nServo2=+3 ; winder\nServo3=none\n");
    const std::string file = database(
        row("M1", parameter("M1", "_servo_para_", 2), 3) + row("M1", parameter("M1", "_servo_para_", 3), 3));
    EXPECT_EQ(run({"check", file, "--project", project.path().string()}), 0) << errors;
    EXPECT_EQ(text, "2 definitions, 0 findings\n");
}

TEST_F(Check, TakesTheServosOfAProjectWithMistakesElsewhere)
{
    const tests::TemporaryFolder project;
    project.file("project.json",
        R"({"titel": "x", "level": "five", "variables": {"parameter<.maschinenbez_1>": "M1", "other": {}}})");
    project.file("Parameter/Program.ini", "[1Machine]\nServo1=1\n");
    const std::string file = database(row("M1", parameter("M1", "_servo_para_", 1), 3));
    EXPECT_EQ(run({"check", file, "--project", project.path().string()}), 0) << errors;
    EXPECT_EQ(text, "1 definitions, 0 findings\n");
}

TEST_F(Check, FindsTheServoOfANameInOtherCase)
{
    const tests::TemporaryFolder project;
    fill(project);
    const std::string file = database(row("M1", "CH1.m1_t_SERVO_12<.Mm1_Servo_Para_12>", 3)
        + row("M1", parameter("M1", "_servo_para_", 1), 3)
        + row("m2", parameter("M2", "_servo_para_", 4), 3));
    EXPECT_EQ(run({"check", file, "--project", project.path().string()}), 1);
    // The machine type is not found in other case.
    EXPECT_EQ(text,
        "row 3 (m2, Ch1.M2_T_servo_4<.mM2_servo_para_4>, 3): the variable belongs to machine M2\n"
        "machine M2: has no row\n"
        "3 definitions, 2 findings\n");
}

TEST_F(Check, NamesTheFileOfAProjectThatIsBroken)
{
    const std::string good = R"({"title": "x", "variables": {"parameter<.maschinenbez_1>": "M1"}})";
    const struct {
        const char* file;
        const char* content; // nullptr: it is missing
        std::string reason;
    } cases[]{
        {"project.json", nullptr, "there is no such file"},
        {"project.json", R"({"title": "x", "variables": {"parameter<.maschinenbez_1>": {}}})", ""},
        {"project.json", "{", ""},
        {"project.json", R"({"title": "x"})", ""},
        {"project.json", R"({"title": "x", "variables": {"a": 5}})",
            "no machine has a designation (variables parameter<.maschinenbez_...>)"},
        {"project.json", R"({"title": "x", "variables": {"parameter<.maschinenbez_1>": [1]}})",
            "/variables/parameter<.maschinenbez_1>: it is no designation of a machine"},
        {"Parameter/Program.ini", nullptr, "there is no such file"},
        {"Parameter/Program.ini", "[1Machine]\nServo1=1\nServo2=99999\n",
            "[1Machine] Servo2: '99999' is no number of a servo"},
        {"Parameter/Program.ini", "[1Machine]\nServo1=1\nServo2=51\n",
            "[1Machine] Servo2: '51' is no number of a servo"},
    };
    const std::string file = database(row("M1", parameter("M1", "_servo_para_", 1), 3));
    for (const auto& [name, content, reason] : cases) {
        const tests::TemporaryFolder project;
        project.file("project.json", good);
        project.file("Parameter/Program.ini", "[1Machine]\nServo1=1\n");
        EXPECT_EQ(run({"check", file, "--project", project.path().string()}), 0) << errors;
        if (content != nullptr)
            project.file(name, content);
        else
            std::filesystem::remove(project.path() / name);
        EXPECT_EQ(run({"check", file, "--project", project.path().string()}), 2);
        EXPECT_EQ(text, "");
        const std::string start = "servo-defs check: '" + (project.path() / name).string() + "': ";
        EXPECT_EQ(errors.substr(0, start.size()), start);
        EXPECT_GT(errors.size(), start.size() + 5);
        if (!reason.empty()) {
            EXPECT_EQ(errors, start + reason + '\n');
        }
    }
    EXPECT_EQ(run({"check", file, "--project", path("missing")}), 2);
    EXPECT_EQ(errors, "servo-defs check: '" + path("missing/project.json") + "': there is no such file\n");
}

} // namespace

} // namespace servopanel::jet
