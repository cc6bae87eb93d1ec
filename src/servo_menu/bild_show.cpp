#include "basic/text.h"
#include "display/namen.h"
#include "platform/facades/fusszeile.h"
#include "platform/facades/scroll_bar.h"
#include "servo_menu/servo_menu.h"

namespace servopanel::servo_menu {

using basic::decimal;
using basic::StatementTrap;
using platform::Fußzeile;

void ServoMenu::BildShow(std::int16_t zeigen)
{
    StatementTrap trap{fehler(), "Me BildShow Let"};
    auto& gem = gemeinsam();

    // 1. Keep the flag.
    trap([&] { zustand_.BildShow = zeigen; });

    // 2. to 5. The footer keys as the machine's file has them.
    trap([&] { module_.service.OpenIni(zustand_.Bibliothek + "\\" + zustand_.Bibliothek + ".ini", true); });
    fußzeileLesen(trap);
    trap([&] { module_.service.CloseIni(); });

    // 6. Pictures of the keys in use.
    fußzeileZeigen(trap);

    // 7. Exit key and menu key.
    trap([&] { Fußzeile{kind("Fußzeile")}.Bild(11, display::standardBild(gem, "F_Exit")); });
    trap([&] { Fußzeile{kind("Fußzeile")}.Freigabe(11, true); });
    trap([&] { Fußzeile{kind("Fußzeile")}.TextNummer(11, 10000); });
    trap([&] { Fußzeile{kind("Fußzeile")}.TextNummer(31, 10000); });

    // 8. Captions.
    trap([&] { TextAusgabe(); });

    // 9. The shell may show the menu now.
    trap([&] { platform_.owner.raise("JetztAnzeigen", {}); });

    // 10. One row of keys a position; the extra row is wanted.
    trap([&] {
        platform::ScrollBar{kind("ScrollBar")}.Anzahl(
            basic::narrow16(static_cast<std::int32_t>(basic::Int((gem.ServoAnzahl + 1) / 2.0)) + 1));
    });
    trap([&] { platform::ScrollBar{kind("ScrollBar")}.Aktiv(true); });

    // 11. The first page of keys.
    trap([&] { ScrollBar_NeuePos(1); });
}

std::int16_t ServoMenu::BildShow() { return zustand_.BildShow; }

// Steps 3 and 4: use and picture of each key, and its text.
void ServoMenu::fußzeileLesen(StatementTrap& trap)
{
    const auto& gem = gemeinsam();

    for (std::int16_t taste = 1; taste <= 10; ++taste) {
        trap([&] {
            zustand_.Tasten[taste].Frei = module_.service.InputIniBoolean(
                "Machine" + decimal(gem.AktuelleMaschine), "F" + decimal(taste), false);
        });
        if (trap.condition([&] { return zustand_.Tasten[taste].Frei; }))
            trap([&] {
                zustand_.Tasten[taste].Bild =
                    module_.service.InputIniString("Footer", "F" + decimal(taste), true);
            });
        else
            trap([&] { zustand_.Tasten[taste].Bild = display::standardBild(gem, "empty"); });
        trap([&] {
            Fußzeile{kind("Fußzeile")}.TextNummer(
                static_cast<std::uint8_t>(taste), display::fußzeilenText(gem.AktuelleMaschine, taste));
        });
    }
    // Key 3 shows the access level, in use or not.
    trap([&] {
        zustand_.Tasten[3].Bild = module_.service.InputIniString("Footer", "F3", true)
            + decimal(gem.PasswortStufe) + "_" + gem.AufloesungText + ".gif";
    });
}

void ServoMenu::fußzeileZeigen(StatementTrap& trap)
{
    const auto& gem = gemeinsam();

    for (std::int16_t taste = 1; taste <= 10; ++taste) {
        if (!trap.condition([&] { return zustand_.Tasten[taste].Frei || taste == 4; })) continue;
        std::string bild;
        trap([&] { bild = basic::trim(zustand_.Tasten[taste].Bild); });
        if (bild.empty()) continue;
        if (taste <= 3) {
            const auto nummer = static_cast<std::uint8_t>(taste);
            trap([&] { Fußzeile{kind("Fußzeile")}.Bild(nummer, bild); });
            trap([&] { Fußzeile{kind("Fußzeile")}.Freigabe(nummer, true); });
        } else if (taste == 9) {
            if (!trap.condition([&] { return display::mehrereMaschinen(module_.umfeld); })) continue;
            trap([&] { Fußzeile{kind("Fußzeile")}.Bild(9, display::maschinenSymbol(gem)); });
            trap([&] { Fußzeile{kind("Fußzeile")}.Freigabe(9, true); });
        }
    }
}

} // namespace servopanel::servo_menu
