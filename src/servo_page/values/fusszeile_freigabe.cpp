#include "platform/facades/fusszeile.h"

#include "servo_page/servo_main.h"

namespace servopanel::servo_page {

// Withdrawing takes all keys away, releasing only adds: between the two calls the page decides anew which keys it needs.
void ServoMain::FußzeileFreigabe(bool frei)
{
    basic::StatementTrap trap{fehler(), "Ma FußzeileFreigabe"};
    using platform::Fußzeile;

    if (!frei) {
        // 1. Save each key's setting and take the key away.
        for (std::uint8_t taste = 1; taste <= 11; ++taste) {
            trap([&] {
                zustand_.fußzeile.TastenEinstellung[taste] = Fußzeile{kind("Fußzeile")}.Einstellung(taste);
            });
            trap([&] { Fußzeile{kind("Fußzeile")}.Freigabe(taste, false); });
            trap([&] { Fußzeile{kind("Fußzeile")}.Farbe(taste, farben::Silber); });
        }
        return;
    }

    // 1. Keys 1 to 10 where they are in use. Key 4 belongs to the access level, key 9 to plants of several machines.
    for (std::uint8_t taste = 1; taste <= 10; ++taste) {
        if (taste == 4) continue;
        trap([&] {
            const bool benutzt = taste == 9 ? display::mehrereMaschinen(module_.umfeld)
                                            : zustand_.fußzeile.Tasten[taste].Benutzt;
            if (benutzt) Fußzeile{kind("Fußzeile")}.Freigabe(taste, true);
        });
    }

    // 2. The way out.
    trap([&] { Fußzeile{kind("Fußzeile")}.Freigabe(11, true); });
}

} // namespace servopanel::servo_page
