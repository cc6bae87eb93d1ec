#include "panel/widgets/header_bar.h"

#include "panel/look/colours.h"
#include "panel/look/touch_size.h"

#include <gtest/gtest.h>

#include <QTest>

using namespace servopanel::panel;

namespace {

class HeaderTest : public ::testing::TestWithParam<int> {
protected:
    HeaderTest()
    {
        const int width = GetParam();
        stage_.resize(width, width == 1280 ? 1024 : width * 3 / 4);
        bar_.setGeometry(0, 0, width, 1560 * stage_.height() / 1024 / 15);
        bar_.setTexts([this] { return texts_; });
        bar_.setClock([this] { return now_; });
        stage_.show();
    }
    void bring(int languages)
    {
        const char* const names[]{
            "Deutsch", "English", "العربية", "中文", "Français", "Türkçe", "Русский", "Polski"};
        std::vector<HeaderLanguage> all;
        for (int i = 0; i < languages; ++i)
            all.push_back({i + 1, QString::fromUtf8(names[i])});
        bar_.setLanguages(
            all, [this](int number) { chosen_ = number; },
            [](PanelText text) { return panelWord(text, "en"); });
        bar_.setLanguage(1);
    }
    QRect onStage(const QWidget& widget) { return {widget.mapTo(&stage_, QPoint{}), widget.size()}; }

    QWidget stage_;
    HeaderBar& bar_ = *new HeaderBar{&stage_};
    HeaderTexts texts_{"Line", "Machine M1", "Feeder", "Level 2", "Connected", LinkQuality::Good};
    QDateTime now_{QDate{2026, 3, 4}, QTime{9, 5}};
    int chosen_ = 0;
};

} // namespace

INSTANTIATE_TEST_SUITE_P(Screens, HeaderTest, ::testing::Values(1280, 1024, 800));

TEST_P(HeaderTest, UpToThreeLanguagesHaveAKeyEach)
{
    for (const int count : {2, 3}) {
        bring(count);
        EXPECT_EQ(bar_.languagesKey(), nullptr);
        for (int number = 1; number <= count; ++number) {
            ASSERT_NE(bar_.languageKey(number), nullptr);
            EXPECT_TRUE(bar_.languageKey(number)->isVisible());
            EXPECT_FALSE(bar_.languageKey(number)->geometry().intersects(bar_.freePlace()));
        }
        QTest::mouseClick(bar_.languageKey(2), Qt::LeftButton);
        EXPECT_EQ(chosen_, 2);
    }
}

TEST_P(HeaderTest, AnUnusualModeHasAColourOfItsOwn)
{
    const auto hasColour = [this](const QColor& colour) {
        const QImage picture = bar_.grab().toImage();
        for (int y = 0; y < picture.height(); ++y)
            for (int x = 0; x < picture.width(); ++x)
                if (picture.pixelColor(x, y) == colour) return true;
        return false;
    };
    bring(2);
    EXPECT_FALSE(hasColour(colours::warn));
    texts_.mode = "Changing limits";
    bar_.refresh();
    EXPECT_TRUE(hasColour(colours::warn));
}

TEST_P(HeaderTest, FromFourOnASheetHoldsThemAll)
{
    for (const int count : {4, 8}) {
        bring(count);
        ASSERT_NE(bar_.languagesKey(), nullptr);
        EXPECT_EQ(bar_.languagesKey()->text(), "Deutsch ▾");
        QTest::mouseClick(bar_.languagesKey(), Qt::LeftButton);
        ASSERT_TRUE(bar_.languageSheet()->isVisible());
        EXPECT_TRUE(stage_.rect().contains(bar_.languageSheet()->geometry()));
        for (int number = 1; number <= count; ++number) {
            TouchKey* key = bar_.languageKey(number);
            EXPECT_TRUE(bar_.languageSheet()->inner().contains(key->geometry())) << number;
            EXPECT_GE(key->height(), leastTouch(bar_)) << number;
            EXPECT_FALSE(key->geometry().intersects(bar_.languageSheet()->closeKey().geometry()));
            for (int other = 1; other < number; ++other)
                EXPECT_FALSE(key->geometry().intersects(bar_.languageKey(other)->geometry()));
        }
        QTest::mouseClick(bar_.languageKey(4), Qt::LeftButton);
        EXPECT_EQ(chosen_, 4);
        EXPECT_FALSE(bar_.languageSheet()->isVisible());
    }
}

