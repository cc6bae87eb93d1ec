#include "machine/type_names.h"

namespace servopanel::machine {

namespace {

using basic::VariantType;

struct TypeName {
    std::string_view name;
    VariableType type;
};

constexpr TypeName typeNames[]{{"int16", {VariantType::Int16, false}}, {"int32", {VariantType::Int32, false}},
    {"single", {VariantType::Single, false}}, {"double", {VariantType::Double, false}},
    {"boolean", {VariantType::Boolean, false}}, {"text", {VariantType::Text, false}},
    {"doubles", {VariantType::Double, true}}, {"singles", {VariantType::Single, true}},
    {"int16s", {VariantType::Int16, true}}};

} // namespace

std::string_view typeName(VariableType type)
{
    for (const TypeName& known : typeNames)
        if (known.type == type) return known.name;
    return {};
}

std::optional<VariableType> typeNamed(std::string_view name)
{
    for (const TypeName& known : typeNames)
        if (known.name == name) return known.type;
    return {};
}

VariableType typeOf(const basic::Variant& value)
{
    if (const auto* const array = value.get<basic::Array>()) return {array->elementType, true};
    return {value.type(), false};
}

} // namespace servopanel::machine
