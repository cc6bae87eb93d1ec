#include "panel/look/twips.h"

#include <gtest/gtest.h>

#include <limits>

using namespace servopanel::panel;

TEST(ToPixels, FifteenTwipsAreOnePixel)
{
    EXPECT_EQ(toPixels(0.0F), 0);
    EXPECT_EQ(toPixels(15.0F), 1);
    EXPECT_EQ(toPixels(19200.0F), 1280);
    EXPECT_EQ(toPixels(-15.0F), -1);
}

TEST(ToPixels, TakesTheNearestPixelAndHalvesUp)
{
    EXPECT_EQ(toPixels(7.4F), 0);
    EXPECT_EQ(toPixels(7.5F), 1);
    EXPECT_EQ(toPixels(-7.5F), 0);
    EXPECT_EQ(toPixels(-7.6F), -1);
}

TEST(ToPixels, NeighboursInTwipsStayNeighboursInPixels)
{
    // 100 twips are 6.67 pixels: widths alternate, edges meet.
    for (int i = 0; i < 20; ++i) {
        const QRect here = toPixels(100.0F * static_cast<float>(i), 0, 100, 15);
        const QRect next = toPixels(100.0F * static_cast<float>(i + 1), 0, 100, 15);
        EXPECT_EQ(here.left() + here.width(), next.left()) << i;
    }
}

TEST(ToPixels, SenselessLengthsStopFarOutside)
{
    EXPECT_EQ(toPixels(std::numeric_limits<float>::infinity()), 0);
    EXPECT_EQ(toPixels(std::numeric_limits<float>::quiet_NaN()), 0);
    EXPECT_EQ(toPixels(1e30F), 16000);
    EXPECT_EQ(toPixels(0, 0, -100, -100).width(), 0);
}

TEST(ToTwips, FractionsOfAPixelAreKept)
{
    EXPECT_EQ(toTwips(10), 150.0F);
    EXPECT_EQ(toTwips(0.5), 7.5F);
}
