#include "platform/facades/intrinsic.h"
#include "platform/facades/sprachtext.h"
#include "servo_page/servo_main.h"

namespace servopanel::servo_page {

using platform::Label;
using platform::Sprachtext;

void ServoMain::SpracheGeandert(std::int16_t sprache)
{
    basic::StatementTrap trap{fehler(), "Ma Let SpracheGeandert"};

    // 1. Which language.
    trap([&] { zustand_.wahl.Sprache = sprache; });

    // 2. Its font for the captions on the servo's picture. LEGACY: for the template and the first caption; the second
    // keeps the font it was loaded with, and the captions' texts change with the servo or the page only.
    for (std::int16_t i = 0; i <= 1; ++i) {
        const auto beschriftung = [this, i] { return Label{kind("ParaBeschriftung", i)}; };
        const auto schrift = [this] { return Sprachtext{kind("VWLanguage")}; };
        trap([&] { beschriftung().FontName(schrift().FontName()); });
        trap([&] { beschriftung().FontCharset(schrift().FontCharset()); });
        trap([&] { beschriftung().FontBold(schrift().FontBold()); });
        trap([&] { beschriftung().FontWeight(schrift().FontWeight()); });
    }

    // 3. Every text anew.
    AdressenUmschalten(true);
}

} // namespace servopanel::servo_page
