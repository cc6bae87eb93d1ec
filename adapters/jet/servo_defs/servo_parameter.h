#pragma once

#include "jet/servo_defs/configured_servos.h"

#include <cstdint>
#include <optional>
#include <string_view>

namespace servopanel::jet {

// A variable of parameters that a servo has.
struct ServoParameter {
    ServoName servo; // in capitals
    std::string_view family; // "_servo_para_"
    std::int16_t elements = 0; // that it has, counted from 0
};

// What a variable is, by its name; nothing when it is no parameter of a servo. The panel looks variables up without
// regard to case, so case does not count.
std::optional<ServoParameter> servoParameter(std::string_view variable);

} // namespace servopanel::jet
