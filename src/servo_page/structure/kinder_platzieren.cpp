#include "basic/arithmetic.h"
#include "servo_page/servo_main.h"
#include "servo_page/structure/entwurf.h"

namespace servopanel::servo_page {

using basic::StatementTrap;
using platform::ChildId;

// Every length is scaled and snapped by itself, so that elements that touch in the design touch on every panel.
void ServoMain::platzieren(
    StatementTrap& trap, ChildId id, const entwurf::Rechteck& platz, Schrift schrift, Korrektur korrektur)
{
    const auto eingerastet = [this](float twips, bool waagrecht) {
        const float faktor = waagrecht ? gemeinsam().FaktorX : gemeinsam().FaktorY;
        return module_.global.KorrekturTwipPix(
            basic::single(double{twips} * double{faktor}), waagrecht, 15, 15);
    };

    trap([&] {
        display::PosAngaben angaben;
        angaben.höhe = eingerastet(platz.höhe, false);
        angaben.links = basic::add16(eingerastet(platz.links, true), korrektur.versatz);
        angaben.oben = eingerastet(platz.oben, false);
        angaben.breite = basic::subtract16(eingerastet(platz.breite, true), korrektur.breite);
        angaben.schriftAnpassen = schrift == Schrift::Anpassen;
        module_.global.PosObjekt(*kind(id.name, id.index), angaben);
    });
}

// Step 9 of BildInit. The first element of an array passes its font on to those that are loaded after it.
void ServoMain::kinderPlatzieren(StatementTrap& trap)
{
    platzieren(trap, {"Überschrift"}, entwurf::überschrift, Schrift::Anpassen);
    platzieren(trap, {"ParaPic"}, entwurf::paraPic);
    platzieren(trap, {"ParaBeschriftung", 0}, entwurf::paraBeschriftung, Schrift::Anpassen);
    for (std::int16_t hälfte = 1; hälfte <= 2; ++hälfte) {
        platzieren(trap, {"MainRahmen", hälfte}, entwurf::mainRahmen(hälfte));
        platzieren(trap, {"MainBereich", hälfte}, entwurf::mainBereich);
    }
    halbePlatzieren(trap, 1, 31, 41);
    halbePlatzieren(trap, 11, 33, 42);
    platzieren(trap, {"ScrollBar"}, entwurf::scrollBar);
    diagnosePlatzieren(trap);
    platzieren(trap, {"Fußzeile"}, entwurf::fußzeile);
    platzieren(trap, {"Eingabemaske"}, entwurf::maske);
    platzieren(trap, {"IniEingabe"}, entwurf::maske);
}

// The first setpoint row, switch and drawing number of a half.
void ServoMain::halbePlatzieren(
    StatementTrap& trap, std::int16_t sollwert, std::int16_t schalter, std::int16_t zeichnung)
{
    platzieren(trap, {beschriftungName(sollwert), sollwert}, entwurf::beschriftung(sollwert),
        Schrift::Anpassen, nebenEingabe());
    platzieren(trap, {beschriftung2Name(sollwert), sollwert}, entwurf::beschriftung2(sollwert),
        Schrift::Anpassen, nebenEingabe());
    platzieren(trap, {einheitName(sollwert), sollwert}, entwurf::einheit(sollwert), Schrift::Anpassen);
    platzieren(trap, {sollwertName(sollwert), sollwert}, entwurf::eingabe(sollwert), Schrift::Anpassen);
    platzieren(trap, {schalterName(schalter), schalter}, entwurf::eingabe(schalter));
    platzieren(trap, {zeichnungName(zeichnung), zeichnung}, entwurf::zeichnung(zeichnung), Schrift::Anpassen);
    platzieren(trap, {punktName(zeichnung), zeichnung}, entwurf::punkt(zeichnung), Schrift::Anpassen);
}

void ServoMain::diagnosePlatzieren(StatementTrap& trap)
{
    platzieren(trap, {"DetailBox"}, entwurf::detailBox);
    platzieren(trap, {"Beschriftung", 101}, entwurf::diagnoseBeschriftung(101), Schrift::Anpassen,
        diagnoseKorrektur(101));
    platzieren(trap, {"Einheit", 101}, entwurf::diagnoseEinheit(101), Schrift::Anpassen);
    platzieren(trap, {"IstWert", 101}, entwurf::istWert(101), Schrift::Anpassen);
    platzieren(trap, {"IstWertTab", 121}, entwurf::istWertTab(121), Schrift::Anpassen);
    platzieren(trap, {"Fehlertext"}, entwurf::fehlertext, Schrift::Anpassen);
}

Korrektur ServoMain::nebenEingabe() const
{
    return {zustand_.aufbau.TextVersatz, zustand_.aufbau.KorrekturSchmal};
}

// Headings keep the wide correction free before the next column, captions of values the narrow one before the value.
Korrektur ServoMain::diagnoseKorrektur(std::int16_t zeile) const
{
    const bool breit = entwurf::istÜberschriftZeile(zeile) || entwurf::istTabellenTitel(zeile);
    return {0, breit ? zustand_.aufbau.KorrekturBreit : zustand_.aufbau.KorrekturSchmal};
}

} // namespace servopanel::servo_page
