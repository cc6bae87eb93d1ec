#include "line_machine/definition_levels.h"

#include <cstdint>
#include <limits>
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

mqtt::Description withLevels(
    const mqtt::Description& description, const std::vector<jet::DefinitionRow>& definitions)
{
    std::vector<mqtt::VariableDescription> variables = description.variables();
    for (const jet::DefinitionRow& row : definitions) {
        const auto* const name = row.variable.get<std::string>();
        const auto* const element = row.element.get<std::int16_t>();
        const auto index = name ? description.indexOf(*name) : std::nullopt;
        if (!index || !element || *element < 0) continue;
        mqtt::VariableDescription& variable = variables[*index];
        const auto position = static_cast<std::size_t>(*element);
        if (!variable.writable || position >= countOf(variable)) continue;
        if (variable.levels.empty()) variable.levels.assign(countOf(variable), 0);
        const auto* const level = row.pass.get<std::int16_t>();
        variable.levels[position] = level && *level >= 0 ? *level : locked;
    }
    return mqtt::Description{std::move(variables)};
}

} // namespace servopanel::line_machine
