#include "display/fehler_anzeige.h"
#include "platform/facades/intrinsic.h"
#include "servo_page/servo_main.h"

namespace servopanel::servo_page {

void ServoMain::UserControl_Terminate()
{
    basic::StatementTrap trap{fehler(), "Ma UserControl_Terminate"};

    trap([&] { platform::Zeitgeber{kind("Timer")}.Enabled(false); });
    display::fehlerAnzeigeSchliessen(trap, gemeinsam());
}

} // namespace servopanel::servo_page
