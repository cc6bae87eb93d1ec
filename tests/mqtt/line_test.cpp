#include "basic/error.h"
#include "basic/text.h"
#include "line_machine/command_line.h"
#include "line_machine/definition_levels.h"
#include "line_machine/faults.h"
#include "line_machine/machine_description.h"
#include "line_machine/project_definitions.h"
#include "mqtt/messages.h"
#include "mqtt/protocol_error.h"
#include "portable/temporary_folder.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <filesystem>
#include <limits>
#include <optional>
#include <string>
#include <variant>
#include <vector>

namespace servopanel::line_machine {

namespace {

const std::string start = "Ch1.M1_T_servo_12<.mM1_";

machine::VariableStore servo()
{
    machine::VariableStore store;
    for (const char* family :
        {"servo_para", "servo_para_un", "servo_para_ob", "servo_para2", "servo_diag", "servo_zeich"})
        store.declare(start + family + "_12>", basic::doubles({1, 2}));
    store.declare(start + "servo_schalt_12>", std::int32_t{0});
    store.declare(start + "servoaender_12>", std::int16_t{0});
    store.declare("Ch1.M10_T_servo_1<.mM10_servo_para_1>", 1.0);
    store.declare("parameter<.aufloesung>", std::int16_t{1280});
    return store;
}

const mqtt::VariableDescription& variable(const mqtt::Description& description, const std::string& family)
{
    return description.variables().at(description.indexOf(start + family + "_12>").value());
}

} // namespace

TEST(MachineDescription, HasTheMachinesVariablesAndWhatAPanelMayWrite)
{
    const mqtt::Description description = describeMachine(servo(), "M1");
    EXPECT_EQ(description.variables().size(), 8U) << "neither those of M10 nor the panel's own";
    const mqtt::VariableDescription& para = variable(description, "servo_para");
    EXPECT_TRUE(para.writable);
    EXPECT_FALSE(para.signal);
    EXPECT_EQ(para.length, 2U);
    EXPECT_EQ(para.least, mqtt::Limit{start + "servo_para_un_12>"});
    EXPECT_EQ(para.most, mqtt::Limit{start + "servo_para_ob_12>"});
    EXPECT_EQ(variable(description, "servo_para2").least, mqtt::Limit{});
    EXPECT_FALSE(variable(description, "servo_para_un").writable);
    EXPECT_FALSE(variable(description, "servo_diag").writable);
    EXPECT_TRUE(variable(description, "servoaender").signal);
}

TEST(MachineDescription, TakesLevelsFromTheDefinitions)
{
    const auto row = [](const std::string& family, const basic::Variant& element,
                         const basic::Variant& pass) {
        jet::DefinitionRow definition;
        definition.machineType = "M1";
        definition.variable = start + family + "_12>";
        definition.element = element;
        definition.pass = pass;
        return definition;
    };
    std::vector<jet::DefinitionRow> rows{row("servo_para", std::int16_t{1}, std::int16_t{3}),
        row("servo_para2", std::int16_t{0}, basic::Null{}),
        row("servo_schalt", std::int16_t{2}, std::int16_t{4}),
        row("servo_para", std::int16_t{2}, std::int16_t{9}),
        row("servo_para", std::int16_t{-1}, std::int16_t{9}),
        row("nothing", std::int16_t{0}, std::int16_t{9})};
    // Tables of other programs have columns of other types.
    rows.push_back(row("servo_zeich", std::int32_t{1}, 5.0));
    const mqtt::Description description =
        withLevels(describeMachine(servo(), "M1"), jet::MachineDefinitions{rows, "M1"});
    EXPECT_EQ(variable(description, "servo_zeich").levels, (std::vector<std::int16_t>{0, 5}));
    EXPECT_EQ(variable(description, "servo_para").levels, (std::vector<std::int16_t>{0, 3}));
    EXPECT_EQ(variable(description, "servo_para2").levels,
        (std::vector<std::int16_t>{std::numeric_limits<std::int16_t>::max(), 0}))
        << "a level that cannot be read opens nothing";
    EXPECT_EQ(variable(description, "servo_schalt").levels, (std::vector<std::int16_t>{0, 0, 4, 0}));
    EXPECT_TRUE(variable(description, "servo_diag").levels.empty());
}

// What the page shows as locked must not be open here, nor the other way round.
TEST(MachineDescription, FindsDefinitionsAsThePageDoes)
{
    jet::DefinitionRow row;
    row.machineType = "M1";
    row.variable = basic::upperCase(start) + "SERVO_PARA_12>";
    row.element = std::int16_t{1};
    row.pass = std::int16_t{3};
    jet::DefinitionRow foreign = row;
    foreign.machineType = "M2";
    foreign.pass = std::int16_t{0};
    jet::DefinitionRow nameless = foreign;
    nameless.machineType = basic::Null{};
    const mqtt::Description description =
        withLevels(describeMachine(servo(), "M1"), jet::MachineDefinitions{{row, foreign, nameless}, "M1"});
    EXPECT_EQ(variable(description, "servo_para").levels, (std::vector<std::int16_t>{0, 3}));
}

TEST(MachineDescription, OnlyWholeNumbersHaveLevelsOfBits)
{
    for (const basic::Variant& value : {basic::Variant{0.0}, basic::Variant{"ready"}}) {
        machine::VariableStore store;
        store.declare(start + "servo_schalt_12>", value);
        jet::DefinitionRow row;
        row.machineType = "M1";
        row.variable = start + "servo_schalt_12>";
        row.element = std::int16_t{0};
        row.pass = std::int16_t{3};
        const mqtt::Description description =
            withLevels(describeMachine(store, "M1"), jet::MachineDefinitions{{row}, "M1"});
        EXPECT_EQ(variable(description, "servo_schalt").levels, (std::vector<std::int16_t>{3}));
        for (const mqtt::DescriptionPart& part : mqtt::partsOf(description))
            EXPECT_NO_THROW(mqtt::readDescriptionPart("pm/v1/M1/desc/0", mqtt::write(part)))
                << "panels take it";
    }
}

TEST(ProjectDefinitions, ThatAreThereAndCannotBeReadAreNotPassedOver)
{
    tests::TemporaryFolder folder;
    EXPECT_EQ(projectDefinitions(folder.path()), std::nullopt) << "a project may have none";
    jet::DefinitionRow row;
    row.machineType = "M1";
    row.variable = start + "servo_para_12>";
    row.element = std::int16_t{0};
    row.pass = std::int16_t{3};
    row.absMin = row.absMax = row.min = row.max = 0.0;
    const jet::Bytes database = jet::newDefinitionDatabase({row});
    const std::string bytes{reinterpret_cast<const char*>(database.data()), database.size()};
    folder.file("Servo/Servo.mdb", bytes);
    EXPECT_EQ(projectDefinitions(folder.path()), (std::vector<jet::DefinitionRow>{row}));
    folder.file("Servo/Servo.mdb", bytes.substr(0, bytes.size() / 2));
    EXPECT_THROW(projectDefinitions(folder.path()), basic::Error);
    std::filesystem::remove(definitionsFile(folder.path()));
    std::filesystem::create_symlink("nowhere", definitionsFile(folder.path()));
    EXPECT_THROW(projectDefinitions(folder.path()), basic::Error);
}

TEST(CommandLine, SaysWhatIsWrong)
{
    const auto problem = [](const std::vector<std::string>& arguments) {
        const auto parsed = parseCommandLine(arguments);
        const auto* const text = std::get_if<std::string>(&parsed);
        return text ? *text : std::string{};
    };
    EXPECT_EQ(
        problem({"demo", "--broker", "unix:/run/b", "--machine", "M1", "--machine", "M2", "--faults"}), "");
    EXPECT_EQ(problem({"--help"}), "");
    EXPECT_EQ(problem({}), "the project is missing");
    EXPECT_EQ(problem({"a", "b"}), "only one project can be run: b");
    EXPECT_EQ(problem({"a", "--machine"}), "--machine needs a value");
    EXPECT_EQ(problem({"a", "--machin", "x"}), "unknown option --machin");
    EXPECT_NE(problem({"a", "--broker", "h:0"}).find("--broker h:0: the port"), std::string::npos);
}

TEST(Faults, AreRefusedWhenTheyAreNone)
{
    for (const char* payload :
        {"", "{}", R"({"fault":"unknown"})", R"({"fault":"refuse"})", R"({"fault":"refuse","code":"done"})",
            R"({"fault":"slow"})", R"({"fault":"slow","milliseconds":-1})", R"({"fault":"torn","times":-1})",
            R"({"fault":"doubt","name":"x","elements":[-1]})", R"({"fault":"change","name":"x"})"}) {
        Faults faults;
        EXPECT_THROW(faults.take("pm/v1/M1/fault", payload), mqtt::ProtocolError) << payload;
    }
}

} // namespace servopanel::line_machine
