#include "params/parameter.h"

#include "basic/conversions.h"
#include "display/namen.h"
#include "journal/variable_place.h"
#include "machine/servo_families.h"

#include <algorithm>
#include <utility>

namespace servopanel::params {

namespace {

namespace families = machine::families;

constexpr Family all[]{
    {families::setpoints, "servo_para", 1, 20, false},
    {families::secondSetpoints, "servo_para2", 21, 4, false},
    {families::switches, "servo_schalt", 31, 4, true},
    {families::drawings, "servo_zeich", 41, 2, false},
};

} // namespace

std::span<const Family> parameterFamilies() { return all; }

std::string variableName(const std::string& machine, int servo, std::string_view family)
{
    return display::servoVariable(machine, family, basic::roundToInt16(servo));
}

std::optional<ParameterVariable> parameterVariable(std::string_view name)
{
    const std::string_view part = machine::familyOf(name);
    const auto* const family =
        std::find_if(std::begin(all), std::end(all), [&](const Family& one) { return one.part == part; });
    auto place = journal::placeOf(name);
    if (family == std::end(all) || !place.servo) return {};
    return ParameterVariable{
        std::move(place.machine), *place.servo, static_cast<std::size_t>(family - std::begin(all))};
}

} // namespace servopanel::params
