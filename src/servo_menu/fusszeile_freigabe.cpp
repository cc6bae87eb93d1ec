#include "display/farben.h"
#include "display/umfeld.h"
#include "platform/facades/fusszeile.h"
#include "servo_menu/servo_menu.h"

namespace servopanel::servo_menu {

using platform::Fußzeile;

void ServoMenu::FußzeileFreigabe(bool frei)
{
    basic::StatementTrap trap{fehler(), "Me FußzeileFreigabe"};

    for (std::int16_t taste = 1; taste <= 10; ++taste) {
        const auto nummer = static_cast<std::uint8_t>(taste);
        if (!frei) {
            // Withdraw: read the key's setting, then switch it off.
            trap([&] { Fußzeile{kind("Fußzeile")}.Einstellung(nummer); });
            trap([&] { Fußzeile{kind("Fußzeile")}.Freigabe(nummer, false); });
            trap([&] { Fußzeile{kind("Fußzeile")}.Farbe(nummer, display::farben::Silber); });
        } else if (taste == 9) {
            // The machine key makes sense with several machines only.
            if (trap.condition([&] { return display::mehrereMaschinen(module_.umfeld); }))
                trap([&] { Fußzeile{kind("Fußzeile")}.Freigabe(nummer, true); });
        } else if (taste != 4) {
            if (trap.condition([&] { return zustand_.Tasten[taste].Frei; }))
                trap([&] { Fußzeile{kind("Fußzeile")}.Freigabe(nummer, true); });
        }
    }
}

} // namespace servopanel::servo_menu
