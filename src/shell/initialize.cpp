#include "display/namen.h"
#include "shell/servo.h"

#include <algorithm>

namespace servopanel::shell {

using basic::single;
using display::wahr;

void Servo::UserControl_Initialize()
{
    // 1. Everything from here on reports under this name.
    basic::StatementTrap trap{fehler(), "UserControl_Initialize"};
    auto& gem = gemeinsam();

    // 2. Machine, servos and project options.
    gemeinsamenZustandLaden(trap);

    // 3. to 5. Sizes of shell and header.
    größenSetzen(trap);

    // 6. Does the project use the menu?
    trap([&] {
        gem.MitMenu =
            module_.service.LoadIniBoolean("Project", "ServoWithMenu", display::programmIni, true, false);
    });

    // 7. The servo that was shown when the panel was last left in the middle of one.
    trap([&] {
        gem.AktServo =
            basic::toInt16(display::ReadValue(module_.umfeld, display::interneVariable("servo_zeiger")));
    });

    // 8. Menu and page share one place.
    trap([&] { kind("ServoMenu").Left(0.0F); });
    trap([&] { kind("ServoMenu").Top(0.0F); });
    trap([&] { kind("ServoMain").Left(0.0F); });
    trap([&] { kind("ServoMain").Top(0.0F); });

    // 9. The first view.
    if (trap.condition([&] { return gem.AktServo != 0 || !gem.MitMenu; })) {
        trap([&] { gem.AktServo = std::max(gem.AktServo, std::int16_t{1}); });
        trap([&] { kind("ServoMain").BildInit(wahr); });
    } else {
        trap([&] { kind("ServoMenu").BildInit(wahr); });
    }
}

void Servo::größenSetzen(basic::StatementTrap& trap)
{
    auto& gem = gemeinsam();

    // 3. The design of 1280 x 1024 pixels at 15 twips, scaled to the panel.
    trap([&] { platform_.surface.put(platform::names::Height, single(15360.0F * gem.FaktorY)); });
    trap([&] { platform_.surface.put(platform::names::Width, single(19200.0F * gem.FaktorX)); });

    // 4. Small panels have thin key frames.
    trap([&] { gem.SchriftStufe = gem.Aufloesung == 800 ? std::int16_t{1} : std::int16_t{2}; });

    // 5. The header over the whole width.
    trap([&] {
        module_.global.PosObjekt(*platform_.form.child({"Header"}),
            {.höhe = single(1560.0F * gem.FaktorY), .breite = single(19200.0F * gem.FaktorX)});
    });
}

} // namespace servopanel::shell
