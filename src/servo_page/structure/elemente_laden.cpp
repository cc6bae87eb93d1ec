#include "basic/text.h"
#include "platform/facades/intrinsic.h"
#include "platform/facades/sollwert.h"
#include "platform/facades/textanzeige.h"
#include "servo_page/servo_main.h"
#include "servo_page/structure/entwurf.h"

namespace servopanel::servo_page {

using basic::StatementTrap;
using platform::ChildId;

void ServoMain::laden(StatementTrap& trap, ChildId id)
{
    trap([&] { platform_.form.load(id); });
}

// Step 10 of BildInit, one row: caption, second caption line, unit and input, and the edit variable of the input.
void ServoMain::sollwertzeileLaden(StatementTrap& trap, std::int16_t feld)
{
    const ChildId beschriftung{beschriftungName(feld), feld};
    const ChildId beschriftung2{beschriftung2Name(feld), feld};
    const ChildId einheit{einheitName(feld), feld};
    const ChildId eingabe{sollwertName(feld), feld};

    laden(trap, beschriftung);
    laden(trap, beschriftung2);
    laden(trap, einheit);
    laden(trap, eingabe);
    trap([&] {
        platform::Sollwert{kind(eingabe.name, feld)}.VariablenName(
            "Ch-1.intern_v<.l2_" + basic::Format(feld, "00") + ">");
    });
    platzieren(trap, beschriftung, entwurf::beschriftung(feld), Schrift::Behalten, nebenEingabe());
    platzieren(trap, beschriftung2, entwurf::beschriftung2(feld), Schrift::Behalten, nebenEingabe());
    platzieren(trap, einheit, entwurf::einheit(feld));
    platzieren(trap, eingabe, entwurf::eingabe(feld));
}

// Step 11 of BildInit begins here: two switches in each half, each with a caption of the half's array.
void ServoMain::schalterAnlegen(StatementTrap& trap)
{
    for (std::int16_t feld = 31; feld <= 34; ++feld) {
        const ChildId beschriftung{beschriftungName(feld), feld};
        const ChildId schalter{schalterName(feld), feld};
        const bool imFormular = feld == 31 || feld == 33;

        laden(trap, beschriftung);
        platzieren(trap, beschriftung, entwurf::beschriftung(feld), Schrift::Behalten, nebenEingabe());
        if (imFormular) continue;
        laden(trap, schalter);
        platzieren(trap, schalter, entwurf::eingabe(feld));
    }
}

// Three parts to a drawing number; the points stand in front of the second and the third.
void ServoMain::zeichnungenAnlegen(StatementTrap& trap)
{
    for (std::int16_t feld = 41; feld <= 42; ++feld) {
        const ChildId beschriftung{beschriftungName(feld), feld};

        laden(trap, beschriftung);
        platzieren(trap, beschriftung, entwurf::beschriftung(feld), Schrift::Behalten, nebenEingabe());
        for (const std::int16_t item : zeichnungsItems(feld)) {
            if (item == feld) continue;
            laden(trap, {zeichnungName(item), item});
            platzieren(trap, {zeichnungName(item), item}, entwurf::zeichnung(item));
            laden(trap, {punktName(item), item});
            platzieren(trap, {punktName(item), item}, entwurf::punkt(item));
        }
    }
}

// Lines 101 to 120 of the diagnosis pages and the titles 121 and 122 of their table. Every line has a value, so that a
// refresh may write all of them; headings just do not show theirs.
void ServoMain::diagnosezeilenAnlegen(StatementTrap& trap)
{
    for (std::int16_t zeile = 102; zeile <= 122; ++zeile) {
        laden(trap, {"Beschriftung", zeile});
        platzieren(trap, {"Beschriftung", zeile}, entwurf::diagnoseBeschriftung(zeile), Schrift::Behalten,
            diagnoseKorrektur(zeile));
        if (entwurf::istTabellenTitel(zeile)) continue;
        laden(trap, {"Einheit", zeile});
        platzieren(trap, {"Einheit", zeile}, entwurf::diagnoseEinheit(zeile));
        laden(trap, {"IstWert", zeile});
        platzieren(trap, {"IstWert", zeile}, entwurf::istWert(zeile));
    }
    diagnosezeilenZeigen(trap);
}

// Headings in bold. Only now: a loaded element would have been bold like the first one.
void ServoMain::diagnosezeilenZeigen(StatementTrap& trap)
{
    for (std::int16_t zeile = 101; zeile <= 122; ++zeile) {
        zeigen(trap, {"Beschriftung", zeile}, true);
        if (entwurf::istÜberschriftZeile(zeile) || entwurf::istTabellenTitel(zeile)) {
            trap([&] { platform::Textanzeige{kind("Beschriftung", zeile)}.FontBold(true); });
            continue;
        }
        zeigen(trap, {"Einheit", zeile}, true);
        zeigen(trap, {"IstWert", zeile}, true);
    }
}

// Cells 121 to 140, then the column headings in bold.
void ServoMain::tabelleAnlegen(StatementTrap& trap)
{
    for (std::int16_t zelle = 122; zelle <= 140; ++zelle) {
        laden(trap, {"IstWertTab", zelle});
        platzieren(trap, {"IstWertTab", zelle}, entwurf::istWertTab(zelle));
    }
    for (std::int16_t zelle = 121; zelle <= 140; ++zelle) {
        if (entwurf::istSpaltenKopf(zelle))
            trap([&] { platform::Label{kind("IstWertTab", zelle)}.FontBold(true); });
        zeigen(trap, {"IstWertTab", zelle}, true);
    }
}

void ServoMain::zeigen(StatementTrap& trap, ChildId id, bool sichtbar)
{
    trap([&] { platform::Facade{kind(id.name, id.index)}.Visible(sichtbar); });
}

} // namespace servopanel::servo_page
