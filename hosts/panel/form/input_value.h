#pragma once

#include "basic/variant.h"
#include "panel/form/control_host.h"
#include "panel/form/value_source.h"

#include <optional>
#include <string_view>

namespace servopanel::panel {

// The number that an input of the servo page shows: a setpoint, 0 or 1 of a switch, a drawing number put together from
// its parts, to which the input belongs. Nothing for anything else, and when it shows no number.
std::optional<double> inputValue(ControlHost& page, std::string_view name, std::int16_t index);

// The same number in what a variable of the family holds; nothing when it is not in there.
std::optional<double> elementValue(const ValueSource& source, const basic::Variant& variable);

// Whether an input shows what is in a variable, a part of a drawing number its part of it.
bool showsElement(ControlHost& page, std::string_view name, std::int16_t index, const ValueSource& source,
    const basic::Variant& variable);

// Whether a variable holds whole numbers only, and rounds any other.
bool holdsWholeNumbers(const basic::Variant& variable);

// Whether a number went into a variable as it was entered: as exact as the type that the variable holds.
bool isSameValue(double entered, double held, const basic::Variant& variable);

} // namespace servopanel::panel
