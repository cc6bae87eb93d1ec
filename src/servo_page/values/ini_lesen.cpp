#include "config/datenbank.h"
#include "servo_page/felder.h"
#include "servo_page/servo_main.h"

namespace servopanel::servo_page {

std::int16_t ServoMain::definitionsPosition(const Familie& familie)
{
    return module_.servoModul.INI_Daten_Lesen(servoVariable(familie.name), familie.element);
}

void ServoMain::IniLesen()
{
    basic::StatementTrap trap{fehler(), "Ma IniLesen"};
    config::MServoModul& servoModul = module_.servoModul;

    // 1. and 2. Read the definitions of the machine; without any the page keeps what it has.
    std::int16_t anzahl = 0;
    trap([&] {
        anzahl = servoModul.INI_Datenbank_Einlesen(
            datenbankName(), gemeinsam().MaschinenBez, config::alleVariablen);
    });
    if (anzahl <= 0) return;

    // 3. Take over the definition of each field that has one. LEGACY: a field without one keeps that of the servo before.
    for (std::int16_t feld = 1; feld <= letztesFeld; ++feld) {
        const std::optional<Familie> familie = familieDesFelds(feld);
        if (!familie) continue;
        std::int16_t position = 0;
        trap([&] { position = definitionsPosition(*familie); });
        if (position > 0)
            trap([&] { zustand_.Definitionen[feld - 1] = servoModul.ParamDefs()[position - 1]; });
    }
}

} // namespace servopanel::servo_page
