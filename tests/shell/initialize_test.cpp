#include "servo_menu/menu_project.h"
#include "support/replay_fixture.h"

namespace servopanel::testing {

class UserControlInitialize : public ReplayFixture {
protected:
    // The trace of a start with these changes to a project of four servos with a menu.
    std::string created(const std::string& changes = {})
    {
        run(menuProject(4) + changes);
        return run("create");
    }
    static std::string programIni(
        const std::string& machine, const std::string& project = "ServoWithMenu=TRUE\n")
    {
        return "file Parameter\\Program.ini\n[Project]\n" + project + "[1Machine]\n" + machine + "end\n";
    }
};

TEST_F(UserControlInitialize, LoadsTheSharedStateInOrder)
{
    created();
    EXPECT_EQ(replay.lines({"read Ch-1", "read parameter", "write", "put Servo.", "put Header",
                  "profile Parameter\\Program.ini [P"}),
        "write Ch-1.intern<.ocxname> = \"Servo\"\n"
        "read parameter<.aufloesung> = 1280\n"
        "read Ch-1.param_client<.arabisch> = false\n"
        "read Ch-1.intern<.aktuelle_maschine> = 1\n"
        "read parameter<.maschinenbez_1> = \"M1\"\n"
        "read parameter<.servo_anzahl_1> = 4\n"
        "read parameter<.mit_navi> = false\n"
        "profile Parameter\\Program.ini [Project] ServoWithMachineType = \"\"\n"
        "profile Parameter\\Program.ini [Project] ServoWithFault = \"\"\n"
        "read Ch-1.intern<.passwort> = 3\n"
        "put Servo.Height = 15360\n"
        "put Servo.Width = 19200\n"
        "put Header.Height = 1560\n"
        "put Header.Width = 19200\n"
        "profile Parameter\\Program.ini [Project] ServoWithMenu = \"TRUE\"\n"
        "read Ch-1.intern<.servo_zeiger> = 0\n"
        // what the menu reads for itself
        "write Ch-1.intern<.ocxname> = \"Servo\"\n"
        "read parameter<.aufloesung> = 1280\n"
        "read Ch-1.param_client<.arabisch> = false\n");
}

TEST_F(UserControlInitialize, PlacesMenuAndPageAndBuildsTheFirstView)
{
    created();
    EXPECT_EQ(
        replay.lines({"put ServoMenu.Left", "put ServoMenu.Top", "put ServoMain", "put ServoMenu.BildInit"}),
        "put ServoMenu.Left = 0\nput ServoMenu.Top = 0\nput ServoMain.Left = 0\nput ServoMain.Top = 0\n"
        "put ServoMenu.BildInit = true\n");
}

TEST_F(UserControlInitialize, ScalesShellAndHeaderToThePanel)
{
    created("var parameter<.aufloesung> = 800\n");
    EXPECT_EQ(replay.lines({"put Servo.", "put Header"}),
        "put Servo.Height = 9000\nput Servo.Width = 12000\nput Header.Height = 914.0625\n"
        "put Header.Left = 0\nput Header.Top = 0\nput Header.Width = 12000\n");
}

TEST_F(UserControlInitialize, OpensTheMenuWhenNoServoIsRemembered)
{
    created();
    run("show");
    EXPECT_EQ(
        replay.lines({"put ServoMenu.BildShow", "put ServoMain.BildShow", "raise", "put ServoMenu.Visible"}),
        "put ServoMenu.BildShow = true\nraise ServoMenu.JetztAnzeigen()\nput ServoMenu.Visible = true\n");
}

TEST_F(UserControlInitialize, OpensThePageOfTheRememberedServo)
{
    created("var Ch-1.intern<.servo_zeiger> = 2\n");
    EXPECT_EQ(replay.lines({"put ServoMenu.BildInit", "put ServoMain.BildInit"}),
        "put ServoMain.BildInit = true\n");
    run("show");
    EXPECT_EQ(
        replay.lines({"put ServoMain.BildShow", "write Ch-1.intern<.servo_zeiger>", "put ServoMain.Visible"}),
        "put ServoMain.BildShow = true\nwrite Ch-1.intern<.servo_zeiger> = 2\nput ServoMain.Visible = "
        "true\n");
}

TEST_F(UserControlInitialize, OpensTheFirstServoWhenTheRememberedOneIsNegative)
{
    created("var Ch-1.intern<.servo_zeiger> = -3\n");
    run("show");
    EXPECT_EQ(replay.lines("write Ch-1.intern<.servo_zeiger>"), "write Ch-1.intern<.servo_zeiger> = 1\n");
}

TEST_F(UserControlInitialize, OpensTheFirstServoInAProjectWithoutMenu)
{
    for (const char* project : {"", "ServoWithMenu=FALSE\n"}) {
        recording::Replay panel;
        panel.run(menuProject(4) + programIni("Servo1=1\nServo2=2\n", project));
        panel.run("create\nshow");
        EXPECT_EQ(panel.lines({"write Ch-1.intern<.servo_zeiger>", "put ServoMenu.Bild"}),
            "write Ch-1.intern<.servo_zeiger> = 1\n");
    }
}

TEST_F(UserControlInitialize, CountsTheNavigationOnlyWhenItIsTrue)
{
    created("var parameter<.mit_navi> = 1\nvar Ch-1.intern<.navi_password_countdown> = 7\n");
    EXPECT_EQ(replay.lines({"read Ch-1.intern<.navi", "write Ch-1.intern<.navi"}), "");
    recording::Replay panel;
    panel.run(
        menuProject(1) + "var parameter<.mit_navi> = true\nvar Ch-1.intern<.navi_password_countdown> = 7\n");
    panel.run("create");
    EXPECT_EQ(panel.lines({"read Ch-1.intern<.navi", "write Ch-1.intern<.navi"}),
        "read Ch-1.intern<.navi_password_countdown> = 7\nwrite Ch-1.intern<.navi_password_countdown> = 8\n");
}

TEST_F(UserControlInitialize, WritesACountdownBackThatCannotGoOn)
{
    created("var parameter<.mit_navi> = true\nvar Ch-1.intern<.navi_password_countdown> = 32767\n");
    EXPECT_EQ(replay.lines({"write Ch-1.intern<.navi", "error"}),
        "error 6 \"UserControl_Initialize\" \"Overflow\"\nwrite Ch-1.intern<.navi_password_countdown> = "
        "32767\n");
}

TEST_F(UserControlInitialize, LeavesPassiveServosOutButKeepsTheEntriesOfTheirPositions)
{
    created("var Ch1.M1_T_servo_2<.mM1_servopassiv_2> = true\n"
        + programIni("Servo1=1\nServo2=2\nServo3=3\nServo4=4\nServoPic3=2\nDiag2Servo4=TRUE\n")
        + "picture Servo\\Servo_3_2_1280.gif 487 146\n");
    EXPECT_EQ(replay.lines("profile Parameter\\Program.ini [1Machine]"),
        "profile Parameter\\Program.ini [1Machine] Servo1 = \"1\"\n"
        "profile Parameter\\Program.ini [1Machine] Diag2Servo1 = \"\"\n"
        "profile Parameter\\Program.ini [1Machine] ServoPic1 = \"\"\n"
        "profile Parameter\\Program.ini [1Machine] Servo2 = \"2\"\n"
        "profile Parameter\\Program.ini [1Machine] Servo3 = \"3\"\n"
        "profile Parameter\\Program.ini [1Machine] Diag2Servo3 = \"\"\n"
        "profile Parameter\\Program.ini [1Machine] ServoPic3 = \"2\"\n"
        "profile Parameter\\Program.ini [1Machine] Servo4 = \"4\"\n"
        "profile Parameter\\Program.ini [1Machine] Diag2Servo4 = \"TRUE\"\n"
        "profile Parameter\\Program.ini [1Machine] ServoPic4 = \"\"\n");
    run("show");
    // Three servos in the menu: rows of Int((3 + 1) / 2) and one; the second key has the variant of position 3.
    EXPECT_EQ(replay.lines({"put ServoMenu.ScrollBar.0x68030002", "picture Servo\\Servo_"}),
        "put ServoMenu.ScrollBar.0x68030002 = 3\n"
        "picture Servo\\Servo_1_1280.gif\npicture Servo\\Servo_3_2_1280.gif\npicture "
        "Servo\\Servo_4_1280.gif\n");
}

TEST_F(UserControlInitialize, CountsAServoWhoseFlagIsOneAsPassive)
{
    created("var Ch1.M1_T_servo_2<.mM1_servopassiv_2> = 1\n");
    run("show");
    EXPECT_EQ(replay.lines("picture Servo\\Servo_2"), "");
    EXPECT_EQ(replay.lines("picture Servo\\Servo_1"), "picture Servo\\Servo_1_1280.gif\n");
}

TEST_F(UserControlInitialize, ShowsAllServosOfAMachineWithoutPassiveFlags)
{
    created(
        "fail read Ch1.M1_T_servo_1<.mM1_servopassiv_1>\nfail read Ch1.M1_T_servo_2<.mM1_servopassiv_2>\n"
        "fail read Ch1.M1_T_servo_3<.mM1_servopassiv_3>\nfail read Ch1.M1_T_servo_4<.mM1_servopassiv_4>\n");
    run("show");
    EXPECT_EQ(replay.lines("put ServoMenu.ScrollBar.0x68030002"), "put ServoMenu.ScrollBar.0x68030002 = 3\n");
}

TEST_F(UserControlInitialize, TakesTheFlagReadLastForAServoWhoseOwnCannotBeRead)
{
    created(
        "var Ch1.M1_T_servo_1<.mM1_servopassiv_1> = true\nfail read Ch1.M1_T_servo_2<.mM1_servopassiv_2>\n");
    run("show");
    EXPECT_EQ(replay.lines("picture Servo\\Servo_"),
        "picture Servo\\Servo_3_1280.gif\npicture Servo\\Servo_4_1280.gif\n");
}

TEST_F(UserControlInitialize, KeepsARememberedServoBeyondTheList)
{
    created("var Ch-1.intern<.servo_zeiger> = 40\n");
    run("show");
    EXPECT_EQ(replay.lines("write Ch-1.intern<.servo_zeiger>"), "write Ch-1.intern<.servo_zeiger> = 40\n");
}

TEST_F(UserControlInitialize, CarriesSecondDiagnosisPagesToTheActivePosition)
{
    created("var Ch1.M1_T_servo_1<.mM1_servopassiv_1> = true\nvar Ch-1.intern<.servo_zeiger> = 1\n"
        + programIni("Servo1=1\nServo2=2\nServo3=3\nServo4=4\nDiag2Servo2=TRUE\n"));
    run("show");
    run("key! 10");
    EXPECT_EQ(replay.lines("call ServoMain.Fußzeile.0x68030007(8"),
        "call ServoMain.Fußzeile.0x68030007(8, \"Servo\\Servo_Diag2_1280.gif\")\n");
}

TEST_F(UserControlInitialize, TakesNoMachineIntoFileNamesForOptionZero)
{
    created(programIni("Servo1=1\n", "ServoWithMenu=TRUE\nServoWithMachineType=0\n")
        + "var parameter<.servo_anzahl_1> = 1\n");
    run("show");
    EXPECT_EQ(replay.lines("picture Servo\\Servo_"), "picture Servo\\Servo_1_1280.gif\n");
}

TEST_F(UserControlInitialize, UsesAMissingEntryAsServoNumberMinusOne)
{
    created(programIni("Servo1=1\n"));
    EXPECT_NE(replay.lines("read Ch1.M1_T_servo_-1<.mM1_servopassiv_-1> failed"), "");
}

TEST_F(UserControlInitialize, TakesFiftyServos)
{
    run(menuProject(50));
    run("create");
    EXPECT_EQ(replay.lines("error"), "");
    run("show");
    EXPECT_EQ(
        replay.lines("put ServoMenu.ScrollBar.0x68030002"), "put ServoMenu.ScrollBar.0x68030002 = 26\n");
}

// Its number, its second diagnosis page, its picture and the test of that; it is counted all the same.
TEST_F(UserControlInitialize, ReportsTheFiftyFirstServoAndReadsNothingOfIt)
{
    run(menuProject(51));
    run("create");
    const std::string outside = "error 9 \"UserControl_Initialize\" \"Subscript out of range\"\n";
    EXPECT_EQ(replay.lines("error"), outside + outside + outside + outside);
    EXPECT_EQ(replay.lines({"profile Parameter\\Program.ini [1Machine] Diag2Servo51",
                  "profile Parameter\\Program.ini [1Machine] ServoPic51"}),
        "");
    run("show");
    EXPECT_EQ(
        replay.lines("put ServoMenu.ScrollBar.0x68030002"), "put ServoMenu.ScrollBar.0x68030002 = 27\n");
}

TEST_F(UserControlInitialize, AsksForNoEntryWithAMessage)
{
    created(programIni("Servo1=1\n", ""));
    EXPECT_EQ(replay.lines({"profile Parameter\\Program.ini [Project] ServoWithMenu",
                  "profile Parameter\\Program.ini [1Machine] Servo2"}),
        "profile Parameter\\Program.ini [1Machine] Servo2 = \"\"\n"
        "profile Parameter\\Program.ini [Project] ServoWithMenu = \"\"\n");
    EXPECT_EQ(replay.lines("message \"File"), "");
}

TEST_F(UserControlInitialize, PutsTheMachineIntoFileNamesOnlyByOption)
{
    const std::string project = programIni("Servo1=1\n", "ServoWithMenu=TRUE\nServoWithMachineType=1\n");
    created(project + "var parameter<.servo_anzahl_1> = 1\npicture Servo\\Servo_M1_1_1280.gif 487 146\n");
    run("show");
    EXPECT_EQ(replay.lines("picture Servo\\Servo_"), "picture Servo\\Servo_M1_1_1280.gif\n");
}

TEST_F(UserControlInitialize, TakesTheMachineOutOfFileNamesWithoutTheOption)
{
    run(menuProject(1) + programIni("Servo1=1\n", "ServoWithMenu=TRUE\nServoWithMachineType=1\n"));
    run("create\nterminate");
    run(programIni("Servo1=1\n") + "create\nshow");
    EXPECT_EQ(replay.lines("picture Servo\\Servo_"), "picture Servo\\Servo_1_1280.gif\n");
}

TEST_F(UserControlInitialize, StartsACountdownThatCannotBeReadAtOne)
{
    created("var parameter<.mit_navi> = true\nvar Ch-1.intern<.navi_password_countdown> = 7\n"
            "fail read Ch-1.intern<.navi_password_countdown>\n");
    EXPECT_EQ(replay.lines({"write Ch-1.intern<.navi", "error"}),
        "error -2147467259 \"UserControl_Initialize\" \"Variable 'Ch-1.intern<.navi_password_countdown>' "
        "cannot be read\"\nwrite Ch-1.intern<.navi_password_countdown> = 1\n");
}

// Only three panel sizes have a height; the factor stays 0 and the scaled heights with it.
TEST_F(UserControlInitialize, GivesAPanelOfAnotherWidthNoHeight)
{
    created("var parameter<.aufloesung> = 900\n");
    EXPECT_EQ(replay.lines({"put Servo.", "put Header"}),
        "put Servo.Height = 0\nput Servo.Width = 13500\nput Header.Height = 0\nput Header.Left = 0\n"
        "put Header.Top = 0\nput Header.Width = 13500\n");
    EXPECT_EQ(replay.lines("error").find("UserControl_Initialize"), std::string::npos);
}

namespace {

// Reports of the start among the errors of a trace.
std::size_t reportsOfTheStart(const std::string& errors)
{
    std::size_t found = 0;
    for (std::size_t at = errors.find("\"UserControl_Initialize\""); at != std::string::npos;
         at = errors.find("\"UserControl_Initialize\"", at + 1))
        ++found;
    return found;
}

} // namespace

// Each variable of the start in turn: its failure and what depends on it is reported, and nothing else is lost.
TEST_F(UserControlInitialize, GoesOnAfterEachFailure)
{
    struct Row {
        const char* variable;
        std::size_t reports;
    };
    // Without the number of the machine its designation and its servos are unknown, too; without a designation each
    // servo's flag.
    const Row rows[]{{"Ch-1.intern<.aktuelle_maschine>", 3}, {"parameter<.maschinenbez_1>", 3},
        {"parameter<.servo_anzahl_1>", 1}, {"parameter<.mit_navi>", 1}, {"Ch-1.intern<.passwort>", 1},
        {"Ch-1.intern<.servo_zeiger>", 1}};
    for (const Row& row : rows) {
        recording::Replay panel;
        panel.run(menuProject(2) + "fail read " + row.variable + "\n");
        panel.run("create");
        EXPECT_EQ(reportsOfTheStart(panel.lines("error")), row.reports) << row.variable;
        EXPECT_EQ(panel.lines("put ServoMenu.BildInit"), "put ServoMenu.BildInit = true\n") << row.variable;
    }
}

TEST_F(UserControlInitialize, BuildsNamesFromZeroWhenTheMachineIsUnknown)
{
    created("fail read Ch-1.intern<.aktuelle_maschine>\n");
    EXPECT_EQ(replay.lines({"read Ch-1.intern<.akt", "read parameter<.masch", "read parameter<.servo",
                  "read parameter<.mit", "profile"}),
        "read Ch-1.intern<.aktuelle_maschine> failed\n"
        "read parameter<.maschinenbez_0> failed\n"
        "read parameter<.servo_anzahl_0> failed\n"
        "read parameter<.mit_navi> = false\n"
        "profile Parameter\\Program.ini [Project] ServoWithMachineType = \"\"\n"
        "profile Parameter\\Program.ini [Project] ServoWithFault = \"\"\n"
        "profile Parameter\\Program.ini [Project] ServoWithMenu = \"TRUE\"\n");
}

// The shared state outlives its control, so what cannot be read is as it was.
TEST_F(UserControlInitialize, KeepsTheValuesOfTheControlBeforeWhenTheyCannotBeRead)
{
    run(standardProject);
    run("var Ch-1.intern<.servo_zeiger> = 2\ncreate\nterminate");
    run("fail read Ch-1.intern<.servo_zeiger>\nfail read parameter<.maschinenbez_1>\n"
        "fail read parameter<.servo_anzahl_1>\ncreate");
    EXPECT_EQ(replay.lines({"read Ch1", "put ServoMain.BildInit"}),
        "read Ch1.M1_T_servo_3<.mM1_servopassiv_3> = false\nread Ch1.M1_T_servo_5<.mM1_servopassiv_5> = "
        "false\n"
        "read Ch1.M1_T_servo_7<.mM1_servopassiv_7> = false\nput ServoMain.BildInit = true\n");
    run("show");
    EXPECT_EQ(replay.lines("write Ch-1.intern<.servo_zeiger>"), "write Ch-1.intern<.servo_zeiger> = 2\n");
}

TEST_F(UserControlInitialize, HasAccessLevel0WhenItCouldNeverBeRead)
{
    run(standardProject);
    run("fail read Ch-1.intern<.passwort>\ncreate\nshow");
    EXPECT_EQ(replay.lines("call ServoMenu.Fußzeile.0x68030007(3"),
        "call ServoMenu.Fußzeile.0x68030007(3, \"Standard\\F_Pass_0_1280.gif\")\n");
}

TEST_F(UserControlInitialize, KeepsTheAccessLevelOfTheControlBeforeWhenItCannotBeRead)
{
    run(standardProject);
    run("create\nterminate");
    run("fail read Ch-1.intern<.passwort>\ncreate\nshow");
    EXPECT_EQ(replay.lines("call ServoMenu.Fußzeile.0x68030007(3"),
        "call ServoMenu.Fußzeile.0x68030007(3, \"Standard\\F_Pass_2_1280.gif\")\n");
}

TEST_F(UserControlInitialize, PassesOverAServoWhoseFlagIsAWholeArray)
{
    created("var Ch1.M1_T_servo_2<.mM1_servopassiv_2> = [0]\n");
    EXPECT_EQ(replay.lines({"error", "put ServoMenu.BildInit"}),
        "error 13 \"UserControl_Initialize\" \"Type mismatch\"\nput ServoMenu.BildInit = true\n");
    run("show");
    EXPECT_EQ(replay.lines("text Servo.M1.Servo2"), "");
    EXPECT_NE(replay.lines("text Servo.M1.Servo4"), "");
}

} // namespace servopanel::testing
