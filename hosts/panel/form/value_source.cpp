#include "panel/form/value_source.h"

#include <algorithm>
#include <array>

namespace servopanel::panel {

namespace {

constexpr std::array all{families::setpoints, families::secondSetpoints, families::lowerLimits,
    families::upperLimits, families::secondLowerLimits, families::secondUpperLimits, families::switches,
    families::drawings, families::actualValues, families::faultText, families::changedFlag};

bool startsWith(std::string_view text, std::string_view beginning)
{
    return text.substr(0, beginning.size()) == beginning;
}

} // namespace

std::string_view familyOf(std::string_view variable)
{
    const std::size_t member = variable.find("<.");
    if (member == std::string_view::npos) return {};
    const std::string_view name = variable.substr(member);
    for (const std::string_view family : all) {
        const std::size_t at = name.rfind(family);
        if (at == std::string_view::npos) continue;
        // Behind the family stands the servo's number and nothing else: the family of limits begins like that of
        // their setpoints.
        std::string_view number = name.substr(at + family.size());
        if (number.size() < 2 || number.back() != '>') continue;
        number.remove_suffix(1);
        const auto isNumber = [](char c) { return (c >= '0' && c <= '9') || c == '-'; };
        if (std::all_of(number.begin(), number.end(), isNumber)) return family;
    }
    return {};
}

std::optional<ValueSource> valueSource(std::string_view control, std::int16_t index)
{
    if (startsWith(control, "Sollwert"))
        return index <= 20 ? ValueSource{families::setpoints, index - 1}
                           : ValueSource{families::secondSetpoints, index - 21};
    if (startsWith(control, "Schalter")) return ValueSource{families::switches, index - 31};
    if (startsWith(control, "Zeichnung")) return ValueSource{families::drawings, index % 2 == 1 ? 0 : 1};
    if (control == "IstWert" || control == "IstWertTab")
        return ValueSource{families::actualValues, index - 101};
    if (control == "Fehlertext") return ValueSource{families::faultText, 0};
    return {};
}

std::optional<LimitSources> limitSources(const ValueSource& value)
{
    if (value.family == families::setpoints)
        return LimitSources{{families::lowerLimits, value.element}, {families::upperLimits, value.element}};
    if (value.family == families::secondSetpoints)
        return LimitSources{
            {families::secondLowerLimits, value.element}, {families::secondUpperLimits, value.element}};
    return {};
}

} // namespace servopanel::panel
