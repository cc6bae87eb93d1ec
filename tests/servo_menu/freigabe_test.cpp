#include "servo_menu/servo_menu.h"
#include "support/lone.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <string>

namespace servopanel::testing {

namespace {

class MenuFußzeileFreigabe : public ::testing::Test {
protected:
    MenuFußzeileFreigabe()
    {
        lone.surround.world().texts["P:\\\\.ini"] = {
            "[Machine0]\nF1=TRUE\nF4=TRUE\nF10=TRUE\n[Footer]\nF3=x\n", {}};
        lone.surround.world().variables["parameter<.maschinenanzahl>"] = std::int16_t{2};
        menu.BildShow(-1);
        lone.fake("Fußzeile")->crossings.clear();
    }

    // "Freigabe 1 True" for each call of the footer.
    std::string calls()
    {
        std::string lines;
        for (const Crossing& crossing : lone.fake("Fußzeile")->crossings) {
            lines += crossing.member.name;
            for (const basic::Variant& argument : crossing.args)
                lines += " " + basic::toText(argument);
            lines += "\n";
        }
        return lines;
    }

    Lone<servo_menu::ServoMenu> lone;
    servo_menu::ServoMenu& menu = lone.control;
};

} // namespace

// Nothing calls the procedure yet: it is the menu's half of a protocol that the page uses.

TEST_F(MenuFußzeileFreigabe, ReleasesTheKeysInUseAndTheMachineKeyButNeverKeyFour)
{
    menu.FußzeileFreigabe(true);
    EXPECT_EQ(calls(), "Freigabe 1 True\nFreigabe 9 True\nFreigabe 10 True\n");
}

TEST_F(MenuFußzeileFreigabe, ReleasesNoMachineKeyForOneMachine)
{
    lone.surround.world().variables["parameter<.maschinenanzahl>"] = std::int16_t{1};
    menu.FußzeileFreigabe(true);
    EXPECT_EQ(calls(), "Freigabe 1 True\nFreigabe 10 True\n");
}

TEST_F(MenuFußzeileFreigabe, WithdrawsTenKeysEachAfterReadingItsSetting)
{
    std::string expected;
    for (int key = 1; key <= 10; ++key) {
        const std::string number = std::to_string(key);
        expected +=
            "Einstellung " + number + "\nFreigabe " + number + " False\nFarbe " + number + " 12632256\n";
    }
    menu.FußzeileFreigabe(false);
    EXPECT_EQ(calls(), expected);
}

// afterCall comes with each operation of the footer; the one on this key fails.
TEST_F(MenuFußzeileFreigabe, GoesOnAfterAKeyThatCannotBeReleased)
{
    for (const std::uint8_t key : {std::uint8_t{1}, std::uint8_t{9}}) {
        FakeControl& footer = *lone.fake("Fußzeile");
        footer.crossings.clear();
        lone.surround.errors.reports.clear();
        footer.afterCall = [&] {
            if (footer.crossings.back().args.front() == basic::Variant{key})
                basic::raise(basic::ErrorNumber::ObjectNotSet);
        };
        menu.FußzeileFreigabe(true);
        EXPECT_EQ(calls(), "Freigabe 1 True\nFreigabe 9 True\nFreigabe 10 True\n") << int{key};
        EXPECT_EQ(lone.surround.reports(), (Reports{{91, "Me FußzeileFreigabe"}})) << int{key};
    }
}

} // namespace servopanel::testing
