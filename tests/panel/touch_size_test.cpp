#include "panel/look/touch_size.h"

#include <gtest/gtest.h>

#include <QWidget>

using namespace servopanel::panel;

namespace {

int leastOn(QSize size, double inches)
{
    QWidget stage;
    stage.resize(size);
    if (inches > 0) stateDiagonal(stage, inches);
    const QWidget key{&stage};
    return leastTouch(key);
}

} // namespace

TEST(TouchSize, APixelIsAsLargeAsTheDiagonalSays)
{
    EXPECT_NEAR(millimetresPerPixel({1280, 1024}, 19), 0.294, 0.001);
    EXPECT_NEAR(millimetresPerPixel({1024, 768}, 15), 0.298, 0.001);
    EXPECT_NEAR(millimetresPerPixel({800, 600}, 15), 0.381, 0.001);
    EXPECT_EQ(millimetresPerPixel({0, 0}, 15), 0.0);
}

TEST(TouchSize, NineMillimetresAreMorePixelsOnASmallerScreen)
{
    EXPECT_EQ(leastOn({800, 600}, 15), 24);
    EXPECT_EQ(leastOn({800, 600}, 12.1), 30);
    EXPECT_EQ(leastOn({800, 600}, 8.4), 43);
}

TEST(TouchSize, APanelThatStatesNothingHasTheUsualScreen)
{
    EXPECT_EQ(leastOn({1280, 1024}, 0), 31);
    EXPECT_EQ(leastOn({1024, 768}, 0), 31);
    EXPECT_EQ(leastOn({800, 600}, 0), 24);
}
