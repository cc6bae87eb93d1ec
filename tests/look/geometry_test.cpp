// The checks find what is planted, and nothing where all is well.
#include "look/geometry.h"

#include "panel/look/fonts.h"
#include "panel/look/wrapped_text.h"

#include <gtest/gtest.h>

#include <QLabel>
#include <QPainter>

using namespace servopanel::look;

namespace {

// A sheet over the page, as dialogues are.
class Sheet : public QWidget {
public:
    using QWidget::QWidget;
};

class Painted : public QWidget {
public:
    Painted(QWidget* parent, std::function<void(QPainter&)> paint)
        : QWidget{parent}
        , paint_{std::move(paint)}
    {
    }

protected:
    void paintEvent(QPaintEvent*) override
    {
        QPainter painter{this};
        paint_(painter);
    }

private:
    std::function<void(QPainter&)> paint_;
};

class GeometryTest : public ::testing::Test {
protected:
    GeometryTest()
    {
        root_.resize(400, 300);
        root_.setAutoFillBackground(true);
        QPalette palette;
        palette.setColor(QPalette::Window, Qt::white);
        palette.setColor(QPalette::WindowText, Qt::black);
        root_.setPalette(palette);
    }
    QLabel& label(const QRect& place, const QString& text, QWidget* parent = nullptr)
    {
        auto* label = new QLabel{text, parent != nullptr ? parent : &root_};
        label->setFont(servopanel::panel::panelFont(14));
        label->setGeometry(place);
        return *label;
    }
    View view()
    {
        return takeIn(
            root_, plainName,
            [this](const QWidget& widget) { return &widget == filled_ ? fill_ : Fill::Nothing; },
            [](const QWidget& widget) { return dynamic_cast<const Sheet*>(&widget) != nullptr; });
    }
    Findings pale()
    {
        const QImage picture = root_.grab().toImage();
        return findPaleTexts(view(), picture, [this](const QWidget& widget) { return &widget == inactive_; });
    }

    QWidget root_;
    const QWidget* filled_ = nullptr;
    Fill fill_ = Fill::All;
    const QWidget* inactive_ = nullptr;
};

} // namespace

TEST_F(GeometryTest, FindsNothingWhereAllIsWell)
{
    label({10, 10, 150, 24}, "Position");
    label({170, 10, 100, 24}, "12.5 mm");
    const View seen = view();
    EXPECT_TRUE(findOutside(seen).empty());
    EXPECT_TRUE(findOverlaps(seen).empty());
    EXPECT_TRUE(findCutTexts(seen).empty());
    EXPECT_TRUE(findShortenedTexts(seen).empty());
    EXPECT_TRUE(findMissingGlyphs(seen).empty());
    EXPECT_TRUE(pale().empty());
    EXPECT_EQ(seen.pieces.size(), 3U);
}

TEST_F(GeometryTest, FindsAChildOutsideItsParent)
{
    label({341, 50, 60, 24}, "y");
    EXPECT_TRUE(findOutside(view()).empty());
    label({350, 10, 60, 24}, "x");
    const Findings findings = findOutside(view());
    ASSERT_EQ(findings.size(), 1U);
    EXPECT_EQ(findings[0].what, "QLabel [350,10 60x24] reaches over QWidget [0,0 400x300]");
}

TEST_F(GeometryTest, FindsTextsOfSiblingsThatMeet)
{
    label({10, 10, 200, 24}, "A long caption");
    label({60, 14, 200, 24}, "Another one");
    EXPECT_EQ(findOverlaps(view()).size(), 1U);
}

TEST_F(GeometryTest, LabelsThatOverlapOnlyWhereTheyAreEmptyDisturbNobody)
{
    label({10, 10, 300, 24}, "Short");
    label({200, 10, 100, 24}, "Other");
    EXPECT_TRUE(findOverlaps(view()).empty());
}

TEST_F(GeometryTest, FindsATextUnderAKey)
{
    label({10, 10, 200, 24}, "A long caption");
    auto* key = new QWidget{&root_};
    key->setGeometry(40, 0, 100, 60);
    filled_ = key;
    EXPECT_EQ(findOverlaps(view()).size(), 1U);
}

TEST_F(GeometryTest, APictureCarriesATextThatLiesWithinIt)
{
    auto* picture = new QWidget{&root_};
    picture->setGeometry(0, 0, 300, 60);
    filled_ = picture;
    fill_ = Fill::Ground;
    QLabel& caption = label({10, 10, 200, 24}, "A long caption");
    EXPECT_TRUE(findOverlaps(view()).empty());
    caption.move(200, 10);
    caption.setAlignment(Qt::AlignRight);
    EXPECT_EQ(findOverlaps(view()).size(), 0U); // its letters are beside the picture
    caption.setAlignment(Qt::AlignLeft);
    EXPECT_EQ(findOverlaps(view()).size(), 1U);
}

TEST_F(GeometryTest, ASheetMayLieOnThePage)
{
    label({10, 10, 200, 24}, "A long caption");
    auto* sheet = new Sheet{&root_};
    sheet->setGeometry(0, 0, 200, 200);
    label({10, 10, 180, 24}, "On the sheet", sheet);
    EXPECT_TRUE(findOverlaps(view()).empty());
    label({12, 12, 180, 24}, "Also on the sheet", sheet);
    EXPECT_EQ(findOverlaps(view()).size(), 1U);
}

TEST_F(GeometryTest, WhatIsHiddenIsNotLookedAt)
{
    label({10, 10, 200, 24}, "A long caption");
    label({10, 10, 200, 24}, "Hidden").hide();
    EXPECT_TRUE(findOverlaps(view()).empty());
}

