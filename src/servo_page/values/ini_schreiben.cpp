#include "config/datenbank.h"
#include "servo_page/felder.h"
#include "servo_page/servo_main.h"

namespace servopanel::servo_page {

void ServoMain::IniSchreiben()
{
    basic::StatementTrap trap{fehler(), "Ma IniSchreiben"};
    config::MServoModul& servoModul = module_.servoModul;

    // 1. Carry the page's definitions into the shared table, which still holds the rows of the last reading.
    for (std::int16_t feld = 1; feld <= letztesFeld; ++feld) {
        const std::optional<Familie> familie = familieDesFelds(feld);
        if (!familie) continue;
        std::int16_t position = 0;
        trap([&] { position = definitionsPosition(*familie); });
        if (position > 0)
            trap([&] { servoModul.ParamDefs()[position - 1] = zustand_.Definitionen[feld - 1]; });
    }

    // 2. Write the table, whether or not a field had its place in it.
    trap([&] { servoModul.INI_Datenbank_Schreiben(datenbankName(), config::alleVariablen); });
}

} // namespace servopanel::servo_page
