#include "servo_page/felder.h"

namespace servopanel::servo_page {

std::optional<Familie> familieDesFelds(std::int16_t feld)
{
    const auto ab = [feld](std::int16_t erstes) { return static_cast<std::int16_t>(feld - erstes); };

    if (istSollwert(feld) && feld <= ersteGruppe.letztes) return Familie{familien::Sollwert, ab(1)};
    if (istSollwert(feld)) return Familie{familien::Sollwert2, ab(21)};
    if (istSchalter(feld)) return Familie{familien::Schalter, ab(31)};
    if (feld == 41 || feld == 42) return Familie{familien::Zeichnung, ab(41)};
    return std::nullopt;
}

} // namespace servopanel::servo_page
