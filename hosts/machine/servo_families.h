#pragma once

#include <string_view>

namespace servopanel::machine {

// Families of process variables that hold the values of one servo; each name contains its family.
namespace families {
inline constexpr std::string_view setpoints = "_servo_para_"; // 1 to 20
inline constexpr std::string_view secondSetpoints = "_servo_para2_"; // 21 to 24
inline constexpr std::string_view lowerLimits = "_servo_para_un_"; // of 1 to 20
inline constexpr std::string_view upperLimits = "_servo_para_ob_";
inline constexpr std::string_view secondLowerLimits = "_servo_para2_un_"; // of 21 to 24
inline constexpr std::string_view secondUpperLimits = "_servo_para2_ob_";
inline constexpr std::string_view switches = "_servo_schalt_"; // bits 0 to 3 are the switches 31 to 34
inline constexpr std::string_view drawings = "_servo_zeich_"; // 41 and 42
inline constexpr std::string_view actualValues = "_servo_diag_"; // lines 101 to 120, table 121 to 140
inline constexpr std::string_view faultText = "_fetext_";
inline constexpr std::string_view changedFlag = "_servoaender_"; // tells the machine that values were changed
} // namespace families

// The family of a variable's name, one of those above; empty for any other variable.
std::string_view familyOf(std::string_view variable);

} // namespace servopanel::machine
