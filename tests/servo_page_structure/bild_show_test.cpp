#include "page_test.h"

#include "platform/ids.h"

namespace servopanel::testing {

namespace {

class BildShow : public PageTest {
protected:
    // The footer operations before the servo is bound, and those after it.
    static std::string footerUpTo(const std::string& trace, std::string_view end)
    {
        const std::size_t start = trace.find("ini open");
        return trace.substr(start, trace.find(end) - start);
    }
    static std::string afterBinding(const std::string& trace)
    {
        // The last read of the values is the one that BildShow itself asks for.
        return trace.substr(trace.rfind("put ServoMain.ZeichnungR(46).28"));
    }
    // The machine's keys 1 to 3 are all in use.
    static std::string keysInUse()
    {
        return "put ServoMain.ZeichnungR(46).28 = \"0012\"\n" + picture(1, "Standard\\F_Help_1280.gif")
            + enable(1, true) + picture(2, "Standard\\F_Alarm_1280.gif") + enable(2, true)
            + picture(3, "Standard\\F_Pass_2_1280.gif") + enable(3, true)
            + "raise ServoMain.JetztAnzeigen()\nput ServoMain.Visible = true\nput ServoMain.Timer.Enabled = "
              "true\n";
    }
};

TEST_F(BildShow, ReadsTheFooterAndNumbersItsTexts)
{
    EXPECT_EQ(footerUpTo(show(), "profile"),
        "ini open Servo\\Servo.ini\nini close\n" + textNumber(1, 1101) + textNumber(2, 1102)
            + textNumber(3, 1103) + textNumber(4, 1104) + textNumber(5, 1105) + textNumber(6, 1106)
            + textNumber(7, 1107) + textNumber(8, 1108) + textNumber(9, 1109) + textNumber(10, 1110)
            + "read parameter<.maschinenanzahl> = 1\n" + textNumber(9, 10000));
}

TEST_F(BildShow, SetsKeysOneToThreeAfterTheValues) { EXPECT_EQ(afterBinding(show()), keysInUse()); }

// The shell hides the page by its Visible; BildShow makes it ready, for False as for True.
TEST_F(BildShow, MakesThePageReadyWhateverIsPut)
{
    show();
    run("");
    const platform::ControlRef page = replay.host().servo()->form().find({"ServoMain"});
    page->put(platform::names::BildShow, {}, std::int16_t{0});
    const std::string trace = lines("");
    EXPECT_TRUE(contains(trace, "ini open Servo\\Servo.ini\n"));
    EXPECT_EQ(afterBinding(trace), keysInUse());
    EXPECT_EQ(page->get(platform::names::BildShow, {}), basic::Variant{std::int16_t{0}});
}

constexpr std::string_view noKeys = "file Servo\\Servo.ini\n[Machine1]\nF1=FALSE\n[Footer]\nF3=Pw\nend\n";

TEST_F(BildShow, LeavesKeysAloneThatAreNotInUse)
{
    EXPECT_EQ(afterBinding(show(noKeys)),
        "put ServoMain.ZeichnungR(46).28 = \"0012\"\n"
        "raise ServoMain.JetztAnzeigen()\nput ServoMain.Visible = true\nput ServoMain.Timer.Enabled = "
        "true\n");
}

TEST_F(BildShow, ShowsTheEngineOnKeyFourForLevelFiveEvenWhenItIsNotInUse)
{
    const std::string trace = show(std::string{noKeys} + "var Ch-1.intern<.passwort> = 5\n");
    EXPECT_EQ(afterBinding(trace),
        "put ServoMain.ZeichnungR(46).28 = \"0012\"\n" + picture(4, "Standard\\F_engine_1280.gif")
            + "raise ServoMain.JetztAnzeigen()\nput ServoMain.Visible = true\nput ServoMain.Timer.Enabled = "
              "true\n");
}

TEST_F(BildShow, ShowsNoEngineForLevelSix)
{
    const std::string trace = show("var Ch-1.intern<.passwort> = 6\n");
    EXPECT_TRUE(contains(trace, picture(1, "Standard\\F_Help_1280.gif")));
    EXPECT_FALSE(contains(trace, "F_engine"));
}

TEST_F(BildShow, ShowsNoEngineOnADiagnosisPage)
{
    show("var Ch-1.intern<.passwort> = 5\n");
    run("key 10\n");
    const std::string trace = run("show\n");
    EXPECT_TRUE(contains(trace, picture(1, "Standard\\F_Help_1280.gif")));
    EXPECT_FALSE(contains(trace, "F_engine"));
}

TEST_F(BildShow, AddsAccessLevelAndResolutionToThePictureOfKeyThree)
{
    const std::string trace = show("var Ch-1.intern<.passwort> = 2\nvar parameter<.aufloesung> = 1024\n"
                                   "file Servo\\Servo.ini\n[Machine1]\nF3=true\n[Footer]\nF3=Pw\nend\n");
    EXPECT_TRUE(contains(trace, picture(3, "Pw2_1024.gif") + enable(3, true)));
}

TEST_F(BildShow, TellsOfAPictureThatTheFooterLacks)
{
    const std::string trace = show("file Servo\\Servo.ini\n[Machine1]\nF1=TRUE\n[Footer]\nF3=Pw\nend\n");
    EXPECT_TRUE(contains(trace,
        "message \"Section [Footer] or Entry 'F1' in file '<project>\\Servo\\Servo.ini' not found\"\n"));
    EXPECT_FALSE(contains(trace, "0x68030007(1,")) << "a key without a picture name stays as it is";
}

TEST_F(BildShow, ReadsTheKeysOfTheShownMachine)
{
    // Machine 2 has the designation of machine 1 here, so its servos are the same.
    const std::string trace =
        show("var Ch-1.intern<.aktuelle_maschine> = 2\n"
             "var parameter<.maschinenbez_2> = \"M1\"\n"
             "var parameter<.servo_anzahl_2> = 0\n"
             "file Servo\\Servo.ini\n[Machine1]\nF1=TRUE\n[Machine2]\nF2=TRUE\n[Footer]\n"
             "F2=two.gif\nF3=Pw\nend\n");
    EXPECT_TRUE(contains(trace, textNumber(1, 1201)));
    EXPECT_TRUE(contains(trace, picture(2, "two.gif") + enable(2, true)));
    EXPECT_FALSE(contains(trace, "0x68030007(1,"));
}

TEST_F(BildShow, ShowsTheMachineSymbolWithSeveralMachines)
{
    const std::string trace = show("var parameter<.maschinenanzahl> = 2\n");
    EXPECT_TRUE(contains(trace,
        "read parameter<.maschinenanzahl> = 2\n" + picture(9, "Standard\\Machinesymbol_M1_1280.gif")
            + textNumber(9, 10000)));
}

TEST_F(BildShow, LeavesKeyNineWithoutSymbolWhenTheNumberOfMachinesIsUnknown)
{
    const std::string trace = show("fail read parameter<.maschinenanzahl> 1\n");
    EXPECT_FALSE(contains(trace, "Machinesymbol"));
    EXPECT_EQ(count(lines("error "), "\"Ma BildShow Let\""), 1U);
    EXPECT_TRUE(contains(trace, textNumber(9, 10000)));
}

TEST_F(BildShow, ReportsTextNumbersBeyondSixteenBits)
{
    show("var Ch-1.intern<.aktuelle_maschine> = 318\n"
         "var parameter<.maschinenbez_318> = \"M1\"\n"
         "var parameter<.servo_anzahl_318> = 0\n");
    EXPECT_EQ(count(lines("error 6 \"Ma BildShow Let\""), "\n"), 10U);
    EXPECT_TRUE(contains(lines("call ServoMain.Fußzeile"), textNumber(9, 10000)));
}

TEST_F(BildShow, GoesOnWithoutItsFile)
{
    // The library's name decides the file: there is none for this one.
    const std::string trace = show("library Achsen\n");
    EXPECT_TRUE(contains(trace, "ini open Achsen\\Achsen.ini failed\n"));
    EXPECT_TRUE(contains(trace, "raise ServoMain.JetztAnzeigen()\n"));
}

TEST_F(BildShow, ReadsTheFooterAgainEachTime)
{
    show();
    const std::string trace = run("show\n");
    EXPECT_TRUE(contains(trace, "ini open Servo\\Servo.ini\n"));
    EXPECT_TRUE(contains(trace, "raise ServoMain.JetztAnzeigen()\n"));
}

TEST_F(BildShow, ShowsNoEngineOnAKeyFourWithoutAPictureInTheFooter)
{
    const std::string trace = show("var Ch-1.intern<.passwort> = 5\n"
                                   "file Servo\\Servo.ini\n[Machine1]\nF4=TRUE\n[Footer]\nF3=Pw\nend\n");
    EXPECT_TRUE(contains(trace,
        "message \"Section [Footer] or Entry 'F4' in file '<project>\\Servo\\Servo.ini' not found\"\n"));
    // Choosing the servo has shown it already.
    EXPECT_EQ(count(trace, picture(4, "Standard\\F_engine_1280.gif")), 1U);
    EXPECT_FALSE(contains(afterBinding(trace), "0x68030007(4,"));
}

class UserControlTerminate : public PageTest { };

TEST_F(UserControlTerminate, StopsTheTimer)
{
    show();
    run("terminate\n");
    EXPECT_EQ(lines("put ServoMain.Timer"), "put ServoMain.Timer.Enabled = false\n");
    EXPECT_EQ(lines("closeme"), "");
}

TEST_F(UserControlTerminate, ClosesTheErrorDisplayOnceWhenThereWereReports)
{
    show("fail read Ch-1.intern<.passwort>\n");
    run("terminate\n");
    EXPECT_EQ(lines("closeme"), "closeme\n");
}

} // namespace

} // namespace servopanel::testing
