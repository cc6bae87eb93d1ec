#include "panel/widgets/canvas_view.h"
#include "panel/widgets/text_view.h"
#include "panel/widgets/touch_key.h"

#include <gtest/gtest.h>

#include <QTest>

#include <string>
#include <vector>

using namespace servopanel::panel;

namespace {

class TouchViewTest : public ::testing::Test {
protected:
    TouchViewTest()
    {
        stage_.resize(400, 300);
        surface_.setGeometry(0, 0, 400, 300);
        label_.setGeometry(100, 100, 100, 40);
        surface_.setTouchHandler([this](const TouchPoint& point) { note("surface", point); });
        label_.setTouchHandler([this](const TouchPoint& point) { note("label", point); });
        stage_.show();
        EXPECT_TRUE(QTest::qWaitForWindowExposed(&stage_));
    }
    void note(const std::string& who, const TouchPoint& point)
    {
        const char* const names[]{"down", "move", "up"};
        log_.push_back(who + " " + names[static_cast<int>(point.touch)] + " "
            + std::to_string(qRound(point.at.x())) + "," + std::to_string(qRound(point.at.y())));
    }
    QWindow* window() { return stage_.windowHandle(); }

    QWidget stage_;
    CanvasView& surface_ = *new CanvasView{&stage_};
    TextView& label_ = *new TextView{&surface_};
    std::vector<std::string> log_;
};

} // namespace

TEST_F(TouchViewTest, ATouchOnALabelDoesNotReachItsParent)
{
    QTest::mouseClick(window(), Qt::LeftButton, {}, {110, 120});
    EXPECT_EQ(log_, (std::vector<std::string>{"label down 10,20", "label move 10,20", "label up 10,20"}));
}

TEST_F(TouchViewTest, AMoveToThePlaceOfReleaseComesBeforeTheUp)
{
    QTest::mousePress(window(), Qt::LeftButton, {}, {10, 10});
    QTest::mouseRelease(window(), Qt::LeftButton, {}, {50, 60});
    ASSERT_GE(log_.size(), 3U);
    EXPECT_EQ(log_[log_.size() - 2], "surface move 50,60");
    EXPECT_EQ(log_.back(), "surface up 50,60");
}

TEST_F(TouchViewTest, WhatWasPressedKeepsThePointer)
{
    QTest::mousePress(window(), Qt::LeftButton, {}, {110, 120});
    QTest::mouseMove(window(), {300, 250});
    QTest::mouseRelease(window(), Qt::LeftButton, {}, {300, 250});
    for (const std::string& line : log_)
        EXPECT_EQ(line.rfind("label", 0), 0U) << line;
    EXPECT_EQ(log_.back(), "label up 200,150");
}

TEST_F(TouchViewTest, ALockedViewSwallowsTouches)
{
    label_.setLocked(true);
    QTest::mouseClick(window(), Qt::LeftButton, {}, {110, 120});
    EXPECT_TRUE(log_.empty());
}

TEST_F(TouchViewTest, MovesWithoutATouchAreNotReported)
{
    QTest::mouseMove(window(), {20, 20});
    QTest::mouseMove(window(), {120, 120});
    EXPECT_TRUE(log_.empty());
}

TEST_F(TouchViewTest, AViewHiddenDuringATouchStartsAnew)
{
    QTest::mousePress(window(), Qt::LeftButton, {}, {110, 120});
    label_.hide();
    label_.show();
    QTest::mouseRelease(window(), Qt::LeftButton, {}, {110, 120});
    EXPECT_EQ(log_, (std::vector<std::string>{"label down 10,20"}));
}

namespace {

class TouchKeyTest : public ::testing::Test {
protected:
    TouchKeyTest()
    {
        stage_.resize(300, 200);
        key_.setGeometry(10, 10, 100, 60);
        key_.setAction([this] { ++actions_; });
        stage_.show();
    }
    QWidget stage_;
    TouchKey& key_ = *new TouchKey{&stage_};
    int actions_ = 0;
};

} // namespace

TEST_F(TouchKeyTest, ActsWhenTheFingerIsLiftedInside)
{
    QTest::mousePress(&key_, Qt::LeftButton);
    EXPECT_TRUE(key_.isDown());
    EXPECT_EQ(actions_, 0);
    QTest::mouseRelease(&key_, Qt::LeftButton);
    EXPECT_EQ(actions_, 1);
}

TEST_F(TouchKeyTest, DoesNothingWhenTheFingerIsLiftedOutside)
{
    QTest::mousePress(&key_, Qt::LeftButton);
    QTest::mouseMove(&key_, {200, 150});
    EXPECT_FALSE(key_.isDown());
    QTest::mouseRelease(&key_, Qt::LeftButton, {}, {200, 150});
    EXPECT_EQ(actions_, 0);
}

TEST_F(TouchKeyTest, LooksPressedWhileTheFingerIsOnIt)
{
    const QImage up = key_.grab().toImage();
    QTest::mousePress(&key_, Qt::LeftButton);
    EXPECT_NE(key_.grab().toImage(), up);
    QTest::mouseRelease(&key_, Qt::LeftButton);
    EXPECT_EQ(key_.grab().toImage(), up);
}

TEST_F(TouchKeyTest, AKeyThatIsOffDoesNothing)
{
    key_.setOn(false);
    QTest::mouseClick(&key_, Qt::LeftButton);
    EXPECT_EQ(actions_, 0);
}

TEST_F(TouchKeyTest, TwoQuickTouchesActTwice)
{
    // The window system turns the second one into a double click.
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&stage_));
    QTest::mouseClick(stage_.windowHandle(), Qt::LeftButton, {}, {50, 40});
    QTest::mouseClick(stage_.windowHandle(), Qt::LeftButton, {}, {50, 40});
    EXPECT_EQ(actions_, 2);
}
