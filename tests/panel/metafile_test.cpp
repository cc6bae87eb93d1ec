#include "panel/pictures/metafile.h"

#include "sample_pictures.h"

#include <gtest/gtest.h>

#include <QColor>

using servopanel::panel::drawMetafile;
using namespace servopanel::testing;

namespace {

constexpr qint64 copy = 0x00CC0020;
constexpr qint64 andWithMask = 0x008800C6;
constexpr qint64 orWithPicture = 0x00EE0086;

// A place in the units of the samples' window, 100 x 50.
QColor at(const QImage& image, double x, double y)
{
    return image.pixelColor(
        static_cast<int>(x * image.width() / 100), static_cast<int>(y * image.height() / 50));
}

int darkPixels(const QImage& image)
{
    int sum = 0;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            if (image.pixelColor(x, y).alpha() > 128 && image.pixelColor(x, y).lightness() < 128) ++sum;
    return sum;
}

QImage drawn(const QByteArray& records, int side = 400)
{
    return drawMetafile(metafile(window() + records), side);
}

} // namespace

TEST(Metafile, IsDrawnWithTransparentBackground)
{
    for (const int mapMode : {1, 8}) {
        const QImage image = drawMetafile(greenHalf(mapMode), 256);
        ASSERT_FALSE(image.isNull());
        EXPECT_EQ(image.size(), (QSize{256, 128}));
        EXPECT_EQ(at(image, 25, 25), QColor(0, 0xC0, 0)) << mapMode;
        EXPECT_EQ(at(image, 75, 25).alpha(), 0) << mapMode;
    }
}

TEST(Metafile, HasItsOwnSizeOrTheOneAskedFor)
{
    EXPECT_EQ(drawMetafile(greenHalf(), 0).size(), (QSize{100, 50}));
    EXPECT_EQ(drawMetafile(greenHalf(), 30).size(), (QSize{30, 15}));
    EXPECT_EQ(drawMetafile(greenHalf(), 1000).size(), (QSize{1000, 500}));
}

TEST(Metafile, APlainOneIsAsWideAsWhatIsDrawn)
{
    const QByteArray plain = metafile(window() + solidBrush(0, 0, 0xC0, 0) + noPen(1)
            + record(0x0324, words({4, 0, 0, 100, 0, 100, 50, 0, 50})),
        false);
    const QImage image = drawMetafile(plain, 200);
    ASSERT_FALSE(image.isNull());
    EXPECT_EQ(at(image, 50, 25), QColor(0, 0xC0, 0));
}

TEST(Metafile, FillsByTheRuleThatIsSet)
{
    // A square within a square, both the same way round.
    const QList<int> squares{2, 4, 4, 10, 5, 90, 5, 90, 45, 10, 45, 30, 15, 70, 15, 70, 35, 30, 35};
    const QByteArray shapes = solidBrush(0, 200, 0, 0) + noPen(1) + record(0x0538, words(squares));
    EXPECT_EQ(at(drawn(record(0x0106, word(1)) + shapes), 50, 25).alpha(), 0);
    EXPECT_EQ(at(drawn(record(0x0106, word(2)) + shapes), 50, 25), QColor(200, 0, 0));
}

TEST(Metafile, DrawsPiesWithinTheirAngles)
{
    // From the right to the top, against the clock.
    const QImage image =
        drawn(solidBrush(0, 0, 0, 200) + noPen(1) + record(0x081A, words({0, 50, 25, 100, 50, 100, 0, 0})));
    EXPECT_EQ(at(image, 65, 15), QColor(0, 0, 200));
    EXPECT_EQ(at(image, 35, 15).alpha(), 0);
    EXPECT_EQ(at(image, 65, 35).alpha(), 0);
}

TEST(Metafile, LinesHaveTheWidthOfThePen)
{
    const QImage image = drawn(
        solidPen(0, 10, 10, 20, 30) + record(0x0214, words({25, 0})) + record(0x0213, words({25, 100})));
    EXPECT_EQ(at(image, 50, 21.5), QColor(10, 20, 30));
    EXPECT_EQ(at(image, 50, 28.5), QColor(10, 20, 30));
    EXPECT_EQ(at(image, 50, 18).alpha(), 0);
    EXPECT_EQ(at(image, 50, 32).alpha(), 0);
}

TEST(Metafile, AHatchLetsTheGroundThroughOrNot)
{
    const QByteArray hatched =
        record(0x02FC, word(2) + colourWords(0, 0, 0) + word(1)) + record(0x012D, word(0)) + noPen(1);
    const QByteArray rectangle = record(0x041B, words({50, 100, 0, 0}));
    const QByteArray yellow = record(0x0201, colourWords(255, 255, 0));
    const QImage through = drawn(hatched + yellow + record(0x0102, word(1)) + rectangle);
    const QImage filled = drawn(hatched + yellow + record(0x0102, word(2)) + rectangle);
    int clear = 0;
    int ground = 0;
    for (int x = 10; x < 390; ++x) {
        if (through.pixelColor(x, 100).alpha() == 0) ++clear;
        if (filled.pixelColor(x, 100) == QColor(255, 255, 0)) ++ground;
    }
    EXPECT_GT(clear, 200);
    EXPECT_LT(clear, 380);
    EXPECT_GT(ground, 200);
    EXPECT_LT(ground, 380);
}

