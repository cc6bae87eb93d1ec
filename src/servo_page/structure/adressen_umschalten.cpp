#include "platform/facades/intrinsic.h"
#include "platform/facades/scroll_bar.h"
#include "servo_page/servo_main.h"

namespace servopanel::servo_page {

using basic::StatementTrap;
using platform::Bildfeld;

void ServoMain::AdressenUmschalten(bool seitenWechsel)
{
    StatementTrap trap{fehler(), "Ma AdressenUmschalten"};
    auto& rollen = zustand_.rollen;

    // The scroll bar is free again; unless the list stands at its end, the same servo starts at the top.
    trap([&] { platform::ScrollBar{kind("ScrollBar")}.Gesperrt(false); });
    if (!seitenWechsel && !rollen.ListenEnde) {
        trap([&] { Bildfeld{kind("MainBereich", 1)}.Top(0.0F); });
        trap([&] { Bildfeld{kind("MainBereich", 2)}.Top(0.0F); });
        trap([&] { rollen.Versatz = 0; });
    }

    // Heading and diagnosis lines.
    hauptbereichTexte(trap);

    // The rows of both halves, on bands that are drawn anew: only rows in use have one.
    trap([&] { platform_.surface.clear({"MainBereich", 1}); });
    trap([&] { platform_.surface.clear({"MainBereich", 2}); });
    for (std::int16_t feld = 1; feld <= zweiteGruppe.letztes; ++feld)
        sollwertzeile(trap, feld);
    for (std::int16_t feld = 31; feld <= 34; ++feld)
        schalterzeile(trap, feld);
    for (std::int16_t feld = 41; feld <= 42; ++feld)
        zeichnungszeile(trap, feld);
}

} // namespace servopanel::servo_page
