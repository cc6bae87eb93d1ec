#include "jet/definition_writer.h"

#include "jet/number_coding.h"
#include "jet/row_coding.h"

#include <algorithm>

namespace servopanel::jet {

namespace {

constexpr std::uint16_t generalSortOrder = 0x0409;
constexpr std::uint32_t jet4Marker = 1625;
constexpr std::size_t jet4MarkerAt = 12;
constexpr std::size_t jet4ColumnMarkerAt = 1;
constexpr std::size_t jet4Autonumber = 24;
constexpr std::size_t jet4Compression = 16;
constexpr std::size_t jet3ColumnCodePage = 11;
constexpr std::size_t totalLength = 8;

bool isLongValue(const NewColumn& column)
{
    return column.type == ColumnType::Ole || column.type == ColumnType::Memo;
}

std::size_t lengthOf(const NewColumn& column, JetVersion version)
{
    switch (column.type) {
    case ColumnType::Boolean: return 1;
    case ColumnType::Text: return std::size_t{column.length} * (version == JetVersion::Jet4 ? 2U : 1U);
    case ColumnType::Binary: return column.length;
    default: return numberSize(column.type);
    }
}

struct ColumnPlace {
    std::uint16_t number = 0;
    std::uint16_t variablesBefore = 0;
    std::uint16_t fixedOffset = 0;
};

Bytes columnEntry(const NewColumn& column, ColumnPlace place, TableKind kind, JetVersion version)
{
    const PageFormat& format = formatOf(version);
    Bytes entry(format.columnEntrySize);
    entry[0] = static_cast<std::uint8_t>(column.type);
    store16(entry, format.columnNumber, place.number);
    store16(entry, format.columnVariableIndex, place.variablesBefore);
    store16(entry, format.columnNumberAgain, place.number);
    const bool isText = column.type == ColumnType::Text || column.type == ColumnType::Memo;
    if (isText) store16(entry, format.columnSortOrder, generalSortOrder);
    std::uint8_t flags = columnIsNullable;
    if (!isVariable(column)) flags |= columnIsFixed;
    if (kind == TableKind::System) flags |= columnIsSystem;
    entry[format.columnFlags] = flags;
    if (!isVariable(column)) store16(entry, format.columnFixedOffset, place.fixedOffset);
    store16(entry, format.columnLength, static_cast<std::uint16_t>(lengthOf(column, version)));
    if (version == JetVersion::Jet4) {
        store32(entry, jet4ColumnMarkerAt, jet4Marker);
        entry[jet4Compression] = isText ? 1 : 0;
    } else if (isText) {
        store16(entry, jet3ColumnCodePage, windows1252);
    }
    return entry;
}

void appendColumns(Bytes& definition, const NewTable& table, TableKind kind, JetVersion version)
{
    const PageFormat& format = formatOf(version);
    ColumnPlace place;
    for (const NewColumn& column : table.columns) {
        const Bytes entry = columnEntry(column, place, kind, version);
        definition.insert(definition.end(), entry.begin(), entry.end());
        ++place.number;
        place.variablesBefore =
            static_cast<std::uint16_t>(place.variablesBefore + (isVariable(column) ? 1 : 0));
        place.fixedOffset = static_cast<std::uint16_t>(place.fixedOffset + fixedSize(column));
    }
    for (const NewColumn& column : table.columns) {
        const Bytes name = encodeText(column.name, version);
        append(definition, name.size(), format.nameLengthSize);
        definition.insert(definition.end(), name.begin(), name.end());
    }
}

} // namespace

Bytes tableDefinition(const NewTable& table, TableKind kind, std::uint32_t mapPage, JetVersion version)
{
    const PageFormat& format = formatOf(version);
    Bytes definition(format.tableEntries);
    definition[0] = definitionPage;
    definition[1] = 1;
    store32(definition, format.tableRowCount, static_cast<std::uint32_t>(table.rows.size()));
    definition[format.tableKind] = static_cast<std::uint8_t>(kind);
    const auto columns = static_cast<std::uint16_t>(table.columns.size());
    const auto variable = std::count_if(table.columns.begin(), table.columns.end(), isVariable);
    store16(definition, format.tableColumnsEver, columns);
    store16(definition, format.tableVariableColumns, static_cast<std::uint16_t>(variable));
    store16(definition, format.tableColumns, columns);
    store32(definition, format.tableOwnedPages, mapPage << 8U);
    store32(definition, format.tableFreePages, (mapPage << 8U) | 1U);
    if (version == JetVersion::Jet4) {
        store32(definition, jet4MarkerAt, jet4Marker);
        definition[jet4Autonumber] = 1;
    }
    appendColumns(definition, table, kind, version);
    for (std::size_t i = 0; i < table.columns.size(); ++i) {
        if (!isLongValue(table.columns[i])) continue;
        append(definition, i, 2);
        append(definition, (mapPage << 8U) | 2U, 4);
        append(definition, (mapPage << 8U) | 2U, 4);
    }
    append(definition, 0xFFFF, 2);
    if (definition.size() + definitionHead > format.pageSize)
        raise(JetError::Overflow, "the table has too many columns");
    store32(definition, totalLength, static_cast<std::uint32_t>(definition.size()));
    if (version == JetVersion::Jet4) {
        const std::size_t room = format.pageSize - definition.size() - definitionHead;
        store16(definition, 2, static_cast<std::uint16_t>(room));
    } else {
        definition[2] = 'V';
        definition[3] = 'C';
    }
    definition.resize(format.pageSize);
    return definition;
}

} // namespace servopanel::jet
