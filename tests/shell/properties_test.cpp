// What a host gets that asks a control for a property it does not have.
#include "servo_menu/servo_menu.h"
#include "servo_page/servo_main.h"
#include "shell/servo.h"
#include "support/error_number.h"
#include "support/lone.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <string_view>

namespace servopanel::testing {

namespace {

constexpr std::int32_t noSuchMember = 438;

template <class C>
struct Asked {
    Lone<C> lone;

    std::int32_t get(std::string_view name)
    {
        return errorNumber([&] { return lone.control.get(platform::named(name)); });
    }
    std::int32_t put(std::string_view name)
    {
        return errorNumber([&] { return lone.control.put(platform::named(name), std::int16_t{1}), 0; });
    }
};

template <class C>
void expectNoOtherProperties()
{
    Asked<C> control;
    EXPECT_EQ(control.get("BildShow"), 0);
    EXPECT_EQ(control.get("bildshow"), 0);
    EXPECT_EQ(control.get("SpracheGeandert"), noSuchMember); // write only
    EXPECT_EQ(control.get("Colour"), noSuchMember);
    EXPECT_EQ(control.put("Colour"), noSuchMember);
}

TEST(Properties, OfThePage) { expectNoOtherProperties<servo_page::ServoMain>(); }

TEST(Properties, OfTheMenu) { expectNoOtherProperties<servo_menu::ServoMenu>(); }

TEST(Properties, OfTheShellAreNone)
{
    Asked<shell::Servo> control;
    EXPECT_EQ(control.get("BildShow"), noSuchMember);
    EXPECT_EQ(control.put("BildShow"), noSuchMember);
}

} // namespace

} // namespace servopanel::testing
