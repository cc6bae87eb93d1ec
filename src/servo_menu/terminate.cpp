#include "display/fehler_anzeige.h"
#include "servo_menu/servo_menu.h"

namespace servopanel::servo_menu {

void ServoMenu::UserControl_Terminate()
{
    basic::StatementTrap trap{fehler(), "Me UserControl_Terminate"};

    display::fehlerAnzeigeSchliessen(trap, gemeinsam());
}

} // namespace servopanel::servo_menu
