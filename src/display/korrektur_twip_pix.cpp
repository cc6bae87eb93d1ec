#include "display/mglobal.h"

#include "basic/arithmetic.h"
#include "basic/conversions.h"
#include "basic/statement_trap.h"

namespace servopanel::display {

namespace {

// Twips of one step. The screen's own twips count twice on purpose: 15 on the design's screen, 9.6 on one of 12.
double schritt(float twipsProPixel, std::int16_t entwurfTwips)
{
    return basic::divide(double{twipsProPixel} * double{twipsProPixel}, entwurfTwips);
}

} // namespace

std::int16_t MGlobal::KorrekturTwipPix(
    float wert, bool waagrecht, std::int16_t entwurfTwipsX, std::int16_t entwurfTwipsY)
{
    basic::StatementTrap trap{umfeld_.fehler, "KorrekturTwipPix"};
    const GemeinsamerZustand& zustand = umfeld_.zustand;
    std::int16_t ergebnis = 0;

    // Both steps, whichever is asked for: a design value of 0 is an error of either direction.
    double schrittX = 0;
    double schrittY = 0;
    trap([&] { schrittX = schritt(zustand.TwipsProPixelX, entwurfTwipsX); });
    trap([&] { schrittY = schritt(zustand.TwipsProPixelY, entwurfTwipsY); });
    if (entwurfTwipsX == 0 || entwurfTwipsY == 0) return ergebnis;

    // 1. The step of the direction asked for.
    const double weite = waagrecht ? schrittX : schrittY;

    // 2. Whole steps in the value, counted with the exact step.
    double anzahl = 0;
    trap([&] { anzahl = basic::Int(basic::divide(double{wert}, weite)); });

    // 3. LEGACY: multiplied by the step rounded down, so that 100 twips in steps of 9.6 become 90.
    trap([&] { ergebnis = basic::roundToInt16(basic::Int(weite) * anzahl); });
    return ergebnis;
}

} // namespace servopanel::display
