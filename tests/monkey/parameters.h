#pragma once

#include "basic/variant.h"

#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

namespace servopanel::monkey {

// The families of a servo's variables that a confirm writes, as the rules see them: each element has a field of the page.
struct Family {
    std::string_view name;
    std::int16_t firstField;
    std::string_view inWords;
};
inline constexpr Family families[]{{"_servo_para_", 1, "setpoints"},
    {"_servo_para2_", 21, "second setpoints"}, {"_servo_schalt_", 31, "switches"},
    {"_servo_zeich_", 41, "drawing numbers"}};

// A variable of one of the servos.
struct ServoName {
    int servo = 0;
    std::string_view family; // with the underscores, as "_servo_para_un_"
    const Family* written = nullptr; // when a confirm writes it
};
// Nothing for what is not a servo's.
std::optional<ServoName> servoNameOf(std::string_view name);

// All elements of a value as numbers, nothing for what is none; of a switch word the four bits that are switches.
using Elements = std::vector<std::optional<double>>;
Elements elementsOf(const Family& family, const basic::Variant& value);
Elements elementsOf(const basic::Variant& value);

// The field that carries the mark of an input: 41 or 42 for the parts of a drawing number, else the input itself.
std::int16_t fieldOf(std::int16_t item);
const Family& familyOf(std::int16_t field);

// The three parts of a drawing number as their items show them, and the number that they stand for.
std::vector<double> drawingParts(double number);
double drawingNumber(double major, double middle, double minor);

} // namespace servopanel::monkey
