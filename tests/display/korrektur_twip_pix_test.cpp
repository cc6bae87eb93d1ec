#include "display/mglobal.h"
#include "support/fakes.h"

#include <gtest/gtest.h>

#include <limits>
#include <set>

namespace {

using namespace servopanel;
using servopanel::testing::Reports;
using servopanel::testing::Surround;

struct KorrekturTwipPix : ::testing::Test {
    Surround surround;
    display::MGlobal global{surround.umfeld};

    KorrekturTwipPix() { screen(15, 15); }
    void screen(float x, float y)
    {
        surround.zustand.TwipsProPixelX = x;
        surround.zustand.TwipsProPixelY = y;
    }
};

TEST_F(KorrekturTwipPix, SnapsDownToWholePixels)
{
    EXPECT_EQ(global.KorrekturTwipPix(100, true, 15, 15), 90);
    EXPECT_EQ(global.KorrekturTwipPix(30, false, 15, 15), 30);
    EXPECT_EQ(global.KorrekturTwipPix(14.99F, true, 15, 15), 0);
    EXPECT_EQ(global.KorrekturTwipPix(0, true, 15, 15), 0);
    EXPECT_TRUE(surround.reports().empty());
}

TEST_F(KorrekturTwipPix, SnapsNegativeValuesDownwards)
{
    EXPECT_EQ(global.KorrekturTwipPix(-1, true, 15, 15), -15);
    EXPECT_EQ(global.KorrekturTwipPix(-15, true, 15, 15), -15);
}

TEST_F(KorrekturTwipPix, CountsWithTheExactStepAndMultipliesWithTheWholeOne)
{
    screen(12, 12);
    EXPECT_EQ(global.KorrekturTwipPix(100, true, 15, 15), 90);
    EXPECT_EQ(global.KorrekturTwipPix(960, true, 15, 15), 900);
}

TEST_F(KorrekturTwipPix, TakesTheStepOfItsDirection)
{
    screen(15, 30);
    EXPECT_EQ(global.KorrekturTwipPix(100, true, 15, 15), 90);
    EXPECT_EQ(global.KorrekturTwipPix(100, false, 15, 15), 60);
    EXPECT_EQ(global.KorrekturTwipPix(100, false, 15, 30), 90);
}

TEST_F(KorrekturTwipPix, ReportsADesignValueOf0AndGivesZeroInEitherDirection)
{
    EXPECT_EQ(global.KorrekturTwipPix(100, true, 0, 15), 0);
    EXPECT_EQ(surround.reports(), (Reports{{11, "KorrekturTwipPix"}}));
    EXPECT_EQ(global.KorrekturTwipPix(100, false, 0, 15), 0);
    EXPECT_EQ(surround.reports().size(), 2U);
    EXPECT_EQ(global.KorrekturTwipPix(100, true, 15, 0), 0);
    EXPECT_EQ(surround.reports().size(), 3U);
}

TEST_F(KorrekturTwipPix, ReportsEachDirectionOfADesignWithoutPixels)
{
    EXPECT_EQ(global.KorrekturTwipPix(100, true, 0, 0), 0);
    EXPECT_EQ(surround.reports(), (Reports{{11, "KorrekturTwipPix"}, {11, "KorrekturTwipPix"}}));
}

TEST_F(KorrekturTwipPix, MeasuresHorizontallyFirst)
{
    screen(0, 15);
    EXPECT_EQ(global.KorrekturTwipPix(100, true, 0, 0), 0);
    EXPECT_EQ(surround.reports(), (Reports{{6, "KorrekturTwipPix"}, {11, "KorrekturTwipPix"}}));
}

TEST_F(KorrekturTwipPix, ReportsAResultBeyond16BitsAndGivesZero)
{
    EXPECT_EQ(global.KorrekturTwipPix(32767, true, 15, 15), 32760);
    EXPECT_EQ(global.KorrekturTwipPix(32775, true, 15, 15), 0);
    EXPECT_EQ(surround.reports(), (Reports{{6, "KorrekturTwipPix"}}));
}

TEST_F(KorrekturTwipPix, FailsBeforeTheScreenIsKnown)
{
    screen(0, 0);
    EXPECT_EQ(global.KorrekturTwipPix(100, true, 15, 15), 0);
    EXPECT_EQ(surround.reports(), (Reports{{11, "KorrekturTwipPix"}}));
}

TEST_F(KorrekturTwipPix, GivesZeroOnAScreenWhosePixelsHaveNoSize)
{
    constexpr float endless = std::numeric_limits<float>::infinity();
    screen(endless, 15);
    EXPECT_EQ(global.KorrekturTwipPix(100, true, 15, 15), 0);
    screen(15, endless);
    EXPECT_EQ(global.KorrekturTwipPix(100, false, 15, 15), 0);
    EXPECT_EQ(surround.reports(),
        (Reports{{6, "KorrekturTwipPix"}, {11, "KorrekturTwipPix"}, {6, "KorrekturTwipPix"},
            {11, "KorrekturTwipPix"}}));
}

TEST_F(KorrekturTwipPix, GivesZeroForALengthWithoutEnd)
{
    EXPECT_EQ(global.KorrekturTwipPix(std::numeric_limits<float>::infinity(), true, 15, 15), 0);
    EXPECT_EQ(surround.reports(), (Reports{{6, "KorrekturTwipPix"}}));
}

} // namespace
