#include "servo_menu/menu_project.h"
#include "support/replay_fixture.h"

namespace servopanel::testing {

class MenuBildInit : public ReplayFixture { };

TEST_F(MenuBildInit, FillsThePanelAndPutsTheFooterAtItsLowerEdge)
{
    run(menuProject(3, "1024"));
    run("create");
    EXPECT_EQ(replay.lines({"put ServoMenu.Height", "put ServoMenu.Width", "put ServoMenu.Fußzeile"}),
        "put ServoMenu.Height = 11520\n"
        "put ServoMenu.Width = 15360\n"
        "put ServoMenu.Fußzeile.Height = 1215\n"
        "put ServoMenu.Fußzeile.Left = 0\n"
        "put ServoMenu.Fußzeile.Top = 10305\n"
        "put ServoMenu.Fußzeile.Width = 15360\n");
}

TEST_F(MenuBildInit, PlacesKeyPicturesInsideTheFrameOfTwoPixels)
{
    run(menuProject(3));
    run("create");
    EXPECT_EQ(replay.lines("put ServoMenu.BildIm(4)"),
        "put ServoMenu.BildIm(4).Left = 9225\n"
        "put ServoMenu.BildIm(4).Top = 5205\n"
        "put ServoMenu.BildIm(4).Width = 8940\n"
        "put ServoMenu.BildIm(4).Height = 2685\n");
}

TEST_F(MenuBildInit, KeepsTheKeysOfTheDesignOnPanelsOf1024Pixels)
{
    run(menuProject(3, "1024"));
    run("create");
    EXPECT_EQ(replay.lines("put ServoMenu.BildIm(8).Left"), "put ServoMenu.BildIm(8).Left = 9225\n");
}

TEST_F(MenuBildInit, HasKeysScrollBarAndFrameOfTheirOwnOnPanelsOf800Pixels)
{
    run(menuProject(3, "800"));
    run("create");
    EXPECT_EQ(replay.lines({"put ServoMenu.BildIm(8)", "put ServoMenu.ScrollBar", "put ServoMenu.Fußzeile"}),
        "put ServoMenu.Fußzeile.Height = 949.21875\n"
        "put ServoMenu.Fußzeile.Left = 0\n"
        "put ServoMenu.Fußzeile.Top = 8050.7812\n"
        "put ServoMenu.Fußzeile.Width = 12000\n"
        "put ServoMenu.ScrollBar.Height = 6600.586\n"
        "put ServoMenu.ScrollBar.Left = 11428.125\n"
        "put ServoMenu.ScrollBar.Top = 1371.0938\n"
        "put ServoMenu.ScrollBar.Width = 571.875\n"
        "put ServoMenu.ScrollBar.Left = 11445\n"
        "put ServoMenu.BildIm(8).Left = 5775\n"
        "put ServoMenu.BildIm(8).Top = 6375\n"
        "put ServoMenu.BildIm(8).Width = 5610\n"
        "put ServoMenu.BildIm(8).Height = 1575\n"
        "put ServoMenu.ScrollBar.0x68030004 = 1\n");
}

TEST_F(MenuBildInit, PutsCaptionsBesideTheFirstOneInStepsOfTheGrid)
{
    run(menuProject(3));
    run("create\nget ServoMenu.Beschriftung(1).Left\nget ServoMenu.Beschriftung(1).Top\n"
        "get ServoMenu.Beschriftung(6).Left\nget ServoMenu.Beschriftung(6).Top");
    EXPECT_EQ(replay.lines("state"),
        "state ServoMenu.Beschriftung(1).Left = 960\n"
        "state ServoMenu.Beschriftung(1).Top = 2370\n"
        "state ServoMenu.Beschriftung(6).Left = 10050\n"
        "state ServoMenu.Beschriftung(6).Top = 8040\n");
}

TEST_F(MenuBildInit, PutsCaptionsIntoTheirStripOfTheKey)
{
    run(menuProject(3, "800"));
    run("create");
    EXPECT_EQ(replay.lines({"put ServoMenu.Beschriftung(1).Height", "put ServoMenu.Beschriftung(1).Left",
                  "put ServoMenu.Beschriftung(1).Top", "put ServoMenu.Beschriftung(1).Width"}),
        "put ServoMenu.Beschriftung(1).Height = 210\n"
        "put ServoMenu.Beschriftung(1).Left = 690\n"
        "put ServoMenu.Beschriftung(1).Top = 1380\n"
        "put ServoMenu.Beschriftung(1).Width = 4410\n");
}

TEST_F(MenuBildInit, AdaptsTheFontsOfHeadingAndCaptionsOnly)
{
    run(menuProject(3, "800") + "var Ch-1.param_client<.arabisch> = true\n");
    run("create");
    EXPECT_EQ(replay.lines({"put ServoMenu.Überschrift.FontClass", "put ServoMenu.Überschrift.Alignment",
                  "put ServoMenu.Beschriftung(8).Font.Size", "put ServoMenu.Fußzeile.Font",
                  "put ServoMenu.ScrollBar.Font"}),
        "put ServoMenu.Überschrift.FontClass = \"LSU8\"\n"
        "put ServoMenu.Überschrift.Alignment = 3\n"
        "put ServoMenu.Beschriftung(8).Font.Size = 8\n");
}

TEST_F(MenuBildInit, PublishesTheLibrarysNameThatNamesFolderAndFiles)
{
    run("library Drives\n" + menuProject(1));
    run("create\nshow");
    EXPECT_EQ(replay.lines({"ini open"}), "ini open Drives\\Drives.ini failed\n");
    run("vars");
    EXPECT_EQ(replay.lines("state"), "state var Ch-1.intern<.ocxname> = \"Drives\"\n");
}

TEST_F(MenuBildInit, KeepsScaledPicturesInTheFolderOfTheEnvironment)
{
    run("env TEMPVELM=D:\\Keep\n" + menuProject(1) + "picture D:\\Keep\\x.bmp 1 1\n");
    run("create\nshow");
    EXPECT_EQ(replay.lines({"mkdir", "save"}),
        "mkdir D:\\Keep\\Velmora\n"
        "mkdir D:\\Keep\\Velmora\\Servo\n"
        "save ServoMenu.TempPicZiel D:\\Keep\\Velmora\\Servo\\Servo_1_1280.gif\n");
}

TEST_F(MenuBildInit, KeepsThemBelowTempWithoutThatVariable)
{
    run(menuProject(1));
    run("create\nshow");
    EXPECT_EQ(
        replay.lines("save"), "save ServoMenu.TempPicZiel C:\\Temp\\Velmora\\Servo\\Servo_1_1280.gif\n");
}

TEST_F(MenuBildInit, GivesTheLanguageFontToEightCaptionsAndTheHeading)
{
    run(menuProject(1));
    run("create");
    const std::string bold =
        replay.lines({"put ServoMenu.Beschriftung(8).Font.", "put ServoMenu.Überschrift.Font."});
    EXPECT_NE(bold.find("put ServoMenu.Beschriftung(8).Font.Charset"), std::string::npos);
    EXPECT_NE(bold.find("put ServoMenu.Überschrift.Font.Name"), std::string::npos);
    EXPECT_LT(bold.find("Beschriftung(8).Font.Name"), bold.find("Beschriftung(8).Font.Charset"));
    EXPECT_LT(bold.find("Beschriftung(8).Font.Charset"), bold.find("Beschriftung(8).Font.Bold"));
    EXPECT_LT(bold.find("Beschriftung(8).Font.Bold"), bold.find("Beschriftung(8).Font.Weight"));
}

TEST_F(MenuBildInit, GoesOnWithoutItsBackground)
{
    run(menuProject(1) + "fail load Servo\\ServoMenu_1280.bmp\n");
    run("create");
    EXPECT_EQ(replay.lines({"message", "error", "put ServoMenu.Picture", "put ServoMenu.TempPicZiel.Width"}),
        "message \"Picture '<project>\\Servo\\ServoMenu_1280.bmp' can not be loaded !\"\n"
        "put ServoMenu.Picture = <none>\n"
        "put ServoMenu.TempPicZiel.Width = 8940\n");
}

TEST_F(MenuBildInit, GivesTheKeysOfTheLastRowAndTheCaptionsTheirSize)
{
    run(menuProject(3));
    run("create");
    EXPECT_EQ(replay.lines({"put ServoMenu.BildIm(7).Top", "put ServoMenu.Beschriftung(1).Height",
                  "put ServoMenu.Beschriftung(1).Width"}),
        "put ServoMenu.Beschriftung(1).Height = 420\n"
        "put ServoMenu.Beschriftung(1).Width = 7305\n"
        "put ServoMenu.BildIm(7).Top = 10875\n");
}

TEST_F(MenuBildInit, NamesTextsPicturesAndCopiesAfterTheLibraryButNotTheBackground)
{
    run("library Drives\n" + menuProject(1)
        + "picture Drives\\Drives_1_1280.gif 487 146\n"
          "file Drives\\Drives.ini\n[Machine1]\nF1=TRUE\n[Footer]\nF1=a\nF3=b\nend\n"
          "text Drives.M1.Drives1.0 = Lift\n");
    run("create");
    EXPECT_EQ(replay.lines("picture"), "picture Servo\\ServoMenu_1280.bmp\n");
    run("show");
    // The caption is written before the menu shows itself and with the first build.
    EXPECT_EQ(replay.lines({"exists Drives", "picture Drives", "mkdir", "save",
                  "put ServoMenu.Beschriftung(1).Caption = \"Lift\""}),
        "put ServoMenu.Beschriftung(1).Caption = \"Lift\"\n"
        "put ServoMenu.Beschriftung(1).Caption = \"Lift\"\n"
        "exists Drives\\Drives_S_1_1280.gif no\n"
        "picture Drives\\Drives_1_1280.gif\n"
        "mkdir C:\\Temp\\Velmora\n"
        "mkdir C:\\Temp\\Velmora\\Drives\n"
        "save ServoMenu.TempPicZiel C:\\Temp\\Velmora\\Drives\\Drives_1_1280.gif\n");
}

} // namespace servopanel::testing
