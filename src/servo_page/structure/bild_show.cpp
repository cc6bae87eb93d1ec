#include "basic/conversions.h"
#include "display/namen.h"
#include "platform/facades/fusszeile.h"
#include "platform/facades/intrinsic.h"
#include "servo_page/servo_main.h"

namespace servopanel::servo_page {

using basic::decimal;
using basic::StatementTrap;
using platform::Fußzeile;

void ServoMain::BildShow(std::int16_t zeigen)
{
    StatementTrap trap{fehler(), "Ma BildShow Let"};

    // 1. Keep the value.
    trap([&] { zustand_.BildShow = zeigen; });

    // 2. to 4. The footer keys as the machine's file has them.
    trap([&] {
        module_.service.OpenIni(
            zustand_.aufbau.Bibliothek + "\\" + zustand_.aufbau.Bibliothek + ".ini", true);
    });
    fußzeileLesen(trap);
    trap([&] { module_.service.CloseIni(); });

    // 5. and 6. The machine key.
    if (trap.condition([&] { return display::mehrereMaschinen(module_.umfeld); }))
        trap([&] { Fußzeile{kind("Fußzeile")}.Bild(9, display::maschinenSymbol(gemeinsam())); });
    trap([&] { Fußzeile{kind("Fußzeile")}.TextNummer(9, 10000); });

    // 7. The servo, which inputs are open, and the values. LEGACY: switching the page has done both already.
    SeiteUmschalten(true);
    EingabeDarstellen(false);
    WerteLesen(true);

    // 8. Pictures of the keys in use.
    fußzeileZeigen(trap);

    // 9. The shell may show the page now.
    trap([&] { platform_.owner.raise("JetztAnzeigen", {}); });
    trap([&] { platform::Zeitgeber{kind("Timer")}.Enabled(true); });
}

std::int16_t ServoMain::BildShow() { return zustand_.BildShow; }

// Use, picture and text of keys 1 to 10.
void ServoMain::fußzeileLesen(StatementTrap& trap)
{
    const auto& gem = gemeinsam();
    auto& tasten = zustand_.fußzeile.Tasten;

    for (std::int16_t taste = 1; taste <= 10; ++taste) {
        trap([&] {
            tasten[taste].Benutzt =
                module_.service.InputIniBoolean("Machine" + decimal(std::int32_t{gem.AktuelleMaschine}),
                    "F" + decimal(std::int32_t{taste}), false);
        });
        if (tasten[taste].Benutzt)
            trap([&] {
                tasten[taste].Bild =
                    module_.service.InputIniString("Footer", "F" + decimal(std::int32_t{taste}), true);
            });
        else
            trap([&] { tasten[taste].Bild = display::standardBild(gem, "empty"); });
        trap([&] {
            Fußzeile{kind("Fußzeile")}.TextNummer(
                static_cast<std::uint8_t>(taste), display::fußzeilenText(gem.AktuelleMaschine, taste));
        });
    }
    // Key 3 shows the access level, in use or not; the file holds the stem of its picture's name.
    trap([&] {
        tasten[3].Bild = module_.service.InputIniString("Footer", "F3", true)
            + decimal(std::int32_t{zustand_.aufbau.ZugriffsStufe}) + "_" + gem.AufloesungText + ".gif";
    });
}

// Keys 5 to 10 are set where servo and page are chosen.
void ServoMain::fußzeileZeigen(StatementTrap& trap)
{
    const auto& gem = gemeinsam();

    for (std::int16_t taste = 1; taste <= 4; ++taste) {
        const FußzeilenTaste& eintrag = zustand_.fußzeile.Tasten[taste];
        const auto nummer = static_cast<std::uint8_t>(taste);
        if ((!eintrag.Benutzt && taste != 4) || eintrag.Bild.empty()) continue;
        if (taste == 4) {
            if (zustand_.aufbau.ZugriffsStufe == 5 && zustand_.wahl.Seite == 0)
                trap([&] { Fußzeile{kind("Fußzeile")}.Bild(4, display::standardBild(gem, "F_engine")); });
            continue;
        }
        trap([&] { Fußzeile{kind("Fußzeile")}.Bild(nummer, eintrag.Bild); });
        trap([&] { Fußzeile{kind("Fußzeile")}.Freigabe(nummer, true); });
    }
}

} // namespace servopanel::servo_page
