#include "basic/conversions.h"
#include "basic/text.h"
#include "platform/facades/fusszeile.h"
#include "platform/facades/schalter.h"
#include "platform/facades/textanzeige.h"
#include "servo_page/servo_main.h"
#include "servo_page/values/gelesen.h"
#include "servo_page/values/zeichnungsnummer.h"

namespace servopanel::servo_page {

void ServoMain::WerteSchreiben()
{
    basic::StatementTrap trap{fehler(), "Ma WerteSchreiben"};
    using platform::Fußzeile;

    // 1. From here on nothing waits to be written.
    zustand_.bearbeitung.Geaendert = display::falsch;

    // 2. Take confirm and cancel off the footer.
    trap([&] { Fußzeile{kind("Fußzeile")}.Farbe(10, farben::Silber); });
    trap([&] { Fußzeile{kind("Fußzeile")}.Freigabe(10, false); });
    trap([&] { Fußzeile{kind("Fußzeile")}.Bild(10, zustand_.fußzeile.Tasten[10].Bild); });
    tastenNormal(trap);

    // 3. Show what the machine holds in all fields that were not touched.
    WerteLesen(true);

    // 4. to 7. Every family is read anew, gets the touched fields and goes back whole, so that a parameter that nobody
    // touched keeps the machine's value of this moment.
    sollwerteSchreiben(trap, familien::Sollwert, ersteGruppe);
    sollwerteSchreiben(trap, familien::Sollwert2, zweiteGruppe);
    schalterSchreiben(trap);
    zeichnungenSchreiben(trap);

    // 8. Nothing is marked any more.
    zustand_.bearbeitung.Marken.fill(false);

    // 9. Inputs and footer as they are between two edits.
    EingabeDarstellen(false);
    FußzeileFreigabe(true);
}

void ServoMain::sollwerteSchreiben(basic::StatementTrap& trap, std::string_view familie, FeldBereich felder)
{
    basic::Variant werte;
    trap([&] { werte = display::ReadValue(module_.umfeld, servoVariable(familie)); });
    for (std::int16_t feld = felder.erstes; feld <= felder.letztes; ++feld) {
        if (!zustand_.bearbeitung.Marken[feld]) continue;
        trap([&] {
            nurGezeigtes(feld);
            const basic::Variant wert = platform::Sollwert{kind(sollwertName(feld), feld)}.Wert();
            basic::setElement(werte, feld - felder.erstes, wert);
        });
    }
    trap([&] {
        const basic::Variant& ganz = geleseneFamilie(werte);
        display::WriteValue(module_.umfeld, servoVariable(familie), ganz);
    });
}

void ServoMain::schalterSchreiben(basic::StatementTrap& trap)
{
    basic::Variant wort;
    trap([&] { wort = display::ReadValue(module_.umfeld, servoVariable(familien::Schalter)); });
    // LEGACY: the bits above those of the four switches are not carried over, they become 0.
    std::int32_t neu = 0;
    for (std::int16_t feld = 31; feld <= 34; ++feld) {
        const bool berührt = zustand_.bearbeitung.Marken[feld];
        if (berührt) trap([&] { nurGezeigtes(feld); });
        trap([&] {
            const bool ein = berührt && zustand_.bearbeitung.Gezeigt[feld]
                ? platform::Schalter{kind(schalterName(feld), feld)}.Zustand()
                : (gelesenesWort(wort) & bitGewicht(feld)) != 0;
            if (ein) neu += bitGewicht(feld);
        });
    }
    trap([&] {
        static_cast<void>(gelesenesWort(wort));
        display::WriteValue(module_.umfeld, servoVariable(familien::Schalter), neu);
    });
}

void ServoMain::zeichnungenSchreiben(basic::StatementTrap& trap)
{
    basic::Variant nummern;
    trap([&] { nummern = display::ReadValue(module_.umfeld, servoVariable(familien::Zeichnung)); });
    for (std::int16_t feld = 41; feld <= 42; ++feld) {
        if (!zustand_.bearbeitung.Marken[feld]) continue;
        trap([&] { basic::setElement(nummern, feld - 41, gezeigteZeichnung(feld)); });
    }
    trap([&] {
        const basic::Variant& ganz = geleseneFamilie(nummern);
        display::WriteValue(module_.umfeld, servoVariable(familien::Zeichnung), ganz);
    });
}

// DEVIATION: a touched input that shows nothing of this servo keeps the machine's value instead of passing on what it
// happens to show.
void ServoMain::nurGezeigtes(std::int16_t eingabe)
{
    if (!zustand_.bearbeitung.Gezeigt[eingabe]) basic::raise(basic::ErrorNumber::TypeMismatch);
}

// The number that the three items of field 41 or 42 show. One that stands there from another servo spoils it all.
double ServoMain::gezeigteZeichnung(std::int16_t feld)
{
    ZeichnungsTeile teile{};
    for (const std::int16_t item : zeichnungsItems(feld)) {
        nurGezeigtes(item);
        teile[static_cast<std::size_t>(zeichnungsTeil(item))] =
            basic::Val(platform::Textanzeige{kind(zeichnungName(item), item)}.Text());
    }
    return zeichnungZusammensetzen(teile);
}

} // namespace servopanel::servo_page
