#include "platform/facades/facade.h"
#include "servo_menu/servo_menu.h"

namespace servopanel::servo_menu {

using basic::single;
using platform::Facade;

void ServoMenu::UserControl_MouseDown(std::int16_t, std::int16_t, float x, float y)
{
    basic::StatementTrap trap{fehler(), "Me UserControl_MouseDown"};
    std::int16_t taste = 0;

    trap([&] { WelcheTaste(x, y, taste); });
    trap([&] { TasteGedrueckt(taste, true); });
}

void ServoMenu::UserControl_MouseMove(std::int16_t, std::int16_t, float x, float y)
{
    basic::StatementTrap trap{fehler(), "Me UserControl_MouseMove"};
    std::int16_t taste = 0;

    trap([&] { WelcheTaste(x, y, taste); });
    // Off the pressed key: it comes up without a choice.
    if (trap.condition([&] { return taste != zustand_.GedrückteTaste; })) {
        std::int16_t gedrückt = 0;
        trap([&] { gedrückt = zustand_.GedrückteTaste; });
        trap([&] { zustand_.GedrückteTaste = 0; });
        trap([&] { TasteGedrueckt(gedrückt, false); });
    }
}

void ServoMenu::UserControl_MouseUp(std::int16_t, std::int16_t, float x, float y)
{
    basic::StatementTrap trap{fehler(), "Me UserControl_MouseUp"};
    std::int16_t taste = 0;

    trap([&] { WelcheTaste(x, y, taste); });
    trap([&] { TasteGedrueckt(taste, false); });
}

// Captions and pictures lie on the keys and report points of their own; the key is found in the menu's.

void ServoMenu::Beschriftung_MouseDown(
    std::int16_t index, std::int16_t button, std::int16_t shift, float x, float y)
{
    basic::StatementTrap trap{fehler(), "Me Beschriftung_MouseDown"};

    trap([&] { x = single(double{x} + double{Facade{kind("Beschriftung", index)}.Left()}); });
    trap([&] { y = single(double{y} + double{Facade{kind("Beschriftung", index)}.Top()}); });
    trap([&] { UserControl_MouseDown(button, shift, x, y); });
}

void ServoMenu::Beschriftung_MouseMove(
    std::int16_t index, std::int16_t button, std::int16_t shift, float x, float y)
{
    basic::StatementTrap trap{fehler(), "Me Beschriftung_MouseMove"};

    trap([&] { x = single(double{x} + double{Facade{kind("Beschriftung", index)}.Left()}); });
    trap([&] { y = single(double{y} + double{Facade{kind("Beschriftung", index)}.Top()}); });
    trap([&] { UserControl_MouseMove(button, shift, x, y); });
}

void ServoMenu::Beschriftung_MouseUp(
    std::int16_t index, std::int16_t button, std::int16_t shift, float x, float y)
{
    basic::StatementTrap trap{fehler(), "Me Beschriftung_MouseUp"};

    trap([&] { x = single(double{x} + double{Facade{kind("Beschriftung", index)}.Left()}); });
    trap([&] { y = single(double{y} + double{Facade{kind("Beschriftung", index)}.Top()}); });
    trap([&] { UserControl_MouseUp(button, shift, x, y); });
}

void ServoMenu::BildIm_MouseDown(
    std::int16_t index, std::int16_t button, std::int16_t shift, float x, float y)
{
    basic::StatementTrap trap{fehler(), "Me BildIm_MouseDown"};

    trap([&] { x = single(double{x} + double{Facade{kind("BildIm", index)}.Left()}); });
    trap([&] { y = single(double{y} + double{Facade{kind("BildIm", index)}.Top()}); });
    trap([&] { UserControl_MouseDown(button, shift, x, y); });
}

void ServoMenu::BildIm_MouseMove(
    std::int16_t index, std::int16_t button, std::int16_t shift, float x, float y)
{
    basic::StatementTrap trap{fehler(), "Me BildIm_MouseMove"};

    trap([&] { x = single(double{x} + double{Facade{kind("BildIm", index)}.Left()}); });
    trap([&] { y = single(double{y} + double{Facade{kind("BildIm", index)}.Top()}); });
    trap([&] { UserControl_MouseMove(button, shift, x, y); });
}

void ServoMenu::BildIm_MouseUp(std::int16_t index, std::int16_t button, std::int16_t shift, float x, float y)
{
    basic::StatementTrap trap{fehler(), "Me BildIm_MouseUp"};

    trap([&] { x = single(double{x} + double{Facade{kind("BildIm", index)}.Left()}); });
    trap([&] { y = single(double{y} + double{Facade{kind("BildIm", index)}.Top()}); });
    trap([&] { UserControl_MouseUp(button, shift, x, y); });
}

} // namespace servopanel::servo_menu
