#include "params/params_fixture.h"

namespace servopanel::testing {

using ServoParamsDiff = ParamsFixture;

TEST_F(ServoParamsDiff, ComparesServosOfTheProject)
{
    EXPECT_EQ(run({"diff", "M1/3", "M2/3", "--project", project()}), 1);
    EXPECT_EQ(output.text,
        "servo  family      element  name   unit  M1/3  M2/3\n"
        "3      servo_para  1        =Draw  %     35.5  36\n"
        "1 row differs, of 1 servo\n");
    EXPECT_EQ(run({"diff", "M1/1", "M1/3", "--project", project()}), 1);
    EXPECT_TRUE(shows("1 / 3  servo_para  0        Web tension  N     10    20\n")) << output.text;
    EXPECT_TRUE(shows("3 rows differ, of 1 servo\n")) << output.text;
    EXPECT_EQ(run({"diff", "M1", "M1", "--project", project()}), 0);
    EXPECT_EQ(output.text, "0 rows differ, of 2 servos\n");
}

TEST_F(ServoParamsDiff, ComparesAFileWithTheMachine)
{
    const std::string file = setFile(row("servo_para", 3, 0, "20") + row("servo_para", 3, 1, "35.25")
        + row("servo_para", 3, 2, "0") + row("servo_para2", 3, 0, "1.5") + row("servo_schalt", 3, 0, "1")
        + row("servo_schalt", 3, 1, "1") + row("servo_schalt", 3, 2, "1") + row("servo_schalt", 3, 3, "0")
        + row("servo_zeich", 3, 0, "312450017"));
    EXPECT_EQ(run({"diff", file, "M1/3", "--broker", "127.0.0.1"}), 1) << output.errors;
    EXPECT_TRUE(shows("3      servo_para    1                    35.25")) << output.text;
    EXPECT_TRUE(shows("3      servo_schalt  1 ")) << output.text;
    EXPECT_TRUE(shows("3      servo_zeich   1 ")) << output.text;
    EXPECT_TRUE(shows("3 rows differ, of 1 servo\n")) << output.text;
    EXPECT_EQ(commands(), "");
    EXPECT_EQ(run({"diff", file, file}), 0);
}

TEST_F(ServoParamsDiff, AFolderOfAMachinesNameIsNoFile)
{
    folder.folder("M1");
    folder.folder("M2/3");
    const std::filesystem::path before = std::filesystem::current_path();
    std::filesystem::current_path(folder.path());
    EXPECT_EQ(run({"diff", "M1/3", "M2/3", "--project", project()}), 1) << output.errors;
    EXPECT_TRUE(shows("1 row differs, of 1 servo\n")) << output.text;
    EXPECT_EQ(run({"diff", "M1", "M1", "--project", project()}), 0) << output.errors;
    std::filesystem::current_path(before);
}

TEST_F(ServoParamsDiff, HoldsValuesAgainstTheDefinitions)
{
    EXPECT_EQ(run({"diff", "M1", "--limits", "--project", project()}), 0) << output.text;
    EXPECT_EQ(output.text, "0 rows are beyond the definitions, of 20 rows; 17 rows have no definition\n");
    set("servo_para", 3, {9.5, 35.5, 0});
    EXPECT_EQ(run({"diff", "M1/3", "--limits", "--project", project(), "--broker", "127.0.0.1"}), 1);
    EXPECT_EQ(output.text,
        "servo  family      element  name         unit  value  definition\n"
        "3      servo_para  0        Web tension  N     9.5    9.5 is below Min 10\n"
        "1 row is beyond the definitions, of 10 rows; 7 rows have no definition\n");
    const std::string file = setFile(row("servo_para", 3, 1, "2000"));
    EXPECT_EQ(run({"diff", file, "--limits", "--project", project()}), 1);
    EXPECT_TRUE(shows("2000 is above Max 40")) << output.text;
}

TEST_F(ServoParamsDiff, FindsLimitsInColumnsOfWhateverType)
{
    const auto number = [](const std::string& name, jet::ColumnType type) {
        return jet::NewColumn{name, type, 0, false};
    };
    const jet::Bytes database = jet::newDatabase(
        {"PRESET_DEFS",
            {{"machine_type", jet::ColumnType::Text, 255, false},
                {"var_name", jet::ColumnType::Text, 255, false}, number("abs_max", jet::ColumnType::Single),
                number("abs_min", jet::ColumnType::Single), number("offset_or_bitno", jet::ColumnType::Int32),
                number("Max", jet::ColumnType::Int32), number("Min", jet::ColumnType::Single),
                number("Pass", jet::ColumnType::Int32)},
            {{"M1", variable("servo_para", 3), 2000.0F, basic::Null{}, std::int32_t{1}, std::int32_t{1600},
                0.0F, std::int32_t{3}}}},
        {});
    folder.file("project/Servo/Servo.mdb", {reinterpret_cast<const char*>(database.data()), database.size()});
    EXPECT_EQ(
        run({"diff", setFile(row("servo_para", 3, 1, "99999")), "--limits", "--project", project()}), 1);
    EXPECT_TRUE(shows("99999 is above Max 1600")) << output.text;
    EXPECT_EQ(output.errors,
        "servo-params: definitions: abs_min is no number and limits nothing: M1, " + variable("servo_para", 3)
            + ", 1\n");
}

TEST_F(ServoParamsDiff, SaysWhatIsWrong)
{
    EXPECT_EQ(run({"diff", "a.csv", "M1"}), 2);
    EXPECT_TRUE(says("'a.csv': there is no such file; for a machine, --broker or --project says where"))
        << output.errors;
    EXPECT_EQ(run({"diff", "./a.csv", "M1", "--project", project()}), 2);
    EXPECT_TRUE(says("'./a.csv': there is no such file, and it is no servo such as M1/3")) << output.errors;
    EXPECT_EQ(run({"diff", setFile("nonsense,0,1,,\n"), "M1", "--project", project()}), 2);
    EXPECT_TRUE(says("set.csv: line 6: the variable 'nonsense' holds no parameters of a servo")
        || says("set.csv': line 6: the variable 'nonsense' holds no parameters of a servo"))
        << output.errors;
    std::filesystem::remove(folder.path() / "project" / "Servo" / "Servo.mdb");
    EXPECT_EQ(run({"diff", "M1", "--limits", "--project", project()}), 2);
    EXPECT_TRUE(says("the definitions of the project cannot be read: ")) << output.errors;
    EXPECT_TRUE(says("Servo.mdb")) << output.errors;
}

TEST_F(ServoParamsDiff, IsInTroubleWhenAValueCannotBeRead)
{
    controller->orderFault(
        R"({"fault": "doubt", "name": "Ch1.M1_T_servo_3<.mM1_servo_zeich_3>", "elements": [0], "reason": "memory"})");
    EXPECT_EQ(run({"diff", "M1/3", "M1/3", "--broker", "127.0.0.1"}), 2);
    EXPECT_TRUE(says("servo_zeich_3> cannot be read: ")) << output.errors;
    EXPECT_TRUE(shows("0 rows differ")) << output.text;
}

} // namespace servopanel::testing
