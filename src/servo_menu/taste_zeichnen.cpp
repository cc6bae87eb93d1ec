#include "platform/facades/facade.h"
#include "servo_menu/raster.h"
#include "servo_menu/servo_menu.h"

#include <utility>

namespace servopanel::servo_menu {

using basic::single;
using platform::Facade;

void ServoMenu::TasteZeichnen(std::int16_t taste, bool gedrückt)
{
    basic::StatementTrap trap{fehler(), "Me TasteZeichnen"};
    const auto& gem = gemeinsam();

    // 1. Nothing to do when the key looks like that already.
    if (taste < 1) return;
    if (!trap.condition([&] { return zustand_.Gezeichnet[taste] != gedrückt; })) return;

    // 2. Light falls from the top left.
    constexpr std::int32_t weiß = 0xFFFFFF;
    constexpr std::int32_t grau = 0x808080;
    const std::int32_t erste = gedrückt ? grau : weiß;
    const std::int32_t zweite = gedrückt ? weiß : grau;

    // 3. Caption and picture move with the key, by one pixel.
    const double sinn = gedrückt ? 1.0 : -1.0;
    for (std::string_view name : {std::string_view{"Beschriftung"}, std::string_view{"BildIm"}}) {
        trap([&] {
            Facade feld{kind(name, taste)};
            feld.Left(single(double{feld.Left()} + sinn * double{gem.TwipsProPixelX}));
        });
        trap([&] {
            Facade feld{kind(name, taste)};
            feld.Top(single(double{feld.Top()} + sinn * double{gem.TwipsProPixelY}));
        });
    }

    // 4. The frame, with a second ring where it is exactly two pixels wide.
    rahmenZeichnen(trap, taste, 0, erste, zweite);
    if (gem.SchriftStufe == 2) rahmenZeichnen(trap, taste, 1, erste, zweite);

    // 5. Remember the look.
    trap([&] { zustand_.Gezeichnet[taste] = gedrückt; });
}

// One ring of the frame, so many pixels inside the key. A line's end point is not painted: the rings close without it.
void ServoMenu::rahmenZeichnen(basic::StatementTrap& trap, std::int16_t taste, std::int16_t einzug,
    std::int32_t erste, std::int32_t zweite)
{
    const auto& gem = gemeinsam();
    const double tx = double{gem.TwipsProPixelX};
    const double ty = double{gem.TwipsProPixelY};
    const double links = double{zustand_.raster.Spalte[spalteDerTaste(taste)]} + einzug * tx;
    const double oben = double{zustand_.raster.Zeile[zeileDerTaste(taste)]} + einzug * ty;
    const double rechts = links + double{tastenBreite(taste)} - 2.0 * einzug * tx;
    const double unten = oben + double{zustand_.raster.TastenHöhe} - 2.0 * einzug * ty;
    const auto linie = [&](double x1, double y1, double x2, double y2, std::int32_t farbe) {
        platform_.surface.line(
            {}, single(x1), single(y1), single(x2), single(y2), farbe, platform::Surface::lineFlags);
    };

    trap([&] { linie(links, oben, rechts, oben, erste); });
    trap([&] { linie(links, oben, links, unten - ty, erste); });
    trap([&] { linie(rechts - tx, oben + ty, rechts - tx, unten - ty, zweite); });
    trap([&] { linie(links, unten - ty, rechts, unten - ty, zweite); });
}

} // namespace servopanel::servo_menu
