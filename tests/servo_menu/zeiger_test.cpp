#include "servo_menu/menu_project.h"
#include "support/replay_fixture.h"

namespace servopanel::testing {

class MenuZeiger : public ReplayFixture {
protected:
    void shown(const std::string& project)
    {
        run(project);
        run("create\nshow");
    }
    // The key that a press at this point presses, 0 when none: drawn by its captions's move.
    int pressedKey(const std::string& point)
    {
        run("down " + point);
        int key = 0;
        for (int k = 1; k <= 8; ++k)
            if (!replay.lines("put ServoMenu.Beschriftung(" + std::to_string(k) + ").Left").empty()) key = k;
        run("move -1 -1");
        return key;
    }
};

TEST_F(MenuZeiger, FindsTheKeyUnderThePointWithItsEdges)
{
    shown(menuProject(8));
    EXPECT_EQ(pressedKey("105 2340"), 1);
    EXPECT_EQ(pressedKey("104.9 2340"), 0);
    EXPECT_EQ(pressedKey("105 2339"), 0);
    EXPECT_EQ(pressedKey("9105 5085"), 1);
    EXPECT_EQ(pressedKey("9106 5085"), 0);
    EXPECT_EQ(pressedKey("9105 5086"), 0);
    EXPECT_EQ(pressedKey("9195 2340"), 2);
    EXPECT_EQ(pressedKey("18195 13590"), 8);
    EXPECT_EQ(pressedKey("18196 13590"), 0);
    EXPECT_EQ(pressedKey("500 5100"), 0); // between two rows
    EXPECT_EQ(pressedKey("9150 3000"), 0); // between the columns
    EXPECT_EQ(pressedKey("500 8100"), 5);
    EXPECT_EQ(pressedKey("105 10844"), 0);
    EXPECT_EQ(pressedKey("105 10845"), 7);
    EXPECT_EQ(pressedKey("105 13590"), 7);
    EXPECT_EQ(pressedKey("105 13591"), 0);
}

TEST_F(MenuZeiger, UsesTheWidthOfTheRightColumnOnSmallPanels)
{
    shown(menuProject(8, "800"));
    EXPECT_EQ(pressedKey("5700 1400"), 1);
    EXPECT_EQ(pressedKey("5701 1400"), 0);
    EXPECT_EQ(pressedKey("11385 1400"), 2);
    EXPECT_EQ(pressedKey("11386 1400"), 0);
}

TEST_F(MenuZeiger, EndsAKeyOnePixelBeforeItsWidthAndItsHeight)
{
    shown("screen 12 15\n" + menuProject(8));
    EXPECT_EQ(pressedKey("9108 5085"), 1);
    EXPECT_EQ(pressedKey("9109 5085"), 0);
    EXPECT_EQ(pressedKey("9108 5086"), 0);
    EXPECT_EQ(pressedKey("18198 5085"), 2);
    EXPECT_EQ(pressedKey("18199 5085"), 0);
}

TEST_F(MenuZeiger, DrawsAPressedKeySunkenWithTwoRings)
{
    shown(menuProject(8));
    EXPECT_EQ(run("down 200 2400"),
        "> down 200 2400\n"
        "put ServoMenu.Beschriftung(1).Left = 975\n"
        "put ServoMenu.Beschriftung(1).Top = 2385\n"
        "put ServoMenu.BildIm(1).Left = 150\n"
        "put ServoMenu.BildIm(1).Top = 2385\n"
        "line ServoMenu (105,2340)-(9120,2340) 808080 6\n"
        "line ServoMenu (105,2340)-(105,5085) 808080 6\n"
        "line ServoMenu (9105,2355)-(9105,5085) FFFFFF 6\n"
        "line ServoMenu (105,5085)-(9120,5085) FFFFFF 6\n"
        "line ServoMenu (120,2355)-(9105,2355) 808080 6\n"
        "line ServoMenu (120,2355)-(120,5070) 808080 6\n"
        "line ServoMenu (9090,2370)-(9090,5070) FFFFFF 6\n"
        "line ServoMenu (120,5070)-(9105,5070) FFFFFF 6\n");
}

TEST_F(MenuZeiger, DrawsAPressedKeyInPixelsThatAreHigherThanWide)
{
    shown("screen 12 15\n" + menuProject(8));
    EXPECT_EQ(run("down 200 2400"),
        "> down 200 2400\n"
        "put ServoMenu.Beschriftung(1).Left = 972\n"
        "put ServoMenu.Beschriftung(1).Top = 2385\n"
        "put ServoMenu.BildIm(1).Left = 141\n"
        "put ServoMenu.BildIm(1).Top = 2385\n"
        "line ServoMenu (105,2340)-(9120,2340) 808080 6\n"
        "line ServoMenu (105,2340)-(105,5085) 808080 6\n"
        "line ServoMenu (9108,2355)-(9108,5085) FFFFFF 6\n"
        "line ServoMenu (105,5085)-(9120,5085) FFFFFF 6\n"
        "line ServoMenu (117,2355)-(9108,2355) 808080 6\n"
        "line ServoMenu (117,2355)-(117,5070) 808080 6\n"
        "line ServoMenu (9096,2370)-(9096,5070) FFFFFF 6\n"
        "line ServoMenu (117,5070)-(9108,5070) FFFFFF 6\n");
}

TEST_F(MenuZeiger, DrawsOneRingOnSmallPanels)
{
    shown(menuProject(8, "800"));
    run("down 5800 1400");
    EXPECT_EQ(replay.lines("line"),
        "line ServoMenu (5760,1365)-(11400,1365) 808080 6\n"
        "line ServoMenu (5760,1365)-(5760,2970) 808080 6\n"
        "line ServoMenu (11385,1380)-(11385,2970) FFFFFF 6\n"
        "line ServoMenu (5760,2970)-(11400,2970) FFFFFF 6\n");
}

TEST_F(MenuZeiger, DrawsAKeyThatLooksLikeThatAlreadyNoSecondTime)
{
    shown(menuProject(8));
    run("down 200 2400");
    EXPECT_EQ(run("down 300 2500"), "> down 300 2500\n");
}

TEST_F(MenuZeiger, ReleasesAKeyWithoutAChoiceWhenThePointerLeavesIt)
{
    shown(menuProject(8));
    run("down 200 5200\nmove 300 5300");
    EXPECT_EQ(replay.lines("put"),
        "put ServoMenu.Beschriftung(3).Left = 975\n"
        "put ServoMenu.Beschriftung(3).Top = 5220\n"
        "put ServoMenu.BildIm(3).Left = 150\n"
        "put ServoMenu.BildIm(3).Top = 5220\n");
    run("move 200 8100");
    EXPECT_EQ(replay.lines({"put", "line ServoMenu (105,5175)"}),
        "put ServoMenu.Beschriftung(3).Left = 960\n"
        "put ServoMenu.Beschriftung(3).Top = 5205\n"
        "put ServoMenu.BildIm(3).Left = 135\n"
        "put ServoMenu.BildIm(3).Top = 5205\n"
        "line ServoMenu (105,5175)-(9120,5175) FFFFFF 6\n"
        "line ServoMenu (105,5175)-(105,7920) FFFFFF 6\n");
    EXPECT_EQ(run("up 200 8100"), "> up 200 8100\n");
}

TEST_F(MenuZeiger, RaisesTheListPositionOfTheChosenKey)
{
    shown(menuProject(8));
    run("scroll 3");
    run("down 9300 2400\nup 9300 2400");
    EXPECT_EQ(replay.lines("raise ServoMenu"), "raise ServoMenu.ServoBildAufrufen(6)\n");
}

TEST_F(MenuZeiger, HidesItselfAndBuildsThePageBeforeTheKeyIsDrawnReleased)
{
    shown(menuProject(2));
    run("down 9300 2400");
    run("up 9300 2400");
    EXPECT_EQ(replay.lines({"raise", "put ServoMenu.Visible", "put ServoMain.BildInit",
                  "put ServoMain.BildShow", "write Ch-1.intern<.servo_zeiger>", "put ServoMain.Visible",
                  "put ServoMenu.Beschriftung(2).Left"}),
        "raise ServoMenu.ServoBildAufrufen(2)\n"
        "put ServoMenu.Visible = false\n"
        "put ServoMain.BildInit = true\n"
        "put ServoMain.BildShow = true\n"
        "write Ch-1.intern<.servo_zeiger> = 2\n"
        "raise ServoMain.JetztAnzeigen()\n"
        "put ServoMain.Visible = true\n"
        "put ServoMenu.Beschriftung(2).Left = 10050\n");
}

TEST_F(MenuZeiger, ChoosesNothingOnAnEmptyKey)
{
    shown(menuProject(2));
    EXPECT_EQ(run("down 200 8100\nup 200 8100"), "> down 200 8100\n> up 200 8100\n");
}

TEST_F(MenuZeiger, ChoosesNothingWhenThePointerOnlyComesUp)
{
    shown(menuProject(8));
    EXPECT_EQ(run("up 200 2400"), "> up 200 2400\n");
}

TEST_F(MenuZeiger, ChoosesByTheNewPositionWhenTheMenuScrollsDuringAPress)
{
    shown(menuProject(8));
    run("down 200 2400\nscroll 2\nup 200 2400");
    EXPECT_EQ(replay.lines("raise ServoMenu"), "raise ServoMenu.ServoBildAufrufen(3)\n");
}

TEST_F(MenuZeiger, TakesPointsOnCaptionsAndPicturesAsPointsOfTheMenu)
{
    shown(menuProject(8));
    run("menudown Beschriftung 4 10 10\nmenuup BildIm 4 0 0");
    EXPECT_EQ(replay.lines("raise ServoMenu"), "raise ServoMenu.ServoBildAufrufen(4)\n");
    run("key! 11");
    run("menudown BildIm 6 10 10\nmenumove BildIm 6 20 20\nmenumove Beschriftung 1 0 0\nmenuup BildIm 6 20 "
        "20");
    EXPECT_EQ(replay.lines("raise"), "");
}

TEST_F(MenuZeiger, ReleasesAKeyWhenThePointerLeavesItsPicture)
{
    shown(menuProject(8));
    run("menudown BildIm 6 10 10");
    run("menumove BildIm 6 -500 10");
    EXPECT_EQ(replay.lines("put ServoMenu.BildIm"),
        "put ServoMenu.BildIm(6).Left = 9225\nput ServoMenu.BildIm(6).Top = 8040\n");
}

TEST_F(MenuZeiger, ForgetsThePressedKeyWhereverThePointerComesUp)
{
    shown(menuProject(8));
    run("down 200 2400");
    // On key 3: key 1 stays sunken.
    EXPECT_EQ(run("up 200 5200"), "> up 200 5200\n");
    run("up 200 2400");
    EXPECT_EQ(replay.lines("raise"), "");
    EXPECT_EQ(replay.lines("put"),
        "put ServoMenu.Beschriftung(1).Left = 960\n"
        "put ServoMenu.Beschriftung(1).Top = 2370\n"
        "put ServoMenu.BildIm(1).Left = 135\n"
        "put ServoMenu.BildIm(1).Top = 2370\n");
}

TEST_F(MenuZeiger, ChoosesByCaptionsAndByPicturesAlone)
{
    for (const auto& [array, key] : {std::pair{"Beschriftung", "4"}, std::pair{"BildIm", "6"}}) {
        recording::Replay menu;
        menu.run(menuProject(8));
        menu.run("create\nshow");
        const std::string element = std::string{array}.append(" ").append(key);
        menu.run(
            "menudown " + element + " 10 10\nmenumove " + element + " 20 20\nmenuup " + element + " 20 20");
        EXPECT_EQ(
            menu.lines("raise ServoMenu"), std::string{"raise ServoMenu.ServoBildAufrufen("} + key + ")\n");
    }
}

class MenuFußzeile : public MenuZeiger { };

TEST_F(MenuFußzeile, LeavesForTheScreenOfTheKeyAndForgetsTheServo)
{
    shown(menuProject(1));
    EXPECT_EQ(run("menukey 11"), "> menukey 11\nwrite Ch-1.intern<.servo_zeiger> = 0\nscreen 1111\n");
    EXPECT_EQ(run("menukey 31"), "> menukey 31\nwrite Ch-1.intern<.servo_zeiger> = 0\nscreen 1131\n");
}

TEST_F(MenuFußzeile, IgnoresTheOtherKeys)
{
    shown(menuProject(1));
    EXPECT_EQ(run("menukey 1\nmenukey! 10"), "> menukey 1\n> menukey! 10\n");
}

TEST_F(MenuFußzeile, ForgetsTheServoAlsoWhenTheScreensNumberOverflows)
{
    shown(menuProject(1)
        + "var Ch-1.intern<.aktuelle_maschine> = 328\nvar parameter<.maschinenbez_328> = \"M1\"\n"
          "var parameter<.servo_anzahl_328> = 0\n");
    EXPECT_EQ(run("menukey! 31"),
        "> menukey! 31\nwrite Ch-1.intern<.servo_zeiger> = 0\n"
        "error 6 \"Me Fußzeile_TasteClick\" \"Overflow\"\n");
}

} // namespace servopanel::testing
