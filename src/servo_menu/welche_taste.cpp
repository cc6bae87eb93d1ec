#include "servo_menu/raster.h"
#include "servo_menu/servo_menu.h"

namespace servopanel::servo_menu {

void ServoMenu::WelcheTaste(float x, float y, std::int16_t& taste)
{
    basic::StatementTrap trap{fehler(), "Me WelcheTaste"};
    const auto& gem = gemeinsam();
    const TastenRaster& raster = zustand_.raster;

    // 3. Beside the keys there is none.
    taste = 0;

    // 1. The column; the edges of a key belong to it.
    std::int16_t spalte = 0;
    if (trap.condition([&] {
            return raster.Spalte[0] <= x && x <= raster.Spalte[0] + raster.TastenBreite - gem.TwipsProPixelX;
        }))
        spalte = 1;
    else if (trap.condition([&] {
                 return raster.Spalte[1] <= x && x <= raster.Spalte[1] + raster.Maß3 - gem.TwipsProPixelX;
             }))
        spalte = 2;
    if (spalte == 0) return;

    // 2. The row.
    for (std::int16_t zeile = 0; zeile < 4; ++zeile) {
        if (!trap.condition([&] {
                return raster.Zeile[zeile] <= y
                    && y <= raster.Zeile[zeile] + raster.TastenHöhe - gem.TwipsProPixelY;
            }))
            continue;
        taste = static_cast<std::int16_t>(zeile * 2 + spalte);
        return;
    }
}

} // namespace servopanel::servo_menu
