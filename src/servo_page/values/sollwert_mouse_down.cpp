#include "basic/text.h"
#include "platform/facades/eingabemaske.h"
#include "platform/facades/ini_eingabe.h"
#include "platform/facades/schalter.h"
#include "platform/facades/sprachtext.h"
#include "platform/facades/textanzeige.h"
#include "servo_page/servo_main.h"
#include "servo_page/values/zeichnungsnummer.h"

namespace servopanel::servo_page {

void ServoMain::Sollwert_MouseDown(
    std::int16_t feld, std::int16_t /*taste*/, std::int16_t /*umschalt*/, float /*x*/, float /*y*/)
{
    basic::StatementTrap trap{fehler(), "Ma Sollwert_MouseDown"};

    // 1. A user without permission is told so.
    if (zustand_.aufbau.EingabeErlaubt == display::falsch) {
        trap([&] {
            module_.umfeld.platform.messages.show(
                platform::Sprachtext{kind("VWLanguage")}.Text("Standard.15000"));
        });
        return;
    }

    // 2. In the second input mode the touch concerns the definition, not the value.
    if (zustand_.bearbeitung.ZweiterModus != display::falsch) {
        definitionBearbeiten(trap, feld);
        return;
    }

    // 3. One edit at a time.
    if (eingabeOffen(trap)) return;

    // 4. A switch changes at once.
    if (istSchalter(feld)) {
        schalterUmlegen(trap, feld);
        return;
    }

    // 5. While the mask is open no other input takes a touch.
    eingabenAbschalten(trap);

    // 6. to 8. Point the mask at what it edits; the page has no other items.
    if (istSollwert(feld)) sollwertBearbeiten(trap, feld);
    if (istZeichnung(feld)) zeichnungBearbeiten(trap, feld);

    // 9. Open the mask beside the touched half and withdraw the footer.
    eingabePlatzieren(trap, "Eingabemaske", feld);
    trap([&] { platform::Eingabemaske{kind("Eingabemaske")}.Offen(true); });
    trap([&] { platform::Eingabemaske{kind("Eingabemaske")}.Visible(true); });
    FußzeileFreigabe(false);
}

bool ServoMain::eingabeOffen(basic::StatementTrap& trap)
{
    return trap.condition([&] {
        return platform::Eingabemaske{kind("Eingabemaske")}.Offen()
            || platform::IniEingabe{kind("IniEingabe")}.Offen();
    });
}

void ServoMain::eingabenAbschalten(basic::StatementTrap& trap)
{
    for (std::int16_t feld = ersteGruppe.erstes; feld <= zweiteGruppe.letztes; ++feld)
        trap([&] { platform::Sollwert{kind(sollwertName(feld), feld)}.Enabled(false); });
    for (std::int16_t feld = 41; feld <= 42; ++feld) {
        for (const std::int16_t item : zeichnungsItems(feld))
            trap([&] { platform::Textanzeige{kind(zeichnungName(item), item)}.Enabled(false); });
    }
}

// Mask and editor stand over the half that was not touched. LEGACY: left fields from 10 on have the place of the right
// half; their rows lie below the mask.
void ServoMain::eingabePlatzieren(basic::StatementTrap& trap, std::string_view eingabe, std::int16_t feld)
{
    trap([&] { platform::Facade{kind(eingabe)}.Top(basic::single(2235.0 * gemeinsam().FaktorY)); });
    trap([&] {
        platform::Facade{kind(eingabe)}.Left(
            basic::single((feld >= 10 ? 3210.0 : 11810.0) * gemeinsam().FaktorX));
    });
}

void ServoMain::schalterUmlegen(basic::StatementTrap& trap, std::int16_t feld)
{
    zustand_.bearbeitung.Marken[feld] = true;
    trap([&] {
        platform::Schalter schalter{kind(schalterName(feld), feld)};
        schalter.Zustand(!schalter.Zustand());
    });
    FußzeileFreigabe(false);
    Eingabemaske_EingabeAenderung();
}

void ServoMain::sollwertBearbeiten(basic::StatementTrap& trap, std::int16_t feld)
{
    zustand_.bearbeitung.Marken[feld] = true;
    zustand_.bearbeitung.AktiverSollwert = feld;
    trap([&] { platform::Eingabemaske{kind("Eingabemaske")}.Ziel(kind(sollwertName(feld), feld)); });
}

// The mask edits numbers within limits, a drawing item is a text: Pseudo stands in for it.
void ServoMain::zeichnungBearbeiten(basic::StatementTrap& trap, std::int16_t item)
{
    zustand_.bearbeitung.Marken[zeichnungsFeld(item)] = true;
    trap([&] { platform::Sollwert{kind("Pseudo")}.Untergrenze("0"); });
    trap([&] { platform::Sollwert{kind("Pseudo")}.Obergrenze(zeichnungsObergrenze(item)); });
    trap([&] { platform::Textanzeige{kind(zeichnungName(item), item)}.Hintergrund(farben::Hellgrün); });
    trap([&] {
        platform::Sollwert{kind("Pseudo")}.Wert(
            basic::Val(platform::Textanzeige{kind(zeichnungName(item), item)}.Text()));
    });
    zustand_.bearbeitung.AktiveZeichnung = item;
    trap([&] { platform::Eingabemaske{kind("Eingabemaske")}.Ziel(kind("Pseudo")); });
}

// Opens the definition editor for a field. No value, mark or switch changes here.
void ServoMain::definitionBearbeiten(basic::StatementTrap& trap, std::int16_t feld)
{
    if (eingabeOffen(trap)) return;
    if (!istSollwert(feld) && !istSchalter(feld) && !istZeichnung(feld)) return;

    // All items of a drawing number share the definition of its first one.
    zustand_.bearbeitung.EditorZiel = feld;
    const std::int16_t definition = istZeichnung(feld) ? zeichnungsFeld(feld) : feld;
    using platform::IniEingabe;
    trap([&] { IniEingabe{kind("IniEingabe")}.Pass(zustand_.Definitionen[definition - 1].Pass); });
    trap([&] { IniEingabe{kind("IniEingabe")}.Max(zustand_.Definitionen[definition - 1].Max); });
    trap([&] { IniEingabe{kind("IniEingabe")}.Min(zustand_.Definitionen[definition - 1].Min); });
    eingabenAbschalten(trap);
    if (istZeichnung(feld)) {
        for (const std::int16_t item : zeichnungsItems(definition))
            trap([&] {
                platform::Textanzeige{kind(zeichnungName(item), item)}.Hintergrund(farben::Hellgrün);
            });
    }
    eingabePlatzieren(trap, "IniEingabe", feld);
    trap([&] { IniEingabe{kind("IniEingabe")}.Offen(true); });
    trap([&] { IniEingabe{kind("IniEingabe")}.Visible(true); });
    FußzeileFreigabe(false);
}

} // namespace servopanel::servo_page
