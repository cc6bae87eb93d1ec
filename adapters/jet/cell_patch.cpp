#include "jet/cell_patch.h"

#include "jet/number_coding.h"

#include <algorithm>

namespace servopanel::jet {

namespace {

[[noreturn]] void refuse(const TableColumn& column, std::string_view why)
{
    raise(JetError::FieldCannotBeUpdated,
        "column '" + column.name + "' cannot be changed: " + std::string{why});
}

std::size_t placeOfNumber(const TableColumn& column, const RowPlace& row, const Cell& cell)
{
    const std::size_t size = numberSize(column.type);
    if (column.fixed) {
        const std::size_t at = row.fixedArea + column.fixedOffset;
        if (at + size > row.mask) refuse(column, "the row has no room for it");
        return at;
    }
    if (cell.length != size) refuse(column, "the row has no room for it");
    return cell.at;
}

} // namespace

std::vector<Patch> patchesFor(const FileImage& image, const Table& table, std::size_t rowPosition,
    std::size_t columnPosition, const basic::Variant& value)
{
    const TableColumn& column = table.columns[columnPosition];
    if (numberSize(column.type) == 0) refuse(column, "it holds no numbers");
    const RowAddress address = table.rows[rowPosition].address;
    const Cell& cell = table.rows[rowPosition].cells[columnPosition];
    const RowPlace row = placeOf(image, table.page, address);
    const ByteView page = image.page(address.page);
    std::vector<Patch> patches;
    const auto put = [&](std::size_t at, Bytes content) {
        const ByteView old = part(page, at, content.size());
        if (!std::equal(content.begin(), content.end(), old.begin()))
            patches.push_back({address.page, at, std::move(content)});
    };
    const bool isNull = value.holds<basic::Null>();
    if (!row.hasColumn(column.number)) {
        if (isNull) return {};
        refuse(column, "the row is older than the column and has no room for it");
    }
    if (!isNull) put(placeOfNumber(column, row, cell), encodeNumber(column.type, value));
    const auto bit = static_cast<std::uint8_t>(1U << (column.number % 8U));
    const std::size_t maskAt = row.mask + column.number / 8U;
    const std::uint8_t mask = page[maskAt];
    put(maskAt, {static_cast<std::uint8_t>(isNull ? mask & ~bit : mask | bit)});
    if (!patches.empty() && column.indexed) refuse(column, "an index holds its values");
    return patches;
}

} // namespace servopanel::jet
