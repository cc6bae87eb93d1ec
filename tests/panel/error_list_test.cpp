#include "panel/widgets/error_list.h"

#include <gtest/gtest.h>

#include <QTest>

using namespace servopanel::panel;
using Origin = ErrorEntry::Origin;

namespace {

class ErrorListTest : public ::testing::Test {
protected:
    ErrorListTest()
    {
        stage_.resize(1280, 1024);
        list_.place({800, 20, 76, 50}, 104);
        stage_.show();
    }
    QWidget stage_;
    QDateTime now_{QDate{2026, 3, 4}, QTime{10, 0}};
    ErrorList list_{stage_, [](PanelText text) { return panelWord(text, "en"); }, [this] { return now_; }};
};

} // namespace

TEST_F(ErrorListTest, IsNotSeenWithoutReports) { EXPECT_FALSE(list_.badge().isVisible()); }

TEST_F(ErrorListTest, ShowsTheNewestFirst)
{
    list_.add(Origin::Library, "one");
    list_.add(Origin::Library, "two");
    EXPECT_TRUE(list_.badge().isVisible());
    EXPECT_EQ(list_.badge().text(), "! 2");
    EXPECT_EQ(list_.entries().front().text, "two");
}

TEST_F(ErrorListTest, CountsRepetitionsInOneLine)
{
    for (int i = 0; i < 500; ++i)
        list_.add(Origin::Library, "read failed");
    EXPECT_EQ(list_.entries().size(), 1U);
    EXPECT_EQ(list_.count(), 500);
}

TEST_F(ErrorListTest, CountsEqualReportsAlsoBetweenOthersAndKeepsTheFirstTime)
{
    list_.add(Origin::Library, "read failed", "Ma WerteLesen");
    now_ = now_.addSecs(60);
    list_.add(Origin::Library, "no such file", "OpenIni");
    list_.add(Origin::Library, "read failed", "Ma WerteLesen");
    ASSERT_EQ(list_.entries().size(), 2U);
    const ErrorEntry& newest = list_.entries().front();
    EXPECT_EQ(newest.text, "read failed");
    EXPECT_EQ(newest.procedure, "Ma WerteLesen");
    EXPECT_EQ(newest.times, 2);
    EXPECT_EQ(newest.first.time(), QTime(10, 0));
    EXPECT_EQ(newest.last.time(), QTime(10, 1));
    // The same words of another procedure are another report.
    list_.add(Origin::Library, "read failed", "Ma WerteSchreiben");
    EXPECT_EQ(list_.entries().size(), 3U);
}

TEST_F(ErrorListTest, AClockThatJumpsBackChangesNothingButTheTimes)
{
    list_.add(Origin::Library, "one");
    now_ = now_.addYears(-20);
    list_.add(Origin::Library, "two");
    list_.add(Origin::Library, "one");
    EXPECT_EQ(list_.entries().front().text, "one");
    EXPECT_EQ(list_.entries().front().times, 2);
    EXPECT_EQ(list_.entries().back().text, "two");
}

TEST_F(ErrorListTest, TheOperatorClearsItAndNewReportsComeAnew)
{
    list_.add(Origin::Library, "one");
    list_.add(Origin::Panel, "two");
    list_.open();
    QTest::mouseClick(&list_.clearKey(), Qt::LeftButton);
    EXPECT_EQ(list_.count(), 0);
    EXPECT_FALSE(list_.isOpen());
    EXPECT_FALSE(list_.badge().isVisible());
    list_.add(Origin::Panel, "two");
    EXPECT_EQ(list_.badge().text(), "! 1");
}

TEST_F(ErrorListTest, ScrollsWhenItIsLongerThanItsSheet)
{
    list_.add(Origin::Library, "one");
    list_.open();
    EXPECT_FALSE(list_.pane().bar().isVisible());
    for (int i = 0; i < 60; ++i)
        list_.add(Origin::Library, QStringLiteral("report %1 ").arg(i).repeated(20), "Ma WerteLesen");
    EXPECT_TRUE(list_.pane().bar().isVisible());
    const QImage top = list_.pane().grab().toImage();
    QTest::mouseClick(&list_.pane().bar().downKey(), Qt::LeftButton);
    EXPECT_GT(list_.pane().offset(), 0);
    EXPECT_NE(list_.pane().grab().toImage(), top);
    // And by a finger on the lines themselves.
    QTest::mousePress(&list_.pane(), Qt::LeftButton, {}, {60, 150});
    QTest::mouseMove(&list_.pane(), {60, 20});
    QTest::mouseRelease(&list_.pane(), Qt::LeftButton, {}, {60, 20});
    EXPECT_GT(list_.pane().offset(), 100);
}

TEST_F(ErrorListTest, ATextWithoutBlanksStaysInsideAndManyReportsDoNotWidenTheKey)
{
    for (int i = 0; i < 12000; ++i)
        list_.add(Origin::Library, QString{10000, u'x'});
    list_.open();
    EXPECT_EQ(list_.badge().text(), "! 9999+");
    EXPECT_TRUE(stage_.rect().contains(list_.sheet().geometry()));
    EXPECT_TRUE(list_.sheet().rect().contains(list_.closeKey().geometry()));
    EXPECT_TRUE(list_.pane().bar().isVisible());
}

TEST_F(ErrorListTest, FromRightToLeftItsKeysChangeSides)
{
    list_.add(Origin::Library, "one");
    list_.open();
    EXPECT_LT(list_.clearKey().x(), list_.closeKey().x());
    const int left = list_.sheet().x();
    stage_.setLayoutDirection(Qt::RightToLeft);
    EXPECT_GT(list_.clearKey().x(), list_.closeKey().x());
    EXPECT_LT(list_.sheet().x(), left);
}

TEST_F(ErrorListTest, DoesNotGrowWithoutEnd)
{
    for (int i = 0; i < 1000; ++i)
        list_.add(Origin::Library, QString::number(i));
    EXPECT_LE(list_.entries().size(), 200U);
    EXPECT_EQ(list_.entries().front().text, "999");
}

TEST_F(ErrorListTest, OpensAndClosesAtATouchAndBlocksNothing)
{
    list_.add(Origin::Library, "one");
    EXPECT_FALSE(list_.isOpen());
    QTest::mouseClick(&list_.badge(), Qt::LeftButton);
    EXPECT_TRUE(list_.isOpen());
    EXPECT_EQ(stage_.childAt(100, 900), nullptr);
    QTest::mouseClick(&list_.closeKey(), Qt::LeftButton);
    EXPECT_FALSE(list_.isOpen());
    EXPECT_EQ(list_.count(), 1);
}

TEST_F(ErrorListTest, ForgetsTheReportsOfOneOrigin)
{
    list_.add(Origin::Panel, "note");
    list_.add(Origin::Library, "one");
    list_.forget(Origin::Library);
    ASSERT_EQ(list_.entries().size(), 1U);
    EXPECT_EQ(list_.entries().front().text, "note");
    list_.forget(Origin::Panel);
    EXPECT_FALSE(list_.badge().isVisible());
}
