#include "platform/facades/textanzeige.h"
#include "servo_page/servo_main.h"
#include "servo_page/structure/text_nummern.h"

#include <optional>

namespace servopanel::servo_page {

using basic::StatementTrap;
using platform::Textanzeige;

namespace {

// Texts are numbered 80 below the loop value; each diagnosis page fills the same lines from texts of its own.
constexpr std::int16_t textAbstand = 80;

struct Textgruppe {
    std::int16_t erster; // loop values
    std::int16_t letzter;
    std::int16_t seite;
    std::int16_t ersteZeile;
    bool mitEinheit;
};

constexpr Textgruppe textgruppen[]{
    {111, 112, 1, 121, false},
    {121, 140, 1, 101, true},
    {151, 152, 2, 121, false},
    {161, 180, 2, 101, true},
};

} // namespace

void ServoMain::hauptbereichTexte(StatementTrap& trap)
{
    const std::int16_t seite = zustand_.wahl.Seite;

    for (std::int16_t i = 1; i <= 180; ++i) {
        // LEGACY: the places of both diagnosis headings set the heading of the shown page, so it is fetched twice.
        if (i == 30 || i == 70) {
            trap([&] {
                Textanzeige{kind("Überschrift")}.Text(sprachtext(textNummer(TextArt::Überschrift, seite)));
            });
            continue;
        }
        for (const Textgruppe& gruppe : textgruppen) {
            if (i < gruppe.erster || i > gruppe.letzter || seite != gruppe.seite) continue;
            textZeile(trap, static_cast<std::int16_t>(i - textAbstand),
                static_cast<std::int16_t>(gruppe.ersteZeile + i - gruppe.erster), gruppe.mitEinheit);
            break;
        }
    }
}

// A line of a diagnosis page. Without its text it stays as it is.
void ServoMain::textZeile(StatementTrap& trap, std::int16_t nummer, std::int16_t zeile, bool mitEinheit)
{
    std::optional<std::string> text;
    trap([&] { text = sprachtext(nummer); });
    if (!text) return;

    if (!mitEinheit) {
        trap([&] { Textanzeige{kind("Beschriftung", zeile)}.Text(*text); });
        return;
    }
    std::string beschriftung;
    std::string einheit;
    TextAufdröseln(*text, beschriftung, einheit);
    trap([&] { Textanzeige{kind("Beschriftung", zeile)}.Text(beschriftung); });
    trap([&] { Textanzeige{kind("Einheit", zeile)}.Text(einheit); });
}

} // namespace servopanel::servo_page
