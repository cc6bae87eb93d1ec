#include "shell/servo.h"
#include "support/lone.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

namespace servopanel::testing {

TEST(ShellErrorNames, AreThoseOfTheHandlersAndEachStatementFailsForItself)
{
    struct Row {
        const char* name;
        std::function<void(shell::Servo&)> call;
        std::size_t statements;
    };
    const Row rows[]{
        {"UserControl_Show", [](auto& servo) { servo.UserControl_Show(); }, 1},
        {"ServoMain_JetztAnzeigen", [](auto& servo) { servo.ServoMain_JetztAnzeigen(); }, 1},
        // Hiding the page and the two questions; without an answer the menu is neither built nor shown.
        {"ServoMain_MenuAnzeigen", [](auto& servo) { servo.ServoMain_MenuAnzeigen(); }, 3},
        {"ServoMenu_JetztAnzeigen", [](auto& servo) { servo.ServoMenu_JetztAnzeigen(); }, 1},
        // Hiding the menu, asking whether there is a page, and filling it.
        {"ServoMenu_ServoBildAufrufen", [](auto& servo) { servo.ServoMenu_ServoBildAufrufen(2); }, 3},
        {"Header_SpracheGeandert", [](auto& servo) { servo.Header_SpracheGeandert(1); }, 2},
    };
    Lone<shell::Servo> servo;
    servo.failing = true;
    for (const Row& row : rows) {
        servo.surround.errors.reports.clear();
        row.call(servo.control);
        EXPECT_EQ(servo.surround.reports(), Reports(row.statements, {91, row.name})) << row.name;
    }
    EXPECT_EQ(servo.surround.zustand.AktServo, 2);
}

TEST(ShellErrorNames, AChildThatTakesNoLanguageKeepsItFromNoOther)
{
    Lone<shell::Servo> servo;
    servo.fake("ServoMain")->missing = {"SPRACHEGEANDERT"};
    servo.control.Header_SpracheGeandert(1);
    EXPECT_EQ(servo.fake("ServoMenu")->puts(), Texts{"SpracheGeandert = 1"});
    EXPECT_EQ(servo.surround.reports(), (Reports{{438, "Header_SpracheGeandert"}}));
}

// Each as the last statement of its handler, which returns all the same.
TEST(ShellErrorNames, AreThoseOfTheHandlersForTheMenuThatTakesNothing)
{
    const basic::Variant built{std::int16_t{-1}};
    const basic::Variant hidden{std::int16_t{0}};
    struct Row {
        const char* name;
        const char* missing;
        basic::Variant shown;
        std::function<void(shell::Servo&)> call;
    };
    const Row rows[]{
        {"UserControl_Show", "BILDSHOW", hidden, [](auto& servo) { servo.UserControl_Show(); }},
        {"ServoMain_MenuAnzeigen", "VISIBLE", built, [](auto& servo) { servo.ServoMain_MenuAnzeigen(); }},
        {"Header_SpracheGeandert", "SPRACHEGEANDERT", built,
            [](auto& servo) { servo.Header_SpracheGeandert(1); }},
    };
    for (const Row& row : rows) {
        Lone<shell::Servo> servo;
        servo.surround.zustand.MitMenu = true;
        FakeControl& menu = *servo.fake("ServoMenu");
        menu.properties["BILDINIT"] = built;
        menu.properties["BILDSHOW"] = row.shown;
        menu.missing = {row.missing};
        row.call(servo.control);
        EXPECT_EQ(servo.surround.reports(), (Reports{{438, row.name}})) << row.name;
    }
}

TEST(ShellErrorNames, AreThoseOfTheHandlersForTheMenuThatIsNotShown)
{
    Lone<shell::Servo> servo;
    FakeControl& menu = *servo.fake("ServoMenu");
    menu.properties["BILDINIT"] = std::int16_t{-1};
    menu.properties["BILDSHOW"] = std::int16_t{0};
    menu.afterPut = [] { basic::raise(basic::ErrorNumber::ObjectNotSet); };
    servo.control.ServoMain_MenuAnzeigen();
    EXPECT_EQ(servo.surround.reports(), (Reports{{91, "ServoMain_MenuAnzeigen"}}));
}

TEST(ShellErrorNames, AreThoseOfTheStartWhoseFirstViewFails)
{
    for (const bool withMenu : {false, true}) {
        Lone<shell::Servo> servo;
        auto& world = servo.surround.world();
        world.profiles["P:\\Parameter\\Program.ini"]["[Project] ServoWithMenu"] = withMenu ? "TRUE" : "FALSE";
        world.variables["Ch-1.intern<.servo_zeiger>"] = std::int16_t{0};
        servo.fake(withMenu ? "ServoMenu" : "ServoMain")->missing = {"BILDINIT"};
        servo.control.UserControl_Initialize();
        EXPECT_EQ(servo.surround.reports().back(), (Report{438, "UserControl_Initialize"})) << withMenu;
    }
}

TEST(ShellErrorNames, AreThoseOfTheHandlersForEventsWithoutTheirArgument)
{
    Lone<shell::Servo> servo;
    servo.control.deliver({"ServoMenu"}, "ServoBildAufrufen", {});
    servo.control.deliver({"Header"}, "SpracheGeandert", {});
    EXPECT_EQ(servo.surround.reports(),
        (Reports{{9, "ServoMenu_ServoBildAufrufen"}, {9, "Header_SpracheGeandert"}}));
}

// Nothing but an error of the seam costs a single statement. What else a host lets out ends the whole procedure, and is
// reported under the name of the event.
TEST(ShellEntryNames, AreThoseOfTheEvents)
{
    using Call = std::function<void(shell::Servo&)>;
    const auto event = [](const char* child, const char* name) {
        return [=](shell::Servo& servo) {
            const basic::Variant args[]{std::int16_t{1}};
            EXPECT_TRUE(servo.deliver({child}, name, args)) << child << ' ' << name;
        };
    };
    const std::pair<const char*, Call> calls[]{
        {"UserControl_Initialize", [](shell::Servo& servo) { servo.initialize(); }},
        {"UserControl_Show", [](shell::Servo& servo) { servo.show(); }},
        {"UserControl_Terminate", [](shell::Servo& servo) { servo.terminate(); }},
        {"ServoMain_JetztAnzeigen", event("ServoMain", "JetztAnzeigen")},
        {"ServoMain_MenuAnzeigen", event("ServoMain", "MenuAnzeigen")},
        {"ServoMenu_JetztAnzeigen", event("ServoMenu", "JetztAnzeigen")},
        {"ServoMenu_ServoBildAufrufen", event("ServoMenu", "ServoBildAufrufen")},
        {"Header_SpracheGeandert", event("Header", "SpracheGeandert")},
    };
    const auto display = std::make_shared<FakeErrorDisplay>();
    display->broken = true;
    for (const auto& [name, call] : calls) {
        Lone<shell::Servo> servo;
        servo.broken = true;
        servo.surround.zustand.FehlerAnzeige = display;
        servo.surround.zustand.FehlerAnzahl = 1;
        servo.surround.world().accessed = [] { throw std::runtime_error{"a mistake of the host"}; };
        call(servo.control);
        EXPECT_EQ(servo.surround.reports(), (Reports{{51, name}}));
    }
}

// No variable is known and no child is there. Each statement fails for itself.
TEST(ShellErrorNames, AreThoseOfTheProceduresDuringTheStart)
{
    const char* const start = "UserControl_Initialize";
    for (const bool failingSurface : {false, true}) {
        Lone<shell::Servo> servo;
        servo.failing = true;
        servo.failingSurface = failingSurface;
        servo.control.initialize();
        Reports expected;
        const auto expect = [&](std::size_t count, const Report& report) {
            expected.insert(expected.end(), count, report);
        };
        expect(2, {1001, "HoleAufloesung"}); // width of the panel, direction of reading
        expect(5, {1001, start}); // machine, designation, servos, navigation, access level
        if (failingSurface) expect(2, {91, start}); // height and width of the control itself
        expect(1, {91, start}); // header
        expect(1, {1001, start}); // remembered servo
        expect(4, {91, start}); // places of menu and page
        expect(1, {91, start}); // first view
        EXPECT_EQ(servo.surround.reports(), expected) << failingSurface;
    }
}

// The height factor of the panel before stays on a panel of a width that has none of its own. A length beyond single
// precision is an error and reaches neither screen nor header; a header without its height is not placed at all.
TEST(ShellSize, IsNotSetBeyondSinglePrecision)
{
    Lone<shell::Servo> servo;
    servo.surround.zustand.FaktorY = 3e38F;
    servo.surround.world().variables["parameter<.aufloesung>"] = std::int16_t{900};
    servo.control.initialize();
    const Reports& reports = servo.surround.reports();
    EXPECT_EQ(std::count(reports.begin(), reports.end(), Report{6, "UserControl_Initialize"}), 2);
    EXPECT_EQ(servo.puts(), Texts{"Width = 13500"});
    EXPECT_EQ(servo.fake("Header")->puts(), Texts{});
}

// After a start the number of the servo is never 0 without a menu, so only a test gets here.
TEST(UserControl_Show, OpensThePageInAProjectWithoutMenu)
{
    for (const bool menu : {false, true}) {
        Lone<shell::Servo> servo;
        servo.surround.zustand.AktServo = 0;
        servo.surround.zustand.MitMenu = menu;
        servo.control.UserControl_Show();
        EXPECT_EQ(servo.fake("ServoMain")->puts(), menu ? Texts{} : Texts{"BildShow = -1"});
        EXPECT_EQ(servo.fake("ServoMenu")->puts(), menu ? Texts{"BildShow = -1"} : Texts{});
    }
}

TEST(UserControl_Terminate, ReportsNothingAndClosesTheDisplayOnce)
{
    Lone<shell::Servo> servo;
    const auto display = std::make_shared<FakeErrorDisplay>();
    display->fails = true;
    servo.surround.zustand.FehlerAnzeige = display;
    servo.surround.zustand.FehlerAnzahl = 1;
    servo.control.terminate();
    servo.control.terminate();
    EXPECT_EQ(display->closings, 1);
    EXPECT_EQ(servo.surround.zustand.FehlerAnzeige, nullptr);
    EXPECT_TRUE(servo.surround.reports().empty());
}

// Whoever asks for the servo while page or menu are changed is told the new one.
TEST(ShellServo, IsChosenBeforeThePageIsBuilt)
{
    Lone<shell::Servo> servo;
    std::int16_t chosen = 0;
    FakeControl& page = *servo.fake("ServoMain");
    page.afterPut = [&] {
        if (page.crossings.back().member.name == "BildInit") chosen = servo.surround.zustand.AktServo;
    };
    servo.control.initialize();
    EXPECT_EQ(chosen, 1);
}

TEST(ShellServo, IsChosenBeforeTheMenuIsHidden)
{
    Lone<shell::Servo> servo;
    std::int16_t chosen = 0;
    servo.fake("ServoMenu")->afterPut = [&] { chosen = servo.surround.zustand.AktServo; };
    servo.control.ServoMenu_ServoBildAufrufen(2);
    EXPECT_EQ(chosen, 2);
}

} // namespace servopanel::testing
