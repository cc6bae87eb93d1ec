#pragma once

#include "basic/variant.h"
#include "mqtt/bounded_json.h"
#include "mqtt/description.h"

#include <optional>

namespace servopanel::mqtt {

// A process variable's value as JSON: numbers, true or false, texts, lists of them. A number that is not finite becomes
// null. A value of a type that process variables do not have is error 13.
Json toJson(const basic::Variant& value);

// The value when it has exactly the type and length that the description says, else nothing; whole numbers are good for
// singles and doubles. With holes, null stands for an unknown value and becomes zero.
enum class Holes { Refused, Allowed };
std::optional<basic::Variant> fromJson(
    const Json& json, const VariableDescription& description, Holes holes = Holes::Refused);

} // namespace servopanel::mqtt
