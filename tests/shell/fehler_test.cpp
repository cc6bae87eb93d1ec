#include "shell/servo.h"
#include "support/lone.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
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

TEST(ShellErrorNames, AreThoseOfTheProceduresDuringTheStart)
{
    Lone<shell::Servo> servo;
    servo.failing = true;
    servo.control.initialize();
    const Reports& reports = servo.surround.reports();
    ASSERT_FALSE(reports.empty());
    for (const Report& report : reports) {
        EXPECT_TRUE(report.procedure == "UserControl_Initialize" || report.procedure == "HoleAufloesung")
            << report.procedure;
    }
    // The first view, which cannot be built.
    EXPECT_EQ(reports.back(), (Report{91, "UserControl_Initialize"}));
}

TEST(ShellStart, ReportsALibraryWithoutANameAndPublishesNone)
{
    Lone<shell::Servo> servo;
    servo.surround.world().fail("libraryName");
    servo.control.initialize();
    const Reports& reports = servo.surround.reports();
    EXPECT_EQ(std::count(reports.begin(), reports.end(), Report{1000, "HoleOCXNamen"}), 1);
    EXPECT_EQ(servo.surround.world().variables.at("Ch-1.intern<.ocxname>"), basic::Variant{""});
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

// What only the shared arrays tell: no file name and no key differs between the picture variants -1, 0 and 1.
TEST(ShellStart, FillsTheSharedStateByActivePosition)
{
    Lone<shell::Servo> servo;
    World& world = servo.surround.world();
    world.variables = {
        {"parameter<.aufloesung>", std::int16_t{1280}},
        {"Ch-1.param_client<.arabisch>", false},
        {"Ch-1.intern<.aktuelle_maschine>", std::int16_t{1}},
        {"parameter<.maschinenbez_1>", "M1"},
        {"parameter<.servo_anzahl_1>", std::int16_t{4}},
        {"parameter<.mit_navi>", false},
        {"Ch-1.intern<.passwort>", std::int16_t{3}},
        {"Ch-1.intern<.servo_zeiger>", std::int16_t{0}},
        {"Ch1.M1_T_servo_11<.mM1_servopassiv_11>", false},
        {"Ch1.M1_T_servo_12<.mM1_servopassiv_12>", true},
        {"Ch1.M1_T_servo_13<.mM1_servopassiv_13>", false},
        {"Ch1.M1_T_servo_14<.mM1_servopassiv_14>", false},
    };
    world.profiles["P:\\Parameter\\Program.ini"] = {
        {"[1Machine] Servo1", "11"},
        {"[1Machine] Servo2", "12"},
        {"[1Machine] Servo3", "13"},
        {"[1Machine] Servo4", "14"},
        {"[1Machine] ServoPic1", "0"},
        {"[1Machine] ServoPic3", "2"},
        {"[1Machine] Diag2Servo4", "TRUE"},
        {"[Project] ServoWithMachineType", "1"},
        {"[Project] ServoWithFault", "true"},
    };
    servo.control.initialize();

    const display::GemeinsamerZustand& zustand = servo.surround.zustand;
    ASSERT_EQ(zustand.ServoAnzahl, 3);
    const std::int16_t numbers[]{11, 13, 14};
    const std::int16_t pictures[]{1, 2, 1};
    const bool secondPages[]{false, false, true};
    for (std::int32_t position = 1; position <= 3; ++position) {
        const auto i = static_cast<std::size_t>(position - 1);
        EXPECT_EQ(zustand.ServoNr[position], numbers[i]) << position;
        EXPECT_EQ(zustand.ServoPic[position], pictures[i]) << position;
        EXPECT_EQ(zustand.Diag2Servo[position], secondPages[i]) << position;
    }
    EXPECT_TRUE(zustand.MitMaschinenTyp);
    EXPECT_EQ(zustand.MaschinenPrefix, "M1_");
    EXPECT_TRUE(zustand.MitStoerung);
    EXPECT_FALSE(zustand.MitMenu);
    EXPECT_EQ(zustand.AktServo, 1);
    EXPECT_EQ(zustand.PasswortStufe, 3);
    EXPECT_EQ(zustand.SchriftStufe, 2);
    EXPECT_TRUE(servo.surround.reports().empty());

    // Without the option the next start takes it all back.
    world.profiles["P:\\Parameter\\Program.ini"].erase("[Project] ServoWithMachineType");
    servo.control.initialize();
    EXPECT_FALSE(zustand.MitMaschinenTyp);
    EXPECT_EQ(zustand.MaschinenPrefix, "");
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
