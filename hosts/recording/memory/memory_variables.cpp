#include "recording/memory/memory_variables.h"

#include <cstdint>

namespace servopanel::recording {

namespace {

// The unspecified failure of the runtime's objects.
constexpr std::int32_t runtimeFailure = -2147467259;

} // namespace

void MemoryVariables::set(std::string_view name, const basic::Variant& value)
{
    values_.insert_or_assign(std::string{name}, value);
}

const basic::Variant* MemoryVariables::find(std::string_view name) const
{
    const auto known = values_.find(name);
    return known == values_.end() ? nullptr : &known->second;
}

basic::Variant MemoryVariables::read(std::string_view name)
{
    if (failures_.take(FailureKind::ReadVariable, name))
        raiseError(runtimeFailure, "Variable '" + std::string{name} + "' cannot be read");
    const basic::Variant* value = find(name);
    if (value == nullptr) raiseError(runtimeFailure, "Unknown variable '" + std::string{name} + "'");
    return *value;
}

void MemoryVariables::write(std::string_view name, const basic::Variant& value)
{
    if (failures_.take(FailureKind::WriteVariable, name))
        raiseError(runtimeFailure, "Variable '" + std::string{name} + "' cannot be written");
    if (find(name) == nullptr) raiseError(runtimeFailure, "Unknown variable '" + std::string{name} + "'");
    set(name, value);
    written_.insert(std::string{name});
}

} // namespace servopanel::recording
