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
        const std::int16_t gedrückt = zustand_.GedrückteTaste;
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
void ServoMenu::aufMenüBeziehen(basic::StatementTrap& trap, platform::ChildId feld, float& x, float& y)
{
    trap([&] { x = single(double{x} + double{Facade{platform_.form.child(feld)}.Left()}); });
    trap([&] { y = single(double{y} + double{Facade{platform_.form.child(feld)}.Top()}); });
}

void ServoMenu::Beschriftung_MouseDown(
    std::int16_t index, std::int16_t button, std::int16_t shift, float x, float y)
{
    basic::StatementTrap trap{fehler(), "Me Beschriftung_MouseDown"};

    aufMenüBeziehen(trap, {"Beschriftung", index}, x, y);
    trap([&] { UserControl_MouseDown(button, shift, x, y); });
}

void ServoMenu::Beschriftung_MouseMove(
    std::int16_t index, std::int16_t button, std::int16_t shift, float x, float y)
{
    basic::StatementTrap trap{fehler(), "Me Beschriftung_MouseMove"};

    aufMenüBeziehen(trap, {"Beschriftung", index}, x, y);
    trap([&] { UserControl_MouseMove(button, shift, x, y); });
}

void ServoMenu::Beschriftung_MouseUp(
    std::int16_t index, std::int16_t button, std::int16_t shift, float x, float y)
{
    basic::StatementTrap trap{fehler(), "Me Beschriftung_MouseUp"};

    aufMenüBeziehen(trap, {"Beschriftung", index}, x, y);
    trap([&] { UserControl_MouseUp(button, shift, x, y); });
}

void ServoMenu::BildIm_MouseDown(
    std::int16_t index, std::int16_t button, std::int16_t shift, float x, float y)
{
    basic::StatementTrap trap{fehler(), "Me BildIm_MouseDown"};

    aufMenüBeziehen(trap, {"BildIm", index}, x, y);
    trap([&] { UserControl_MouseDown(button, shift, x, y); });
}

void ServoMenu::BildIm_MouseMove(
    std::int16_t index, std::int16_t button, std::int16_t shift, float x, float y)
{
    basic::StatementTrap trap{fehler(), "Me BildIm_MouseMove"};

    aufMenüBeziehen(trap, {"BildIm", index}, x, y);
    trap([&] { UserControl_MouseMove(button, shift, x, y); });
}

void ServoMenu::BildIm_MouseUp(std::int16_t index, std::int16_t button, std::int16_t shift, float x, float y)
{
    basic::StatementTrap trap{fehler(), "Me BildIm_MouseUp"};

    aufMenüBeziehen(trap, {"BildIm", index}, x, y);
    trap([&] { UserControl_MouseUp(button, shift, x, y); });
}

} // namespace servopanel::servo_menu
