// What the menu keeps without showing it anywhere.
#include "servo_menu/servo_menu.h"
#include "support/lone.h"

#include <gtest/gtest.h>

namespace servopanel::servo_menu::tests {
namespace {

TEST(WhatTheMenuKeeps, IsAnEmptyPictureForAKeyThatTheMachineDoesNotUse)
{
    testing::Lone<ServoMenu> menu;
    menu.surround.zustand.AufloesungText = "1280";
    menu.control.BildShow(-1);
    for (std::int16_t key = 1; key <= 10; ++key)
        if (key != 3) {
            EXPECT_FALSE(menu.control.zustand().Tasten[key].Frei) << key;
            EXPECT_EQ(menu.control.zustand().Tasten[key].Bild, "Standard\\empty_1280.gif") << key;
        }
}

TEST(WhatTheMenuKeeps, IsTheLastPositionAndNoRequestAfterAScroll)
{
    testing::Lone<ServoMenu> menu;
    EXPECT_EQ(menu.control.zustand().rollen.Position, 0);
    menu.control.ScrollBar_NeuePos(3);
    const Rollanforderung& kept = menu.control.zustand().rollen;
    EXPECT_EQ(kept.Position, 3);
    EXPECT_EQ(kept.Anforderungen, 0);
    EXPECT_EQ(kept.Bedient, 0);
    EXPECT_EQ(kept.Beschaeftigt, display::falsch);
    EXPECT_FALSE(kept.Abbruch);
}

} // namespace
} // namespace servopanel::servo_menu::tests
