#include "panel/look/reading_order.h"

#include "panel/look/fonts.h"
#include "panel/look/language_look.h"

#include <QTextLayout>

#include <gtest/gtest.h>

using servopanel::panel::drawingFlags;
using servopanel::panel::forDrawing;
using servopanel::panel::runsRightToLeft;

namespace {

// Isolated parts in brackets, which are easier to read than invisible signs.
std::string drawn(const char* text)
{
    const QString whole = QString::fromUtf8(text);
    QString result = forDrawing(whole, runsRightToLeft(whole));
    result.replace(QChar{0x2066}, u'[').replace(QChar{0x2069}, u']');
    return result.toStdString();
}

// Sets the digits of Arabic script for one test.
class ArabicDigits {
public:
    ArabicDigits() { servopanel::panel::setLanguageLook({{servopanel::panel::valueFamily()}, true}); }
    ArabicDigits(const ArabicDigits&) = delete;
    ArabicDigits& operator=(const ArabicDigits&) = delete;
    ~ArabicDigits() { servopanel::panel::setLanguageLook({{servopanel::panel::valueFamily()}}); }
};

} // namespace

TEST(ReadingOrder, OneLetterFromRightToLeftDecides)
{
    EXPECT_TRUE(runsRightToLeft(QStringLiteral("شد")));
    EXPECT_TRUE(runsRightToLeft(QStringLiteral("Kv حلقة")));
    EXPECT_FALSE(runsRightToLeft(QStringLiteral("-12.5 mm")));
    EXPECT_FALSE(runsRightToLeft(QStringLiteral("张力")));
    EXPECT_FALSE(runsRightToLeft(QString{}));
}

TEST(ReadingOrder, KeepsNumbersWithSignAndUnitTogether)
{
    EXPECT_EQ(drawn("الحد -12.5 mm"), "الحد [-12.5 mm]");
    EXPECT_EQ(drawn("الشوط ±75 mm"), "الشوط [±75 mm]");
    EXPECT_EQ(drawn("السكين 1 / 2"), "السكين [1 / 2]");
    EXPECT_EQ(drawn("خطأ (mm) عند 50 / 100 m/min"), "خطأ ([mm]) عند [50 / 100 m/min]");
    EXPECT_EQ(drawn("عزم 80%، ثم"), "عزم [80%]، ثم");
    EXPECT_EQ(drawn("كسب Kv الفعال"), "كسب [Kv] الفعال");
}

TEST(ReadingOrder, LeavesTextsFromLeftToRightAlone)
{
    EXPECT_EQ(drawn("-12.5 mm"), "-12.5 mm");
    EXPECT_EQ(drawn("Länge (mm)"), "Länge (mm)");
    EXPECT_EQ(drawn("张力 12.5 N"), "张力 12.5 N");
}

TEST(ReadingOrder, ShowsTheDigitsOfTheLanguage)
{
    EXPECT_EQ(drawn("-12.5"), "-12.5");
    const ArabicDigits digits;
    EXPECT_EQ(drawn("-12.5"), "-١٢٫٥");
    EXPECT_EQ(drawn("1. 2"), "١. ٢");
    EXPECT_EQ(drawn("الحد -12.5 mm"), "الحد [-١٢٫٥ mm]");
}

TEST(ReadingOrder, LeftAndRightChangePlacesUnlessAbsolute)
{
    const auto side = [](Qt::Alignment alignment, Qt::LayoutDirection panel) {
        return Qt::Alignment{drawingFlags(alignment, panel, false)} & (Qt::AlignLeft | Qt::AlignRight);
    };
    EXPECT_EQ(side(Qt::AlignLeft, Qt::LeftToRight), Qt::AlignLeft);
    EXPECT_EQ(side(Qt::AlignLeft, Qt::RightToLeft), Qt::AlignRight);
    EXPECT_EQ(side(Qt::AlignRight, Qt::RightToLeft), Qt::AlignLeft);
    EXPECT_EQ(side(Qt::AlignRight | Qt::AlignAbsolute, Qt::RightToLeft), Qt::AlignRight);
}

// Where every character of a number within Arabic text comes to stand.
TEST(ReadingOrder, ANumberWithinArabicTextReadsFromLeftToRight)
{
    const QString text = forDrawing(QStringLiteral("شد -12.5 mm"), true);
    QTextLayout layout{text, servopanel::panel::panelFont(14)};
    QTextOption option;
    option.setTextDirection(Qt::RightToLeft);
    layout.setTextOption(option);
    layout.beginLayout();
    const QTextLine line = layout.createLine();
    layout.endLayout();
    const auto x = [&](QChar character) { return line.cursorToX(static_cast<int>(text.indexOf(character))); };
    EXPECT_LT(x(u'1'), x(u'2'));
    EXPECT_LT(x(u'2'), x(u'.'));
    EXPECT_LT(x(u'.'), x(u'5'));
    EXPECT_LT(x(u'5'), x(u'm'));
    EXPECT_LT(x(u'm'), x(u'ش'));
}
