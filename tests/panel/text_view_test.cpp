#include "panel/widgets/text_view.h"

#include "panel/look/fonts.h"

#include <QImage>

#include <gtest/gtest.h>

using servopanel::panel::leastTextPixels;
using servopanel::panel::panelFont;
using servopanel::panel::TextFit;
using servopanel::panel::TextView;

namespace {

constexpr int anyHeight = 1000;

TextFit line(const QString& text, int width)
{
    return TextFit::oneLine(text, panelFont(16), {width, anyHeight}, leastTextPixels);
}

// Columns with ink, first and last; -1 when there are none.
std::pair<int, int> inkOf(QWidget& view)
{
    const QImage image = view.grab().toImage();
    std::pair<int, int> ink{-1, -1};
    for (int x = 0; x < image.width(); ++x)
        for (int y = 0; y < image.height(); ++y)
            if (qGray(image.pixel(x, y)) < 100) {
                if (ink.first < 0) ink.first = x;
                ink.second = x;
            }
    return ink;
}

class TextViewTest : public ::testing::Test {
protected:
    TextViewTest()
    {
        view.resize(300, 24);
        view.setBackground(QColor{255, 255, 255});
    }
    void show(const char* text, Qt::Alignment alignment = Qt::AlignLeft | Qt::AlignVCenter)
    {
        view.setText(QString::fromUtf8(text));
        view.setLook(panelFont(14), Qt::black, alignment);
    }

    TextView view{nullptr};
};

} // namespace

TEST(TextFitTest, LeavesATextThatFitsAsItIs)
{
    const TextFit fit = line(QStringLiteral("Bahnzug"), 200);
    EXPECT_EQ(fit.font.pixelSize(), 16);
    EXPECT_EQ(fit.lines, QStringList{QStringLiteral("Bahnzug")});
    EXPECT_FALSE(fit.elided);
}

TEST(TextFitTest, MakesLettersSmallerBeforeItLeavesAnyOut)
{
    const int width = QFontMetrics{panelFont(13)}.horizontalAdvance(QStringLiteral("Drehmomentgrenze")) + 1;
    const TextFit fit = line(QStringLiteral("Drehmomentgrenze"), width);
    EXPECT_LT(fit.font.pixelSize(), 16);
    EXPECT_GE(fit.font.pixelSize(), leastTextPixels);
    EXPECT_FALSE(fit.elided);
}

TEST(TextFitTest, EndsInDotsWhereLettersWouldGetTooSmall)
{
    const TextFit fit = line(QStringLiteral("Drehmomentgrenze im Stillstand"), 100);
    EXPECT_EQ(fit.font.pixelSize(), leastTextPixels);
    EXPECT_TRUE(fit.elided);
    ASSERT_EQ(fit.lines.size(), 1);
    EXPECT_TRUE(fit.lines[0].startsWith(QStringLiteral("Dreh")));
    EXPECT_TRUE(fit.lines[0].endsWith(QChar{0x2026}));
    EXPECT_LE(QFontMetrics{fit.font}.horizontalAdvance(fit.lines[0]), 100);
}

TEST(TextFitTest, NeverMakesASmallFontSmaller)
{
    const TextFit fit = TextFit::oneLine(QString{100, u'm'}, panelFont(9), {100, anyHeight}, leastTextPixels);
    EXPECT_EQ(fit.font.pixelSize(), 9);
    EXPECT_TRUE(fit.elided);
}

TEST(TextFitTest, CutsBetweenCharactersOnly)
{
    // A letter with a mark of its own is one character, and so is a pair of surrogates.
    const QString marked = QStringLiteral("e\u0301");
    const QString face = QStringLiteral("😀");
    for (const QString& character : {marked, face})
        for (int width = 10; width < 60; ++width) {
            const TextFit fit = line(character.repeated(200), width);
            QString kept = fit.lines[0];
            kept.chop(1);
            EXPECT_EQ(kept.size() % character.size(), 0) << width;
        }
}

