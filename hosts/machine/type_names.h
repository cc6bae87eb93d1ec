#pragma once

#include "basic/variant.h"

#include <optional>
#include <string_view>

namespace servopanel::machine {

// The type of a process variable: one value, or an array of values of one type.
struct VariableType {
    basic::VariantType element = basic::VariantType::Double;
    bool array = false;
    friend bool operator==(VariableType, VariableType) = default;
};

// "int16", "doubles" and so on, as project.json writes them. Only types that a process variable can have carry a name;
// every other gives "" and nothing.
std::string_view typeName(VariableType type);
std::optional<VariableType> typeNamed(std::string_view name);

VariableType typeOf(const basic::Variant& value);

} // namespace servopanel::machine
