#include "platform/facades/ini_eingabe.h"

#include "platform/facades/textanzeige.h"
#include "servo_page/servo_main.h"

namespace servopanel::servo_page {

void ServoMain::IniEingabe_EingabeFertig()
{
    basic::StatementTrap trap{fehler(), "Ma IniEingabe_EingabeFertig"};
    using platform::IniEingabe;
    const std::int16_t ziel = zustand_.bearbeitung.EditorZiel;

    if (istZeichnung(ziel)) {
        // 1. A drawing number has no limits, only an access level.
        const std::int16_t feld = zeichnungsFeld(ziel);
        trap([&] { zustand_.Definitionen[feld - 1].Pass = IniEingabe{kind("IniEingabe")}.Pass(); });
        for (const std::int16_t item : zeichnungsItems(feld))
            trap([&] { platform::Textanzeige{kind(zeichnungName(item), item)}.Hintergrund(farben::Silber); });
    } else {
        // 2. Everything else has both.
        trap([&] { zustand_.Definitionen[ziel - 1].Min = IniEingabe{kind("IniEingabe")}.Min(); });
        trap([&] { zustand_.Definitionen[ziel - 1].Max = IniEingabe{kind("IniEingabe")}.Max(); });
        trap([&] { zustand_.Definitionen[ziel - 1].Pass = IniEingabe{kind("IniEingabe")}.Pass(); });
    }

    // 3. Close the editor, keep the definition for good and show what it means now.
    trap([&] { IniEingabe{kind("IniEingabe")}.Offen(false); });
    trap([&] { IniEingabe{kind("IniEingabe")}.Visible(false); });
    IniSchreiben();
    EingabeDarstellen(false);
    FußzeileFreigabe(true);
    SeiteUmschalten(false);
}

// Every way out of the editor ends in EingabeFertig; losing the focus alone, as to a message box, changes nothing.
void ServoMain::IniEingabe_LostFocus() { }

} // namespace servopanel::servo_page
