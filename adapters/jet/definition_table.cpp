#include "jet/definition_table.h"

#include "jet/number_coding.h"

namespace servopanel::jet {

Table readDefinitions(const FileImage& image)
{
    Table table = readTable(image, definitionTableName);
    const auto require = [&](std::string_view column) {
        const ColumnType type = table.columns[table.column(column)].type;
        if (numberSize(type) == 0 && type != ColumnType::Boolean && type != ColumnType::Text)
            raise(JetError::TypeMismatch,
                "column '" + std::string{column} + "' has a type that cannot be read");
    };
    require(machineTypeColumn);
    require(variableColumn);
    for (const std::string_view column : valueColumns)
        require(column);
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
