#include "display/namen.h"
#include "display/umfeld.h"
#include "servo_menu/servo_menu.h"

namespace servopanel::servo_menu {

void ServoMenu::Fußzeile_TasteClick(std::int16_t taste)
{
    basic::StatementTrap trap{fehler(), "Me Fußzeile_TasteClick"};

    if (taste != 11 && taste != 31) return;
    // The next start begins with the menu again.
    trap([&] {
        display::WriteValue(module_.umfeld, display::interneVariable("servo_zeiger"), std::int16_t{0});
    });
    trap([&] {
        display::pathHelper(module_.umfeld)
            .openScreen(display::fußzeilenText(gemeinsam().AktuelleMaschine, taste));
    });
}

} // namespace servopanel::servo_menu
