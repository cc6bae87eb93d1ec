#include "page_test.h"

#include "servo_page/servo_main.h"
#include "support/lone.h"

namespace servopanel::testing {

namespace {

class ZeichnenDesMainBereichsTeile : public PageTest {
protected:
    // Lines on the left half, then on the right half.
    std::string half(int number) const
    {
        return lines("line ServoMain.MainBereich(" + std::to_string(number) + ")");
    }
};

TEST_F(ZeichnenDesMainBereichsTeile, FillsABandAndDrawsASeparatorBelow)
{
    show();
    EXPECT_EQ(half(1).substr(0, half(1).find("(0,645)")),
        "line ServoMain.MainBereich(1) (0,15)-(9015,615) C0C0C0 38\n"
        "line ServoMain.MainBereich(1) (0,630)-(9015,630) D4D4D4 6\n"
        "line ServoMain.MainBereich(1) ");
}

TEST_F(ZeichnenDesMainBereichsTeile, LeavesRowsOutThatTheServoDoesNotUse)
{
    show();
    // Of the right half only setpoint 11 and switch 33 are defined.
    EXPECT_EQ(half(2),
        "line ServoMain.MainBereich(2) (0,15)-(9015,615) C0C0C0 38\n"
        "line ServoMain.MainBereich(2) (0,630)-(9015,630) D4D4D4 6\n"
        "line ServoMain.MainBereich(2) (0,7755)-(9015,8355) C0C0C0 38\n"
        "line ServoMain.MainBereich(2) (0,8370)-(9015,8370) D4D4D4 6\n");
}

TEST_F(ZeichnenDesMainBereichsTeile, GivesEveryRowOfBothHalvesABandWithoutDefinitions)
{
    show("db Servo\\Servo.mdb empty\n");
    EXPECT_EQ(count(half(1), "C0C0C0 38"), 15U);
    EXPECT_EQ(count(half(1), "D4D4D4 6"), 15U);
    EXPECT_EQ(count(half(2), "C0C0C0 38"), 15U);
}

TEST_F(ZeichnenDesMainBereichsTeile, ClearsTheAreaBeforeItDraws)
{
    const std::string trace = show();
    const std::size_t cleared = trace.find("ServoMain.MainBereich(1).Cls");
    ASSERT_NE(cleared, std::string::npos);
    EXPECT_LT(cleared, trace.find("line ServoMain.MainBereich(1)"));
}

// 1024: row tops 30, 495, 975; each bottom is the next top.
TEST_F(ZeichnenDesMainBereichsTeile, LetsBandsLieAgainstEachOtherOnSmallerPanels)
{
    show("db Servo\\Servo.mdb empty\nvar parameter<.aufloesung> = 1024\n");
    EXPECT_EQ(half(1).substr(0, half(1).find("(0,945)")),
        "line ServoMain.MainBereich(1) (0,0)-(7200,435) C0C0C0 38\n"
        "line ServoMain.MainBereich(1) (0,450)-(7200,450) D4D4D4 6\n"
        "line ServoMain.MainBereich(1) (0,465)-(7200,915) C0C0C0 38\n"
        "line ServoMain.MainBereich(1) (0,930)-(7200,930) D4D4D4 6\n"
        "line ServoMain.MainBereich(1) ");
}

TEST_F(ZeichnenDesMainBereichsTeile, MeasuresInPixelsOfTheScreen)
{
    show("db Servo\\Servo.mdb empty\nscreen 12 12\n");
    // 45 twips snap to 36 and 675 to 630 on this screen, whose pixels have 12 twips.
    EXPECT_EQ(
        half(1).substr(0, half(1).find('\n')), "line ServoMain.MainBereich(1) (0,12)-(8451,582) C0C0C0 38");
}

TEST_F(ZeichnenDesMainBereichsTeile, MeasuresDownwardsInTheHeightOfPixels)
{
    show("db Servo\\Servo.mdb empty\nscreen 15 12\n");
    EXPECT_EQ(
        half(1).substr(0, half(1).find('\n')), "line ServoMain.MainBereich(1) (0,12)-(9015,582) C0C0C0 38");
}

class MainBereichsBand : public ::testing::Test {
protected:
    MainBereichsBand()
    {
        page.surround.zustand.TwipsProPixelY = 15;
        page.fake("MainBereich")->properties["WIDTH"] = 9015.0F;
    }
    // Between 45 and 675 twips.
    void draw(bool withLine)
    {
        page.control.ZeichnenDesMainBereichsTeile({"MainBereich", 1}, 45, 675, withLine);
    }

    const std::string box = "MainBereich(1) 0 15 9015 615 12632256 38";
    const std::string line = "MainBereich(1) 0 630 9015 630 13948116 6";
    const Report lost{91, "Ma ZeichnenDesMainBereichsTeile"};
    const Report overflow{6, "Ma ZeichnenDesMainBereichsTeile"};
    Lone<servo_page::ServoMain> page;
};

TEST_F(MainBereichsBand, HasItsLineOnRequest)
{
    draw(false);
    EXPECT_EQ(page.drawn, Texts{box});
    page.drawn.clear();
    draw(true);
    EXPECT_EQ(page.drawn, (Texts{box, line}));
}

TEST_F(MainBereichsBand, HasItsLineEvenWhenTheBoxCannotBeDrawn)
{
    page.failingLines = 1;
    draw(true);
    EXPECT_EQ(page.drawn, Texts{line});
    EXPECT_EQ(page.surround.reports(), Reports{lost});
}

TEST_F(MainBereichsBand, IsNotDrawnAtPlacesBeyondSinglePrecision)
{
    page.surround.zustand.TwipsProPixelY = 3e38F;
    draw(true);
    EXPECT_EQ(page.drawn, Texts{});
    EXPECT_EQ(page.surround.reports(), (Reports{overflow, overflow}));
}

} // namespace

} // namespace servopanel::testing
