// Changes are noticed, and what only a font renderer sees is not.
#include "look/few_colours.h"
#include "look/picture_compare.h"

#include "panel/look/fonts.h"

#include <gtest/gtest.h>

#include <QPainter>

using namespace servopanel::look;

namespace {

struct Drawing {
    QString value = "12.50 mm";
    QPointF at{20, 40};
    QColor frame = Qt::darkGray;
    bool hasFrame = true;
};

QImage draw(const Drawing& drawing)
{
    QImage image{200, 80, QImage::Format_RGB32};
    image.fill(QColor{0xC0, 0xC0, 0xC0});
    QPainter painter{&image};
    painter.setPen(drawing.frame);
    if (drawing.hasFrame) painter.drawRect(10, 10, 160, 50);
    painter.setPen(Qt::black);
    painter.setFont(servopanel::panel::panelFont(16));
    painter.drawText(drawing.at, drawing.value);
    return image;
}

// Every edge a little lighter or darker, as another renderer smooths it.
QImage smoothedOtherwise(const QImage& image)
{
    QImage result = image;
    for (int y = 1; y < image.height() - 1; ++y)
        for (int x = 1; x < image.width() - 1; ++x) {
            const QColor here = image.pixelColor(x, y);
            const QColor beside = image.pixelColor(x - 1, y);
            const auto part = [](int a, int b) { return (3 * a + b) / 4; };
            result.setPixelColor(x, y,
                {part(here.red(), beside.red()), part(here.green(), beside.green()),
                    part(here.blue(), beside.blue())});
        }
    return result;
}

} // namespace

TEST(PictureCompare, ThePictureItselfIsTheSame) { EXPECT_TRUE(compare(draw({}), draw({})).isSame()); }

TEST(PictureCompare, AnotherDigitIsNoticed)
{
    Drawing other;
    other.value = "12.60 mm";
    const Comparison result = compare(draw({}), draw(other));
    EXPECT_FALSE(result.isSame());
    EXPECT_TRUE((QRect{20, 20, 100, 30}.contains(result.where)));
}

TEST(PictureCompare, AMissingPointIsNoticed)
{
    QImage without = draw({});
    // The point between 12 and 50 painted over.
    const QFontMetrics metrics{servopanel::panel::panelFont(16)};
    QPainter{&without}.fillRect(20 + metrics.horizontalAdvance("12"), 36, 5, 5, QColor{0xC0, 0xC0, 0xC0});
    EXPECT_FALSE(compare(draw({}), without).isSame());
}

TEST(PictureCompare, AMissingFrameIsNoticed)
{
    Drawing other;
    other.hasFrame = false;
    EXPECT_FALSE(compare(draw({}), draw(other)).isSame());
}

TEST(PictureCompare, AnotherColourIsNoticed)
{
    Drawing other;
    other.frame = Qt::red;
    EXPECT_FALSE(compare(draw({}), draw(other)).isSame());
}

TEST(PictureCompare, ALowerTextIsNoticed)
{
    Drawing other;
    other.at.ry() += 3;
    EXPECT_FALSE(compare(draw({}), draw(other)).isSame());
}

TEST(PictureCompare, AnotherSmoothingIsNotNoticed)
{
    EXPECT_TRUE(compare(draw({}), smoothedOtherwise(draw({}))).isSame());
}

TEST(PictureCompare, ATextAFractionOfAPixelFurtherIsNotNoticed)
{
    Drawing other;
    other.at.rx() += 0.5;
    EXPECT_TRUE(compare(draw({}), draw(other)).isSame());
}

TEST(PictureCompare, FewerColoursAreNotNoticed)
{
    QImage colourful = draw({});
    for (int x = 0; x < colourful.width(); ++x)
        for (int y = 60; y < 80; ++y)
            colourful.setPixelColor(x, y, QColor::fromHsv(x * 359 / 200, 40 + 10 * (y - 60), 200));
    const QImage few = withFewColours(colourful);
    EXPECT_EQ(few.format(), QImage::Format_Indexed8);
    EXPECT_NE(few.convertToFormat(colourful.format()), colourful);
    EXPECT_TRUE(compare(colourful, few).isSame());
}

TEST(PictureCompare, AnotherSizeIsNoticed)
{
    EXPECT_FALSE(compare(draw({}), draw({}).scaled(100, 40)).isSame());
}

TEST(SideBySide, ShowsReferenceNowAndDifference)
{
    Drawing other;
    other.value = "99";
    const QImage reference = draw({});
    const QImage now = draw(other);
    const QImage all = sideBySide(reference, now, compare(reference, now));
    EXPECT_EQ(all.size(), (QSize{3 * 200 + 16, 80}));
    EXPECT_EQ(all.copy(0, 0, 200, 80), reference);
    EXPECT_EQ(all.copy(208, 0, 200, 80), now);
}
