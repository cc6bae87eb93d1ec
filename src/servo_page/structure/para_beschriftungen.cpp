#include "basic/arithmetic.h"
#include "basic/conversions.h"
#include "platform/facades/intrinsic.h"
#include "servo_page/servo_main.h"
#include "servo_page/structure/text_nummern.h"

namespace servopanel::servo_page {

using basic::decimal;
using basic::StatementTrap;
using platform::Label;

// "Servo\Servo_M1_3.ini"; pictures of a second variant and beyond have files of their own, "Servo\Servo_M1_3_2.ini".
std::string ServoMain::layoutDatei()
{
    const auto& gem = gemeinsam();
    const std::string& bibliothek = zustand_.aufbau.Bibliothek;
    const std::int16_t bild = gem.ServoPic[gem.AktServo];
    const std::string variante = bild < 2 ? std::string{} : "_" + decimal(std::int32_t{bild});
    return bibliothek + "\\" + bibliothek + "_" + gem.MaschinenPrefix + decimal(std::int32_t{servoNummer()})
        + variante + ".ini";
}

// Step 8 of SeiteUmschalten. The layout file gives colour and place of each caption for a panel of 1280 x 1024 pixels.
void ServoMain::paraBeschriftungen(StatementTrap& trap)
{
    for (std::int16_t n = 1; n <= letzteParaBeschriftung; ++n)
        paraBeschriftung(trap, n);
}

void ServoMain::paraBeschriftung(StatementTrap& trap, std::int16_t n)
{
    constexpr std::int16_t rechterRand = 1;
    const auto& gem = gemeinsam();
    const std::string nummer = decimal(std::int32_t{n});
    const auto beschriftung = [this, n] { return Label{kind("ParaBeschriftung", n)}; };
    const auto maß = [&](std::string_view endung) {
        return module_.service.LoadIniInteger(
            "Parameter", nummer + std::string{endung}, layoutDatei(), true, true);
    };
    const auto skaliert = [](std::int16_t twips, float faktor) {
        return basic::single(static_cast<double>(twips) * double{faktor});
    };

    trap([&] { beschriftung().Caption(sprachtext(textNummer(TextArt::ParaBeschriftung, n))); });

    // No colour: this servo's picture has no such caption.
    std::string farbe;
    const auto fehlt = trap.decision([&] {
        farbe = module_.service.LoadIniString("Parameter", nummer + "Col", layoutDatei(), true, false);
        return farbe.empty();
    });
    if (fehlt == true) zeigen(trap, {"ParaBeschriftung", n}, false);
    if (fehlt != false) return;
    trap([&] { beschriftung().ForeColor(farbe == "ws" ? farben::Weiß : farben::Schwarz); });

    std::int16_t ausrichtung = 0;
    trap([&] { ausrichtung = maß("Ali"); });
    trap([&] {
        const float x = skaliert(maß("X"), gem.FaktorX);
        beschriftung().Left(ausrichtung == rechterRand ? x - beschriftung().Width() : x);
    });
    trap([&] { beschriftung().Top(skaliert(maß("Y"), gem.FaktorY)); });
    zeigen(trap, {"ParaBeschriftung", n}, true);
}

} // namespace servopanel::servo_page
