#pragma once

#include "platform/member.h"

#include <cstdint>
#include <span>
#include <string_view>

namespace servopanel::recording {

// How a property keeps what is put into it.
enum class Holds : std::uint8_t { AnyValue, Boolean, Int16, Int32, Single, Double, Text, Picture, Object };

struct ControlProperty {
    platform::Member member; // its name is the one under which the value is kept
    Holds holds;
};

// The property that a member means for a control of this class, by dispatch id or by name without regard to case;
// nullptr when there is none.
const ControlProperty* findProperty(std::string_view className, const platform::Member& member);

// All properties of a class, those of the container and the font included.
std::span<const ControlProperty> commonProperties();
std::span<const ControlProperty> ownProperties(std::string_view className);

} // namespace servopanel::recording
