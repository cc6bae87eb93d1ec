#include "basic/arithmetic.h"
#include "basic/conversions.h"
#include "display/namen.h"
#include "platform/facades/eingabemaske.h"
#include "platform/facades/ini_eingabe.h"
#include "platform/facades/intrinsic.h"
#include "servo_page/servo_main.h"

namespace servopanel::servo_page {

using basic::StatementTrap;
using platform::Bildfeld;
using platform::Eingabemaske;
using platform::IniEingabe;

void ServoMain::BildInit(std::int16_t bildNummer)
{
    StatementTrap trap{fehler(), "Ma BildInit Let"};
    const auto& gem = gemeinsam();

    // 1. The picture number; the library's name, published for other screens.
    trap([&] { zustand_.aufbau.BildNummer = bildNummer; });
    bibliothekBestimmen(trap);

    // 2. Resolution and scale factors of the panel.
    trap([&] { module_.global.HoleAufloesung(1280); });

    // 3. Nothing is being edited.
    eingabenSchließen(trap);

    // 4. The operator's access level, and whether this panel may change values at all.
    trap([&] {
        zustand_.aufbau.ZugriffsStufe =
            basic::toInt16(display::ReadValue(module_.umfeld, display::interneVariable("passwort")));
    });
    trap([&] { zustand_.aufbau.EingabeErlaubt = display::pathHelper(module_.umfeld).inputPermission(); });

    // 5. All keys start in silver.
    trap([&] { zustand_.fußzeile.TastenEinstellung.fill(farben::Silber); });

    // 6. The page fills the panel.
    trap([&] {
        platform_.surface.put(platform::names::Height, basic::single(15360.0 * double{gem.FaktorY}));
    });
    trap(
        [&] { platform_.surface.put(platform::names::Width, basic::single(19200.0 * double{gem.FaktorX})); });

    // 7. and 8. Line height, caption width and the corrections of captions.
    layoutKonstanten(trap);

    // 9. What the form holds, to its place and to its font size.
    kinderPlatzieren(trap);

    // 10. The other setpoint rows: the first element of each array is the form's.
    for (std::int16_t feld = 2; feld <= 10; ++feld)
        sollwertzeileLaden(trap, feld);
    for (std::int16_t feld = 12; feld <= 20; ++feld)
        sollwertzeileLaden(trap, feld);
    for (std::int16_t feld = 21; feld <= 22; ++feld)
        sollwertzeileLaden(trap, feld);
    for (std::int16_t feld = 23; feld <= 24; ++feld)
        sollwertzeileLaden(trap, feld);

    // 11. Captions on the servo's picture, switches, drawing numbers, then lines and table of the diagnosis pages.
    for (std::int16_t n = 1; n <= letzteParaBeschriftung; ++n)
        laden(trap, {"ParaBeschriftung", n});
    schalterAnlegen(trap);
    zeichnungenAnlegen(trap);
    diagnosezeilenAnlegen(trap);
    tabelleAnlegen(trap);
    trap([&] { platform::Label{kind("Fehlertext")}.Visible(false); });

    // 12. Backgrounds of the page and of the diagnosis.
    trap([&] {
        platform_.surface.put(platform::names::Picture,
            module_.global.LadeBild("Servo\\ServoMain_" + gem.AufloesungText + ".bmp"));
    });
    trap([&] {
        Bildfeld{kind("DetailBox")}.Picture(
            module_.global.LadeBild("Servo\\ServoDiag_" + gem.AufloesungText + ".bmp"));
    });
}

std::int16_t ServoMain::BildInit() { return zustand_.aufbau.BildNummer; }

void ServoMain::bibliothekBestimmen(StatementTrap& trap)
{
    trap([&] { zustand_.aufbau.Bibliothek = module_.global.HoleOCXNamen(); });
    trap([&] {
        display::WriteValue(module_.umfeld, display::interneVariable("ocxname"), zustand_.aufbau.Bibliothek);
    });
}

void ServoMain::eingabenSchließen(StatementTrap& trap)
{
    trap([&] { zustand_.bearbeitung.Geaendert = display::falsch; });
    trap([&] { zustand_.bearbeitung.Bestaetigen = display::falsch; });
    trap([&] { zustand_.bearbeitung.ZweiterModus = display::falsch; });
    trap([&] { Eingabemaske{kind("Eingabemaske")}.Offen(false); });
    trap([&] { Eingabemaske{kind("Eingabemaske")}.Visible(false); });
    // A mask that is closed edits nothing: the next change belongs to the input that is touched next.
    trap([&] { zustand_.bearbeitung.AktiverSollwert = 0; });
    trap([&] { zustand_.bearbeitung.AktiveZeichnung = 0; });
    trap([&] { IniEingabe{kind("IniEingabe")}.Offen(false); });
    trap([&] { IniEingabe{kind("IniEingabe")}.Visible(false); });
}

} // namespace servopanel::servo_page
