#include "jet/changed_file.h"
#include "jet/sample_definitions.h"

#include <gtest/gtest.h>

#include <sys/stat.h>

namespace servopanel::jet {

namespace {

using namespace testing;

std::size_t differences(const Bytes& a, const Bytes& b)
{
    EXPECT_EQ(a.size(), b.size());
    std::size_t count = 0;
    for (std::size_t i = 0; i < std::min(a.size(), b.size()); ++i)
        count += a[i] != b[i] ? 1 : 0;
    return count;
}

class JetEngineForms : public ::testing::TestWithParam<NewDatabaseOptions> { };

TEST_P(JetEngineForms, ChangesNothingButTheBytesOfTheValue)
{
    for (const std::size_t count : {60U, 2000U}) {
        std::vector<DefinitionRow> rows = sampleRows(count);
        SampleProject project{rows, GetParam()};
        const Bytes before = bytesOf(project.file());
        const std::size_t row = count - 18;
        project.change(project.bookmark(row), "MAX", 1234.5678901234567);
        rows[row].max = 1234.5678901234567;
        EXPECT_EQ(exactly(project.rows()), exactly(rows));
        EXPECT_LE(differences(before, bytesOf(project.file())), 8U);
    }
}

TEST_P(JetEngineForms, GivesAValueToWhatWasNull)
{
    std::vector<DefinitionRow> rows = sampleRows(60);
    SampleProject project{rows, GetParam()};
    ASSERT_TRUE(rows[10].max.holds<basic::Null>());
    const Bytes before = bytesOf(project.file());
    project.change(project.bookmark(10), "Max", -2.5);
    rows[10].max = -2.5;
    EXPECT_EQ(exactly(project.rows()), exactly(rows));
    // The value and one byte of the mask.
    EXPECT_LE(differences(before, bytesOf(project.file())), 9U);
}

TEST_P(JetEngineForms, TakesAValueAway)
{
    std::vector<DefinitionRow> rows = sampleRows(60);
    SampleProject project{rows, GetParam()};
    const Bytes before = bytesOf(project.file());
    project.change(project.bookmark(3), "Pass", basic::Null{});
    rows[3].pass = basic::Null{};
    EXPECT_EQ(exactly(project.rows()), exactly(rows));
    EXPECT_EQ(differences(before, bytesOf(project.file())), 1U);
}

TEST_P(JetEngineForms, ChangesAllValuesOfAllRowsAtOnce)
{
    std::vector<DefinitionRow> rows = sampleRows(500);
    SampleProject project{rows, GetParam()};
    const auto database = project.open();
    const auto records = database->openRecordSet(SampleProject::query);
    double x = 1.0 / 3;
    for (DefinitionRow& row : rows) {
        x += 1.0 / 7;
        row.absMax = x + 2;
        row.absMin = -x;
        row.element = static_cast<std::int16_t>(32767 - *row.element.get<std::int16_t>());
        row.max = x + 1;
        row.min = x;
        row.pass = std::int16_t{5};
        records->edit();
        records->setField("abs_max", row.absMax);
        records->setField("abs_min", row.absMin);
        records->setField("offset_or_bitno", row.element);
        records->setField("Max", row.max);
        records->setField("Min", row.min);
        records->setField("Pass", row.pass);
        records->update();
        records->moveNext();
    }
    database->close();
    EXPECT_EQ(exactly(project.rows()), exactly(rows));
}

TEST_P(JetEngineForms, PassesOverDeletedRowsAndFindsMovedOnes)
{
    std::vector<DefinitionRow> rows = sampleRows(60);
    ChangedFile file{newDefinitionDatabase(rows, GetParam())};
    const auto lastPage = static_cast<std::uint32_t>(file.image().pageCount() - 1);
    file.deleteRow({firstRowsAt, 2});
    const RowAddress moved = file.moveRow({firstRowsAt, 5}, lastPage);
    EXPECT_NE(moved.page, firstRowsAt);
    SampleProject project{file.bytes()};

    std::vector<DefinitionRow> expected = rows;
    expected.push_back(rows[5]);
    expected.erase(expected.begin() + 5);
    expected.erase(expected.begin() + 2);
    EXPECT_EQ(exactly(project.rows()), exactly(expected));

    project.change(project.bookmark(expected.size() - 1), "Min", 77.0);
    project.change(project.bookmark(3), "Min", 78.0);
    expected.back().min = 77.0;
    expected[3].min = 78.0;
    EXPECT_EQ(exactly(project.rows()), exactly(expected));
}

INSTANTIATE_TEST_SUITE_P(All, JetEngineForms, ::testing::ValuesIn(allForms()),
    [](const auto& form) { return nameOf(form.param); });

// Tables of large files have a map of maps: the numbers of pages that are filled with bits.
TEST(JetEngine, ReadsTablesWithAMapOfMaps)
{
    for (const JetVersion version : {JetVersion::Jet3, JetVersion::Jet4}) {
        std::vector<DefinitionRow> rows = sampleRows(500);
        Bytes bytes = newDefinitionDatabase(rows, {.version = version});
        const PageFormat& format = formatOf(version);
        const auto pages = static_cast<std::uint32_t>(bytes.size() / format.pageSize);
        Bytes bits(format.pageSize);
        bits[0] = 5;
        bits[1] = 1;
        for (std::uint32_t page = firstRowsAt; page < pages; ++page)
            bits[4 + page / 8] = static_cast<std::uint8_t>(bits[4 + page / 8] | (1U << (page % 8)));
        bytes.insert(bytes.end(), bits.begin(), bits.end());
        ChangedFile file{bytes};
        const std::size_t map = file.get16(mapsAt, format.rowTable) & rowStartMask;
        file.image().change(mapsAt, map, Bytes(5 + format.mapBytes));
        file.put(mapsAt, map, 1, 1);
        file.put(mapsAt, map + 1, pages, 4);

        SampleProject project{file.bytes()};
        EXPECT_EQ(exactly(project.rows()), exactly(rows));
        project.change(project.bookmark(499), "Max", 3.25);
        rows[499].max = 3.25;
        EXPECT_EQ(exactly(project.rows()), exactly(rows));
    }
}

TEST(JetEngine, ReadsTextsOfOtherCodePages)
{
    std::vector<DefinitionRow> rows = sampleRows(1);
    // The bytes of a Russian word, as Windows-1252 shows them.
    rows[0].variable = std::string{"\u00CF\u00F0\u00E8\u00E2\u00E5\u00F2"};
    SampleProject russian{rows, {.version = JetVersion::Jet3, .codePage = 1251}};
    EXPECT_EQ(russian.rows()[0].variable, basic::Variant{"Привет"});
    SampleProject unknown{rows, {.version = JetVersion::Jet3, .codePage = 9999}};
    EXPECT_EQ(unknown.rows()[0].variable, rows[0].variable);
}

NewTable otherTable()
{
    // Other columns between ours, other types, names in another case.
    return {"preset_defs",
        {{"Comment", ColumnType::Text, 50}, {"PASS", ColumnType::Byte}, {"Active", ColumnType::Boolean},
            {"min", ColumnType::Single}, {"ABS_MIN", ColumnType::Int32}, {"VAR_NAME", ColumnType::Text, 100},
            {"Offset_or_BitNo", ColumnType::Int32}, {"max", ColumnType::Currency},
            {"Changed", ColumnType::Date}, {"Abs_Max", ColumnType::Double, 0, true},
            {"Machine_Type", ColumnType::Text, 10}},
        {{"first", std::uint8_t{3}, true, 0.5F, std::int32_t{-70000}, "Speed", std::int32_t{4},
             basic::Currency{12345}, basic::Date{40000.25}, 9.75, "M1"},
            {basic::Null{}, std::uint8_t{250}, false, -1.5F, std::int32_t{7}, "Force", std::int32_t{5},
                basic::Currency{-1}, basic::Null{}, basic::Null{}, "M1"}}};
}

class JetEngineOtherTable : public ::testing::TestWithParam<JetVersion> {
protected:
    SampleProject project{newDatabase(otherTable(), {.version = GetParam()})};
};

TEST_P(JetEngineOtherTable, GivesValuesWithTheTypesOfTheirColumns)
{
    const auto database = project.open();
    const auto records = database->openRecordSet(SampleProject::query);
    EXPECT_EQ(records->field("Pass"), basic::Variant{std::uint8_t{3}});
    EXPECT_EQ(records->field("active"), basic::Variant{true});
    EXPECT_EQ(records->field("Min"), basic::Variant{0.5F});
    EXPECT_EQ(records->field("abs_min"), basic::Variant{std::int32_t{-70000}});
    EXPECT_EQ(records->field("var_name"), basic::Variant{"Speed"});
    EXPECT_EQ(records->field("Max"), basic::Variant{basic::Currency{12345}});
    EXPECT_EQ(records->field("changed"), basic::Variant{basic::Date{40000.25}});
    EXPECT_EQ(records->field("abs_max"), basic::Variant{9.75});
    EXPECT_EQ(records->field("machine_type"), basic::Variant{"M1"});
    records->moveNext();
    EXPECT_EQ(records->field("active"), basic::Variant{false});
    EXPECT_EQ(records->field("comment"), basic::Variant{basic::Null{}});
    EXPECT_EQ(records->field("abs_max"), basic::Variant{basic::Null{}});
    EXPECT_EQ(errorOf([&] { return records->field("limit"); }).description,
        "'Servo.mdb': its table has no column 'limit'");
}

TEST_P(JetEngineOtherTable, WritesValuesAsTheirColumnsHoldThem)
{
    project.change(project.bookmark(0), "Pass", std::int16_t{200});
    project.change(project.bookmark(0), "Max", -2.71828);
    project.change(project.bookmark(0), "Min", 0.1);
    project.change(project.bookmark(0), "abs_max", 1e-9);
    const auto records = project.open()->openRecordSet(SampleProject::query);
    EXPECT_EQ(records->field("Pass"), basic::Variant{std::uint8_t{200}});
    EXPECT_EQ(records->field("Max"), basic::Variant{basic::Currency{-27183}});
    EXPECT_EQ(records->field("Min"), basic::Variant{0.1F});
    EXPECT_EQ(records->field("abs_max"), basic::Variant{1e-9});
    EXPECT_EQ(records->field("comment"), basic::Variant{"first"});
}

TEST_P(JetEngineOtherTable, RefusesAValueThatItsColumnCannotHoldAndTheWholeRowWithIt)
{
    const Bytes before = bytesOf(project.file());
    const basic::Variant bookmark = project.bookmark(0);
    const auto database = project.open();
    const auto records = database->openRecordSet(SampleProject::query);
    records->moveTo(bookmark);
    records->edit();
    records->setField("abs_max", 3.0);
    records->setField("Pass", std::int16_t{300});
    const basic::Error error = errorOf([&] { records->update(); });
    EXPECT_EQ(error.number, 6);
    EXPECT_EQ(error.description.find("'Servo.mdb': row 1 (M1, Speed): "), 0U) << error.description;
    database->close();
    EXPECT_EQ(bytesOf(project.file()), before);
}

TEST_P(JetEngineOtherTable, RefusesAVariableNumberWithoutPlace)
{
    const basic::Error error = errorOf([&] { project.change(project.bookmark(1), "abs_max", 3.0); });
    EXPECT_EQ(error.description,
        "'Servo.mdb': row 2 (M1, Force): column 'Abs_Max' cannot be changed: the row has no room for it");
}

// What is no number in one row is no reason to refuse a change of another.
TEST_P(JetEngineOtherTable, WritesBesideWhatIsNoNumber)
{
    NewTable table = otherTable();
    table.rows[1][3] = std::numeric_limits<float>::quiet_NaN();
    table.rows[1][8] = basic::Date{std::numeric_limits<double>::quiet_NaN()};
    table.rows[1][9] = -std::numeric_limits<double>::quiet_NaN();
    SampleProject other{newDatabase(table, {.version = GetParam()})};
    other.change(other.bookmark(0), "Pass", std::int16_t{200});
    EXPECT_EQ(other.rows()[0].pass, basic::Variant{std::uint8_t{200}});
    other.change(other.bookmark(1), "Min", 0.5);
    EXPECT_EQ(other.rows()[1].min, basic::Variant{0.5F});
}

// libmdb takes character sets from the environment.
TEST_P(JetEngineOtherTable, IsReadTheSameInEveryEnvironment)
{
    const std::vector<DefinitionRow> expected = project.rows();
    for (const char* name : {"MDBICONV", "MDB_JET3_CHARSET"})
        for (const char* value : {"", "nonsense", "IBM037", "UTF-16", "UTF-32", "UCS-2LE"}) {
            const tests::EnvironmentVariable variable{name, value};
            EXPECT_TRUE(project.rows() == expected) << name << '=' << value;
            project.change(project.bookmark(0), "Max", 4.5);
            EXPECT_EQ(project.rows()[0].max, basic::Variant{basic::Currency{45000}});
            project.change(project.bookmark(0), "Max", expected[0].max);
        }
}

INSTANTIATE_TEST_SUITE_P(Both, JetEngineOtherTable, ::testing::Values(JetVersion::Jet3, JetVersion::Jet4),
    [](const auto& form) { return form.param == JetVersion::Jet3 ? "Jet3" : "Jet4"; });

TEST(JetEngine, KeepsTheFileUntilTheDatabaseIsClosed)
{
    SampleProject project{sampleRows(5)};
    const Bytes before = bytesOf(project.file());
    {
        const auto database = project.open();
        const auto records = database->openRecordSet(SampleProject::query);
        records->edit();
        records->setField("Max", 5.5);
        EXPECT_NE(records->field("Max"), basic::Variant{5.5});
        records->update();
        EXPECT_EQ(records->field("Max"), basic::Variant{5.5});
        EXPECT_EQ(database->openRecordSet(SampleProject::query)->field("Max"), basic::Variant{5.5});
        EXPECT_EQ(bytesOf(project.file()), before);
    }
    EXPECT_EQ(bytesOf(project.file()), before);
}

TEST(JetEngine, LeavesTheFileAloneWhenNoValueIsNew)
{
    SampleProject project{sampleRows(5)};
    struct stat before { };
    struct stat after { };
    ::stat(project.file().c_str(), &before);
    project.change(project.bookmark(2), "offset_or_bitno", std::int16_t{2});
    ::stat(project.file().c_str(), &after);
    EXPECT_EQ(before.st_ino, after.st_ino);
    project.change(project.bookmark(2), "offset_or_bitno", std::int16_t{3});
    ::stat(project.file().c_str(), &after);
    EXPECT_NE(before.st_ino, after.st_ino);
}

TEST(JetEngine, NeedsACurrentRowAndAnEdit)
{
    SampleProject project{sampleRows(1)};
    const auto database = project.open();
    const auto records = database->openRecordSet(SampleProject::query);
    EXPECT_EQ(errorOf([&] { records->update(); }).number, 3020);
    EXPECT_EQ(errorOf([&] { records->setField("Max", 1.0); }).number, 3020);
    records->edit();
    EXPECT_EQ(errorOf([&] { records->setField("var_name", "x"); }).number, 3164);
    records->moveNext();
    EXPECT_TRUE(records->atEnd());
    EXPECT_EQ(errorOf([&] { records->update(); }).number, 3020);
    EXPECT_EQ(errorOf([&] { return records->field("Max"); }).number, 3021);
    EXPECT_EQ(errorOf([&] { return records->bookmark(); }).number, 3021);
    EXPECT_EQ(errorOf([&] { records->edit(); }).number, 3021);
    database->close();
    EXPECT_EQ(errorOf([&] { return database->openRecordSet(SampleProject::query); }).number, 3420);
}

TEST(JetEngine, FindsARowAgainByItsBookmark)
{
    SampleProject project{sampleRows(200)};
    const auto records = project.open()->openRecordSet(SampleProject::query);
    for (const std::size_t row : {0U, 199U, 57U}) {
        records->moveTo(project.bookmark(row));
        EXPECT_EQ(records->field("var_name"), sampleRows(200)[row].variable);
        EXPECT_EQ(records->field("offset_or_bitno"), sampleRows(200)[row].element);
    }
}

} // namespace

} // namespace servopanel::jet
