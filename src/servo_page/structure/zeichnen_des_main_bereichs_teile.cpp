#include "basic/arithmetic.h"
#include "platform/facades/facade.h"
#include "servo_page/felder.h"
#include "servo_page/servo_main.h"

namespace servopanel::servo_page {

namespace {

constexpr std::int32_t linienFarbe = 0xD4D4D4;

// A height in twips, moved by pixels, in single precision.
float verschoben(std::int16_t twips, int pixel, float twipsProPixel)
{
    return basic::single(double{basic::single(double{static_cast<float>(pixel)} * double{twipsProPixel})}
        + double{static_cast<float>(twips)});
}

} // namespace

void ServoMain::ZeichnenDesMainBereichsTeile(
    platform::ChildId ziel, std::int16_t oben, std::int16_t unten, bool mitLinie)
{
    basic::StatementTrap trap{fehler(), "Ma ZeichnenDesMainBereichsTeile"};
    const float pixel = gemeinsam().TwipsProPixelY;
    const auto breite = [&] { return platform::Facade{kind(ziel.name, ziel.index)}.Width(); };

    // 1. The band: two pixels above the row's top to four above its bottom, over the whole width.
    trap([&] {
        platform_.surface.line(ziel, 0.0F, verschoben(oben, -2, pixel), breite(),
            verschoben(unten, -4, pixel), farben::Silber, platform::Surface::filledBoxFlags);
    });

    // 2. The separator, one pixel below the band.
    if (mitLinie)
        trap([&] {
            platform_.surface.line(ziel, 0.0F, verschoben(unten, -3, pixel), breite(),
                verschoben(unten, -3, pixel), linienFarbe, platform::Surface::lineFlags);
        });
}

} // namespace servopanel::servo_page
