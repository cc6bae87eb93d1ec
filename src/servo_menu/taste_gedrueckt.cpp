#include "servo_menu/servo_menu.h"

namespace servopanel::servo_menu {

void ServoMenu::TasteGedrueckt(std::int16_t taste, bool gedrückt)
{
    basic::StatementTrap trap{fehler(), "Me TasteGedrueckt"};
    auto& gem = gemeinsam();

    // 1. Up on the key that went down: the servo is chosen. AktServo holds the servo number until the shell, the first
    //    to hear of the choice, replaces it by the list position.
    if (!gedrückt) {
        if (trap.condition([&] {
                return taste >= 1 && taste == zustand_.GedrückteTaste
                    && listenPosition(taste) <= gem.ServoAnzahl;
            })) {
            trap([&] { gem.AktServo = gem.ServoNr[listenPosition(taste)]; });
            trap([&] {
                const basic::Variant args[]{listenPosition(taste)};
                platform_.owner.raise("ServoBildAufrufen", args);
            });
        }
        trap([&] { zustand_.GedrückteTaste = 0; });
    }

    // 2. Down.
    if (gedrückt) trap([&] { zustand_.GedrückteTaste = taste; });

    // 3. Draw the key, unless it is empty.
    if (trap.condition([&] { return taste >= 1 && listenPosition(taste) <= gem.ServoAnzahl; }))
        trap([&] { TasteZeichnen(taste, gedrückt); });
}

} // namespace servopanel::servo_menu
