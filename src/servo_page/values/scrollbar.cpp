#include "platform/facades/scroll_bar.h"

#include "platform/facades/intrinsic.h"
#include "servo_page/servo_main.h"

namespace servopanel::servo_page {

void ServoMain::ScrollBar_NeuePos(std::int16_t neuePos)
{
    basic::StatementTrap trap{fehler(), "Ma ScrollBar_NeuePos"};
    Rollzustand& rollen = zustand_.rollen;

    // 1. Positions count from 1, the offset from 0; both in pixels.
    trap([&] { rollen.Versatz = basic::subtract16(neuePos, 1); });

    // 2. Whether the visible part goes beyond the end.
    trap([&] {
        const platform::ScrollBar leiste{kind("ScrollBar")};
        rollen.ListenEnde = basic::add16(leiste.Position(), leiste.Seite()) > leiste.Anzahl();
    });

    // 3. Move the main area.
    ScrollbarAnzeigen();
}

void ServoMain::ScrollbarAnzeigen()
{
    basic::StatementTrap trap{fehler(), "Ma ScrollbarAnzeigen"};
    Rollzustand& rollen = zustand_.rollen;

    // 1. Note the request.
    rollen.Angefordert = rollen.Versatz;
    trap([&] { rollen.Anforderungen = basic::add16(rollen.Anforderungen, 1); });

    // 2. A move that is under way serves it.
    if (rollen.Beschaeftigt != display::falsch) return;

    // 3. Move until no newer request is left.
    rollen.Beschaeftigt = display::wahr;
    while (rollen.Anforderungen != rollen.Bedient) {
        rollen.Bedient = rollen.Anforderungen;
        for (std::int16_t hälfte = 1; hälfte <= 2; ++hälfte) {
            trap([&] {
                platform::Bildfeld{kind("MainBereich", hälfte)}.Top(
                    basic::single(0.0 - rollen.Versatz * gemeinsam().TwipsProPixelY));
            });
        }
    }

    // 4. Nothing is asked for any more.
    rollen.Anforderungen = 0;
    rollen.Bedient = 0;
    rollen.Beschaeftigt = display::falsch;
}

} // namespace servopanel::servo_page
