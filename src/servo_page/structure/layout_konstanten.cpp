#include "basic/arithmetic.h"
#include "servo_page/servo_main.h"

namespace servopanel::servo_page {

// Steps 7 and 8 of BildInit. The smallest panel has lower lines and narrower captions, which stand three pixels further
// left.
void ServoMain::layoutKonstanten(basic::StatementTrap& trap)
{
    const auto& gem = gemeinsam();
    auto& aufbau = zustand_.aufbau;

    if (gem.Aufloesung == 800) {
        trap([&] { aufbau.Zeilenhöhe = 30; });
        trap([&] { aufbau.TextBreite = 360.0F; });
        trap([&] { aufbau.TextVersatz = basic::roundToInt16(-3.0 * double{gem.TwipsProPixelX}); });
    } else {
        trap([&] { aufbau.Zeilenhöhe = 45; });
        trap([&] { aufbau.TextBreite = 585.0F; });
        trap([&] { aufbau.TextVersatz = 0; });
    }
    trap([&] { aufbau.KorrekturSchmal = module_.global.KorrekturTwipPix(45.0F, true, 15, 15); });
    trap([&] {
        aufbau.KorrekturBreit =
            module_.global.KorrekturTwipPix(basic::single(180.0 * double{gem.FaktorY}), true, 15, 15);
    });
}

} // namespace servopanel::servo_page
