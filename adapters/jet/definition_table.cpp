#include "jet/definition_table.h"

namespace servopanel::jet {

Table readDefinitions(const FileImage& image)
{
    Table table = readTable(image, definitionTableName);
    table.column(machineTypeColumn);
    table.column(variableColumn);
    for (const std::string_view column : valueColumns)
        table.column(column);
    return table;
}

std::string rowName(const Table& table, std::size_t row)
{
    const auto text = [&](std::string_view column) -> std::string {
        const auto* value = table.rows[row].cells[table.column(column)].value.get<std::string>();
        return value ? *value : "?";
    };
    return "row " + std::to_string(row + 1) + " (" + text(machineTypeColumn) + ", " + text(variableColumn)
        + ")";
}

} // namespace servopanel::jet
