#include "machine/variable_store.h"

#include "machine/variable_conversion.h"

#include <algorithm>

namespace servopanel::machine {

using basic::Variant;

void VariableStore::declare(std::string_view name, Variant value)
{
    variables_.insert_or_assign(std::string{name}, std::move(value));
}

Variant VariableStore::ReadValue(std::string_view name)
{
    const Variant* const value = find(name);
    if (!value) throw unknownVariable(name);
    return *value;
}

void VariableStore::WriteValue(std::string_view name, const Variant& value)
{
    write(name, value, Writer::Library);
}

void VariableStore::write(std::string_view name, const Variant& value, Writer writer)
{
    const auto variable = variables_.find(name);
    if (variable == variables_.end()) throw unknownVariable(name);
    variable->second = convertedToDeclared(name, variable->second, value);
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
