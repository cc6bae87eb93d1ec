#include "servo_menu/servo_menu.h"

namespace servopanel::servo_menu {

void ServoMenu::TasteGedrueckt(std::int16_t taste, bool gedrückt)
{
    basic::StatementTrap trap{fehler(), "Me TasteGedrueckt"};
    auto& gem = gemeinsam();

    // The servo that the key stands for now, even if another one stood there when it went down.
    std::int16_t position = 0;
    const bool belegt = trap.condition(
        [&] { return position = listenPosition(taste), taste >= 1 && position <= gem.ServoAnzahl; });

    // 1. Up on the key that went down: the servo is chosen. AktServo holds the servo number until the shell, the first
    //    to hear of the choice, replaces it by the list position.
    if (!gedrückt) {
        if (belegt && taste == zustand_.GedrückteTaste) {
            trap([&] { gem.AktServo = gem.ServoNr[position]; });
            trap([&] {
                const basic::Variant args[]{position};
                platform_.owner.raise("ServoBildAufrufen", args);
            });
        }
        trap([&] { zustand_.GedrückteTaste = 0; });
    }

    // 2. Down.
    if (gedrückt) trap([&] { zustand_.GedrückteTaste = taste; });

    // 3. Draw the key, unless it is empty.
    if (belegt) trap([&] { TasteZeichnen(taste, gedrückt); });
}

} // namespace servopanel::servo_menu
