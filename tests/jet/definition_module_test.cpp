// The library's definitions on real database files.
#include "basic/text.h"
#include "config/mservo_modul.h"
#include "jet/changed_file.h"
#include "jet/definition_table.h"
#include "jet/sample_definitions.h"
#include "jet/servo_defs/definition_list.h"
#include "jet/servo_defs/machine_definitions.h"
#include "support/fakes.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <optional>

namespace servopanel::jet {

namespace {

using namespace testing;
using servopanel::testing::Reports;
using servopanel::testing::Surround;

// A panel that is started on a project folder: nothing but the file outlives it.
class StartedPanel {
public:
    explicit StartedPanel(const std::filesystem::path& folder)
        : mapping_{folder}
    {
        mapping_.mapFolder("P:\\Servo", folder);
        surround_.world().existing.insert("P:\\Servo\\Servo.mdb");
        surround_.platform.engine = std::make_shared<JetEngine>(mapping_);
    }

    std::int16_t read(std::string_view type)
    {
        return modul_.INI_Datenbank_Einlesen("Servo\\Servo.mdb", type, "alle");
    }
    void write() { modul_.INI_Datenbank_Schreiben("Servo\\Servo.mdb", "alle"); }
    // nullptr where the page finds none.
    const config::ParamDef* find(const std::string& variable, std::int16_t element)
    {
        const std::int16_t position = modul_.INI_Daten_Lesen(variable, element);
        return position < 0 ? nullptr : &def(position);
    }
    config::ParamDef& def(std::int32_t position) { return modul_.ParamDefs()[position - 1]; }
    const Reports& reports() const { return surround_.reports(); }

private:
    portable::PathMapping mapping_;
    Surround surround_;
    display::MGlobal global_{surround_.umfeld};
    config::MServoModul modul_{surround_.umfeld, global_};
};

class DefinitionModule : public ::testing::TestWithParam<NewDatabaseOptions> { };

DefinitionRow definition(const char* type, const std::string& variable, std::int16_t element)
{
    return {std::string{type}, variable, 1000.0, -1000.0, element, 10.5, -10.25, std::int16_t{2}};
}

std::vector<DefinitionRow> twoMachines(std::size_t rows)
{
    std::vector<DefinitionRow> result;
    for (std::size_t i = 0; i < rows; ++i)
        result.push_back(definition(
            i % 3 == 0 ? "M2" : "M1", "Vorzug" + std::to_string(i / 20), static_cast<std::int16_t>(i % 20)));
    return result;
}

TEST_P(DefinitionModule, WhatIsWrittenIsThereAfterARestart)
{
    const std::vector<DefinitionRow> rows = twoMachines(60);
    const SampleProject project{rows, GetParam()};
    {
        StartedPanel panel{project.folder()};
        ASSERT_EQ(panel.read("M1"), 40);
        panel.def(2).Max = 0.1;
        panel.def(2).Pass = 5;
        panel.write();
        EXPECT_TRUE(panel.reports().empty());
    }
    StartedPanel panel{project.folder()};
    ASSERT_EQ(panel.read("M1"), 40);
    EXPECT_EQ(panel.def(2).Max, 0.1);
    EXPECT_EQ(panel.def(2).Pass, 5);
    // And nothing else has changed, in rows of the other machine least of all.
    std::vector<DefinitionRow> expected = rows;
    expected[2].max = 0.1;
    expected[2].pass = std::int16_t{5};
    EXPECT_EQ(exactly(SampleProject{bytesOf(project.file())}.rows()), exactly(expected));
}

TEST_P(DefinitionModule, WritingWhatWasReadChangesNoByte)
{
    const SampleProject project{twoMachines(2000), GetParam()};
    const Bytes before = bytesOf(project.file());
    StartedPanel panel{project.folder()};
    ASSERT_EQ(panel.read("M1"), 1333);
    panel.write();
    EXPECT_TRUE(panel.reports().empty());
    EXPECT_EQ(bytesOf(project.file()), before);
}

INSTANTIATE_TEST_SUITE_P(Forms, DefinitionModule, ::testing::ValuesIn(allForms()),
    [](const auto& form) { return nameOf(form.param); });

// Tables of other programs have columns of whatever types they like.
NewTable tableOfOtherTypes()
{
    const auto text = [](std::string_view name) {
        return NewColumn{std::string{name}, ColumnType::Text, 255, false};
    };
    const auto number = [](std::string_view name, ColumnType type) {
        return NewColumn{std::string{name}, type, 0, false};
    };
    const std::string para = "Ch1.M1_T_servo_1<.mM1_servo_para_1>";
    const basic::Variant none = basic::Null{};
    const auto element = [](std::int32_t value) { return basic::Variant{value}; };
    return {std::string{definitionTableName},
        {text(machineTypeColumn), text(variableColumn), number("abs_max", ColumnType::Single),
            text("abs_min"), number(elementColumn, ColumnType::Int32), number("Max", ColumnType::Single),
            number("Min", ColumnType::Int32), number("Pass", ColumnType::Double)},
        {{"M1", para, 1600.5F, "-2.5", element(0), 0.1F, element(-1), 3.0},
            {"M2", para, 1.0F, "0", element(0), 1.0F, element(0), 5.0},
            {"M1", basic::upperCase(para), none, "much", element(1), none, none, 2.5},
            {"M1", para, 1.0F, "0", element(2), 1.0F, element(0), none},
            {"M1", para, 1.0F, "0", element(2), 2.0F, element(0), 4.0},
            {"M1", para, 1.0F, "0", element(3), 1.0F, element(0), 1e9},
            {"M1", "without element", 1.0F, "0", none, 1.0F, element(0), 2.0},
            {"M1", "beyond", 1.0F, "0", element(100'000), 1.0F, element(0), 2.0}, {none, para}}};
}

TEST(MachineDefinitionsOfAFile, AreThoseThatThePageTakes)
{
    const SampleProject project{newDatabase(tableOfOtherTypes(), {})};
    StartedPanel panel{project.folder()};
    ASSERT_EQ(panel.read("M1"), 7);
    const MachineDefinitions definitions{loadDefinitions(project.file()).rows, "M1"};
    const auto limit = [](bool isMissing, double value) {
        return isMissing ? std::nullopt : std::optional{value};
    };
    std::size_t found = 0;
    for (const std::string variable : {"Ch1.M1_T_servo_1<.mM1_servo_para_1>",
             "ch1.m1_t_SERVO_1<.mM1_servo_para_1>", "without element", "beyond", "nothing"})
        for (std::int16_t element = -1; element < 5; ++element) {
            const config::ParamDef* const shown = panel.find(variable, element);
            const MachineDefinition* const definition = definitions.find(variable, element);
            ASSERT_EQ(definition == nullptr, shown == nullptr) << variable << " " << element;
            if (!shown) continue;
            ++found;
            EXPECT_EQ(definition->absMin, limit(shown->AbsMinFehlt, shown->AbsMin)) << element;
            EXPECT_EQ(definition->absMax, limit(shown->AbsMaxFehlt, shown->AbsMax)) << element;
            EXPECT_EQ(definition->min, limit(shown->MinFehlt, shown->Min)) << element;
            EXPECT_EQ(definition->max, limit(shown->MaxFehlt, shown->Max)) << element;
            EXPECT_EQ(definition->level, shown->Pass) << element;
        }
    EXPECT_EQ(found, 10U) << "four elements by two names, and two variables that lack theirs";
    EXPECT_EQ(definitions.find("Ch1.M1_T_servo_1<.mM1_servo_para_1>", 0)->absMax, 1600.5);
    const auto& notes = definitions.notes();
    EXPECT_NE(std::find(notes.begin(), notes.end(),
                  "Pass is no access level, nobody has it: M1, Ch1.M1_T_servo_1<.mM1_servo_para_1>, 2; M1, "
                  "Ch1.M1_T_servo_1<.mM1_servo_para_1>, 3"),
        notes.end());
}

TEST(DefinitionModuleOnAChangedFile, ARowThatHasGoneIsOneReportAndTheOthersAreWritten)
{
    const Bytes before = newDefinitionDatabase(twoMachines(6));
    const SampleProject project{before};
    StartedPanel panel{project.folder()};
    ASSERT_EQ(panel.read("M1"), 4);
    for (std::int32_t position = 1; position <= 4; ++position)
        panel.def(position).Max = 77;
    ChangedFile file{before};
    file.deleteRow({firstRowsAt, 2});
    writeFile(project.file(), file.bytes());
    panel.write();

    ASSERT_FALSE(panel.reports().empty());
    for (const DefinitionRow& row : SampleProject{bytesOf(project.file())}.rows()) {
        const bool isM1 = row.machineType == basic::Variant{"M1"};
        EXPECT_EQ(row.max, basic::Variant{isM1 ? 77.0 : 10.5});
    }
}

} // namespace

} // namespace servopanel::jet
