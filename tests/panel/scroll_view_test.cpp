#include "panel/widgets/scroll_view.h"

#include <gtest/gtest.h>

#include <QTest>

#include <vector>

using namespace servopanel::panel;

namespace {

class ScrollViewTest : public ::testing::Test {
protected:
    ScrollViewTest()
    {
        stage_.resize(200, 800);
        scroll_.setGeometry(0, 0, 54, 700);
        scroll_.setHandler([this](int position) { moves_.push_back(position); });
        stage_.show();
    }

    QWidget stage_;
    ScrollView& scroll_ = *new ScrollView{&stage_};
    std::vector<int> moves_;
};

} // namespace

TEST_F(ScrollViewTest, TheLastPositionIsWhereTheEndBecomesVisible)
{
    scroll_.setRange(4, 26);
    EXPECT_EQ(scroll_.last(), 23);
    scroll_.setRange(651, 651);
    EXPECT_EQ(scroll_.last(), 1);
    scroll_.setRange(4, 2);
    EXPECT_EQ(scroll_.last(), 1);
}

TEST_F(ScrollViewTest, SettingItReportsNothing)
{
    scroll_.setRange(4, 10);
    scroll_.setPosition(5);
    scroll_.setOn(false);
    EXPECT_TRUE(moves_.empty());
    EXPECT_EQ(scroll_.position(), 5);
}

TEST_F(ScrollViewTest, ArrowsMoveByOneRowAndStopAtTheEnds)
{
    scroll_.setRange(4, 6);
    for (int i = 0; i < 4; ++i)
        QTest::mouseClick(&scroll_.downKey(), Qt::LeftButton);
    EXPECT_EQ(moves_, (std::vector{2, 3}));
    QTest::mouseClick(&scroll_.upKey(), Qt::LeftButton);
    EXPECT_EQ(moves_.back(), 2);
}

TEST_F(ScrollViewTest, ATouchBesideTheSliderMovesByAPage)
{
    scroll_.setRange(4, 20);
    QTest::mouseClick(&scroll_, Qt::LeftButton, {}, {27, scroll_.slider().bottom() + 20});
    EXPECT_EQ(moves_, (std::vector{5}));
}

TEST_F(ScrollViewTest, TheSliderFollowsTheFinger)
{
    scroll_.setRange(4, 20);
    QTest::mousePress(&scroll_, Qt::LeftButton, {}, scroll_.slider().center());
    QTest::mouseMove(&scroll_, {27, 690});
    EXPECT_EQ(scroll_.position(), 17);
    QTest::mouseMove(&scroll_, {27, 0});
    EXPECT_EQ(scroll_.position(), 1);
    QTest::mouseRelease(&scroll_, Qt::LeftButton, {}, {27, 0});
    QTest::mouseMove(&scroll_, {27, 690});
    EXPECT_EQ(scroll_.position(), 1);
}

TEST_F(ScrollViewTest, ALockedBarDoesNotMove)
{
    scroll_.setRange(4, 20);
    scroll_.setOn(false);
    QTest::mouseClick(&scroll_.downKey(), Qt::LeftButton);
    QTest::mouseClick(&scroll_, Qt::LeftButton, {}, {27, 600});
    EXPECT_TRUE(moves_.empty());
}

TEST_F(ScrollViewTest, AHeldArrowGoesOn)
{
    scroll_.setRange(4, 100);
    QTest::mousePress(&scroll_.downKey(), Qt::LeftButton);
    EXPECT_EQ(moves_.size(), 1U);
    EXPECT_TRUE(QTest::qWaitFor([&] { return moves_.size() >= 3; }));
    QTest::mouseRelease(&scroll_.downKey(), Qt::LeftButton);
}
