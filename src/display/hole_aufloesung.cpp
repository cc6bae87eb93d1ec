#include "display/mglobal.h"

#include "basic/conversions.h"
#include "basic/statement_trap.h"

namespace servopanel::display {

namespace {

// Pixels of the screens that the panels have; 0 for any other width.
constexpr std::int16_t bildschirmHöhe(std::int16_t breite)
{
    switch (breite) {
    case 800: return 600;
    case 1024: return 768;
    case 1280: return 1024;
    default: return 0;
    }
}

} // namespace

void MGlobal::HoleAufloesung(std::int16_t entwurfsBreite)
{
    basic::StatementTrap trap{umfeld_.fehler, "HoleAufloesung"};
    GemeinsamerZustand& zustand = umfeld_.zustand;

    // 1. Height of the design. A width that no panel has leaves 0 and fails at the division.
    const std::int16_t entwurfsHöhe = bildschirmHöhe(entwurfsBreite);

    // 2. Width of this panel; what lies outside the design's range shows the design unscaled.
    trap([&] { zustand.Aufloesung = basic::toInt16(ReadValue(umfeld_, "parameter<.aufloesung>")); });
    if (zustand.Aufloesung > entwurfsBreite || zustand.Aufloesung < 800) zustand.Aufloesung = entwurfsBreite;

    // 3. Part of the names of pictures.
    zustand.AufloesungText = basic::decimal(std::int32_t{zustand.Aufloesung});

    // 4. Pixels of the screen.
    trap([&] { zustand.TwipsProPixelX = umfeld_.platform.surroundings.twipsPerPixelX(); });
    trap([&] { zustand.TwipsProPixelY = umfeld_.platform.surroundings.twipsPerPixelY(); });

    // 5. Horizontal scale.
    trap([&] { zustand.FaktorX = basic::single(basic::divide(zustand.Aufloesung, entwurfsBreite)); });

    // 6. Vertical scale. LEGACY: a width that no panel has leaves the factor of before, 0 at first.
    const std::int16_t höhe = bildschirmHöhe(zustand.Aufloesung);
    if (höhe != 0) trap([&] { zustand.FaktorY = basic::single(basic::divide(höhe, entwurfsHöhe)); });

    // 7. Direction of reading.
    trap([&] { zustand.Arabisch = basic::toBoolean(ReadValue(umfeld_, "Ch-1.param_client<.arabisch>")); });
}

} // namespace servopanel::display
