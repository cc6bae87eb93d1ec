#include "basic/conversions.h"
#include "basic/text.h"
#include "display/namen.h"
#include "platform/facades/fusszeile.h"
#include "platform/facades/intrinsic.h"
#include "platform/facades/istwert.h"
#include "platform/facades/schalter.h"
#include "platform/facades/textanzeige.h"
#include "servo_page/servo_main.h"
#include "servo_page/values/gelesen.h"
#include "servo_page/values/zeichnungsnummer.h"

#include <optional>

namespace servopanel::servo_page {

void ServoMain::WerteLesen(bool nurAuffrischen)
{
    basic::StatementTrap trap{fehler(), "Ma WerteLesen"};

    // 1. A full read gives up every change that was not written.
    if (!nurAuffrischen) {
        zustand_.bearbeitung.Geaendert = display::falsch;
        tastenNormal(trap);
        zustand_.bearbeitung.Marken.fill(false);
    }

    // 2. to 4. Setpoints and their limits.
    sollwerteLesen(trap, familien::Sollwert, ersteGruppe);
    grenzenLesen(trap, familien::SollwertUnten, ersteGruppe, &platform::Sollwert::Untergrenze);
    grenzenLesen(trap, familien::SollwertOben, ersteGruppe, &platform::Sollwert::Obergrenze);

    // 5. Those of the second group.
    sollwerteLesen(trap, familien::Sollwert2, zweiteGruppe);
    grenzenLesen(trap, familien::Sollwert2Unten, zweiteGruppe, &platform::Sollwert::Untergrenze);
    grenzenLesen(trap, familien::Sollwert2Oben, zweiteGruppe, &platform::Sollwert::Obergrenze);

    // 6. Switches.
    schalterLesen(trap);

    // 7. Drawing numbers.
    zeichnungenLesen(trap);

    // 8. Actual values, on the diagnosis pages.
    if (zustand_.wahl.Seite != 0) diagnoseLesen(trap);

    // 9. A full read ends with the inputs and the footer as they are between two edits.
    if (!nurAuffrischen) {
        EingabeDarstellen(false);
        FußzeileFreigabe(true);
    }
}

void ServoMain::tastenNormal(basic::StatementTrap& trap)
{
    using platform::Fußzeile;
    trap([&] { Fußzeile{kind("Fußzeile")}.Bild(11, display::standardBild(gemeinsam(), "F_Exit")); });
    trap([&] {
        Fußzeile{kind("Fußzeile")}.TextNummer(10, display::fußzeilenText(gemeinsam().AktuelleMaschine, 10));
    });
    trap([&] { Fußzeile{kind("Fußzeile")}.TextNummer(11, 10000); });
    trap([&] { Fußzeile{kind("Fußzeile")}.TextNummer(31, 10000); });
}

void ServoMain::sollwerteLesen(basic::StatementTrap& trap, std::string_view familie, FeldBereich felder)
{
    basic::Variant werte;
    trap([&] { werte = display::ReadValue(module_.umfeld, servoVariable(familie)); });
    for (std::int16_t feld = felder.erstes; feld <= felder.letztes; ++feld) {
        // What the operator has touched stays as it is.
        if (zustand_.bearbeitung.Marken[feld]) continue;
        trap([&] {
            platform::Sollwert{kind(sollwertName(feld), feld)}.Wert(
                basic::element(werte, feld - felder.erstes));
            zustand_.bearbeitung.Gezeigt[feld] = true;
        });
    }
}

void ServoMain::grenzenLesen(
    basic::StatementTrap& trap, std::string_view familie, FeldBereich felder, Sollwertgrenze grenze)
{
    basic::Variant grenzen;
    trap([&] { grenzen = display::ReadValue(module_.umfeld, servoVariable(familie)); });
    // The machine may narrow the limits while the operator edits, so marks do not count here.
    for (std::int16_t feld = felder.erstes; feld <= felder.letztes; ++feld) {
        trap([&] {
            platform::Sollwert sollwert{kind(sollwertName(feld), feld)};
            (sollwert.*grenze)(basic::toText(basic::element(grenzen, feld - felder.erstes)));
        });
    }
}

void ServoMain::schalterLesen(basic::StatementTrap& trap)
{
    std::optional<basic::Variant> wort;
    trap([&] { wort = display::ReadValue(module_.umfeld, servoVariable(familien::Schalter)); });
    for (std::int16_t feld = 31; feld <= 34; ++feld) {
        if (zustand_.bearbeitung.Marken[feld]) continue;
        trap([&] {
            platform::Schalter{kind(schalterName(feld), feld)}.Zustand(
                basic::toInt32(gelesen(wort)) & bitGewicht(feld));
            zustand_.bearbeitung.Gezeigt[feld] = true;
        });
    }
}

void ServoMain::zeichnungenLesen(basic::StatementTrap& trap)
{
    basic::Variant nummern;
    trap([&] { nummern = display::ReadValue(module_.umfeld, servoVariable(familien::Zeichnung)); });
    for (std::int16_t feld = 41; feld <= 42; ++feld) {
        if (zustand_.bearbeitung.Marken[feld]) continue;
        // A number that cannot be split leaves no parts, not three zeros.
        basic::Variant teile;
        trap([&] {
            const ZeichnungsTeile zerlegt =
                zeichnungZerlegen(basic::toDouble(basic::element(nummern, feld - 41)));
            teile = basic::doubles({zerlegt.begin(), zerlegt.end()});
        });
        for (const std::int16_t item : zeichnungsItems(feld)) {
            trap([&] {
                const basic::Variant& teil = basic::element(teile, zeichnungsTeil(item));
                platform::Textanzeige{kind(zeichnungName(item), item)}.Text(
                    basic::Format(teil, zeichnungsMuster(item)));
                zustand_.bearbeitung.Gezeigt[item] = true;
            });
        }
    }
}

void ServoMain::diagnoseLesen(basic::StatementTrap& trap)
{
    const std::string seite = basic::decimal(std::int32_t{zustand_.wahl.Seite});

    basic::Variant werte;
    trap([&] { werte = display::ReadValue(module_.umfeld, servoVariable(familien::Diagnose, seite)); });
    for (std::int16_t item = 101; item <= 120; ++item)
        trap([&] { platform::Istwert{kind("IstWert", item)}.Wert(basic::element(werte, item - 101)); });
    for (std::int16_t item = 121; item <= 140; ++item) {
        trap([&] {
            platform::Label{kind("IstWertTab", item)}.Caption(
                basic::toText(basic::element(werte, item - 101)));
        });
    }

    std::optional<basic::Variant> fehlertext;
    trap(
        [&] { fehlertext = display::ReadValue(module_.umfeld, servoVariable(familien::Fehlertext, seite)); });
    trap([&] { platform::Label{kind("Fehlertext")}.Caption(basic::toText(gelesen(fehlertext))); });
}

} // namespace servopanel::servo_page
