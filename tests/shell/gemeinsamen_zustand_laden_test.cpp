// What the start of the outer control takes from the machine, and what it keeps when the machine gives nothing usable.
#include "shell/servo.h"
#include "support/lone.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <map>
#include <string>
#include <utility>
#include <vector>

namespace servopanel::testing {

namespace {

using Zustand = display::GemeinsamerZustand;

const char* const initialize = "UserControl_Initialize";
const char* const countdown = "Ch-1.intern<.navi_password_countdown>";

// A whole family where one value is expected.
basic::Variant family() { return basic::doubles({1}); }

// The control among fakes: machine 1 with the servos 11 to 14, all of them active, and a menu. Nothing fails.
struct Start {
    Lone<shell::Servo> servo;
    World& world = servo.surround.world();
    Zustand& zustand = servo.surround.zustand;

    Start()
    {
        world.variables = {
            {"parameter<.aufloesung>", std::int16_t{1280}},
            {"Ch-1.param_client<.arabisch>", false},
            {"Ch-1.intern<.aktuelle_maschine>", std::int16_t{1}},
            {"parameter<.maschinenbez_1>", "M1"},
            {"parameter<.servo_anzahl_1>", std::int16_t{4}},
            {"parameter<.mit_navi>", false},
            {countdown, std::int16_t{7}},
            {"Ch-1.intern<.passwort>", std::int16_t{3}},
            {"Ch-1.intern<.servo_zeiger>", std::int16_t{2}},
            {"Ch1.M1_T_servo_11<.mM1_servopassiv_11>", false},
            {"Ch1.M1_T_servo_12<.mM1_servopassiv_12>", false},
            {"Ch1.M1_T_servo_13<.mM1_servopassiv_13>", false},
            {"Ch1.M1_T_servo_14<.mM1_servopassiv_14>", false},
        };
        entries() = {
            {"[1Machine] Servo1", "11"},
            {"[1Machine] Servo2", "12"},
            {"[1Machine] Servo3", "13"},
            {"[1Machine] Servo4", "14"},
            {"[Project] ServoWithMenu", "TRUE"},
        };
    }

    std::map<std::string, std::string>& entries() { return world.profiles["P:\\Parameter\\Program.ini"]; }

