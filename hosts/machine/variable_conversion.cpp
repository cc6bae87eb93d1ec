#include "machine/variable_conversion.h"

#include "basic/conversions.h"

#include <utility>

namespace servopanel::machine {

using basic::Array;
using basic::Variant;

basic::Error variableError(std::int32_t number, std::string_view name, std::string_view reason)
{
    std::string description{"Process variable '"};
    description += name;
    description += "': ";
    description += reason;
    return {number, "Process variables", std::move(description)};
}

basic::Error unknownVariable(std::string_view name)
{
    return variableError(static_cast<std::int32_t>(basic::ErrorNumber::InvalidProcedureCall), name,
        "there is no such variable");
}

namespace {

basic::Error mismatch(std::string_view name, std::string_view reason)
{
    return variableError(static_cast<std::int32_t>(basic::ErrorNumber::TypeMismatch), name, reason);
}

Variant convertedArray(std::string_view name, const Array& declared, const Variant& value)
{
    const Array* const given = value.get<Array>();
    if (!given) throw mismatch(name, "one value cannot be written to an array");
    if (given->elements.size() != declared.elements.size())
        throw mismatch(name,
            "it has " + std::to_string(declared.elements.size()) + " elements, not "
                + std::to_string(given->elements.size()));
    Array converted{declared.elementType, declared.lowerBound, given->elements};
    if (declared.elementType != basic::VariantType::Variant)
        for (Variant& element : converted.elements)
            element = basic::convert(element, declared.elementType);
    return converted;
}

} // namespace

Variant convertedToDeclared(std::string_view name, const Variant& declared, const Variant& value)
try {
    if (const Array* const array = declared.get<Array>()) return convertedArray(name, *array, value);
    if (value.holds<Array>()) throw mismatch(name, "an array cannot be written to one value");
    return basic::convert(value, declared.type());
} catch (const basic::Error& error) {
    if (!error.source.empty()) throw;
    throw variableError(error.number, name, error.description);
}

} // namespace servopanel::machine
