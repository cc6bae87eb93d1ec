#include "platform/facades/schalter.h"
#include "platform/facades/textanzeige.h"
#include "servo_page/servo_main.h"

namespace servopanel::servo_page {

void ServoMain::EingabeDarstellen(bool markenBehalten)
{
    basic::StatementTrap trap{fehler(), "Ma EingabeDarstellen"};

    for (std::int16_t feld = 1; feld <= letztesFeld; ++feld) {
        if (!familieDesFelds(feld)) continue;

        // 1. Locked is what asks for more than the operator's access level.
        const bool frei = zustand_.Definitionen[feld - 1].Pass <= zustand_.aufbau.ZugriffsStufe;

        // 2. and 3. Switch and colour of the input, then the colour of its captions.
        if (istSollwert(feld))
            sollwertDarstellen(trap, feld, frei, markenBehalten);
        else if (istSchalter(feld))
            trap([&] { platform::Schalter{kind(schalterName(feld), feld)}.Freigabe(frei); });
        else
            zeichnungDarstellen(trap, feld, frei, markenBehalten);
        beschriftungDarstellen(trap, feld, frei);
    }
}

void ServoMain::sollwertDarstellen(
    basic::StatementTrap& trap, std::int16_t feld, bool frei, bool markenBehalten)
{
    const std::string_view name = sollwertName(feld);
    trap([&] { platform::Sollwert{kind(name, feld)}.Enabled(frei); });
    if (!frei) {
        trap([&] { platform::Sollwert{kind(name, feld)}.Vordergrund(farben::Grau); });
        return;
    }
    trap([&] {
        platform::Sollwert sollwert{kind(name, feld)};
        if (sollwert.Vordergrund() != farben::Grün || !markenBehalten) sollwert.Vordergrund(farben::Schwarz);
    });
}

void ServoMain::zeichnungDarstellen(
    basic::StatementTrap& trap, std::int16_t feld, bool frei, bool markenBehalten)
{
    const std::string_view name = zeichnungName(feld);
    for (const std::int16_t item : zeichnungsItems(feld))
        trap([&] { platform::Textanzeige{kind(name, item)}.Enabled(frei); });
    for (const std::int16_t item : zeichnungsItems(feld)) {
        if (!frei) {
            trap([&] { platform::Textanzeige{kind(name, item)}.Farbe(farben::Grau); });
            continue;
        }
        trap([&] {
            platform::Textanzeige teil{kind(name, item)};
            if (teil.Farbe() != farben::Grün || !markenBehalten) teil.Farbe(farben::Schwarz);
        });
    }
}

void ServoMain::beschriftungDarstellen(basic::StatementTrap& trap, std::int16_t feld, bool frei)
{
    const std::int32_t farbe = frei ? farben::Schwarz : farben::Grau;
    trap([&] { platform::Textanzeige{kind(beschriftungName(feld), feld)}.Farbe(farbe); });
    // Only setpoints have a second caption line and a unit.
    if (!istSollwert(feld)) return;
    trap([&] { platform::Textanzeige{kind(beschriftung2Name(feld), feld)}.Farbe(farbe); });
    trap([&] { platform::Textanzeige{kind(einheitName(feld), feld)}.Farbe(farbe); });
}

} // namespace servopanel::servo_page
