#include "servo_menu/servo_menu.h"

namespace servopanel::servo_menu {

void ServoMenu::ScrollBar_NeuePos(std::int16_t neuePos)
{
    basic::StatementTrap trap{fehler(), "Me ScrollBar_NeuePos"};
    Rollanforderung& rollen = zustand_.rollen;

    // 1. Note the request.
    trap([&] { rollen.Position = neuePos; });
    trap([&] { rollen.Anforderungen = basic::add16(rollen.Anforderungen, 1); });

    // 3. A build is running and has let this event in: it stops before its next key and builds anew.
    if (rollen.Beschaeftigt != display::falsch) {
        trap([&] { rollen.Abbruch = true; });
        return;
    }

    // 2. Build until no newer request is left.
    trap([&] { rollen.Beschaeftigt = display::wahr; });
    while (rollen.Anforderungen != rollen.Bedient) {
        trap([&] { rollen.Bedient = rollen.Anforderungen; });
        trap([&] { TextAusgabe(); });
        trap([&] { Aufbauen(); });
        trap([&] { rollen.Abbruch = false; });
    }
    trap([&] { rollen = Rollanforderung{.Position = rollen.Position}; });
}

} // namespace servopanel::servo_menu
