#include "servo_menu/menu_project.h"
#include "support/replay_fixture.h"

namespace servopanel::testing {

class Aufbauen : public ReplayFixture {
protected:
    void shown(const std::string& project)
    {
        run(project);
        run("create");
        run("show");
    }
    // Which keys are visible now, as in "11111000".
    std::string visibleKeys()
    {
        std::string keys;
        for (int key = 1; key <= 8; ++key) {
            const std::string number = std::to_string(key);
            const std::string caption = run("get ServoMenu.Beschriftung(" + number + ").Visible");
            const std::string picture = run("get ServoMenu.BildIm(" + number + ").Visible");
            const bool captionVisible = caption.find("= true") != std::string::npos;
            EXPECT_EQ(captionVisible, picture.find("= true") != std::string::npos) << "key " << key;
            keys += captionVisible ? '1' : '0';
        }
        return keys;
    }
};

TEST_F(Aufbauen, ShowsNoKeyWithoutServos)
{
    shown(menuProject(0));
    EXPECT_EQ(visibleKeys(), "00000000");
}

TEST_F(Aufbauen, HidesTheKeysBeyondTheList)
{
    shown(menuProject(5));
    EXPECT_EQ(visibleKeys(), "11111000");
    run("scroll 2");
    EXPECT_EQ(visibleKeys(), "11100000");
    EXPECT_EQ(run("get ServoMenu.Beschriftung(1).Caption"),
        "> get ServoMenu.Beschriftung(1).Caption\nstate ServoMenu.Beschriftung(1).Caption = \"Drive 3\"\n");
    run("scroll 1");
    EXPECT_EQ(visibleKeys(), "11111000");
}

TEST_F(Aufbauen, ScalesASourcePictureOnceAndLoadsTheCopyBack)
{
    run(menuProject(1));
    run("create");
    run("show");
    EXPECT_EQ(replay.lines({"exists", "picture", "put ServoMenu.TempPic", "call ServoMenu.TempPic", "bitblt",
                  "stretch", "mkdir", "save", "pump", "put ServoMenu.BildIm"}),
        "exists Servo\\Servo_S_1_1280.gif no\n"
        "exists C:\\Temp\\Velmora\\Servo\\Servo_1_1280.gif no\n"
        "picture Servo\\Servo_1_1280.gif\n"
        "put ServoMenu.TempPicQuelle.Picture = <picture Servo\\Servo_1_1280.gif>\n"
        "put ServoMenu.TempPicZwischen.Width = 8940\n"
        "put ServoMenu.TempPicZwischen.Height = 2685\n"
        "call ServoMenu.TempPicZwischen.Cls()\n"
        "bitblt ServoMenu.TempPicQuelle ServoMenu.TempPicZwischen 54 28 487 146\n"
        "call ServoMenu.TempPicZwischen.Refresh()\n"
        "stretch ServoMenu.TempPicZwischen ServoMenu.TempPicZiel 596 179\n"
        "call ServoMenu.TempPicZiel.Refresh()\n"
        "exists C:\\Temp\\Velmora no\n"
        "mkdir C:\\Temp\\Velmora\n"
        "exists C:\\Temp\\Velmora\\Servo no\n"
        "mkdir C:\\Temp\\Velmora\\Servo\n"
        "save ServoMenu.TempPicZiel C:\\Temp\\Velmora\\Servo\\Servo_1_1280.gif\n"
        "pump\n"
        "picture C:\\Temp\\Velmora\\Servo\\Servo_1_1280.gif\n"
        "put ServoMenu.BildIm(1).Picture = <picture C:\\Temp\\Velmora\\Servo\\Servo_1_1280.gif>\n"
        "put ServoMenu.BildIm(1).Visible = true\n");
}

TEST_F(Aufbauen, GivesASmallSourceTheScaleOfAFullOne)
{
    run(menuProject(1) + "picture Servo\\Servo_1_1280.gif 200 73\n");
    run("create");
    run("show");
    // 8940 x 3000 / 7305 and 2685 x 1095 / 2190 twips; the source stands centred, five pixels above the lower edge.
    EXPECT_EQ(replay.lines({"put ServoMenu.TempPicZwischen", "bitblt"}),
        "put ServoMenu.TempPicZwischen.Width = 3671.458\n"
        "put ServoMenu.TempPicZwischen.Height = 1342.5\n"
        "bitblt ServoMenu.TempPicQuelle ServoMenu.TempPicZwischen 22 12 200 73\n");
}

// 1575 x 600 / 1305 twips of canvas, less the source, a frame of 15 and 45 x 600 / 1024: 82.77, which is 5.52 pixels.
TEST_F(Aufbauen, ScalesTheMarginBelowASourceByTheHeightOfThePanel)
{
    run(menuProject(1, "800") + "picture Servo\\Servo_1_800.gif 200 40\n");
    run("create\nshow");
    EXPECT_EQ(
        replay.lines("bitblt"), "bitblt ServoMenu.TempPicQuelle ServoMenu.TempPicZwischen 27 6 200 40\n");
}

TEST_F(Aufbauen, PrefersAPictureDrawnForTheMenu)
{
    shown(menuProject(1) + "picture Servo\\Servo_S_1_1280.gif 974 292\n");
    EXPECT_EQ(replay.lines({"exists Servo", "save"}),
        "exists Servo\\Servo_S_1_1280.gif yes\n"
        "save ServoMenu.TempPicZiel C:\\Temp\\Velmora\\Servo\\Servo_S_1_1280.gif\n");
}

TEST_F(Aufbauen, TakesACopyOfAnEarlierDayAsItIs)
{
    shown(menuProject(1) + "picture C:\\Temp\\Velmora\\Servo\\Servo_1_1280.gif 596 179\n");
    EXPECT_EQ(replay.lines({"picture C:", "bitblt", "save", "pump", "put ServoMenu.BildIm(1).Picture"}),
        "picture C:\\Temp\\Velmora\\Servo\\Servo_1_1280.gif\n"
        "put ServoMenu.BildIm(1).Picture = <picture C:\\Temp\\Velmora\\Servo\\Servo_1_1280.gif>\n");
}

TEST_F(Aufbauen, ReadsNoFileForAServoInTheCache)
{
    shown(menuProject(5));
    run("scroll 2");
    EXPECT_EQ(replay.lines({"exists", "picture", "save", "pump"}), "");
    EXPECT_EQ(replay.lines("put ServoMenu.BildIm(1).Picture"),
        "put ServoMenu.BildIm(1).Picture = <picture C:\\Temp\\Velmora\\Servo\\Servo_3_1280.gif>\n");
}

TEST_F(Aufbauen, KeepsTheCacheForAControlThatIsCreatedAgain)
{
    shown(menuProject(2));
    run("terminate\ncreate\nshow");
    EXPECT_EQ(replay.lines({"exists", "save"}), "");
}

TEST_F(Aufbauen, NamesPicturesOfVariantsFromTwoOn)
{
    const std::string ini =
        "file Parameter\\Program.ini\n[Project]\nServoWithMenu=TRUE\n[1Machine]\nServo1=1\nServo2=2\n"
        "ServoPic1=1\nServoPic2=2\nend\n";
    shown(menuProject(2) + ini + "picture Servo\\Servo_2_2_1280.gif 487 146\n");
    EXPECT_EQ(replay.lines("picture Servo\\Servo_"),
        "picture Servo\\Servo_1_1280.gif\npicture Servo\\Servo_2_2_1280.gif\n");
}

TEST_F(Aufbauen, ReportsAMissingSourceAndGoesOnToTheNextKey)
{
    shown(menuProject(2) + "fail load Servo\\Servo_1_1280.gif\n");
    EXPECT_NE(replay.lines("error").find("\"Me Aufbauen\""), std::string::npos);
    EXPECT_EQ(replay.lines("put ServoMenu.BildIm(2).Picture"),
        "put ServoMenu.BildIm(2).Picture = <picture C:\\Temp\\Velmora\\Servo\\Servo_2_1280.gif>\n");
    EXPECT_EQ(visibleKeys(), "11000000");
}

TEST_F(Aufbauen, IsFreeForTheNextScrollAfterFailures)
{
    shown(menuProject(3)
        + "fail save C:\\Temp\\Velmora\\Servo\\Servo_1_1280.gif\n"
          "fail mkdir C:\\Temp\\Velmora\nfail load Servo\\Servo_2_1280.gif\n");
    run("scroll 2");
    EXPECT_NE(replay.lines("put ServoMenu.BildIm(1).Picture"), "");
    EXPECT_EQ(visibleKeys(), "10000000");
}

TEST_F(Aufbauen, StopsBeforeTheNextKeyWhenAScrollComesIn)
{
    run(menuProject(10));
    run("create\non pump scroll 2");
    run("show");
    // The first key of the first page is finished, then the second page is built from its first key on.
    EXPECT_EQ(replay.lines(
                  {"pump", "> scroll", "put ServoMenu.BildIm(1).Picture", "put ServoMenu.BildIm(2).Picture"}),
        "pump\n> scroll 2\n"
        "put ServoMenu.BildIm(1).Picture = <picture C:\\Temp\\Velmora\\Servo\\Servo_1_1280.gif>\n"
        "pump\n"
        "put ServoMenu.BildIm(1).Picture = <picture C:\\Temp\\Velmora\\Servo\\Servo_3_1280.gif>\n"
        "pump\n"
        "put ServoMenu.BildIm(2).Picture = <picture C:\\Temp\\Velmora\\Servo\\Servo_4_1280.gif>\n"
        "pump\npump\npump\npump\npump\npump\n");
}

TEST_F(Aufbauen, BuildsOnceForTwoScrollsDuringOneBuild)
{
    run(menuProject(10));
    run("create\non pump scroll 2\non pump scroll 3");
    run("show");
    // Both scrolls come in while the first key is saved: the page of the second is built, that of the first never.
    EXPECT_EQ(replay.lines({"> scroll", "put ServoMenu.BildIm(1).Picture"}),
        "> scroll 2\n> scroll 3\n"
        "put ServoMenu.BildIm(1).Picture = <picture C:\\Temp\\Velmora\\Servo\\Servo_1_1280.gif>\n"
        "put ServoMenu.BildIm(1).Picture = <picture C:\\Temp\\Velmora\\Servo\\Servo_5_1280.gif>\n");
    EXPECT_EQ(visibleKeys(), "11111100");
}

TEST_F(Aufbauen, TakesThePositionFromTheScrollBarNotFromTheEvent)
{
    shown(menuProject(5));
    run("scroll 2");
    // Showing again asks for position 1, but the bar still stands at 2.
    run("show");
    EXPECT_EQ(replay.lines("put ServoMenu.BildIm(1).Picture"),
        "put ServoMenu.BildIm(1).Picture = <picture C:\\Temp\\Velmora\\Servo\\Servo_3_1280.gif>\n");
}

TEST_F(Aufbauen, SavesThePictureBeforeUnderTheNameOfAServoWithoutOne)
{
    shown(menuProject(2) + "fail load Servo\\Servo_2_1280.gif\n");
    EXPECT_EQ(replay.lines({"put ServoMenu.TempPicQuelle.Picture", "save"}),
        "put ServoMenu.TempPicQuelle.Picture = <picture Servo\\Servo_1_1280.gif>\n"
        "save ServoMenu.TempPicZiel C:\\Temp\\Velmora\\Servo\\Servo_1_1280.gif\n"
        "save ServoMenu.TempPicZiel C:\\Temp\\Velmora\\Servo\\Servo_2_1280.gif\n");
}

TEST_F(Aufbauen, ShowsOnePictureForAServoAtTwoPositions)
{
    const std::string ini =
        "file Parameter\\Program.ini\n[Project]\nServoWithMenu=TRUE\n[1Machine]\nServo1=1\nServo2=1\n"
        "ServoPic2=2\nend\n";
    shown(menuProject(2) + ini + "picture Servo\\Servo_1_2_1280.gif 487 146\n");
    EXPECT_EQ(replay.lines("put ServoMenu.BildIm(2).Picture"),
        "put ServoMenu.BildIm(2).Picture = <picture C:\\Temp\\Velmora\\Servo\\Servo_1_1280.gif>\n");
}

TEST_F(Aufbauen, ReportsAnOverflowOfTheListPositionKeyByKey)
{
    shown(menuProject(2));
    run("scroll 16384");
    EXPECT_EQ(replay.lines("error 6 \"Me Aufbauen\""),
        "error 6 \"Me Aufbauen\" \"Overflow\"\nerror 6 \"Me Aufbauen\" \"Overflow\"\n"
        "error 6 \"Me Aufbauen\" \"Overflow\"\nerror 6 \"Me Aufbauen\" \"Overflow\"\n"
        "error 6 \"Me Aufbauen\" \"Overflow\"\nerror 6 \"Me Aufbauen\" \"Overflow\"\n"
        "error 6 \"Me Aufbauen\" \"Overflow\"\n");
    EXPECT_EQ(replay.lines("error 9 \"Me Aufbauen\""), "");
}

TEST_F(Aufbauen, CountsScreenPixelsOfTwelveTwips)
{
    run("screen 12 12\n" + menuProject(1));
    run("create\nshow");
    EXPECT_EQ(
        replay.lines({"put ServoMenu.BildIm(1).Left", "put ServoMenu.BildIm(1).Width", "bitblt", "stretch"}),
        "put ServoMenu.BildIm(1).Left = 129\n"
        "put ServoMenu.BildIm(1).Width = 8955\n"
        "bitblt ServoMenu.TempPicQuelle ServoMenu.TempPicZwischen 55 29 487 146\n"
        "stretch ServoMenu.TempPicZwischen ServoMenu.TempPicZiel 746 225\n");
}

TEST_F(Aufbauen, CountsScreenPixelsThatAreHigherThanWide)
{
    run("screen 12 15\n" + menuProject(1));
    run("create\nshow");
    EXPECT_EQ(replay.lines({"put ServoMenu.BildIm(1).Left", "put ServoMenu.BildIm(1).Top",
                  "put ServoMenu.BildIm(1).Width", "put ServoMenu.BildIm(1).Height", "bitblt", "stretch"}),
        "put ServoMenu.BildIm(1).Left = 129\n"
        "put ServoMenu.BildIm(1).Top = 2370\n"
        "put ServoMenu.BildIm(1).Width = 8955\n"
        "put ServoMenu.BildIm(1).Height = 2685\n"
        "bitblt ServoMenu.TempPicQuelle ServoMenu.TempPicZwischen 55 28 487 146\n"
        "stretch ServoMenu.TempPicZwischen ServoMenu.TempPicZiel 746 179\n");
}

TEST_F(Aufbauen, ReportsPositionsBeyondTheListsEndAndShowsNothingThere)
{
    shown(menuProject(49));
    // The end of the bar: keys 7 and 8 are positions 51 and 52, outside the list of 50.
    run("scroll 23");
    EXPECT_EQ(replay.lines("error"),
        "error 9 \"Me TextAusgabe\" \"Subscript out of range\"\n"
        "error 9 \"Me TextAusgabe\" \"Subscript out of range\"\n");
    run("scroll 25");
    EXPECT_EQ(visibleKeys(), "10000000");
    run("scroll 25");
    EXPECT_EQ(replay.lines("error 9 \"Me TextAusgabe\""),
        "error 9 \"Me TextAusgabe\" \"Subscript out of range\"\n"
        "error 9 \"Me TextAusgabe\" \"Subscript out of range\"\n"
        "error 9 \"Me TextAusgabe\" \"Subscript out of range\"\n"
        "error 9 \"Me TextAusgabe\" \"Subscript out of range\"\n"
        "error 9 \"Me TextAusgabe\" \"Subscript out of range\"\n"
        "error 9 \"Me TextAusgabe\" \"Subscript out of range\"\n");
}

TEST_F(Aufbauen, GivesUpAServoNumberOutsideTheCaches)
{
    const std::string ini =
        "file Parameter\\Program.ini\n[Project]\nServoWithMenu=TRUE\n[1Machine]\nServo1=77\nServo2=2\nend\n"
        "var Ch1.M1_T_servo_77<.mM1_servopassiv_77> = false\n";
    shown(menuProject(2) + ini);
    EXPECT_NE(replay.lines("error 9 \"Me Aufbauen\""), "");
    EXPECT_EQ(replay.lines({"exists Servo\\Servo_S_77",
                  "save ServoMenu.TempPicZiel C:\\Temp\\Velmora\\Servo\\Servo_77"}),
        "");
    EXPECT_EQ(replay.lines("put ServoMenu.BildIm(2).Picture"),
        "put ServoMenu.BildIm(2).Picture = <picture C:\\Temp\\Velmora\\Servo\\Servo_2_1280.gif>\n");
    EXPECT_EQ(replay.lines("put ServoMenu.BildIm(1).Picture"), "");
    EXPECT_EQ(visibleKeys(), "11000000");
}

TEST_F(Aufbauen, BuildsNothingWhenTheListOffsetOverflows)
{
    shown(menuProject(2));
    run("scroll 16385");
    EXPECT_EQ(replay.lines("error 6 \"Me Aufbauen\""), "error 6 \"Me Aufbauen\" \"Overflow\"\n");
    EXPECT_EQ(replay.lines("put"), "");
    EXPECT_EQ(visibleKeys(), "11000000");
}

TEST_F(Aufbauen, AsksForAPictureOnceEvenWhenItsCopyCannotBeLoaded)
{
    shown(menuProject(1) + "fail load C:\\Temp\\Velmora\\Servo\\Servo_1_1280.gif 1\n");
    run("scroll 1");
    EXPECT_EQ(replay.lines({"exists", "picture", "save"}), "");
    EXPECT_EQ(replay.lines("put ServoMenu.BildIm(1).Picture"), "put ServoMenu.BildIm(1).Picture = <none>\n");
}

} // namespace servopanel::testing
