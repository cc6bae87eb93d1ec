#pragma once

#include "basic/variant.h"
#include "machine/json_text.h"

#include <string>
#include <variant>

namespace servopanel::machine {

// The start value of a process variable as project.json gives it: a whole number is a 16-bit integer if it fits, else
// a 32-bit one, a number with a point a double, a list of numbers always an array of doubles; {"type": ..., "value":
// ...} names the type. Otherwise a text that says what is wrong.
std::variant<basic::Variant, std::string> variableValue(const Json& json);

} // namespace servopanel::machine
