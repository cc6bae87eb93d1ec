#include "display/namen.h"
#include "platform/facades/intrinsic.h"
#include "platform/facades/sprachtext.h"
#include "servo_menu/raster.h"
#include "servo_menu/servo_menu.h"

namespace servopanel::servo_menu {

void ServoMenu::TextAusgabe()
{
    basic::StatementTrap trap{fehler(), "Me TextAusgabe"};

    for (std::int16_t taste = 1; taste <= tastenZahl; ++taste) {
        if (trap.condition([&] { return zustand_.rollen.Abbruch; })) return;
        trap([&] {
            const std::int16_t servo = gemeinsam().ServoNr[listenPosition(taste)];
            platform::Label{kind("Beschriftung", taste)}.Caption(
                platform::Sprachtext{kind("VWLanguage")}.Text(
                    display::textSchlüssel(gemeinsam(), zustand_.Bibliothek, servo, 0)));
        });
    }
}

} // namespace servopanel::servo_menu
