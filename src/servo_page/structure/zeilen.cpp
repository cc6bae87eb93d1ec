#include "basic/arithmetic.h"
#include "basic/conversions.h"
#include "basic/text.h"
#include "platform/facades/textanzeige.h"
#include "servo_page/servo_main.h"
#include "servo_page/structure/entwurf.h"
#include "servo_page/structure/text_nummern.h"

#include <optional>

namespace servopanel::servo_page {

using basic::StatementTrap;
using platform::ChildId;
using platform::Facade;
using platform::Textanzeige;

// The machine's definitions leave this field out. Without definitions nothing is left out.
bool ServoMain::feldFehlt(std::int16_t feld)
{
    const std::optional<Familie> familie = familieDesFelds(feld);
    return familie && module_.servoModul.ParamDefAnzahl() > 0 && definitionsPosition(*familie) < 1;
}

void ServoMain::sollwertzeile(StatementTrap& trap, std::int16_t feld)
{
    const ChildId beschriftung{beschriftungName(feld), feld};
    const ChildId beschriftung2{beschriftung2Name(feld), feld};
    const ChildId einheit{einheitName(feld), feld};
    const ChildId eingabe{sollwertName(feld), feld};

    const std::optional<bool> fehlt = trap.decision([&] { return feldFehlt(feld); });
    if (!fehlt) return;
    if (*fehlt) {
        for (const ChildId& id : {beschriftung, beschriftung2, einheit, eingabe})
            zeigen(trap, id, false);
        return;
    }

    // 1. Caption and unit at the middle of the input.
    mittigNeben(trap, beschriftung, eingabe);
    mittigNeben(trap, einheit, eingabe);

    // 2. and 3. Text; a caption too long for its line takes two.
    std::optional<std::string> text;
    trap([&] { text = sprachtext(textNummer(TextArt::Beschriftung, feld)); });
    if (text) {
        std::string worte;
        std::string maßeinheit;
        TextAufdröseln(*text, worte, maßeinheit);
        umbrechen(trap, feld, worte);
        trap([&] { Textanzeige{kind(einheit.name, feld)}.Text(maßeinheit); });
    }

    // 4. The whole row.
    for (const ChildId& id : {beschriftung, einheit, eingabe})
        zeigen(trap, id, true);
    band(trap, feld, eingabe);
}

// Switches have captions that follow the language by themselves and no unit.
void ServoMain::schalterzeile(StatementTrap& trap, std::int16_t feld)
{
    const ChildId beschriftung{beschriftungName(feld), feld};
    const ChildId schalter{schalterName(feld), feld};

    const std::optional<bool> fehlt = trap.decision([&] { return feldFehlt(feld); });
    if (!fehlt) return;
    if (!*fehlt) {
        mittigNeben(trap, beschriftung, schalter);
        trap([&] { indirekterText(beschriftung, textNummer(TextArt::Beschriftung, feld)); });
    }
    zeigen(trap, schalter, !*fehlt);
    zeigen(trap, beschriftung, !*fehlt);
    if (!*fehlt) band(trap, feld, schalter);
}

// Three parts with a point between each two.
void ServoMain::zeichnungszeile(StatementTrap& trap, std::int16_t feld)
{
    const ChildId beschriftung{beschriftungName(feld), feld};

    const std::optional<bool> fehlt = trap.decision([&] { return feldFehlt(feld); });
    if (!fehlt) return;
    if (!*fehlt) {
        mittigNeben(trap, beschriftung, {zeichnungName(feld), feld});
        trap([&] { indirekterText(beschriftung, textNummer(TextArt::Beschriftung, feld)); });
    }
    zeigen(trap, beschriftung, !*fehlt);
    for (const std::int16_t item : zeichnungsItems(feld)) {
        zeigen(trap, {zeichnungName(item), item}, !*fehlt);
        if (item == feld) continue;
        if (!*fehlt) trap([&] { indirekterText({punktName(item), item}, textNummer(TextArt::Punkt, item)); });
        zeigen(trap, {punktName(item), item}, !*fehlt);
    }
    if (!*fehlt) band(trap, feld, {zeichnungName(feld), feld});
}

void ServoMain::mittigNeben(StatementTrap& trap, ChildId anzeige, ChildId eingabe)
{
    trap([&] {
        const Facade neben{kind(eingabe.name, eingabe.index)};
        Facade zentriert{kind(anzeige.name, anzeige.index)};
        zentriert.Top(neben.Top() + (neben.Height() - zentriert.Height()) / 2);
    });
}

// Two lines touch at the middle of the input; a caption without a blank stays in one, however long.
void ServoMain::umbrechen(StatementTrap& trap, std::int16_t feld, const std::string& worte)
{
    const ChildId beschriftung{beschriftungName(feld), feld};
    const ChildId beschriftung2{beschriftung2Name(feld), feld};
    const std::size_t letztesLeerzeichen = worte.rfind(' ');

    const std::optional<bool> zweiZeilen = trap.decision(
        [&] { return letztesLeerzeichen != std::string::npos && breiterAlsErlaubt(beschriftung, worte); });
    if (!zweiZeilen) return;
    if (!*zweiZeilen) {
        trap([&] { Textanzeige{kind(beschriftung.name, feld)}.Text(worte); });
        zeigen(trap, beschriftung2, false);
        return;
    }

    const std::string_view text = worte;
    const auto mitte = [&] {
        const Facade eingabe{kind(sollwertName(feld), feld)};
        return eingabe.Top() + eingabe.Height() / 2;
    };
    trap([&] {
        Textanzeige{kind(beschriftung.name, feld)}.Text(basic::trim(text.substr(0, letztesLeerzeichen)));
    });
    trap([&] {
        Textanzeige{kind(beschriftung2.name, feld)}.Text(basic::trim(text.substr(letztesLeerzeichen)));
    });
    zeigen(trap, beschriftung2, true);
    trap([&] {
        Textanzeige oben{kind(beschriftung.name, feld)};
        oben.Top(mitte() - oben.Height());
    });
    trap([&] { Textanzeige{kind(beschriftung2.name, feld)}.Top(mitte()); });
}

void ServoMain::indirekterText(ChildId anzeige, std::int16_t nummer)
{
    Textanzeige{kind(anzeige.name, anzeige.index)}.Text("@" + textSchlüssel(nummer));
}

// The band reaches down to the top of the next row, so that bands lie against each other.
void ServoMain::band(StatementTrap& trap, std::int16_t feld, ChildId eingabe)
{
    trap([&] {
        const float entwurfUnten = entwurf::zeileOben(feld) + entwurf::zeilenHöhe;
        const std::int16_t unten = module_.global.KorrekturTwipPix(
            basic::single(double{entwurfUnten} * double{gemeinsam().FaktorY}), false, 15, 15);
        const std::int16_t oben = basic::roundToInt16(Facade{kind(eingabe.name, eingabe.index)}.Top());
        const std::int16_t hälfte = istLinkeHälfte(feld) ? 1 : 2;
        ZeichnenDesMainBereichsTeile({"MainBereich", hälfte}, oben, unten, true);
    });
}

} // namespace servopanel::servo_page
