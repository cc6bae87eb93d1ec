#pragma once

#include "jet/definition_row.h"
#include "jet/servo_defs/configured_servos.h"

#include <set>
#include <string>
#include <vector>

namespace servopanel::jet {

// Something wrong in the definitions.
struct DefinitionFinding {
    std::string where; // "row 11 (M1, Ch1.M1_T_servo_1<.mM1_servo_para_1>, 3)" or "servo 5 of machine M1"
    std::string what;
    std::string meaning; // for the operator
};

// What the rows say by themselves: limits, levels, elements, rows that are there twice.
std::vector<DefinitionFinding> findingsOfRows(const std::vector<DefinitionRow>& rows);
// Designations of the machines, as the project writes them, for which there is no row at all: without any, every input of
// such a machine is shown and open to everyone.
std::set<std::string> machinesWithoutRows(
    const std::vector<DefinitionRow>& rows, const std::vector<ServoName>& configured);
// Rows for servos that the project does not have, and servos or whole machines without rows.
std::vector<DefinitionFinding> findingsOfServos(
    const std::vector<DefinitionRow>& rows, const std::vector<ServoName>& configured);

} // namespace servopanel::jet
