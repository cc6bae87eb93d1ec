#pragma once

#include <string_view>

namespace servopanel::panel {

// Process variables that the panel itself sets or shows.
inline constexpr std::string_view levelVariable = "Ch-1.intern<.passwort>"; // access level, 0 to 5
inline constexpr std::string_view rightToLeftVariable = "Ch-1.param_client<.arabisch>";
inline constexpr std::string_view machineVariable =
    "Ch-1.intern<.aktuelle_maschine>"; // number of the shown one
inline constexpr std::string_view servoVariable =
    "Ch-1.intern<.servo_zeiger>"; // place of the shown one, 0: the menu
inline constexpr std::string_view servoCountVariable = "parameter<.servo_anzahl_"; // and the machine's number
inline constexpr std::string_view designationVariable =
    "parameter<.maschinenbez_"; // and the machine's number

} // namespace servopanel::panel
