#include "params/definition_limits.h"

#include "params/parameter_set.h"

#include <optional>
#include <utility>

namespace servopanel::params {

namespace {

std::string beyond(double value, const char* what, const char* limit, double bound)
{
    return numberText(value).append(what).append(limit).append(" ").append(numberText(bound));
}

} // namespace

DefinitionLimits::DefinitionLimits(const std::vector<jet::DefinitionRow>& definitions, std::string machine)
    : machine_{std::move(machine)}
    , definitions_{definitions, machine_}
{
}

std::string DefinitionLimits::problemOf(const Place& place, double value) const
{
    const jet::MachineDefinition* const limits = find(place);
    if (!limits) return {};
    struct Range {
        const std::optional<double>& least;
        const std::optional<double>& most;
        const char* leastName;
        const char* mostName;
    };
    for (const Range& range : {Range{limits->min, limits->max, "Min", "Max"},
             Range{limits->absMin, limits->absMax, "abs_min", "abs_max"}}) {
        if (range.least && range.most && *range.least > *range.most) continue;
        if (range.least && value < *range.least)
            return beyond(value, " is below ", range.leastName, *range.least);
        if (range.most && value > *range.most)
            return beyond(value, " is above ", range.mostName, *range.most);
    }
    return {};
}

const jet::MachineDefinition* DefinitionLimits::find(const Place& place) const
{
    return definitions_.find(variableName(machine_, place.servo, place.of().part), place.element);
}

} // namespace servopanel::params
