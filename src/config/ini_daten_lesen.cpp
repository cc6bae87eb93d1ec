#include "config/mservo_modul.h"

#include "basic/text.h"

#include <algorithm>

namespace servopanel::config {

std::int16_t MServoModul::INI_Daten_Lesen(std::string_view variable, std::int16_t element)
{
    // 1. Nothing found yet.
    std::int16_t ergebnis = -1;

    // 2. LEGACY: the walk goes on after a match, so that of several rows the last one counts. Rows that found no room
    // are counted but not stored.
    const std::string gesucht = basic::upperCase(variable);
    const std::int16_t gespeichert = std::min(paramDefAnzahl_, höchsteParamDefAnzahl);
    for (std::int16_t i = 1; i <= gespeichert; ++i) {
        const ParamDef& def = (*paramDefs_)[i - 1];
        if (def.OffsetOderBitNr == element && basic::upperCase(def.VarName) == gesucht) ergebnis = i;
    }

    // 3. The last match.
    return ergebnis;
}

} // namespace servopanel::config