TEST(TextFitTest, LooksAtTheBeginningOfALongTextOnly)
{
    const QString text{10'000, u'x'};
    const TextFit fit = line(text, 200);
    EXPECT_TRUE(fit.elided);
    EXPECT_LT(fit.lines[0].size(), 100);
    const TextFit wrapped = TextFit::wrapped(text, panelFont(16), {200, 60}, leastTextPixels);
    EXPECT_TRUE(wrapped.elided);
    EXPECT_LE(wrapped.lines.size(), 5);
    for (const QString& each : wrapped.lines)
        EXPECT_LE(QFontMetrics{wrapped.font}.horizontalAdvance(each), 201);
}

TEST(TextFitTest, WrapsAtWordsAndBetweenChineseCharacters)
{
    const TextFit words = TextFit::wrapped(
        QStringLiteral("Position window not reached"), panelFont(14), {120, 100}, leastTextPixels);
    EXPECT_EQ(words.lines.join(u' '), QStringLiteral("Position window not reached"));
    EXPECT_GT(words.lines.size(), 1);
    EXPECT_FALSE(words.elided);
    const TextFit chinese = TextFit::wrapped(
        QStringLiteral("纸幅张力实际值超出允许范围"), panelFont(14), {100, 100}, leastTextPixels);
    EXPECT_GT(chinese.lines.size(), 1);
    EXPECT_EQ(chinese.lines.join(QString{}), QStringLiteral("纸幅张力实际值超出允许范围"));
}

TEST(TextFitTest, TakesTheLinesThatFitAndEndsInDots)
{
    const TextFit fit =
        TextFit::wrapped(QStringLiteral("one two three four five six seven eight nine ten").repeated(5),
            panelFont(14), {100, 30}, leastTextPixels);
    EXPECT_TRUE(fit.elided);
    EXPECT_EQ(fit.lines.size(), 30 / QFontMetrics{fit.font}.height());
    EXPECT_TRUE(fit.lines.back().endsWith(QChar{0x2026}));
}

TEST(TextFitTest, NoPlaceAtAllIsNoHarm)
{
    EXPECT_TRUE(line(QStringLiteral("text"), 0).elided);
    EXPECT_TRUE(TextFit::wrapped(QStringLiteral("text"), panelFont(14), {0, 0}, leastTextPixels).elided);
    EXPECT_FALSE(line(QString{}, 0).elided);
}

TEST_F(TextViewTest, SaysWhetherItsTextIsElided)
{
    show("short");
    EXPECT_FALSE(view.isElided());
    view.setText(QString{500, u'm'});
    EXPECT_TRUE(view.isElided());
    view.resize(9000, 24);
    EXPECT_FALSE(view.isElided());
}

TEST_F(TextViewTest, FollowsTheDirectionOfThePanel)
{
    show("text");
    EXPECT_LT(inkOf(view).second, 100);
    view.setLayoutDirection(Qt::RightToLeft);
    EXPECT_GT(inkOf(view).first, 200);
    show("12.5", Qt::AlignRight | Qt::AlignAbsolute | Qt::AlignVCenter);
    EXPECT_GT(inkOf(view).first, 200);
}

// The sign of a negative number is its leftmost ink: a thin line.
TEST_F(TextViewTest, TheSignOfANumberStaysBeforeIt)
{
    view.setLayoutDirection(Qt::RightToLeft);
    show("-5", Qt::AlignLeft | Qt::AlignAbsolute | Qt::AlignVCenter);
    const QImage rightToLeft = view.grab().toImage();
    view.setLayoutDirection(Qt::LeftToRight);
    EXPECT_EQ(view.grab().toImage(), rightToLeft);
}

// Its leftmost ink is low, as that of a sign and of no digit.
TEST_F(TextViewTest, TheSignOfANumberWithinArabicTextStaysBeforeIt)
{
    view.setLayoutDirection(Qt::RightToLeft);
    show("شد -12");
    const QImage image = view.grab().toImage();
    const int left = inkOf(view).first;
    int height = 0;
    for (int y = 0; y < image.height(); ++y)
        if (qGray(image.pixel(left + 1, y)) < 200) ++height;
    EXPECT_GT(height, 0);
    EXPECT_LE(height, 3);
}
