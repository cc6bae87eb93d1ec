#include "panel/form/value_source.h"

namespace servopanel::panel {

std::optional<ValueSource> valueSource(std::string_view control, std::int16_t index)
{
    if (control.starts_with("Sollwert"))
        return index <= 20 ? ValueSource{families::setpoints, index - 1}
                           : ValueSource{families::secondSetpoints, index - 21};
    if (control.starts_with("Schalter")) return ValueSource{families::switches, index - 31};
    if (control.starts_with("Zeichnung")) return ValueSource{families::drawings, index % 2 == 1 ? 0 : 1};
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
