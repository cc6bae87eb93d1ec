#pragma once

#include "jet/table.h"

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

namespace servopanel::jet {

inline constexpr std::string_view definitionTableName = "PRESET_DEFS";
inline constexpr std::string_view machineTypeColumn = "machine_type";
inline constexpr std::string_view variableColumn = "var_name";
inline constexpr std::string_view elementColumn = "offset_or_bitno";

// The columns that may change. The two names of a row never do.
inline constexpr std::array<std::string_view, 6> valueColumns{
    "abs_max", "abs_min", elementColumn, "Max", "Min", "Pass"};

// Reads the table of parameter definitions. Error ColumnNotFound when it lacks one of the eight columns, TypeMismatch
// when one has a type whose values are not in the row itself or have no exact counterpart.
Table readDefinitions(const FileImage& image);

// "row 12 (M1, Ch1.M1_T_servo_1<.mM1_servo_para_1>)" for error texts; rows count from 1.
std::string rowName(const Table& table, std::size_t row);

} // namespace servopanel::jet
