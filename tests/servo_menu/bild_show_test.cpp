#include "servo_menu/menu_project.h"
#include "support/replay_fixture.h"

namespace servopanel::testing {

class MenuBildShow : public ReplayFixture {
protected:
    void shown(const std::string& project)
    {
        run(project);
        run("create");
        run("show");
    }
};

TEST_F(MenuBildShow, SetsUpTheFooterThenShowsItselfThenBuildsTheFirstKeys)
{
    shown(menuProject(2));
    EXPECT_EQ(replay.lines({"put ServoMenu.BildShow", "ini", "call ServoMenu.Fußzeile.0x68030007",
                  "call ServoMenu.Fußzeile.0x68030004", "raise", "put ServoMenu.Visible",
                  "put ServoMenu.ScrollBar", "save"}),
        "put ServoMenu.BildShow = true\n"
        "ini open Servo\\Servo.ini\n"
        "ini close\n"
        "call ServoMenu.Fußzeile.0x68030007(1, \"Standard\\Help.gif\")\n"
        "call ServoMenu.Fußzeile.0x68030004(1, true)\n"
        "call ServoMenu.Fußzeile.0x68030007(9, \"Standard\\Machinesymbol_M1_1280.gif\")\n"
        "call ServoMenu.Fußzeile.0x68030004(9, true)\n"
        "call ServoMenu.Fußzeile.0x68030007(11, \"Standard\\F_Exit_1280.gif\")\n"
        "call ServoMenu.Fußzeile.0x68030004(11, true)\n"
        "raise ServoMenu.JetztAnzeigen()\n"
        "put ServoMenu.Visible = true\n"
        "put ServoMenu.ScrollBar.0x68030002 = 2\n"
        "put ServoMenu.ScrollBar.0x68030006 = true\n"
        "save ServoMenu.TempPicZiel C:\\Temp\\Velmora\\Servo\\Servo_1_1280.gif\n"
        "save ServoMenu.TempPicZiel C:\\Temp\\Velmora\\Servo\\Servo_2_1280.gif\n");
}

TEST_F(MenuBildShow, NumbersTheTextsOfTheKeysByMachine)
{
    shown(menuProject(1));
    EXPECT_EQ(replay.lines({"call ServoMenu.Fußzeile.0x68030005(1,", "call ServoMenu.Fußzeile.0x68030005(10,",
                  "call ServoMenu.Fußzeile.0x68030005(11,", "call ServoMenu.Fußzeile.0x68030005(31,"}),
        "call ServoMenu.Fußzeile.0x68030005(1, 1101)\n"
        "call ServoMenu.Fußzeile.0x68030005(10, 1110)\n"
        "call ServoMenu.Fußzeile.0x68030005(11, 10000)\n"
        "call ServoMenu.Fußzeile.0x68030005(31, 10000)\n");
}

TEST_F(MenuBildShow, ReportsAMachineNumberTooLargeForTextNumbersKeyByKey)
{
    shown(menuProject(1)
        + "var Ch-1.intern<.aktuelle_maschine> = 327\nvar parameter<.maschinenbez_327> = \"M1\"\n"
          "var parameter<.servo_anzahl_327> = 0\n");
    const std::string errors = replay.lines({"error", "call ServoMenu.Fußzeile.0x68030005(10,"});
    EXPECT_EQ(errors.find("call"), std::string::npos);
    EXPECT_EQ(errors.substr(0, errors.find('\n')), "error 6 \"Me BildShow Let\" \"Overflow\"");
}

TEST_F(MenuBildShow, PutsTheAccessLevelIntoThePictureOfKeyThree)
{
    shown(menuProject(1) + "file Servo\\Servo.ini\n[Machine1]\nF3=TRUE\n[Footer]\nF3=Standard\\Pw\nend\n");
    EXPECT_EQ(replay.lines("call ServoMenu.Fußzeile.0x68030007(3"),
        "call ServoMenu.Fußzeile.0x68030007(3, \"Standard\\Pw3_1280.gif\")\n");
}

TEST_F(MenuBildShow, ShowsNoMachineKeyForASingleMachine)
{
    shown(menuProject(1) + "var parameter<.maschinenanzahl> = 1\n");
    EXPECT_EQ(
        replay.lines({"call ServoMenu.Fußzeile.0x68030007(9", "call ServoMenu.Fußzeile.0x68030004(9"}), "");
}

TEST_F(MenuBildShow, LosesTheMachineKeyWhenTheNumberOfMachinesCannotBeRead)
{
    shown(menuProject(1) + "fail read parameter<.maschinenanzahl>\n");
    EXPECT_EQ(
        replay.lines({"call ServoMenu.Fußzeile.0x68030007(9", "raise"}), "raise ServoMenu.JetztAnzeigen()\n");
    EXPECT_NE(replay.lines("error").find("\"Me BildShow Let\""), std::string::npos);
}

TEST_F(MenuBildShow, NeverEnablesKeyFour)
{
    shown(menuProject(1));
    EXPECT_EQ(
        replay.lines({"call ServoMenu.Fußzeile.0x68030007(4", "call ServoMenu.Fußzeile.0x68030004(4"}), "");
}

TEST_F(MenuBildShow, CountsRowsWithOneMoreThanThereAre)
{
    for (const auto& [servos, rows] :
        {std::pair{0, "1"}, std::pair{1, "2"}, std::pair{2, "2"}, std::pair{3, "3"}}) {
        recording::Replay menu;
        menu.run(menuProject(servos));
        menu.run("create\nshow");
        EXPECT_EQ(menu.lines("put ServoMenu.ScrollBar.0x68030002"),
            "put ServoMenu.ScrollBar.0x68030002 = " + std::string{rows} + "\n");
    }
}

TEST_F(MenuBildShow, AsksForTheFooterPictureOfAKeyInUseWithAMessage)
{
    shown(menuProject(1) + "file Servo\\Servo.ini\n[Machine1]\nF2=TRUE\n[Footer]\nF3=Standard\\Pw\nend\n");
    EXPECT_EQ(replay.lines({"message", "call ServoMenu.Fußzeile.0x68030007(2"}),
        "message \"Section [Footer] or Entry 'F2' in file '<project>\\Servo\\Servo.ini' not found\"\n");
}

TEST_F(MenuBildShow, TrimsThePicturesOfTheFooterAndLeavesKeysWithoutOne)
{
    shown(menuProject(1)
        + "file Servo\\Servo.ini\n[Machine1]\nF1=TRUE\nF2=TRUE\nF9=TRUE\n[Footer]\n"
          "F1=  Standard\\Help.gif  \nF2=   \nF3=Standard\\Pw\nF9=\nend\n");
    EXPECT_EQ(replay.lines({"call ServoMenu.Fußzeile.0x68030007", "call ServoMenu.Fußzeile.0x68030004",
                  "read parameter<.maschinenanzahl>"}),
        "call ServoMenu.Fußzeile.0x68030007(1, \"Standard\\Help.gif\")\n"
        "call ServoMenu.Fußzeile.0x68030004(1, true)\n"
        "call ServoMenu.Fußzeile.0x68030007(11, \"Standard\\F_Exit_1280.gif\")\n"
        "call ServoMenu.Fußzeile.0x68030004(11, true)\n");
}

TEST_F(MenuBildShow, AsksForThePictureOfKeyThreeThoughItIsOff)
{
    shown(menuProject(1) + "file Servo\\Servo.ini\n[Machine1]\nF1=FALSE\nF3=FALSE\n[Footer]\nF1=x\nend\n");
    EXPECT_EQ(replay.lines("message"),
        "message \"Section [Footer] or Entry 'F3' in file '<project>\\Servo\\Servo.ini' not found\"\n");
}

} // namespace servopanel::testing
