#include "machine/variable_store.h"

#include "basic/conversions.h"
#include "basic/error.h"

#include <algorithm>

namespace servopanel::machine {

namespace {

using basic::Array;
using basic::Variant;

basic::Error failure(std::int32_t number, std::string_view name, std::string_view reason)
{
    std::string description{"Process variable '"};
    description += name;
    description += "': ";
    description += reason;
    return {number, "Process variables", std::move(description)};
}

basic::Error unknown(std::string_view name)
{
    return failure(static_cast<std::int32_t>(basic::ErrorNumber::InvalidProcedureCall), name,
        "there is no such variable");
}

basic::Error mismatch(std::string_view name, std::string_view reason)
{
    return failure(static_cast<std::int32_t>(basic::ErrorNumber::TypeMismatch), name, reason);
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

Variant converted(std::string_view name, const Variant& declared, const Variant& value)
try {
    if (const Array* const array = declared.get<Array>()) return convertedArray(name, *array, value);
    if (value.holds<Array>()) throw mismatch(name, "an array cannot be written to one value");
    return basic::convert(value, declared.type());
} catch (const basic::Error& error) {
    if (!error.source.empty()) throw;
    throw failure(error.number, name, error.description);
}

} // namespace

void VariableStore::declare(std::string_view name, Variant value)
{
    variables_.insert_or_assign(std::string{name}, std::move(value));
}

Variant VariableStore::ReadValue(std::string_view name)
{
    const Variant* const value = find(name);
    if (!value) throw unknown(name);
    return *value;
}

void VariableStore::WriteValue(std::string_view name, const Variant& value)
{
    write(name, value, Writer::Library);
}

void VariableStore::write(std::string_view name, const Variant& value, Writer writer)
{
    const auto variable = variables_.find(name);
    if (variable == variables_.end()) throw unknown(name);
    variable->second = converted(name, variable->second, value);
    notify({variable->first, variable->second, writer});
}

const Variant* VariableStore::find(std::string_view name) const
{
    const auto variable = variables_.find(name);
    return variable == variables_.end() ? nullptr : &variable->second;
}

std::vector<std::string> VariableStore::names() const
{
    std::vector<std::string> names;
    names.reserve(variables_.size());
    for (const auto& variable : variables_)
        names.push_back(variable.first);
    return names;
}

VariableStore::ListenerId VariableStore::addListener(Listener listener)
{
    listeners_.emplace_back(++lastListener_, std::make_shared<Listener>(std::move(listener)));
    return lastListener_;
}

void VariableStore::removeListener(ListenerId id)
{
    listeners_.erase(std::remove_if(listeners_.begin(), listeners_.end(),
                         [id](const auto& listener) { return listener.first == id; }),
        listeners_.end());
}

void VariableStore::notify(const Write& write)
{
    // A copy, and a look whether each is still there: listeners come and go while others are told.
    const auto listeners = listeners_;
    for (const auto& listener : listeners) {
        const bool present = std::any_of(listeners_.begin(), listeners_.end(),
            [&](const auto& current) { return current.first == listener.first; });
        if (present) (*listener.second)(write);
    }
}

} // namespace servopanel::machine
