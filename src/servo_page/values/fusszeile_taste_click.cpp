#include "display/namen.h"
#include "platform/facades/eingabemaske.h"
#include "platform/facades/fusszeile.h"
#include "platform/facades/ini_eingabe.h"
#include "platform/facades/intrinsic.h"
#include "servo_page/servo_main.h"

namespace servopanel::servo_page {

using display::falsch;
using display::wahr;

void ServoMain::Fußzeile_TasteClick(std::int16_t taste)
{
    basic::StatementTrap trap{fehler(), "Ma Fußzeile_TasteClick"};

    switch (taste) {
    case 4: zweitenModusUmschalten(trap); break;
    case 5: servoWechseln(trap, -1); break;
    case 6: servoWechseln(trap, 1); break;
    case 7:
    case 8:
        zustand_.wahl.Seite = static_cast<std::int16_t>(taste - 6);
        SeiteUmschalten(true);
        break;
    case 9:
        trap([&] { servoVergessen(); });
        trap([&] { bildschirmÖffnen(1009); });
        break;
    case 10: bestätigenOderBlättern(trap); break;
    case 11: verwerfenOderVerlassen(trap); break;
    case 31:
        trap([&] { platform::Zeitgeber{kind("Timer")}.Enabled(false); });
        trap([&] { servoVergessen(); });
        trap([&] { bildschirmÖffnen(1031); });
        break;
    default: break;
    }
}

void ServoMain::zweitenModusUmschalten(basic::StatementTrap& trap)
{
    using platform::Fußzeile;
    Bearbeitung& bearbeitung = zustand_.bearbeitung;
    // Not while something waits for confirmation or an edit is open; nor when that cannot be told.
    if (!trap.condition([&] {
            return bearbeitung.Bestaetigen == falsch && !platform::Eingabemaske{kind("Eingabemaske")}.Offen()
                && !platform::IniEingabe{kind("IniEingabe")}.Offen();
        }))
        return;
    if (zustand_.aufbau.ZugriffsStufe != 5) return;
    if (bearbeitung.ZweiterModus == falsch) {
        bearbeitung.ZweiterModus = wahr;
        trap([&] { Fußzeile{kind("Fußzeile")}.Farbe(4, farben::Hellgrün); });
    } else {
        bearbeitung.ZweiterModus = falsch;
        trap([&] { Fußzeile{kind("Fußzeile")}.Farbe(4, farben::Silber); });
    }
}

void ServoMain::servoWechseln(basic::StatementTrap& trap, std::int16_t schritt)
{
    // The footer offers the key only where there is a servo in this direction; without a new number nothing happens.
    std::int16_t& servo = gemeinsam().AktServo;
    if (!trap.condition([&] {
            servo = basic::add16(servo, schritt);
            return true;
        }))
        return;
    // Another servo's diagnosis begins with its first page.
    if (zustand_.wahl.Seite != 0) zustand_.wahl.Seite = 1;
    // The captions on the picture belong to the servo before.
    for (std::int16_t n = 0; n <= letzteParaBeschriftung; ++n)
        trap([&] { platform::Label{kind("ParaBeschriftung", n)}.Visible(false); });
    SeiteUmschalten(true);
}

void ServoMain::bestätigenOderBlättern(basic::StatementTrap& trap)
{
    Bearbeitung& bearbeitung = zustand_.bearbeitung;
    if (bearbeitung.Geaendert != falsch) {
        bearbeitung.Bestaetigen = falsch;
        // Only a plain True is written; the flag is tested before the writing clears it.
        if (bearbeitung.Geaendert == wahr) {
            WerteSchreiben();
            // Tells the machine that the servo's parameters were changed from the panel.
            trap([&] {
                display::WriteValue(module_.umfeld, servoVariable(familien::Geaendert), std::int16_t{1});
            });
        }
    } else {
        zustand_.wahl.Seite = zustand_.wahl.Seite == 0 ? std::int16_t{1} : std::int16_t{0};
    }
    SeiteUmschalten(false);
}

void ServoMain::verwerfenOderVerlassen(basic::StatementTrap& trap)
{
    Bearbeitung& bearbeitung = zustand_.bearbeitung;
    if (bearbeitung.Bestaetigen != falsch) {
        bearbeitung.Bestaetigen = falsch;
        // LEGACY: building the page anew reads everything a second time.
        if (bearbeitung.Geaendert == wahr) WerteLesen(false);
        SeiteUmschalten(false);
        return;
    }
    trap([&] { platform::Zeitgeber{kind("Timer")}.Enabled(false); });
    trap([&] { servoVergessen(); });
    if (gemeinsam().MitMenu)
        trap([&] { platform_.owner.raise("MenuAnzeigen", {}); });
    else
        trap([&] { bildschirmÖffnen(1011); });
}

void ServoMain::servoVergessen()
{
    display::WriteValue(module_.umfeld, display::interneVariable("servo_zeiger"), std::int16_t{0});
}

void ServoMain::bildschirmÖffnen(std::int16_t basis)
{
    const std::int16_t hundert = basic::multiply16(gemeinsam().AktuelleMaschine, 100);
    display::pathHelper(module_.umfeld).openScreen(basic::add16(hundert, basis));
}

} // namespace servopanel::servo_page