TEST_F(GeometryTest, FindsTwoTextsOfOneWidgetThatMeet)
{
    Painted widget{&root_, [](QPainter& painter) {
                       painter.setFont(servopanel::panel::panelFont(14));
                       painter.drawText(QPoint{10, 20}, "Machine");
                       painter.drawText(QPoint{40, 22}, "Servo");
                   }};
    widget.setGeometry(0, 0, 200, 40);
    EXPECT_EQ(findOverlaps(view()).size(), 1U);
}

TEST_F(GeometryTest, FindsATextThatIsTooWide)
{
    label({10, 10, 40, 24}, "Machine");
    const Findings findings = findCutTexts(view());
    ASSERT_EQ(findings.size(), 1U);
    EXPECT_NE(findings[0].what.find("\"Machine\""), std::string::npos);
}

TEST_F(GeometryTest, FindsALineThatIsTooHigh)
{
    label({10, 10, 100, 7}, "Machine");
    EXPECT_EQ(findCutTexts(view()).size(), 1U);
}

TEST_F(GeometryTest, FindsALineOfAWrappedTextBelowItsBox)
{
    QLabel& wrapped = label({10, 10, 80, 24}, "Machine of the second line");
    wrapped.setWordWrap(true);
    wrapped.setAlignment(Qt::AlignTop);
    EXPECT_FALSE(findCutTexts(view()).empty());
    wrapped.resize(80, 100);
    EXPECT_TRUE(findCutTexts(view()).empty());
}

TEST_F(GeometryTest, LinesThatComeWithScrollingAreNotCut)
{
    auto* list = new Painted{&root_, [](QPainter& painter) {
                                 painter.setFont(servopanel::panel::panelFont(14));
                                 painter.drawText(QPoint{10, 20}, "First line");
                                 painter.drawText(QPoint{10, 42}, "Second line");
                             }};
    list->setGeometry(0, 0, 200, 40);
    EXPECT_EQ(findCutTexts(view()).size(), 1U);
    filled_ = list;
    fill_ = Fill::Scrolled;
    EXPECT_TRUE(findCutTexts(view()).empty());
    list->resize(50, 40);
    EXPECT_EQ(findCutTexts(view()).size(), 2U); // nobody can scroll to the side
}

TEST_F(GeometryTest, FindsATextThatItsPainterClips)
{
    Painted widget{&root_, [](QPainter& painter) {
                       painter.setFont(servopanel::panel::panelFont(14));
                       painter.setClipRect(0, 0, 30, 40);
                       painter.drawText(QPoint{10, 20}, "Machine");
                   }};
    widget.setGeometry(0, 0, 200, 40);
    EXPECT_EQ(findCutTexts(view()).size(), 1U);
}

TEST_F(GeometryTest, FindsATextThatWasShortened)
{
    Painted widget{&root_, [](QPainter& painter) {
                       servopanel::panel::drawFitted(painter, {0, 0, 60, 30}, Qt::AlignLeft,
                           servopanel::panel::panelFont(14), "Machine of the second line");
                   }};
    widget.setGeometry(0, 0, 60, 30);
    const View seen = view();
    EXPECT_TRUE(findCutTexts(seen).empty());
    EXPECT_EQ(findShortenedTexts(seen).size(), 1U);
}

TEST_F(GeometryTest, FindsATextOfWhichLinesAreLeftOutWithoutASign)
{
    auto* widget = new Painted{&root_, [](QPainter& painter) {
                                   const QRect place{0, 0, 80, 20};
                                   servopanel::panel::drawWrapped(painter, place, place, Qt::AlignLeft,
                                       servopanel::panel::panelFont(14), "Machine of the second line");
                               }};
    widget->setGeometry(0, 0, 80, 20);
    const Findings findings = findShortenedTexts(view());
    ASSERT_EQ(findings.size(), 1U);
    EXPECT_NE(findings[0].what.find("Machine of the second line"), std::string::npos) << findings[0].what;
    // There it comes with scrolling.
    filled_ = widget;
    fill_ = Fill::Scrolled;
    EXPECT_TRUE(findShortenedTexts(view()).empty());
}

TEST_F(GeometryTest, FindsACharacterWithoutGlyph)
{
    label({10, 10, 100, 24}, QString::fromUcs4(U"\U000F1234", 1)); // private use
    EXPECT_EQ(findMissingGlyphs(view()).size(), 1U);
}

TEST_F(GeometryTest, FindsASmallTarget)
{
    const std::vector<Target> targets{{"small", {0, 0, 100, 30}}, {"large", {0, 40, 31, 31}}};
    const Findings findings = findSmallTargets(targets, 0.294);
    ASSERT_EQ(findings.size(), 1U);
    EXPECT_EQ(findings[0].what, "small [0,0 100x30] is 8.8 mm");
}

TEST_F(GeometryTest, FindsAPaleText)
{
    QLabel& faint = label({10, 10, 100, 24}, "Faint");
    QPalette palette;
    palette.setColor(QPalette::WindowText, QColor{0x99, 0x99, 0x99});
    faint.setPalette(palette);
    const Findings findings = pale();
    ASSERT_EQ(findings.size(), 1U);
    EXPECT_NE(findings[0].what.find("#999999 on #ffffff is 2.8 : 1"), std::string::npos) << findings[0].what;
    inactive_ = &faint;
    EXPECT_TRUE(pale().empty());
}

TEST_F(GeometryTest, ATextUnderASheetNeedNotBeReadable)
{
    QLabel& faint = label({10, 10, 100, 24}, "Faint");
    QPalette palette;
    palette.setColor(QPalette::WindowText, QColor{0x99, 0x99, 0x99});
    faint.setPalette(palette);
    auto* sheet = new Sheet{&root_};
    sheet->setGeometry(0, 0, 200, 200);
    EXPECT_TRUE(pale().empty());
}