TEST(Metafile, WritesTexts)
{
    const QByteArray font = record(0x02FB, words({-30, 0, 0, 0, 700, 0, 0, 0, 0}) + QByteArray{"Arial\0", 6})
        + record(0x012D, word(0)) + record(0x0102, word(1)) + record(0x012E, word(24));
    const QByteArray text = record(0x0521, word(4) + QByteArray{"STOP"} + words({40, 5}));
    const QImage image = drawn(font + text);
    ASSERT_FALSE(image.isNull());
    const int dark = darkPixels(image);
    EXPECT_GT(dark, 1500);
    EXPECT_LT(dark, 40000);
    // Nothing below the line that the letters stand on.
    EXPECT_EQ(darkPixels(image.copy(0, 165, 400, 35)), 0);
    EXPECT_EQ(image.pixelColor(2, 2).alpha(), 0);
}

TEST(Metafile, DrawsBitmapsOfEveryDepth)
{
    for (const int bits : {4, 8, 24, 32}) {
        const QImage image = drawn(stretchedBitmap(bitmap({bits}), copy, 0, 0, 100, 50));
        ASSERT_FALSE(image.isNull()) << bits;
        EXPECT_EQ(at(image, 5, 3), QColor(255, 0, 0)) << bits;
        EXPECT_EQ(at(image, 95, 3), QColor(255, 255, 255)) << bits;
        EXPECT_EQ(at(image, 50, 45), QColor(0, 0, 0)) << bits;
    }
}

TEST(Metafile, AMaskAndAPictureLeaveTheRestTransparent)
{
    // White in the mask stays as it is, black takes the picture.
    QByteArray mask = bitmap({24});
    mask.replace(54, mask.size() - 54, QByteArray(mask.size() - 54, char(0xFF)));
    mask.replace(54 + 24, 3, QByteArray(3, char(0))); // top left pixel
    QByteArray picture = bitmap({24});
    picture.replace(54 + 24 + 3, 9, QByteArray(9, char(0)));
    const QImage image = drawn(stretchedBitmap(mask, andWithMask, 0, 0, 100, 50)
        + stretchedBitmap(picture, orWithPicture, 0, 0, 100, 50));
    EXPECT_EQ(at(image, 10, 5), QColor(255, 0, 0));
    EXPECT_EQ(at(image, 60, 5).alpha(), 0);
    EXPECT_EQ(at(image, 60, 40).alpha(), 0);
}

TEST(Metafile, AnythingThatIsDrawnTooOftenIsRefused)
{
    QByteArray records = window() + solidBrush(0, 1, 2, 3) + noPen(1);
    const QByteArray all = record(0x041B, words({50, 100, 0, 0}));
    for (int i = 0; i < 100'000; ++i)
        records += all;
    EXPECT_TRUE(drawMetafile(metafile(records), 1024).isNull());
}

TEST(Metafile, EndlesslyManyRecordsAreRefused)
{
    QByteArray records = window();
    const QByteArray nothing = record(0x0102, word(1));
    for (int i = 0; i < 250'000; ++i)
        records += nothing;
    EXPECT_TRUE(drawMetafile(metafile(records), 64).isNull());
}

TEST(Metafile, WrongSizesInTheHeaderDoNotMatter)
{
    QByteArray data = greenHalf();
    data.replace(22 + 6, 4, longWord(0)); // size of the file
    data.replace(22 + 12, 4, longWord(0x7FFFFFFF)); // longest record
    EXPECT_EQ(at(drawMetafile(data, 100), 25, 25), QColor(0, 0xC0, 0));
}

TEST(Metafile, WithoutASizeItIsNoPicture)
{
    QByteArray flat = greenHalf();
    flat.replace(10, 2, word(0)); // right = left
    EXPECT_TRUE(drawMetafile(flat, 100).isNull());
}

TEST(Metafile, ShapesOfAllKindsAreDrawn)
{
    const QImage image = drawMetafile(manyShapes(), 400);
    ASSERT_FALSE(image.isNull());
    EXPECT_EQ(at(image, 11, 11), QColor(200, 20, 20)); // rectangle
    EXPECT_EQ(at(image, 35, 11), QColor(200, 20, 20));
    EXPECT_EQ(at(image, 60, 11), QColor(200, 20, 20)); // ellipse
    EXPECT_EQ(at(image, 51, 3).alpha(), 0); // beside it
    EXPECT_EQ(at(image, 85, 8), QColor(200, 20, 20)); // both polygons
    EXPECT_GT(at(image, 82, 23).red(), 240); // the bitmap's first pixel
    EXPECT_LT(at(image, 82, 23).blue(), 20);
}
