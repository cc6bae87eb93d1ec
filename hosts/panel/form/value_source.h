#pragma once

#include "machine/servo_families.h"

#include <cstdint>
#include <optional>
#include <string_view>

namespace servopanel::panel {

namespace families = machine::families;
using machine::familyOf;

// Where the value of a control of the servo page comes from: an element of a family, counted from 0. For one number or
// text the element says nothing.
struct ValueSource {
    std::string_view family;
    int element = 0;
    friend bool operator==(const ValueSource&, const ValueSource&) = default;
};
// Nothing for controls that show no value of the machine.
std::optional<ValueSource> valueSource(std::string_view control, std::int16_t index);

// Whether the operator can change the value: neither an actual value nor the fault text.
inline bool isInput(const ValueSource& source)
{
    return source.family != families::actualValues && source.family != families::faultText;
}

// Where the limits of a setpoint come from.
struct LimitSources {
    ValueSource lower;
    ValueSource upper;
};
// Nothing for values without limits of their own in the machine.
std::optional<LimitSources> limitSources(const ValueSource& value);

} // namespace servopanel::panel
