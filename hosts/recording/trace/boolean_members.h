#pragma once

#include "platform/member.h"
#include "recording/trace/value_text.h"

#include <cstddef>
#include <string_view>

namespace servopanel::recording {

// Whether the value of a property, or an argument of an operation, is a Boolean for a control of this class.
ValueKind propertyKind(std::string_view className, const platform::Member& member);
ValueKind argumentKind(std::string_view className, const platform::Member& member, std::size_t position);

} // namespace servopanel::recording
