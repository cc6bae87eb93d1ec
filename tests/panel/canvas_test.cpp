#include "panel/widgets/canvas.h"

#include <gtest/gtest.h>

#include <QPainter>

using namespace servopanel::panel;

namespace {

const QColor white{255, 255, 255};
const QColor grey{0x80, 0x80, 0x80};
const QColor silver{0xC0, 0xC0, 0xC0};

Canvas canvas(int width, int height)
{
    Canvas made;
    made.resize({width, height});
    return made;
}

} // namespace

TEST(CanvasLine, DoesNotPaintItsEndPoint)
{
    Canvas target = canvas(10, 10);
    target.line({2, 3}, {6, 3}, white);
    EXPECT_EQ(target.image().pixelColor(2, 3), white);
    EXPECT_EQ(target.image().pixelColor(5, 3), white);
    EXPECT_EQ(target.image().pixelColor(6, 3), silver);
    EXPECT_EQ(target.image().pixelColor(1, 3), silver);
}

TEST(CanvasLine, RunsInEveryDirection)
{
    Canvas target = canvas(10, 10);
    target.line({5, 8}, {5, 4}, white);
    EXPECT_EQ(target.image().pixelColor(5, 8), white);
    EXPECT_EQ(target.image().pixelColor(5, 5), white);
    EXPECT_EQ(target.image().pixelColor(5, 4), silver);
    target.line({1, 1}, {4, 4}, grey);
    EXPECT_EQ(target.image().pixelColor(3, 3), grey);
    EXPECT_EQ(target.image().pixelColor(4, 4), silver);
}

TEST(CanvasLine, ALineWithoutLengthPaintsNothingAndOneBeyondTheEdgeIsCut)
{
    Canvas target = canvas(4, 4);
    target.line({1, 1}, {1, 1}, white);
    EXPECT_EQ(target.image().pixelColor(1, 1), silver);
    target.line({-5, 2}, {50, 2}, white);
    EXPECT_EQ(target.image().pixelColor(0, 2), white);
    EXPECT_EQ(target.image().pixelColor(3, 2), white);
}

TEST(CanvasBox, PaintsBothCorners)
{
    Canvas target = canvas(10, 10);
    target.box({2, 2}, {5, 4}, white);
    EXPECT_EQ(target.image().pixelColor(2, 2), white);
    EXPECT_EQ(target.image().pixelColor(5, 4), white);
    EXPECT_EQ(target.image().pixelColor(6, 4), silver);
    EXPECT_EQ(target.image().pixelColor(5, 5), silver);
}

TEST(CanvasClear, LeavesThePicture)
{
    Canvas target = canvas(6, 6);
    QImage picture{3, 3, QImage::Format_RGB32};
    picture.fill(grey);
    target.setPicture(picture);
    target.box({0, 0}, {5, 5}, white);
    target.clear();
    EXPECT_EQ(target.image().pixelColor(1, 1), grey);
    EXPECT_EQ(target.image().pixelColor(5, 5), silver);
}

TEST(CanvasCopy, CutsOffWhatLiesOutside)
{
    Canvas target = canvas(6, 6);
    QImage picture{4, 4, QImage::Format_RGB32};
    picture.fill(white);
    target.copy(picture, {-2, 3}, {4, 4});
    EXPECT_EQ(target.image().pixelColor(0, 3), white);
    EXPECT_EQ(target.image().pixelColor(1, 5), white);
    EXPECT_EQ(target.image().pixelColor(2, 3), silver);
    EXPECT_EQ(target.image().pixelColor(0, 2), silver);
}

TEST(CanvasStretch, AveragesThePixels)
{
    Canvas target = canvas(2, 2);
    QImage picture{4, 4, QImage::Format_RGB32};
    for (int y = 0; y < 4; ++y)
        for (int x = 0; x < 4; ++x)
            picture.setPixelColor(x, y, (x + y) % 2 == 0 ? Qt::black : Qt::white);
    target.stretch(picture, {4, 4}, {2, 2});
    const int shade = target.image().pixelColor(0, 0).red();
    EXPECT_GT(shade, 100);
    EXPECT_LT(shade, 155);
}

TEST(CanvasStretch, TakesThePartAtTheTopLeftOnly)
{
    Canvas target = canvas(2, 2);
    QImage picture{4, 4, QImage::Format_RGB32};
    picture.fill(Qt::black);
    QPainter{&picture}.fillRect(0, 0, 2, 2, white);
    target.stretch(picture, {2, 2}, {2, 2});
    EXPECT_EQ(target.image().pixelColor(0, 0), white);
    EXPECT_EQ(target.image().pixelColor(1, 1), white);
}

TEST(CanvasResize, KeepsWhatWasDrawn)
{
    Canvas target = canvas(4, 4);
    target.box({0, 0}, {1, 1}, white);
    target.resize({8, 8});
    EXPECT_EQ(target.image().pixelColor(1, 1), white);
    EXPECT_EQ(target.image().pixelColor(7, 7), silver);
}

TEST(CanvasWithoutSize, TakesDrawingsWithoutHarm)
{
    Canvas target;
    target.line({0, 0}, {5, 5}, white);
    target.box({0, 0}, {5, 5}, white);
    target.clear();
    EXPECT_TRUE(target.image().isNull());
}
