#pragma once

#include "jet/definition_row.h"
#include "jet/table.h"

#include <array>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace servopanel::jet {

// The columns of a CSV file, in the order in which it is written; it is read in any order and case.
inline constexpr std::array<std::string_view, 8> csvColumns{
    "machine_type", "var_name", "abs_max", "abs_min", "offset_or_bitno", "Max", "Min", "Pass"};

// The value of a row in a column of csvColumns.
const basic::Variant& valueOf(const DefinitionRow& row, std::size_t column);
basic::Variant& valueOf(DefinitionRow& row, std::size_t column);

// The definitions of a file.
struct DefinitionList {
    std::vector<DefinitionRow> rows;
    std::vector<std::size_t> lines; // where each row begins in a CSV file, from 1; empty for a database

    // "line 12" of a CSV file, "row 11" of a database.
    std::string placeOf(std::size_t row) const;
};

// The rows of a table, with values of whatever types its columns have.
std::vector<DefinitionRow> definitionsOf(const Table& table);

// The rows of a database or a CSV file; which one it is shows in its content. Errors name the file, those of a CSV file
// also the line.
DefinitionList loadDefinitions(const std::filesystem::path& file);

// Numbers are written so that they come back exactly; those that are not finite are written, but not read.
std::string toCsv(const std::vector<DefinitionRow>& rows);
// Values have the types of a new database. Error TypeMismatch with the line: a column is missing or unknown, a cell is no
// finite number or out of range.
DefinitionList fromCsv(std::string_view text);

// A value as a CSV file holds it: the shortest text that gives exactly this number again; "" for Null.
std::string plainText(const basic::Variant& value);

// A value as a person reads it: control characters as \n or \x1B, "-" for Null.
std::string shownText(const basic::Variant& value);

// What finds a definition again in another file.
using DefinitionKey = std::array<std::string, 3>; // machine type, variable, element
DefinitionKey keyOf(const DefinitionRow& row);

// "M1, Ch1.M1_T_servo_1<.mM1_servo_para_1>, 3" for a person.
std::string nameOf(const DefinitionRow& row);

} // namespace servopanel::jet
