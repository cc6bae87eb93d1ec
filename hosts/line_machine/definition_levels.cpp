#include "line_machine/definition_levels.h"

#include <utility>
#include <vector>

namespace servopanel::line_machine {

namespace {

constexpr std::size_t switchBits = 4;

std::size_t countOf(const mqtt::VariableDescription& variable)
{
    if (variable.type.array) return variable.length;
    return variable.hasBits() ? switchBits : 1;
}

} // namespace

mqtt::Description withLevels(const mqtt::Description& description, const jet::MachineDefinitions& definitions)
{
    std::vector<mqtt::VariableDescription> variables = description.variables();
    for (mqtt::VariableDescription& variable : variables) {
        if (!variable.writable) continue;
        for (std::size_t element = 0; element < countOf(variable); ++element) {
            const jet::MachineDefinition* const definition =
                definitions.find(variable.name, static_cast<int>(element));
            if (!definition) continue;
            if (variable.levels.empty()) variable.levels.assign(countOf(variable), 0);
            variable.levels[element] = definition->level;
        }
    }
    return mqtt::Description{std::move(variables)};
}

} // namespace servopanel::line_machine
