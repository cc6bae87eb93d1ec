#include "jet/table.h"

#include "jet/mdb_table.h"
#include "jet/names.h"
#include "jet/number_coding.h"
#include "jet/table_definition.h"
#include "jet/text_coding.h"

#include <algorithm>
#include <optional>

namespace servopanel::jet {

namespace {

constexpr std::int16_t catalogTypeTable = 1;
constexpr std::uint32_t catalogSystemFlags = 0x80000002;
constexpr std::int32_t mostRowsOfPage = 256;

// Values are taken from our own copy of the page, at the places that libmdb found: its own conversions go through texts.
class CellReader {
public:
    explicit CellReader(const FileImage& image)
        : decoder_{image.format().version, image.codePage()}
    {
    }

    Cell read(ByteView page, const RowPlace& row, const TableColumn& column, MdbSpan span) const
    {
        const bool present = isNotNull(page, row, column.number);
        if (column.type == ColumnType::Boolean) return {present, 0, 0};
        if (!present) return {basic::Null{}, 0, 0};
        if (span.start < 0 || span.length < 0) raiseDamaged("a value lies outside its row");
        const auto start = static_cast<std::size_t>(span.start);
        const auto length = static_cast<std::size_t>(span.length);
        if (length != 0 && (start < row.fixedArea || start + length > row.mask))
            raiseDamaged("a value lies outside its row");
        const ByteView stored = part(page, length != 0 ? start : 0, length);
        Cell cell{{}, static_cast<std::uint16_t>(start), static_cast<std::uint16_t>(length)};
        if (column.type == ColumnType::Text)
            cell.value = decoder_.decode(stored);
        else if (numberSize(column.type) == 0)
            cell.value = basic::ErrorCode{static_cast<std::int32_t>(JetError::TypeMismatch)};
        else if (numberSize(column.type) == length)
            cell.value = decodeNumber(column.type, stored);
        else
            raiseDamaged("a number has the wrong length");
        return cell;
    }

private:
    TextDecoder decoder_;
};

Table readTableAt(const FileImage& image, std::uint32_t page)
{
    const TableDefinition definition = readTableDefinition(image, page);
    Table table;
    table.page = page;
    MdbTable source{image, page};
    table.columns = source.columns();
    for (TableColumn& column : table.columns) {
        const auto name = definition.columnNames.find(column.number);
        if (name == definition.columnNames.end()) raiseDamaged("a column has no name");
        column.name = name->second;
        column.indexed = definition.indexedColumns.contains(column.number);
    }

    const CellReader reader{image};
    const std::size_t mostRows = std::size_t{image.pageCount()} * mostRowsOfPage;
    while (const std::optional<RowAddress> address = source.nextRow()) {
        TableRow row{*address, {}};
        const RowPlace place = placeOf(image, page, *address);
        row.cells.reserve(table.columns.size());
        for (std::size_t i = 0; i < table.columns.size(); ++i)
            row.cells.push_back(
                reader.read(image.page(address->page), place, table.columns[i], source.span(i)));
        table.rows.push_back(std::move(row));
        if (table.rows.size() > mostRows) raiseDamaged("its pages lead in a circle");
    }
    if (table.rows.size() < definition.rowCount)
        raiseDamaged("row " + std::to_string(table.rows.size() + 1) + " of "
            + std::to_string(definition.rowCount) + " is missing");
    return table;
}

// The page of the definition of a user's table.
std::uint32_t findTable(const FileImage& image, std::string_view name)
{
    const Table catalog = readTableAt(image, catalogPage);
    const std::size_t idColumn = catalog.column("Id");
    const std::size_t nameColumn = catalog.column("Name");
    const std::size_t typeColumn = catalog.column("Type");
    const std::size_t flagsColumn = catalog.column("Flags");
    for (const TableRow& row : catalog.rows) {
        const auto* id = row.cells[idColumn].value.get<std::int32_t>();
        const auto* rowName = row.cells[nameColumn].value.get<std::string>();
        const auto* type = row.cells[typeColumn].value.get<std::int16_t>();
        const auto* flags = row.cells[flagsColumn].value.get<std::int32_t>();
        const bool isUsers = !flags || (static_cast<std::uint32_t>(*flags) & catalogSystemFlags) == 0;
        if (id && rowName && type && *type == catalogTypeTable && isUsers && sameName(*rowName, name))
            return static_cast<std::uint32_t>(*id) & catalogPageMask;
    }
    raise(JetError::TableNotFound, "it has no table '" + std::string{name} + "'");
}

} // namespace

std::size_t Table::column(std::string_view name) const
{
    const auto found = std::find_if(columns.begin(), columns.end(),
        [name](const TableColumn& candidate) { return sameName(candidate.name, name); });
    if (found == columns.end())
        raise(JetError::ColumnNotFound, "its table has no column '" + std::string{name} + "'");
    return static_cast<std::size_t>(found - columns.begin());
}

Table readTable(const FileImage& image, std::string_view name)
{
    return readTableAt(image, findTable(image, name));
}

} // namespace servopanel::jet
