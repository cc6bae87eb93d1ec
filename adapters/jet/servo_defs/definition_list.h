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

// The rows of a table, with values of whatever types its columns have.
std::vector<DefinitionRow> definitionsOf(const Table& table);

// The rows of a database or a CSV file; which one it is shows in its content. Errors name the file, those of a CSV file
// also the line.
std::vector<DefinitionRow> loadDefinitions(const std::filesystem::path& file);

std::string toCsv(const std::vector<DefinitionRow>& rows);
// Values have the types of a new database. Error TypeMismatch with the line: a column is missing or unknown, a cell is no
// number or out of range.
std::vector<DefinitionRow> fromCsv(std::string_view text);

// A value as a person and a CSV file read it: the shortest text that gives exactly this number again; "" for Null.
std::string plainText(const basic::Variant& value);

// Whether two values are the same when the second is stored in the column of the first.
bool sameValue(const basic::Variant& left, const basic::Variant& right);

// "M1, Ch1.M1_T_servo_1<.mM1_servo_para_1>, 3"
std::string keyOf(const DefinitionRow& row);

} // namespace servopanel::jet