TEST_P(HeaderTest, TheSheetClosesWithoutAChoice)
{
    bring(5);
    QTest::mouseClick(bar_.languagesKey(), Qt::LeftButton);
    QTest::mouseClick(&bar_.languageSheet()->closeKey(), Qt::LeftButton);
    EXPECT_FALSE(bar_.languageSheet()->isVisible());
    QTest::mouseClick(bar_.languagesKey(), Qt::LeftButton);
    EXPECT_TRUE(bar_.languageSheet()->isVisible());
    QTest::mouseClick(bar_.languagesKey(), Qt::LeftButton);
    EXPECT_FALSE(bar_.languageSheet()->isVisible());
    EXPECT_EQ(chosen_, 0);
}

TEST_P(HeaderTest, KeysAreLargeEnoughForAFingerAndInsideTheBar)
{
    bring(8);
    EXPECT_GE(bar_.languagesKey()->height(), leastTouch(bar_));
    EXPECT_GE(bar_.freePlace().height(), leastTouch(bar_));
    EXPECT_TRUE(bar_.rect().contains(bar_.languagesKey()->geometry()));
    EXPECT_TRUE(bar_.rect().contains(bar_.freePlace()));
}

TEST_P(HeaderTest, AClockThatJumpsChangesTheShownTimeOnly)
{
    bring(2);
    bar_.refresh();
    EXPECT_EQ(bar_.shownTime(), "2026-03-04 09:05");
    const HeaderTexts before = bar_.shown();
    now_ = now_.addYears(10);
    bar_.refresh();
    EXPECT_EQ(bar_.shownTime(), "2036-03-04 09:05");
    now_ = now_.addYears(-40);
    bar_.refresh();
    EXPECT_EQ(bar_.shownTime(), "1996-03-04 09:05");
    EXPECT_EQ(bar_.shown(), before);
    // It goes on by itself after the jump back.
    texts_.shown = "Cutter";
    EXPECT_TRUE(QTest::qWaitFor([&] { return bar_.shown().shown == "Cutter"; }));
}

TEST_P(HeaderTest, TheLinkHasASignBesideItsWordAndColour)
{
    bring(2);
    texts_.link = "x"; // the same word, so that only the sign differs
    std::vector<QImage> looks;
    for (const LinkQuality quality : {LinkQuality::Good, LinkQuality::Partly, LinkQuality::Bad}) {
        texts_.quality = quality;
        bar_.refresh();
        QImage image = bar_.grab().toImage();
        image = image.convertToFormat(QImage::Format_Mono, Qt::ThresholdDither);
        looks.push_back(image);
    }
    EXPECT_NE(looks[0], looks[1]);
    EXPECT_NE(looks[1], looks[2]);
    EXPECT_NE(looks[0], looks[2]);
}

TEST_P(HeaderTest, FromRightToLeftEverythingChangesSides)
{
    bring(3);
    const QRect first = bar_.languageKey(1)->geometry();
    const QRect space = bar_.freePlace();
    EXPECT_LT(space.left(), first.left());
    stage_.setLayoutDirection(Qt::RightToLeft);
    EXPECT_EQ(bar_.languageKey(1)->x(), bar_.width() - first.x() - first.width());
    EXPECT_GT(bar_.freePlace().left(), bar_.languageKey(1)->geometry().right());
    EXPECT_GT(bar_.languageKey(1)->x(), bar_.languageKey(3)->x());
    stage_.setLayoutDirection(Qt::LeftToRight);
    EXPECT_EQ(bar_.languageKey(1)->geometry(), first);
}

TEST_P(HeaderTest, TheSheetOpensAtTheSideOfItsKey)
{
    bring(6);
    QTest::mouseClick(bar_.languagesKey(), Qt::LeftButton);
    EXPECT_GT(bar_.languageSheet()->geometry().center().x(), stage_.width() / 2);
    stage_.setLayoutDirection(Qt::RightToLeft);
    EXPECT_LT(bar_.languageSheet()->geometry().center().x(), stage_.width() / 2);
    EXPECT_GT(bar_.languageKey(1)->x(), bar_.languageKey(2)->x());
}
