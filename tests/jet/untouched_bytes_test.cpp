#include "jet/changed_file.h"
#include "jet/random_changes.h"

#include <gtest/gtest.h>

// A change of values changes their own bytes and their bits in the masks of the rows, and nothing else in the file.

namespace servopanel::jet {

namespace {

using namespace testing;

// The bits that may differ. The code of an encoded file keeps every bit in its place.
Bytes bitsOf(const std::vector<ChangedCell>& cells, const Bytes& file)
{
    const FileImage image{file};
    const Table table = readDefinitions(image);
    const PageFormat& format = image.format();
    Bytes bits(file.size());
    for (const ChangedCell& cell : cells) {
        const TableColumn& column = table.columns[table.column(cell.column)];
        const RowAddress address = table.rows[cell.row].address;
        const RowPlace place = placeOf(image, table.page, address);
        const std::size_t page = address.page * format.pageSize;
        const std::size_t length = column.type == ColumnType::Double ? 8 : 2;
        if (!cell.isNull)
            std::fill_n(
                bits.begin() + static_cast<std::ptrdiff_t>(page + place.fixedArea + column.fixedOffset),
                length, std::uint8_t{0xFF});
        std::uint8_t& mask = bits[page + place.mask + column.number / 8U];
        mask = static_cast<std::uint8_t>(mask | (1U << (column.number % 8U)));
    }
    return bits;
}

class UntouchedBytes : public ::testing::TestWithParam<NewDatabaseOptions> {
protected:
    static void changeAndCompare(std::vector<DefinitionRow> rows)
    {
        SampleProject project{rows, GetParam()};
        const Bytes before = bytesOf(project.file());
        const std::vector<ChangedCell> cells = changeAtRandom(project, rows);
        const Bytes after = bytesOf(project.file());
        EXPECT_EQ(exactly(project.rows()), exactly(rows));
        const Bytes permitted = bitsOf(cells, before);
        ASSERT_EQ(after.size(), before.size());
        std::size_t changed = 0;
        for (std::size_t i = 0; i < before.size(); ++i) {
            const auto difference = static_cast<std::uint8_t>(before[i] ^ after[i]);
            ASSERT_EQ(difference & ~permitted[i], 0) << "byte " << i;
            changed += difference != 0 ? 1 : 0;
        }
        // Most of the new doubles differ in all but their first byte.
        EXPECT_GT(changed, cells.size() * 4);
    }
};

TEST_P(UntouchedBytes, OfShortTablesLongTablesAndLongRows)
{
    changeAndCompare(sampleRows(60));
    changeAndCompare(sampleRows(2000));
    changeAndCompare(longRows());
}

INSTANTIATE_TEST_SUITE_P(All, UntouchedBytes, ::testing::ValuesIn(allForms()),
    [](const auto& form) { return nameOf(form.param); });

} // namespace

} // namespace servopanel::jet
