#include "display/umfeld.h"
#include "servo_menu/servo_menu.h"

namespace servopanel::servo_menu {

void ServoMenu::Fußzeile_TasteClick(std::int16_t taste)
{
    basic::StatementTrap trap{fehler(), "Me Fußzeile_TasteClick"};

    if (taste != 11 && taste != 31) return;
    // The next start begins with the menu again.
    trap([&] { display::WriteValue(module_.umfeld, "Ch-1.intern<.servo_zeiger>", std::int16_t{0}); });
    trap([&] {
        const std::int16_t hundert = basic::multiply16(gemeinsam().AktuelleMaschine, 100);
        display::pathHelper(module_.umfeld).openScreen(basic::add16(basic::add16(1000, hundert), taste));
    });
}

} // namespace servopanel::servo_menu
