#include "display/namen.h"
#include "platform/facades/fusszeile.h"
#include "servo_page/servo_main.h"

namespace servopanel::servo_page {

using basic::StatementTrap;
using platform::Fußzeile;

std::string ServoMain::bibliotheksBild(std::string_view zusatz)
{
    const std::string& bibliothek = zustand_.aufbau.Bibliothek;
    return bibliothek + "\\" + bibliothek + std::string{zusatz} + gemeinsam().AufloesungText + ".gif";
}

// The keys that servo and page decide are kept in the table too, so that releasing the keys later switches on exactly
// those that are in use here. Key 4 is never released and key 11 always.
void ServoMain::tasteSetzen(StatementTrap& trap, std::uint8_t taste, const std::string& bild, bool frei)
{
    trap([&] { Fußzeile{kind("Fußzeile")}.Bild(taste, bild); });
    trap([&] { Fußzeile{kind("Fußzeile")}.Freigabe(taste, frei); });
    if (taste == 4 || taste == 11) return;
    trap([&] { zustand_.fußzeile.Tasten[taste] = FußzeilenTaste{bild, frei}; });
}

void ServoMain::tasteLeeren(StatementTrap& trap, std::uint8_t taste)
{
    tasteSetzen(trap, taste, display::standardBild(gemeinsam(), "empty"), false);
}

void ServoMain::tasteFärben(StatementTrap& trap, std::uint8_t taste, bool aktiv)
{
    trap([&] { Fußzeile{kind("Fußzeile")}.Farbe(taste, aktiv ? farben::Hellgrün : farben::Silber); });
}

// Steps 3 and 4: keys 5 and 6, where there is a servo before or behind the shown one.
void ServoMain::blätterTasten(StatementTrap& trap)
{
    const auto& gem = gemeinsam();

    if (gem.AktServo < 2)
        tasteLeeren(trap, 5);
    else
        tasteSetzen(trap, 5, display::standardBild(gem, "F_PageUp"), true);

    if (gem.AktServo >= gem.ServoAnzahl)
        tasteLeeren(trap, 6);
    else
        tasteSetzen(trap, 6, display::standardBild(gem, "F_PageDown"), true);
}

// Step 5: a diagnosis page. Key 10 leads back to the parameters.
void ServoMain::diagnoseTasten(StatementTrap& trap)
{
    const auto& gem = gemeinsam();
    const std::int16_t seite = zustand_.wahl.Seite;

    tasteLeeren(trap, 4);
    tasteFärben(trap, 4, false);

    const auto zweiSeiten = trap.decision([&] { return gem.Diag2Servo[gem.AktServo]; });
    if (zweiSeiten == true) {
        tasteSetzen(trap, 7, bibliotheksBild("_Diag1_"), true);
        tasteSetzen(trap, 8, bibliotheksBild("_Diag2_"), true);
        tasteFärben(trap, 7, seite == 1);
        tasteFärben(trap, 8, seite == 2);
    } else if (zweiSeiten == false) {
        tasteLeeren(trap, 7);
        tasteLeeren(trap, 8);
        tasteFärben(trap, 7, false);
        tasteFärben(trap, 8, false);
    }

    tasteSetzen(trap, 10, bibliotheksBild("_"), true);
}

// Step 6: the parameter page. Key 4 is the service engineer's; key 10 leads to the diagnosis.
void ServoMain::parameterTasten(StatementTrap& trap)
{
    const bool service = zustand_.aufbau.ZugriffsStufe == 5;

    if (service)
        tasteSetzen(trap, 4, display::standardBild(gemeinsam(), "F_engine"), true);
    else
        tasteLeeren(trap, 4);
    tasteFärben(trap, 4, service && zustand_.bearbeitung.ZweiterModus != display::falsch);

    tasteLeeren(trap, 7);
    tasteLeeren(trap, 8);
    tasteFärben(trap, 7, false);
    tasteFärben(trap, 8, false);

    tasteSetzen(trap, 10, bibliotheksBild("_Diag_"), true);
}

} // namespace servopanel::servo_page
