#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace servopanel::journal {

// Whose a variable is, as far as its name says: "Ch1.M1_T_servo_3<.mM1_servo_para_3>" belongs to servo 3 of machine M1.
struct VariablePlace {
    std::string machine; // designation; empty when the name has none
    std::optional<int> servo;
};

VariablePlace placeOf(std::string_view variable);

} // namespace servopanel::journal
