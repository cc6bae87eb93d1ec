#include "line_machine/definition_levels.h"

#include "basic/text.h"

#include <cstdint>
#include <limits>
#include <map>
#include <string>
#include <utility>

namespace servopanel::line_machine {

namespace {

constexpr std::int16_t locked = std::numeric_limits<std::int16_t>::max();
constexpr std::size_t switchBits = 4;

std::size_t countOf(const mqtt::VariableDescription& variable)
{
    if (variable.type.array) return variable.length;
    return variable.hasBits() ? switchBits : 1;
}

} // namespace

mqtt::Description withLevels(const mqtt::Description& description, std::string_view machine,
    const std::vector<jet::DefinitionRow>& definitions)
{
    std::vector<mqtt::VariableDescription> variables = description.variables();
    std::map<std::string, std::size_t> places; // by name in capitals
    for (std::size_t i = 0; i < variables.size(); ++i)
        places.emplace(basic::upperCase(variables[i].name), i);
    for (const jet::DefinitionRow& row : definitions) {
        const auto* const type = row.machineType.get<std::string>();
        const auto* const name = row.variable.get<std::string>();
        const auto* const element = row.element.get<std::int16_t>();
        if (!type || *type != machine || !name || !element || *element < 0) continue;
        const auto place = places.find(basic::upperCase(*name));
        if (place == places.end()) continue;
        mqtt::VariableDescription& variable = variables[place->second];
        const auto position = static_cast<std::size_t>(*element);
        if (!variable.writable || position >= countOf(variable)) continue;
        if (variable.levels.empty()) variable.levels.assign(countOf(variable), 0);
        const auto* const level = row.pass.get<std::int16_t>();
        variable.levels[position] = level && *level >= 0 ? *level : locked;
    }
    return mqtt::Description{std::move(variables)};
}

} // namespace servopanel::line_machine
