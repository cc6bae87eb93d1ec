// The library's definitions on real database files.
#include "config/mservo_modul.h"
#include "jet/changed_file.h"
#include "jet/sample_definitions.h"
#include "support/fakes.h"

#include <gtest/gtest.h>

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
