#include "servo_menu/servo_menu.h"
#include "support/fake_control.h"
#include "support/fakes.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>

namespace servopanel::testing {

namespace {

// A menu that has just its footer.
class FooterOnly final : public platform::Form, public platform::Surface, public platform::Owner {
public:
    platform::ControlRef child(platform::ChildId id) override
    {
        if (id.name != "Fußzeile") basic::raise(basic::ErrorNumber::ObjectNotSet);
        return footer;
    }
    void load(platform::ChildId) override { }
    float textWidth(platform::ChildId, std::string_view) override { return 0; }
    basic::Variant get(const platform::Member&) override { return {}; }
    void put(const platform::Member&, const basic::Variant&) override { }
    void line(platform::ChildId, float, float, float, float, std::int32_t, std::int16_t) override { }
    void clear(platform::ChildId) override { }
    void refresh(platform::ChildId) override { }
    void bitBlt(
        platform::ChildId, platform::ChildId, std::int32_t, std::int32_t, std::int32_t, std::int32_t) override
    {
    }
    void stretchBlt(
        platform::ChildId, platform::ChildId, std::int32_t, std::int32_t, std::int32_t, std::int32_t) override
    {
    }
    void raise(std::string_view, platform::Args) override { }

    std::shared_ptr<FakeControl> footer = std::make_shared<FakeControl>("Fußzeile");
};

class MenuFußzeileFreigabe : public ::testing::Test {
protected:
    MenuFußzeileFreigabe()
    {
        footer.footer->result = std::int32_t{0};
        surround.platform.world.texts["P:\\\\.ini"] = {
            {"[Machine0]", "F1=TRUE", "F4=TRUE", "F10=TRUE", "[Footer]", "F3=x"}, {}};
        surround.platform.world.variables["parameter<.maschinenanzahl>"] = std::int16_t{2};
        menu.BildShow(-1);
        footer.footer->crossings.clear();
    }

    // "Freigabe 1 True" for each call of the footer.
    std::string calls() const
    {
        std::string lines;
        for (const Crossing& crossing : footer.footer->crossings) {
            lines += crossing.member.name;
            for (const basic::Variant& argument : crossing.args)
                lines += " " + basic::toText(argument);
            lines += "\n";
        }
        return lines;
    }

    Surround surround;
    display::MGlobal global{surround.umfeld};
    config::MService service{surround.umfeld};
    config::MServoModul servoModul{surround.umfeld, global};
    FooterOnly footer;
    servo_menu::ServoMenu menu{{surround.umfeld, global, service, servoModul}, {footer, footer, footer}};
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
    surround.platform.world.variables["parameter<.maschinenanzahl>"] = std::int16_t{1};
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

} // namespace servopanel::testing
