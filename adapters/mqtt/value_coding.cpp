#include "mqtt/value_coding.h"

#include "basic/error.h"

#include <cmath>
#include <limits>

namespace servopanel::mqtt {

namespace {

using basic::Variant;
using basic::VariantType;

Json scalarToJson(const Variant& value)
{
    switch (value.type()) {
    case VariantType::Int16: return *value.get<std::int16_t>();
    case VariantType::Int32: return *value.get<std::int32_t>();
    case VariantType::Boolean: return *value.get<bool>();
    case VariantType::Text: return *value.get<std::string>();
    case VariantType::Single: {
        const float number = *value.get<float>();
        return std::isfinite(number) ? Json(static_cast<double>(number)) : Json();
    }
    case VariantType::Double: {
        const double number = *value.get<double>();
        return std::isfinite(number) ? Json(number) : Json();
    }
    default: basic::raise(basic::ErrorNumber::TypeMismatch);
    }
}

template <class T>
std::optional<Variant> whole(const Json& json)
{
    if (!isWholeWithin(json, std::numeric_limits<T>::min(), std::numeric_limits<T>::max())) return {};
    return Variant{json.get<T>()};
}

std::optional<Variant> scalarFromJson(const Json& json, VariantType type, Holes holes)
{
    if (json.is_null() && holes == Holes::Allowed) {
        VariableDescription one;
        one.type.element = type;
        return one.blank();
    }
    switch (type) {
    case VariantType::Int16: return whole<std::int16_t>(json);
    case VariantType::Int32: return whole<std::int32_t>(json);
    case VariantType::Boolean:
        if (json.is_boolean()) return Variant{json.get<bool>()};
        return {};
    case VariantType::Text:
        if (json.is_string()) return Variant{json.get<std::string>()};
        return {};
    case VariantType::Single:
        if (json.is_number() && std::fabs(json.get<double>()) <= std::numeric_limits<float>::max())
            return Variant{static_cast<float>(json.get<double>())};
        return {};
    case VariantType::Double:
        if (json.is_number()) return Variant{json.get<double>()};
        return {};
    default: return {};
    }
}

} // namespace

Json toJson(const Variant& value)
{
    const auto* const array = value.get<basic::Array>();
    if (!array) return scalarToJson(value);
    Json list = Json::array();
    for (const Variant& element : array->elements)
        list.push_back(scalarToJson(element));
    return list;
}

std::optional<Variant> fromJson(const Json& json, const VariableDescription& description, Holes holes)
{
    if (!description.type.array) return scalarFromJson(json, description.type.element, holes);
    if (!json.is_array() || json.size() != description.length) return {};
    basic::Array array{description.type.element, description.first, {}};
    array.elements.reserve(json.size());
    for (const Json& element : json) {
        std::optional<Variant> value = scalarFromJson(element, description.type.element, holes);
        if (!value) return {};
        array.elements.push_back(std::move(*value));
    }
    return Variant{std::move(array)};
}

} // namespace servopanel::mqtt
