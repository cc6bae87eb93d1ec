#include "basic/silent_sink.h"
#include "display/fehler_anzeige.h"
#include "shell/servo.h"

#include <optional>

namespace servopanel::shell {

using basic::StatementTrap;
using display::falsch;
using display::wahr;

void Servo::UserControl_Show()
{
    StatementTrap trap{fehler(), "UserControl_Show"};

    if (trap.condition([&] { return gemeinsam().AktServo != 0 || !gemeinsam().MitMenu; }))
        trap([&] { kind("ServoMain").BildShow(wahr); });
    else
        trap([&] { kind("ServoMenu").BildShow(wahr); });
}

void Servo::UserControl_Terminate()
{
    // A panel that is going down tells nobody about it.
    basic::SilentSink still;
    StatementTrap trap{still};

    display::fehlerAnzeigeSchliessen(trap, gemeinsam());
}

void Servo::ServoMain_JetztAnzeigen()
{
    StatementTrap trap{fehler(), "ServoMain_JetztAnzeigen"};

    trap([&] { kind("ServoMain").Visible(true); });
}

// A menu that was shown before is shown as it is; only the first time it is built.
void Servo::ServoMain_MenuAnzeigen()
{
    StatementTrap trap{fehler(), "ServoMain_MenuAnzeigen"};

    trap([&] { kind("ServoMain").Visible(false); });
    if (trap.condition([&] { return kind("ServoMenu").BildInit() == falsch; }))
        trap([&] { kind("ServoMenu").BildInit(wahr); });
    const std::optional<bool> gezeigt = trap.decision([&] { return kind("ServoMenu").BildShow() == wahr; });
    if (!gezeigt) return;
    if (*gezeigt)
        trap([&] { kind("ServoMenu").Visible(true); });
    else
        trap([&] { kind("ServoMenu").BildShow(wahr); });
}

void Servo::ServoMenu_JetztAnzeigen()
{
    StatementTrap trap{fehler(), "ServoMenu_JetztAnzeigen"};

    trap([&] { kind("ServoMenu").Visible(true); });
}

// A page is always filled anew: it shows another servo now.
void Servo::ServoMenu_ServoBildAufrufen(std::int16_t bildNr)
{
    StatementTrap trap{fehler(), "ServoMenu_ServoBildAufrufen"};

    trap([&] { gemeinsam().AktServo = bildNr; });
    trap([&] { kind("ServoMenu").Visible(false); });
    if (trap.condition([&] { return kind("ServoMain").BildInit() == falsch; }))
        trap([&] { kind("ServoMain").BildInit(wahr); });
    trap([&] { kind("ServoMain").BildShow(wahr); });
}

void Servo::Header_SpracheGeandert(std::int16_t sprache)
{
    StatementTrap trap{fehler(), "Header_SpracheGeandert"};

    if (trap.condition([&] { return kind("ServoMain").Visible(); }))
        trap([&] { kind("ServoMain").SpracheGeandert(sprache); });
    if (trap.condition([&] { return kind("ServoMenu").Visible(); }))
        trap([&] { kind("ServoMenu").SpracheGeandert(sprache); });
}

} // namespace servopanel::shell