    // What this start reports.
    Reports initialized()
    {
        servo.surround.errors.reports.clear();
        servo.control.initialize();
        return servo.surround.reports();
    }
    std::vector<std::int16_t> servos() const
    {
        std::vector<std::int16_t> numbers;
        for (std::int32_t position = 1; position <= zustand.ServoAnzahl; ++position)
            numbers.push_back(zustand.ServoNr[position]);
        return numbers;
    }
};

// The numbers of the start.
struct Number {
    const char* variable;
    std::int16_t Zustand::*field;
    int dependent; // statements that fail without it at a first start
};
constexpr Number numbers[]{
    // Machine 0 has neither a designation nor servos.
    {"Ch-1.intern<.aktuelle_maschine>", &Zustand::AktuelleMaschine, 2},
    {"parameter<.servo_anzahl_1>", &Zustand::ServoAnzahl, 0},
    {"Ch-1.intern<.passwort>", &Zustand::PasswortStufe, 0},
    {"Ch-1.intern<.servo_zeiger>", &Zustand::AktServo, 0},
};

// Values that are no number of 16 bits.
struct Unusable {
    basic::Variant value;
    std::int32_t error;
};
const Unusable unusable[]{{"abc", 13}, {std::int32_t{40000}, 6}, {family(), 13}};

} // namespace

// What only the shared arrays tell: no file name and no key differs between the picture variants -1, 0 and 1.
TEST(GemeinsamenZustandLaden, FillsTheSharedStateByActivePosition)
{
    Start start;
    start.world.variables["Ch1.M1_T_servo_12<.mM1_servopassiv_12>"] = true;
    start.world.variables["Ch-1.intern<.servo_zeiger>"] = std::int16_t{0};
    start.entries().erase("[Project] ServoWithMenu");
    start.entries().insert({
        {"[1Machine] ServoPic1", "0"},
        {"[1Machine] ServoPic3", "2"},
        {"[1Machine] Diag2Servo4", "TRUE"},
        {"[Project] ServoWithMachineType", "1"},
        {"[Project] ServoWithFault", "true"},
    });
    EXPECT_EQ(start.initialized(), Reports{});

    const Zustand& zustand = start.zustand;
    EXPECT_EQ(start.servos(), (std::vector<std::int16_t>{11, 13, 14}));
    const std::int16_t pictures[]{1, 2, 1};
    const bool secondPages[]{false, false, true};
    for (std::int32_t position = 1; position <= 3; ++position) {
        const auto i = static_cast<std::size_t>(position - 1);
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

    // Without the option the next start takes it all back.
    start.entries().erase("[Project] ServoWithMachineType");
    EXPECT_EQ(start.initialized(), Reports{});
    EXPECT_FALSE(zustand.MitMaschinenTyp);
    EXPECT_EQ(zustand.MaschinenPrefix, "");
}

TEST(GemeinsamenZustandLaden, ReportsALibraryWithoutANameAndPublishesNone)
{
    Start start;
    start.world.fail("libraryName");
    EXPECT_EQ(start.initialized(), (Reports{{1000, "HoleOCXNamen"}}));
    EXPECT_EQ(start.world.variables.at("Ch-1.intern<.ocxname>"), basic::Variant{""});
}

TEST(GemeinsamenZustandLaden, LeavesANumberZeroThatNeverConverted)
{
    for (const Number& number : numbers) {
        for (const Unusable& bad : unusable) {
            Start start;
            start.world.variables[number.variable] = bad.value;
            Reports expected{{bad.error, initialize}};
            for (int i = 0; i < number.dependent; ++i)
                expected.push_back({1001, initialize});
            EXPECT_EQ(start.initialized(), expected) << number.variable;
            EXPECT_EQ(start.zustand.*number.field, 0) << number.variable;
        }
    }
}

// The shared state outlives the control, so the next start finds what the one before has read.
TEST(GemeinsamenZustandLaden, KeepsWhatANumberWasWhenItDoesNotConvert)
{
    for (const Number& number : numbers) {
        for (const Unusable& bad : unusable) {
            Start start;
            start.initialized();
            const std::int16_t before = start.zustand.*number.field;
            EXPECT_NE(before, 0) << number.variable;
            start.world.variables[number.variable] = bad.value;
            EXPECT_EQ(start.initialized(), (Reports{{bad.error, initialize}})) << number.variable;
            EXPECT_EQ(start.zustand.*number.field, before) << number.variable;
        }
    }
}

TEST(GemeinsamenZustandLaden, RoundsHalvesToTheEvenNumber)
{
    for (const Number& number : numbers) {
        for (const auto& [given, taken] : {std::pair{2.5, 2}, std::pair{3.5, 4}}) {
            Start start;
            start.world.variables[number.variable] = given;
            start.initialized();
            EXPECT_EQ(start.zustand.*number.field, taken) << number.variable;
        }
    }
}

TEST(GemeinsamenZustandLaden, TakesANumberForADesignation)
{
    Start start;
    start.world.variables["parameter<.maschinenbez_1>"] = std::int16_t{7};
    start.world.variables["parameter<.servo_anzahl_1>"] = std::int16_t{1};
    start.world.variables["Ch1.7_T_servo_11<.m7_servopassiv_11>"] = false;
    start.entries()["[Project] ServoWithMachineType"] = "1";
    EXPECT_EQ(start.initialized(), Reports{});
    EXPECT_EQ(start.zustand.MaschinenBez, "7");
    EXPECT_EQ(start.zustand.MaschinenPrefix, "7_");
    EXPECT_EQ(start.servos(), std::vector<std::int16_t>{11});
}

TEST(GemeinsamenZustandLaden, KeepsADesignationThatIsNoText)
{
    Start start;
    start.initialized();
    start.world.variables["parameter<.maschinenbez_1>"] = family();
    EXPECT_EQ(start.initialized(), (Reports{{13, initialize}}));
    EXPECT_EQ(start.zustand.MaschinenBez, "M1");
    EXPECT_EQ(start.servos(), (std::vector<std::int16_t>{11, 12, 13, 14}));
}

// A servo that may be switched off is not offered to the operator.
TEST(GemeinsamenZustandLaden, LeavesAServoOutWhoseFlagCannotBeDecided)
{
    Start start;
    start.world.variables["Ch1.M1_T_servo_12<.mM1_servopassiv_12>"] = family();
    EXPECT_EQ(start.initialized(), (Reports{{13, initialize}}));
    EXPECT_EQ(start.servos(), (std::vector<std::int16_t>{11, 13, 14}));
}

TEST(GemeinsamenZustandLaden, LeavesTheCountdownAloneWhenNavigationCannotBeDecided)
{
    Start start;
    start.world.variables["parameter<.mit_navi>"] = family();
    EXPECT_EQ(start.initialized(), (Reports{{13, initialize}}));
    const Texts& log = start.world.log;
    EXPECT_EQ(std::count(log.begin(), log.end(), std::string{"read "} + countdown), 0);
    EXPECT_EQ(std::count(log.begin(), log.end(), std::string{"write "} + countdown), 0);
}

TEST(GemeinsamenZustandLaden, StartsACountdownAtOneThatDoesNotConvert)
{
    for (const Unusable& bad : unusable) {
        Start start;
        start.world.variables["parameter<.mit_navi>"] = true;
        start.world.variables[countdown] = bad.value;
        EXPECT_EQ(start.initialized(), (Reports{{bad.error, initialize}}));
        EXPECT_EQ(start.world.variables[countdown], basic::Variant{std::int16_t{1}});
    }
}

TEST(GemeinsamenZustandLaden, GoesOnAfterACountdownThatCannotBeWritten)
{
    Start start;
    start.world.variables["parameter<.mit_navi>"] = true;
    start.world.fail(std::string{"write "} + countdown);
    EXPECT_EQ(start.initialized(), (Reports{{1000, initialize}}));
    EXPECT_EQ(start.world.variables[countdown], basic::Variant{std::int16_t{7}});
    EXPECT_EQ(start.servos(), (std::vector<std::int16_t>{11, 12, 13, 14}));
    EXPECT_EQ(start.zustand.PasswortStufe, 3);
}

} // namespace servopanel::testing
