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
void ServoMain::tasteBebildern(StatementTrap& trap, std::uint8_t taste, const std::string& bild)
{
    trap([&] { Fußzeile{kind("Fußzeile")}.Bild(taste, bild); });
    if (taste == 4 || taste == 11) return;
    trap([&] { zustand_.fußzeile.Tasten[taste].Bild = bild; });
}

void ServoMain::tasteFreigeben(StatementTrap& trap, std::uint8_t taste, bool frei)
{
    trap([&] { Fußzeile{kind("Fußzeile")}.Freigabe(taste, frei); });
    if (taste == 4 || taste == 11) return;
    trap([&] { zustand_.fußzeile.Tasten[taste].Benutzt = frei; });
}

void ServoMain::tasteSetzen(StatementTrap& trap, std::uint8_t taste, const std::string& bild, bool frei)
{
    tasteBebildern(trap, taste, bild);
    tasteFreigeben(trap, taste, frei);
}

void ServoMain::tasteLeeren(StatementTrap& trap, std::uint8_t taste)
{
    tasteSetzen(trap, taste, display::standardBild(gemeinsam(), "empty"), false);
}

// Keys 7 and 8, which belong together. seite: the one that is shown, 0 for none.
void ServoMain::diagnoseWahl(
    StatementTrap& trap, const std::string& bild7, const std::string& bild8, bool frei, std::int16_t seite)
{
    tasteBebildern(trap, 7, bild7);
    tasteBebildern(trap, 8, bild8);
    tasteFreigeben(trap, 7, frei);
    tasteFreigeben(trap, 8, frei);
    const std::uint8_t gezeigt = seite == 2 ? 8 : 7;
    const std::uint8_t andere = seite == 2 ? 7 : 8;
    tasteFärben(trap, gezeigt, seite != 0);
    tasteFärben(trap, andere, false);
}

void ServoMain::diagnoseWahlLeeren(StatementTrap& trap)
{
    const std::string leer = display::standardBild(gemeinsam(), "empty");
    diagnoseWahl(trap, leer, leer, false, 0);
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
    if (zweiSeiten == true)
        diagnoseWahl(trap, bibliotheksBild("_Diag1_"), bibliotheksBild("_Diag2_"), true, seite);
    else if (zweiSeiten == false)
        diagnoseWahlLeeren(trap);

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

    diagnoseWahlLeeren(trap);

    tasteSetzen(trap, 10, bibliotheksBild("_Diag_"), true);
}

} // namespace servopanel::servo_page
