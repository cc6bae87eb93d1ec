#include "panel/look/colours.h"
#include "panel/look/contrast.h"

#include <gtest/gtest.h>

using namespace servopanel::panel;

TEST(Contrast, IsThatOfTheGuides)
{
    EXPECT_NEAR(contrast(Qt::black, Qt::white), 21.0, 0.01);
    EXPECT_NEAR(contrast(QColor{0x77, 0x77, 0x77}, Qt::white), 4.48, 0.01);
    EXPECT_NEAR(contrast(Qt::red, Qt::red), 1.0, 0.001);
}

TEST(Readable, LeavesAnInkThatCanBeRead)
{
    EXPECT_EQ(readable(colours::ink, colours::background), colours::ink);
    EXPECT_EQ(readable(colours::barInk, colours::bar), colours::barInk);
}

TEST(Readable, DarkensAPaleInkOnALightGround)
{
    const QColor grey{0x80, 0x80, 0x80};
    const QColor found = readable(grey, colours::background);
    EXPECT_GE(contrast(found, colours::background), leastContrast);
    EXPECT_LT(contrast(found, colours::background), leastContrast + 1); // still grey
}

TEST(Readable, LightensAnInkOnADarkGround)
{
    const QColor found = readable(QColor{0x80, 0x20, 0x20}, colours::bar);
    EXPECT_GE(contrast(found, colours::bar), leastContrast);
    EXPECT_GT(found.red(), found.blue());
}
