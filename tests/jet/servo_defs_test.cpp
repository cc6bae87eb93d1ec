#include "jet/sample_definitions.h"
#include "jet/servo_defs/definition_list.h"
#include "jet/servo_defs/tool.h"

#include <gtest/gtest.h>

namespace servopanel::jet {

namespace {

using namespace testing;

constexpr std::string_view header = "machine_type,var_name,abs_max,abs_min,offset_or_bitno,Max,Min,Pass\n";

class ServoDefs : public ::testing::Test {
protected:
    // A CSV file with these lines below the names of the columns.
    std::string csv(const std::string& name, const std::string& lines) const
    {
        return folder_.file(name, std::string{header} + lines).string();
    }
    std::string path(const std::string& name) const { return (folder_.path() / name).string(); }

    // The exit status; what was printed is in text and errors.
    int run(const std::vector<std::string>& arguments)
    {
        ToolOutput output;
        const Result result = runTool(arguments, output);
        text = output.text;
        errors = output.errors;
        return static_cast<int>(result);
    }
    std::string database(const std::string& lines)
    {
        EXPECT_EQ(run({"create", "--force", path("Servo.mdb"), csv("start.csv", lines)}), 0) << errors;
        return path("Servo.mdb");
    }

    std::string text;
    std::string errors;

private:
    tests::TemporaryFolder folder_;
};

constexpr const char* twoRows = "M1,Speed,100,0,0,80,10,1\nM2,Force,50,-50,1,40,-40,5\n";

TEST_F(ServoDefs, CreatesWhatExportGivesBack)
{
    const std::string file = database(twoRows);
    EXPECT_EQ(text, "2 definitions written\n");
    EXPECT_EQ(tests::contentOf(file)[0x14], 1);
    EXPECT_EQ(run({"export", file}), 0);
    EXPECT_EQ(text, std::string{header} + twoRows);
    EXPECT_EQ(run({"export", file, path("out.csv")}), 0);
    EXPECT_EQ(tests::contentOf(path("out.csv")), std::string{header} + twoRows);
    EXPECT_EQ(run({"create", path("3.mdb"), path("out.csv"), "--jet3"}), 0);
    EXPECT_EQ(tests::contentOf(path("3.mdb"))[0x14], 0);
    EXPECT_EQ(run({"diff", path("3.mdb"), file}), 0);
}

TEST_F(ServoDefs, ReplacesAFileOnlyByForce)
{
    const std::string file = database(twoRows);
    const std::string before = tests::contentOf(file);
    const std::string other = csv("other.csv", "M1,Speed,1,1,1,1,1,1\n");
    EXPECT_EQ(run({"create", file, other}), 2);
    EXPECT_EQ(errors, "servo-defs create: '" + file + "': it exists already\n");
    EXPECT_EQ(tests::contentOf(file), before);
    EXPECT_EQ(run({"create", file, other, "--force"}), 0);
    EXPECT_NE(tests::contentOf(file), before);
}

TEST_F(ServoDefs, ListsByMachineAndVariable)
{
    const std::string file = database(twoRows);
    EXPECT_EQ(run({"list", file}), 0);
    EXPECT_EQ(text,
        "M1  Speed\n  element 0: 10 to 80 (absolute 0 to 100), level 1\n"
        "M2  Force\n  element 1: -40 to 40 (absolute -50 to 50), level 5\n2 definitions\n");
    EXPECT_EQ(run({"list", file, "--machine", "M1"}), 0);
    EXPECT_EQ(text, "M1  Speed\n  element 0: 10 to 80 (absolute 0 to 100), level 1\n1 definition\n");
    EXPECT_EQ(run({"list", file, "--variable", "forc"}), 0);
    EXPECT_EQ(text, "M2  Force\n  element 1: -40 to 40 (absolute -50 to 50), level 5\n1 definition\n");
}

TEST_F(ServoDefs, ShowsDifferences)
{
    const std::string file = database(twoRows);
    const std::string other = csv("other.csv", "M2,Force,50,-50,1,41.5,-40,\nM1,Speed,100,0,3,80,10,1\n");
    EXPECT_EQ(run({"diff", file, file}), 0);
    EXPECT_EQ(text, "");
    EXPECT_EQ(run({"diff", file, other}), 1);
    EXPECT_EQ(text,
        "- M1, Speed, 0\nM2, Force, 1: Max 40 -> 41.5\nM2, Force, 1: Pass 5 -> (none)\n+ M1, Speed, 3\n");
}

TEST_F(ServoDefs, ImportsOnlyWhenItIsTold)
{
    const std::string file = database(twoRows);
    const std::string before = tests::contentOf(file);
    const std::string other = csv("other.csv", "M2,Force,50,-50,1,41.5,-40,3\n");
    const std::string shown = "M2, Force, 1: Max 40 -> 41.5\nM2, Force, 1: Pass 5 -> 3\n";
    EXPECT_EQ(run({"import", file, other}), 1);
    EXPECT_EQ(text, shown);
    EXPECT_EQ(tests::contentOf(file), before);
    EXPECT_EQ(run({"import", file, other, "--apply"}), 0);
    EXPECT_EQ(text, shown + "2 values changed\n");
    EXPECT_EQ(run({"import", file, other}), 0);
    EXPECT_EQ(text, "");
    EXPECT_EQ(run({"export", file}), 0);
    EXPECT_EQ(text, std::string{header} + "M1,Speed,100,0,0,80,10,1\nM2,Force,50,-50,1,41.5,-40,3\n");
}

TEST_F(ServoDefs, ImportsAllOrNothing)
{
    const std::string file = database(twoRows);
    const std::string before = tests::contentOf(file);
    const std::string other = csv("other.csv", "M2,Force,50,-50,1,41.5,-40,3\nM3,New,1,1,1,1,1,1\n");
    EXPECT_EQ(run({"import", file, other, "--apply"}), 2);
    EXPECT_NE(
        errors.find("nothing was changed: 1 row of the CSV file would have to be added"), std::string::npos);
    EXPECT_EQ(tests::contentOf(file), before);
}

TEST_F(ServoDefs, ChecksValues)
{
    EXPECT_EQ(run({"check", database(twoRows)}), 0);
    EXPECT_EQ(text, "2 definitions, 0 findings\n");
    EXPECT_EQ(run({"check",
                  database("M1,A,10,0,0,5,6,1\nM1,B,10,0,0,11,-1,6\nM1,C,0,10,0,,1,1\nM1,A,10,0,0,5,1,1\n"
                           "M1,D,0,10,0,5,5,-1\n")}),
        1);
    EXPECT_EQ(text,
        "row 1 (M1, A, 0): Min 6 is above Max 5\n"
        "row 2 (M1, B, 0): Max 11 is above abs_max 10\n"
        "row 2 (M1, B, 0): Min -1 is below abs_min 0\n"
        "row 2 (M1, B, 0): there is no access level 6\n"
        "row 3 (M1, C, 0): Max has no value\n"
        "row 5 (M1, D, 0): abs_min 10 is above abs_max 0\n"
        "row 5 (M1, D, 0): Max 5 is above abs_max 0\n"
        "row 5 (M1, D, 0): Min 5 is below abs_min 10\n"
        "row 5 (M1, D, 0): there is no access level -1\n"
        "row 4 (M1, A, 0): defined in row 1 already\n"
        "5 definitions, 10 findings\n");
}

TEST_F(ServoDefs, ChecksTheServosOfAProject)
{
    const tests::TemporaryFolder project;
    project.file("project.json",
        R"({"title": "x", "variables": {"parameter<.maschinenbez_1>": "M1", "parameter<.maschinenbez_2>": "M2"}})");
    project.file(
        "Parameter/Program.ini", "[1Machine]\nServo1=1\nServo2=12\nServo3=0\n[2Machine]\nServo1=4\n");
    const std::string file = database("M1,Ch1.M1_T_servo_12<.mM1_servo_para_12>,9,0,0,8,1,1\n"
                                      "M1,Ch1.M1_T_servo_3<.mM1_servo_zeich_3>,9,0,0,8,1,1\n"
                                      "M1,Ch1.M2_T_servo_4<.mM2_servo_para2_4>,9,0,0,8,1,1\n"
                                      "M1,Ch1.M1_T_servo_1<.mM1_servo_para_12>,9,0,0,8,1,1\n");
    EXPECT_EQ(run({"check", file, "--project", project.path().string()}), 1);
    EXPECT_EQ(text,
        "row 2 (M1, Ch1.M1_T_servo_3<.mM1_servo_zeich_3>, 0): the project has no servo 3 of machine M1\n"
        "row 3 (M1, Ch1.M2_T_servo_4<.mM2_servo_para2_4>, 0): the variable belongs to machine M2\n"
        "row 4 (M1, Ch1.M1_T_servo_1<.mM1_servo_para_12>, 0): the variable is no parameter of a servo\n"
        "servo 1 of machine M1: has no definitions\n"
        "servo 4 of machine M2: has no definitions\n"
        "4 definitions, 5 findings\n");
    EXPECT_EQ(run({"check", file, "--project", path("missing")}), 2);
}

TEST_F(ServoDefs, SaysWhatIsWrongWithItsArguments)
{
    EXPECT_EQ(run({}), 2);
    EXPECT_EQ(errors, "A command is missing. servo-defs --help shows them.\n");
    EXPECT_EQ(run({"lost"}), 2);
    EXPECT_EQ(run({"list"}), 2);
    EXPECT_EQ(errors, "servo-defs list: an argument is missing\n");
    EXPECT_EQ(run({"list", "a", "b"}), 2);
    EXPECT_EQ(errors, "servo-defs list: 'b' is one argument too many\n");
    EXPECT_EQ(run({"list", "a", "--apply"}), 2);
    EXPECT_EQ(errors, "servo-defs list: there is no option --apply here\n");
    EXPECT_EQ(run({"list", "a", "--machine"}), 2);
    EXPECT_EQ(errors, "servo-defs list: option --machine needs a value\n");
    EXPECT_EQ(run({"list", path("missing.mdb")}), 2);
    EXPECT_EQ(errors, "servo-defs list: '" + path("missing.mdb") + "': there is no such file\n");
    EXPECT_EQ(run({"list", "--help"}), 0);
    EXPECT_NE(text.find("Examples:"), std::string::npos);
}

} // namespace

} // namespace servopanel::jet
