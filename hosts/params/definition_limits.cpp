#include "params/definition_limits.h"

#include "basic/text.h"
#include "params/parameter_set.h"

#include <cmath>
#include <cstdint>
#include <utility>

namespace servopanel::params {

namespace {

std::optional<double> numberOf(const basic::Variant& value)
{
    const auto* const number = value.get<double>();
    return number && !std::isnan(*number) ? std::optional{*number} : std::nullopt;
}

std::string beyond(double value, const char* what, const char* limit, double bound)
{
    return numberText(value).append(what).append(limit).append(" ").append(numberText(bound));
}

} // namespace

DefinitionLimits::DefinitionLimits(const std::vector<jet::DefinitionRow>& definitions, std::string machine)
    : machine_{std::move(machine)}
{
    for (const jet::DefinitionRow& row : definitions) {
        const auto* const type = row.machineType.get<std::string>();
        const auto* const name = row.variable.get<std::string>();
        const auto* const element = row.element.get<std::int16_t>();
        if (!type || *type != machine_ || !name || !element) continue;
        limits_.insert_or_assign(std::pair{basic::upperCase(*name), int{*element}},
            Limits{{numberOf(row.min), numberOf(row.max)}, {numberOf(row.absMin), numberOf(row.absMax)}});
    }
}

std::string DefinitionLimits::problemOf(const Place& place, double value) const
{
    const Limits* const limits = find(place);
    if (!limits) return {};
    struct Named {
        const Range& range;
        const char* least;
        const char* most;
    };
    for (const Named& one :
        {Named{limits->working, "Min", "Max"}, Named{limits->absolute, "abs_min", "abs_max"}}) {
        const auto& [least, most] = one.range;
        if (least && most && *least > *most) continue;
        if (least && value < *least) return beyond(value, " is below ", one.least, *least);
        if (most && value > *most) return beyond(value, " is above ", one.most, *most);
    }
    return {};
}

const DefinitionLimits::Limits* DefinitionLimits::find(const Place& place) const
{
    const std::string name = variableName(machine_, place.servo, place.of().part);
    const auto found = limits_.find({basic::upperCase(name), place.element});
    return found == limits_.end() ? nullptr : &found->second;
}

} // namespace servopanel::params
