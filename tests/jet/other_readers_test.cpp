#include "jet/random_changes.h"

#include <gtest/gtest.h>

#include <cstdio>

// What other programs read from our files has to be what we read, bit for bit.

namespace servopanel::jet {

namespace {

using namespace testing;

std::vector<std::string> linesOf(const std::string& command)
{
    std::unique_ptr<std::FILE, int (*)(std::FILE*)> pipe{::popen(command.c_str(), "r"), ::pclose};
    if (!pipe) throw std::runtime_error{"cannot run " + command};
    std::string text;
    char buffer[4096];
    while (const std::size_t got = std::fread(buffer, 1, sizeof buffer, pipe.get()))
        text.append(buffer, got);
    if (::pclose(pipe.release()) != 0) throw std::runtime_error{command + " has failed"};
    std::vector<std::string> lines;
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t end = text.find('\n', at);
        lines.push_back(text.substr(at, end - at));
        at = end + 1;
    }
    return lines;
}

std::vector<std::string> secondReader(const std::filesystem::path& file)
{
    return linesOf(std::string{SERVOPANEL_PYTHON} + " -B " SERVOPANEL_TESTS_DIR "/jet/read_definitions.py '"
        + file.string() + "'");
}

std::vector<std::string> mdbExport(const std::filesystem::path& file)
{
    return linesOf("mdb-export -H -Q -d '|' -0 '\\N' '" + file.string() + "' PRESET_DEFS");
}

// Rows as mdb-export writes them: sixteen digits, and no difference between an empty text and none.
std::vector<std::string> asExported(const std::vector<DefinitionRow>& rows)
{
    const auto cell = [](const basic::Variant& value) -> std::string {
        char digits[40];
        if (const auto* number = value.get<double>()) {
            std::snprintf(digits, sizeof digits, "%.16g", *number);
            return digits;
        }
        if (const auto* number = value.get<std::int16_t>()) return std::to_string(*number);
        const auto* text = value.get<std::string>();
        return text && !text->empty() ? *text : "\\N";
    };
    std::vector<std::string> lines;
    for (const DefinitionRow& row : rows)
        lines.push_back(cell(row.machineType) + '|' + cell(row.variable) + '|' + cell(row.absMax) + '|'
            + cell(row.absMin) + '|' + cell(row.element) + '|' + cell(row.max) + '|' + cell(row.min) + '|'
            + cell(row.pass));
    return lines;
}

class OtherReaders : public ::testing::TestWithParam<NewDatabaseOptions> {
protected:
    void expectAgreement(SampleProject& project, const std::vector<DefinitionRow>& rows)
    {
        EXPECT_EQ(exactly(project.rows()), exactly(rows));
        EXPECT_EQ(secondReader(project.file()), exactly(rows));
        EXPECT_EQ(mdbExport(project.file()), asExported(rows));
    }
};

TEST_P(OtherReaders, ReadTheSameValuesBeforeAndAfterAChange)
{
    for (const std::size_t count : {60U, 2000U}) {
        std::vector<DefinitionRow> rows = sampleRows(count);
        SampleProject project{rows, GetParam()};
        expectAgreement(project, rows);
        changeAtRandom(project, rows);
        expectAgreement(project, rows);
    }
}

TEST_P(OtherReaders, ReadRowsOfMoreThan255Bytes)
{
    std::vector<DefinitionRow> rows = longRows();
    SampleProject project{rows, GetParam()};
    expectAgreement(project, rows);
    changeAtRandom(project, rows);
    expectAgreement(project, rows);
}

INSTANTIATE_TEST_SUITE_P(
    All, OtherReaders, ::testing::ValuesIn(allForms()), [](const auto& form) { return nameOf(form.param); });

} // namespace

} // namespace servopanel::jet
