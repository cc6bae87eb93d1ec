#include "platform/facades/intrinsic.h"
#include "platform/facades/sprachtext.h"
#include "servo_menu/raster.h"
#include "servo_menu/servo_menu.h"

namespace servopanel::servo_menu {

using platform::Label;
using platform::Sprachtext;

void ServoMenu::TextFontsAendern()
{
    // Reports under the page's prefix, as the service technicians know it.
    basic::StatementTrap trap{fehler(), "Ma TextFontsAendern"};

    for (std::int16_t taste = 1; taste <= tastenZahl; ++taste)
        schriftÜbernehmen(trap, {"Beschriftung", taste});
    schriftÜbernehmen(trap, {"Überschrift"});
}

void ServoMenu::schriftÜbernehmen(basic::StatementTrap& trap, platform::ChildId ziel)
{
    const auto feld = [&] { return Label{platform_.form.child(ziel)}; };
    const auto sprache = [&] { return Sprachtext{kind("VWLanguage")}; };

    trap([&] { feld().FontName(sprache().FontName()); });
    trap([&] { feld().FontCharset(sprache().FontCharset()); });
    trap([&] { feld().FontBold(sprache().FontBold()); });
    trap([&] { feld().FontWeight(sprache().FontWeight()); });
}

void ServoMenu::SpracheGeandert(std::int16_t)
{
    basic::StatementTrap trap{fehler(), "Ma Let SpracheGeandert"};

    trap([&] { TextFontsAendern(); });
    trap([&] { TextAusgabe(); });
}

} // namespace servopanel::servo_menu
