#include "platform/facades/eingabemaske.h"

#include "basic/text.h"
#include "platform/facades/fusszeile.h"
#include "platform/facades/textanzeige.h"
#include "servo_page/servo_main.h"
#include "servo_page/values/zeichnungsnummer.h"

namespace servopanel::servo_page {

void ServoMain::Eingabemaske_EingabeAenderung()
{
    basic::StatementTrap trap{fehler(), "Ma Eingabemaske_EingabeAenderung"};
    using platform::Fußzeile;

    // 1. There is something to write.
    zustand_.bearbeitung.Geaendert = display::wahr;
    geändertFärben(trap);

    // 2. Keys 10 and 11 become confirm and cancel.
    trap([&] { Fußzeile{kind("Fußzeile")}.Bild(10, "Standard\\OK.wmf"); });
    trap([&] { Fußzeile{kind("Fußzeile")}.Bild(11, "Standard\\ESC.wmf"); });
    trap([&] { Fußzeile{kind("Fußzeile")}.TextNummer(10, 10000); });
    trap([&] { Fußzeile{kind("Fußzeile")}.TextNummer(11, 10000); });

    // 3. From now on the keys mean that, too.
    zustand_.bearbeitung.Bestaetigen = display::wahr;

    // 4. Offer them.
    trap([&] { Fußzeile{kind("Fußzeile")}.Freigabe(10, true); });
    trap([&] { Fußzeile{kind("Fußzeile")}.Freigabe(11, true); });
}

// The open mask has changed its input: green until it is written. A toggled switch comes here with nothing in the mask
// and has no colour.
void ServoMain::geändertFärben(basic::StatementTrap& trap)
{
    const std::int16_t sollwert = zustand_.bearbeitung.AktiverSollwert;
    const std::int16_t item = zustand_.bearbeitung.AktiveZeichnung;
    if (!istZeichnung(item) && !istSollwert(sollwert)) return;
    if (!trap.condition([&] { return platform::Eingabemaske{kind("Eingabemaske")}.Offen(); })) return;
    if (istZeichnung(item))
        trap([&] {
            zustand_.bearbeitung.Gezeigt[item] = true;
            platform::Textanzeige{kind(zeichnungName(item), item)}.Farbe(farben::Grün);
        });
    else
        trap([&] {
            zustand_.bearbeitung.Gezeigt[sollwert] = true;
            platform::Sollwert{kind(sollwertName(sollwert), sollwert)}.Vordergrund(farben::Grün);
        });
}

void ServoMain::Eingabemaske_Eingabefertig()
{
    basic::StatementTrap trap{fehler(), "Ma Eingabemaske_Eingabefertig"};

    // 1. Close the mask.
    trap([&] { platform::Eingabemaske{kind("Eingabemaske")}.Offen(false); });
    trap([&] { platform::Eingabemaske{kind("Eingabemaske")}.Visible(false); });

    // 2. Bring an edited part back into its drawing number.
    if (const std::int16_t item = zustand_.bearbeitung.AktiveZeichnung; istZeichnung(item)) {
        trap([&] {
            platform::Textanzeige{kind(zeichnungName(item), item)}.Text(
                basic::Format(platform::Sollwert{kind("Pseudo")}.Wert(), zeichnungsMuster(item)));
        });
        trap([&] { platform::Textanzeige{kind(zeichnungName(item), item)}.Hintergrund(farben::Silber); });
    }
    zustand_.bearbeitung.AktiverSollwert = 0;
    zustand_.bearbeitung.AktiveZeichnung = 0;

    // 3. Open the inputs again; what was changed stays green.
    EingabeDarstellen(true);

    // 4. Offer to confirm, or go back to normal when nothing waits to be written.
    if (zustand_.bearbeitung.Geaendert != display::falsch) {
        Eingabemaske_EingabeAenderung();
    } else {
        FußzeileFreigabe(true);
        SeiteUmschalten(false);
    }
}

} // namespace servopanel::servo_page
