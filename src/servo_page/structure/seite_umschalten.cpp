#include "basic/conversions.h"
#include "display/namen.h"
#include "platform/facades/intrinsic.h"
#include "servo_page/servo_main.h"

namespace servopanel::servo_page {

using basic::decimal;
using basic::StatementTrap;

void ServoMain::SeiteUmschalten(bool servoGewechselt)
{
    StatementTrap trap{fehler(), "Ma SeiteUmschalten"};
    const auto& wahl = zustand_.wahl;
    auto& bearbeitung = zustand_.bearbeitung;

    // The editing of definitions ends with its servo and with its page.
    if (servoGewechselt || wahl.Seite != 0) trap([&] { bearbeitung.ZweiterModus = display::falsch; });

    // 1. Another servo: its settings, definitions and picture.
    if (servoGewechselt) servoEinlesen(trap);

    // 2. Texts and rows, and the half of the form that belongs to the page.
    AdressenUmschalten(servoGewechselt);
    seitenteileZeigen(trap);

    // 3. and 4. Previous and next servo.
    blätterTasten(trap);

    // 5. and 6. Keys 4, 7, 8 and 10.
    if (wahl.Seite != 0)
        diagnoseTasten(trap);
    else
        parameterTasten(trap);

    // 7. Exit.
    tasteSetzen(trap, 11, display::standardBild(gemeinsam(), "F_Exit"), true);

    // 8. Captions on the servo's picture.
    paraBeschriftungen(trap);

    // 9. A full read, whatever was changed before: edits of one servo never reach another.
    if (bearbeitung.ZweiterModus == display::falsch) WerteLesen(false);
}

void ServoMain::servoEinlesen(StatementTrap& trap)
{
    auto& gem = gemeinsam();

    // From here on the inputs show nothing of this servo until it is read.
    trap([&] { zustand_.bearbeitung.Gezeigt.fill(false); });
    trap([&] {
        zustand_.wahl.ExternerServo =
            module_.service.LoadIniBoolean("Machine" + decimal(std::int32_t{gem.AktuelleMaschine}),
                "ExtServo" + decimal(std::int32_t{gem.AktServo}), display::programmIni, true, false);
    });
    IniLesen();
    trap(
        [&] { display::WriteValue(module_.umfeld, display::interneVariable("servo_zeiger"), gem.AktServo); });
    if (trap.condition([&] { return gem.ladeBilder.geladen[servoNummer()] == display::falsch; }))
        trap([&] {
            module_.global.BildLaden(zustand_.aufbau.Bibliothek, servoNummer(), gem.ServoPic[gem.AktServo]);
        });
    trap([&] { platform::Bildfeld{kind("ParaPic")}.Picture(gem.ladeBilder.bild[servoNummer()]); });
}

// The parameter page shows the two halves and their scroll bar, the diagnosis pages one box with everything in it.
void ServoMain::seitenteileZeigen(StatementTrap& trap)
{
    const bool parameter = zustand_.wahl.Seite == 0;

    zeigen(trap, {"MainRahmen", 1}, parameter);
    zeigen(trap, {"MainRahmen", 2}, parameter);
    zeigen(trap, {"ScrollBar"}, parameter);
    zeigen(trap, {"DetailBox"}, !parameter);
    zeigen(trap, {"Fehlertext"}, !parameter && gemeinsam().MitStoerung);
}

} // namespace servopanel::servo_page
