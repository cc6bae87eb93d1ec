#include "page_test.h"

namespace servopanel::testing {

namespace {

// Layout of the captions on the servo's picture.
class ParaBeschriftungen : public PageTest {
protected:
    std::string layout(const std::string& entries, const std::string& more = {})
    {
        const std::string trace = show("file Servo\\Servo_3.ini\n[Parameter]\n" + entries
            + "end\ntext Servo.M1.Servo3.61 = Start\n" + more);
        return trace;
    }
    std::string captionLines(int n) const
    {
        const std::string number = std::to_string(n);
        return lines({"text Servo.M1.Servo3.6" + number, "put ServoMain.ParaBeschriftung(" + number + ")",
            "profile Servo\\Servo_3.ini [Parameter] " + number, "message"});
    }
};

TEST_F(ParaBeschriftungen, AreLookedUpAndPlacedInOrder)
{
    layout("1Col=ws\n1Ali=0\n1X=1500\n1Y=300\n");
    EXPECT_EQ(captionLines(1),
        "text Servo.M1.Servo3.61 = \"Start\"\n"
        "put ServoMain.ParaBeschriftung(1).Caption = \"Start\"\n"
        "profile Servo\\Servo_3.ini [Parameter] 1Col = \"ws\"\n"
        "put ServoMain.ParaBeschriftung(1).ForeColor = 16777215\n"
        "profile Servo\\Servo_3.ini [Parameter] 1Ali = \"0\"\n"
        "profile Servo\\Servo_3.ini [Parameter] 1X = \"1500\"\n"
        "put ServoMain.ParaBeschriftung(1).Left = 1500\n"
        "profile Servo\\Servo_3.ini [Parameter] 1Y = \"300\"\n"
        "put ServoMain.ParaBeschriftung(1).Top = 300\n"
        "put ServoMain.ParaBeschriftung(1).Visible = true\n");
}

TEST_F(ParaBeschriftungen, StandAtTheirRightEdge)
{
    // Five characters of 105 twips.
    layout("1Col=ws\n1Ali=1\n1X=1500\n1Y=300\n");
    EXPECT_EQ(
        lines("put ServoMain.ParaBeschriftung(1).Left"), "put ServoMain.ParaBeschriftung(1).Left = 975\n");
}

TEST_F(ParaBeschriftungen, TakeAnyOtherAlignmentForTheLeftEdge)
{
    layout("1Col=ws\n1Ali=2\n1X=1500\n1Y=300\n");
    EXPECT_EQ(
        lines("put ServoMain.ParaBeschriftung(1).Left"), "put ServoMain.ParaBeschriftung(1).Left = 1500\n");
}

TEST_F(ParaBeschriftungen, AreScaledToThePanel)
{
    layout("1Col=ws\n1Ali=0\n1X=1500\n1Y=300\n", "var parameter<.aufloesung> = 800\n");
    EXPECT_EQ(lines({"put ServoMain.ParaBeschriftung(1).Left", "put ServoMain.ParaBeschriftung(1).Top"}),
        "put ServoMain.ParaBeschriftung(1).Left = 937.5\n"
        "put ServoMain.ParaBeschriftung(1).Top = 175.78125\n");
}

TEST_F(ParaBeschriftungen, AreWhiteForWsOnly)
{
    for (const std::string colour : {"sw", "WS", "x"}) {
        layout("1Col=" + colour + "\n1X=15\n1Y=15\n1Ali=0\n");
        EXPECT_EQ(lines("put ServoMain.ParaBeschriftung(1).ForeColor"),
            "put ServoMain.ParaBeschriftung(1).ForeColor = 0\n");
        run("terminate\n");
    }
}

TEST_F(ParaBeschriftungen, AreHiddenWithoutColourAndAskForNothingElse)
{
    layout("2Col=ws\n2Ali=0\n2X=15\n2Y=15\n1X=1500\n1Y=300\n");
    EXPECT_EQ(captionLines(1),
        "text Servo.M1.Servo3.61 = \"Start\"\n"
        "put ServoMain.ParaBeschriftung(1).Caption = \"Start\"\n"
        "profile Servo\\Servo_3.ini [Parameter] 1Col = \"\"\n"
        "put ServoMain.ParaBeschriftung(1).Visible = false\n");
    EXPECT_TRUE(contains(captionLines(2), "put ServoMain.ParaBeschriftung(2).Visible = true\n"));
}

TEST_F(ParaBeschriftungen, TellOfAMissingPlace)
{
    layout("1Col=ws\n1Ali=0\n1Y=300\n");
    EXPECT_TRUE(contains(captionLines(1),
        "profile Servo\\Servo_3.ini [Parameter] 1X = \"\"\n"
        "message \"File 'Servo\\Servo_3.ini' or Section [Parameter] or Entry '1X' not found\"\n"
        "put ServoMain.ParaBeschriftung(1).Left = -1\n"));
}

TEST_F(ParaBeschriftungen, NeverShowTheTemplate)
{
    show();
    EXPECT_EQ(lines("put ServoMain.ParaBeschriftung(0).Visible = true"), "");
    EXPECT_EQ(lines("text Servo.M1.Servo3.60"), "");
    EXPECT_EQ(lines("text Servo.M1.Servo3.63"), "");
}

TEST_F(ParaBeschriftungen, HaveAFileOfTheirOwnForFurtherPictures)
{
    show("file Parameter\\Program.ini\n[Project]\n[1Machine]\nServo1=3\nServoPic1=2\nend\n"
         "var parameter<.servo_anzahl_1> = 1\n");
    EXPECT_NE(lines("profile Servo\\Servo_3_2.ini [Parameter] 1Col"), "");
    EXPECT_EQ(lines("profile Servo\\Servo_3.ini"), "");
}

TEST_F(ParaBeschriftungen, HaveFilesOfTheMachinesTypeInProjectsThatTellThem)
{
    show("file Parameter\\Program.ini\n[Project]\nServoWithMachineType=1\n[1Machine]\nServo1=3\nend\n"
         "var parameter<.servo_anzahl_1> = 1\n");
    EXPECT_NE(lines("profile Servo\\Servo_M1_3.ini [Parameter] 1Col"), "");
}

TEST_F(ParaBeschriftungen, TellOfAMissingAlignmentAndOfAMissingHeight)
{
    layout("1Col=ws\n1X=1500\n");
    const std::string found = captionLines(1);
    EXPECT_EQ(found.substr(found.find("profile Servo\\Servo_3.ini [Parameter] 1Ali")),
        "profile Servo\\Servo_3.ini [Parameter] 1Ali = \"\"\n"
        "message \"File 'Servo\\Servo_3.ini' or Section [Parameter] or Entry '1Ali' not found\"\n"
        "profile Servo\\Servo_3.ini [Parameter] 1X = \"1500\"\n"
        "put ServoMain.ParaBeschriftung(1).Left = 1500\n"
        "profile Servo\\Servo_3.ini [Parameter] 1Y = \"\"\n"
        "message \"File 'Servo\\Servo_3.ini' or Section [Parameter] or Entry '1Y' not found\"\n"
        "put ServoMain.ParaBeschriftung(1).Top = -1\n"
        "put ServoMain.ParaBeschriftung(1).Visible = true\n");
}

TEST_F(ParaBeschriftungen, StandAtTheirScaledRightEdge)
{
    // 1500 twips times 5/8, less the five characters as wide as they are on this panel.
    layout("1Col=ws\n1Ali=1\n1X=1500\n1Y=300\n", "var parameter<.aufloesung> = 800\n");
    EXPECT_EQ(
        lines("put ServoMain.ParaBeschriftung(1).Left"), "put ServoMain.ParaBeschriftung(1).Left = 412.5\n");
}

TEST_F(ParaBeschriftungen, AreNeitherLookedUpNorShownForAServoOutsideTheList)
{
    show();
    run("key! 5\n");
    EXPECT_EQ(lines({"profile Servo", "put ServoMain.ParaBeschriftung("}),
        "put ServoMain.ParaBeschriftung(0).Visible = false\n"
        "put ServoMain.ParaBeschriftung(1).Visible = false\n"
        "put ServoMain.ParaBeschriftung(2).Visible = false\n");
    // Text and colour of each caption, after the two statements of the picture itself.
    EXPECT_EQ(count(lines("error 9 \"Ma SeiteUmschalten\""), "\n"), 6U);
}

} // namespace

} // namespace servopanel::testing
