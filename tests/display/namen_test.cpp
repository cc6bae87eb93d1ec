#include "display/namen.h"
#include "support/error_number.h"

#include <gtest/gtest.h>

namespace {

using namespace servopanel::display;
using servopanel::testing::errorNumber;

GemeinsamerZustand zustand(const char* maschine)
{
    GemeinsamerZustand neu;
    neu.MaschinenBez = maschine;
    neu.AufloesungText = "1024";
    return neu;
}

TEST(ServoVariable, NamesMachineAndServoTwice)
{
    EXPECT_EQ(servoVariable(zustand("M1"), "_servopassiv_", 3), "Ch1.M1_T_servo_3<.mM1_servopassiv_3>");
    EXPECT_EQ(servoVariable("M1", "_servo_diag_", 3, "1"), "Ch1.M1_T_servo_3<.mM1_servo_diag_31>");
    EXPECT_EQ(servoVariable(zustand("1"), "_servo_para_", 3), "Ch1.1_T_servo_3<.m1_servo_para_3>");
    EXPECT_EQ(servoVariable(zustand("A7"), "_servo_schalt_", 12), "Ch1.A7_T_servo_12<.mA7_servo_schalt_12>");
}

TEST(ServoVariable, WritesNumbersPlainly)
{
    EXPECT_EQ(servoVariable(zustand("M1"), "_servopassiv_", -1), "Ch1.M1_T_servo_-1<.mM1_servopassiv_-1>");
    EXPECT_EQ(servoVariable(zustand("M1"), "_servopassiv_", 0), "Ch1.M1_T_servo_0<.mM1_servopassiv_0>");
}

TEST(ServoVariable, TakesTheDesignationAsItIs)
{
    EXPECT_EQ(servoVariable(zustand(" M1 "), "_fetext_", 3), "Ch1. M1 _T_servo_3<.m M1 _fetext_3>");
    EXPECT_EQ(servoVariable(zustand(""), "_fetext_", 3), "Ch1._T_servo_3<.m_fetext_3>");
}

TEST(ServoVariable, RunsThePageNumberTogetherWithTheServos)
{
    EXPECT_EQ(servoVariable(zustand("M1"), "_servo_diag_", 3, "1"), "Ch1.M1_T_servo_3<.mM1_servo_diag_31>");
}

TEST(InterneVariable, WrapsTheMember)
{
    EXPECT_EQ(interneVariable("servo_zeiger"), "Ch-1.intern<.servo_zeiger>");
}

TEST(TextSchlüssel, NamesTheLibraryTwice)
{
    EXPECT_EQ(textSchlüssel(zustand("M1"), "Servo", 3, 41), "Servo.M1.Servo3.41");
    EXPECT_EQ(textSchlüssel("M1", "Servo", 3, 41), "Servo.M1.Servo3.41");
    EXPECT_EQ(textSchlüssel(zustand("B2"), "Achse", 12, 1), "Achse.B2.Achse12.1");
}

TEST(StandardBild, CarriesTheResolution)
{
    EXPECT_EQ(standardBild(zustand("M1"), "empty"), "Standard\\empty_1024.gif");
    EXPECT_EQ(maschinenSymbol(zustand("M1")), "Standard\\Machinesymbol_M1_1024.gif");
}

TEST(ServoBild, NamesMachineTypeServoAndVariant)
{
    GemeinsamerZustand mitTyp = zustand("M1");
    mitTyp.MaschinenPrefix = "M1_";
    EXPECT_EQ(servoBild(mitTyp, "Servo", 3, 1, false), "Servo\\Servo_M1_3_1024.gif");
    EXPECT_EQ(servoBild(mitTyp, "Servo", 3, 1, true), "Servo\\Servo_S_M1_3_1024.gif");
    EXPECT_EQ(servoBild(mitTyp, "Servo", 3, 2, false), "Servo\\Servo_M1_3_2_1024.gif");
    EXPECT_EQ(servoBild(zustand("M1"), "Servo", 3, 12, true), "Servo\\Servo_S_3_12_1024.gif");
    EXPECT_EQ(servoBild(zustand("M1"), "Servo", 3, 0, false), "Servo\\Servo_3_1024.gif");
    EXPECT_EQ(servoBild(zustand("M1"), "Servo", 3, -2, false), "Servo\\Servo_3_1024.gif");
}

TEST(FußzeilenText, AddsMachineAndKey)
{
    EXPECT_EQ(fußzeilenText(1, 3), 1103);
    EXPECT_EQ(fußzeilenText(0, 11), 1011);
    EXPECT_EQ(fußzeilenText(317, 11), 32711);
}

TEST(FußzeilenText, OverflowsFromMachine318On)
{
    EXPECT_EQ(errorNumber([] { return fußzeilenText(318, 1); }), 6);
    EXPECT_EQ(errorNumber([] { return fußzeilenText(328, 1); }), 6);
    EXPECT_EQ(errorNumber([] { return fußzeilenText(-328, 1); }), 6);
}

} // namespace
