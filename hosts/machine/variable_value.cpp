#include "machine/variable_value.h"

#include "basic/conversions.h"
#include "basic/error.h"
#include "machine/type_names.h"

#include <nlohmann/json.hpp>

#include <cstdint>
#include <limits>
#include <optional>

namespace servopanel::machine {

namespace {

using basic::Variant;
using basic::VariantType;

Variant wholeNumber(std::int64_t number)
{
    if (number >= std::numeric_limits<std::int16_t>::min()
        && number <= std::numeric_limits<std::int16_t>::max())
        return static_cast<std::int16_t>(number);
    if (number >= std::numeric_limits<std::int32_t>::min()
        && number <= std::numeric_limits<std::int32_t>::max())
        return static_cast<std::int32_t>(number);
    basic::raise(basic::ErrorNumber::Overflow, "the number has more than 32 bits; write it with a point");
}

Variant scalar(const Json& json)
{
    if (json.is_boolean()) return json.get<bool>();
    if (json.is_string()) return json.get<std::string>();
    if (json.is_number_float()) return json.get<double>();
    if (json.is_number_unsigned() && json.get<std::uint64_t>() > std::numeric_limits<std::uint32_t>::max())
        return wholeNumber(std::numeric_limits<std::int64_t>::max());
    if (json.is_number_integer()) return wholeNumber(json.get<std::int64_t>());
    basic::raise(
        basic::ErrorNumber::TypeMismatch, "must be a number, a text, true, false or a list of numbers");
}

Variant list(const Json& json, VariantType elementType)
{
    basic::Array array{elementType, 0, {}};
    for (const Json& element : json) {
        if (!element.is_number())
            basic::raise(basic::ErrorNumber::TypeMismatch, "a list may hold numbers only");
        array.elements.push_back(basic::convert(element.get<double>(), elementType));
    }
    return array;
}

Variant typed(const Json& json)
{
    const auto type = json.find("type");
    const auto value = json.find("value");
    if (type == json.end() || !type->is_string() || value == json.end() || json.size() != 2)
        basic::raise(
            basic::ErrorNumber::TypeMismatch, "an object must have \"type\" and \"value\" and nothing else");
    if (const auto known = typeNamed(type->get<std::string>())) {
        if (known->array != value->is_array())
            basic::raise(basic::ErrorNumber::TypeMismatch,
                known->array ? "this type takes a list of numbers" : "this type takes one value, not a list");
        try {
            return known->array ? list(*value, known->element)
                                : basic::convert(scalar(*value), known->element);
        } catch (const basic::Error& error) {
            if (error.number != static_cast<std::int32_t>(basic::ErrorNumber::Overflow)) throw;
            basic::raise(basic::ErrorNumber::Overflow,
                "the number is too large for the type \"" + type->get<std::string>() + '"');
        }
    }
    basic::raise(basic::ErrorNumber::TypeMismatch, "\"" + type->get<std::string>() + "\" is no type");
}

} // namespace

std::variant<Variant, std::string> variableValue(const Json& json)
{
    try {
        if (json.is_object()) return typed(json);
        if (json.is_array()) return list(json, VariantType::Double);
        return scalar(json);
    } catch (const basic::Error& error) {
        return error.description;
    }
}

} // namespace servopanel::machine
