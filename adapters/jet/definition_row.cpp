#include "jet/definition_row.h"

#include "jet/definition_table.h"
#include "jet/row_coding.h"

namespace servopanel::jet {

namespace {

NewTable emptyTable()
{
    constexpr std::uint16_t nameLength = 255;
    const auto text = [](std::string_view name) {
        return NewColumn{std::string{name}, ColumnType::Text, nameLength, false};
    };
    const auto number = [](std::string_view name, ColumnType type) {
        return NewColumn{std::string{name}, type, 0, false};
    };
    return {std::string{definitionTableName},
        {text(machineTypeColumn), text(variableColumn), number("abs_max", ColumnType::Double),
            number("abs_min", ColumnType::Double), number(elementColumn, ColumnType::Int16),
            number("Max", ColumnType::Double), number("Min", ColumnType::Double),
            number("Pass", ColumnType::Int16)},
        {}};
}

std::vector<basic::Variant> cellsOf(const DefinitionRow& row)
{
    return {row.machineType, row.variable, row.absMax, row.absMin, row.element, row.max, row.min, row.pass};
}

} // namespace

void requireStorable(const DefinitionRow& row, const NewDatabaseOptions& options)
{
    encodeRow(emptyTable().columns, cellsOf(row), options);
}

Bytes newDefinitionDatabase(const std::vector<DefinitionRow>& rows, const NewDatabaseOptions& options)
{
    NewTable table = emptyTable();
    for (const DefinitionRow& row : rows)
        table.rows.push_back(cellsOf(row));
    return newDatabase(table, options);
}

} // namespace servopanel::jet
