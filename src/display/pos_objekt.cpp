#include "display/mglobal.h"

#include "basic/arithmetic.h"
#include "basic/conversions.h"
#include "basic/statement_trap.h"
#include "basic/text.h"
#include "platform/ids.h"

#include <algorithm>
#include <optional>

namespace servopanel::display {

namespace {

namespace names = platform::names;

// Everything here is in single precision, as the factors are; the snapping depends on it at whole pixels.
float mal(float links, float rechts) { return basic::single(double{links} * double{rechts}); }
float durch(float dividend, double divisor)
{
    return basic::single(basic::divide(double{dividend}, divisor));
}

// Twips of the design that make one pixel of this screen.
float raster(float twipsProPixel, std::int16_t entwurfTwips)
{
    return durch(mal(twipsProPixel, twipsProPixel), entwurfTwips);
}

// How one direction is scaled: from the design's twips to whole pixels of this screen.
struct Maßstab {
    float faktor;
    float raster; // twips per step
    float twipsProPixel;

    float angepasst(float twips) const
    {
        const float schritte = durch(mal(faktor, twips), double{raster});
        return mal(basic::single(basic::Int(double{schritte})), twipsProPixel);
    }
};

// One property: a length that the caller has scaled already, or 0 to scale what is there.
void setzeMaß(platform::Control& objekt, const platform::Member& eigenschaft, float länge, bool skalieren,
    const Maßstab& maßstab)
{
    if (länge != 0.0F)
        objekt.put(eigenschaft, länge);
    else if (skalieren)
        objekt.put(eigenschaft, maßstab.angepasst(basic::toSingle(objekt.get(eigenschaft))));
}

} // namespace

void MGlobal::PosObjekt(platform::Control& objekt, const PosAngaben& angaben)
{
    basic::StatementTrap trap{umfeld_.fehler, "PosObjekt"};
    const GemeinsamerZustand& zustand = umfeld_.zustand;
    const bool skalieren = zustand.Aufloesung != angaben.entwurfsBreite;

    // 1. Width and height of the grid.
    float rasterX = 0;
    float rasterY = 0;
    trap([&] { rasterX = raster(zustand.TwipsProPixelX, angaben.entwurfTwipsX); });
    trap([&] { rasterY = raster(zustand.TwipsProPixelY, angaben.entwurfTwipsY); });

    // 2. Font.
    if (angaben.schriftAnpassen) SchriftAnpassen(trap, objekt, angaben);

    // 3. Place and size.
    const Maßstab waagrecht{zustand.FaktorX, rasterX, zustand.TwipsProPixelX};
    const Maßstab senkrecht{zustand.FaktorY, rasterY, zustand.TwipsProPixelY};
    trap([&] { setzeMaß(objekt, names::Height, angaben.höhe, skalieren, senkrecht); });
    trap([&] { setzeMaß(objekt, names::Left, angaben.links, skalieren, waagrecht); });
    trap([&] { setzeMaß(objekt, names::Top, angaben.oben, skalieren, senkrecht); });
    trap([&] { setzeMaß(objekt, names::Width, angaben.breite, skalieren, waagrecht); });
}

// A text display takes its size from a font class, everything else from the font itself.
void MGlobal::SchriftAnpassen(
    basic::StatementTrap& trap, platform::Control& objekt, const PosAngaben& angaben)
{
    const GemeinsamerZustand& zustand = umfeld_.zustand;

    // 2.1 and 2.2 Points: those of the design, scaled but never below the smallest.
    std::int16_t punkte = 0;
    trap([&] { punkte = basic::toInt16(objekt.get(names::FontSize)); });
    if (zustand.Aufloesung != angaben.entwurfsBreite) {
        trap([&] {
            punkte = basic::roundToInt16(
                basic::Int(double{mal(zustand.FaktorY, basic::toSingle(objekt.get(names::FontSize)))}));
        });
        punkte = std::max(punkte, angaben.kleinsteSchrift);
    }

    // 2.3 and 2.4 Which kind of control; when even that is unknown, its font stays.
    const std::optional<bool> textanzeige =
        trap.decision([&] { return basic::upperCase(objekt.className()) == "VWSINDEX"; });
    if (!textanzeige) return;
    if (!*textanzeige) {
        trap([&] { objekt.put(names::FontSize, punkte); });
        return;
    }
    trap([&] { objekt.put(names::FontClass, "LSU" + basic::decimal(std::int32_t{punkte})); });
    const bool spiegeln = trap.condition([&] {
        if (angaben.ausrichtungBehalten || !zustand.Arabisch) return false;
        const double ausrichtung = basic::toDouble(objekt.get(names::Alignment));
        return ausrichtung == 0.0 || ausrichtung == 1.0 || ausrichtung == 2.0;
    });
    if (!spiegeln) return;
    trap(
        [&] { objekt.put(names::Alignment, basic::add16(basic::toInt16(objekt.get(names::Alignment)), 3)); });
}

} // namespace servopanel::display
