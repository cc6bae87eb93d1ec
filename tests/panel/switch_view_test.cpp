#include "panel/widgets/switch_view.h"

#include <gtest/gtest.h>

#include <QTest>

using namespace servopanel::panel;

namespace {

class SwitchViewTest : public ::testing::Test {
protected:
    SwitchViewTest()
    {
        stage_.resize(400, 200);
        lever_.setGeometry(10, 10, 170, 36);
        lever_.setHandler([this] { ++touches_; });
        stage_.show();
    }
    QWidget stage_;
    SwitchView& lever_ = *new SwitchView{&stage_, [](PanelText text) { return panelWord(text, "en"); }};
    int touches_ = 0;
};

} // namespace

TEST_F(SwitchViewTest, ReportsATouchAndDoesNotChangeByItself)
{
    QTest::mouseClick(&lever_, Qt::LeftButton);
    EXPECT_EQ(touches_, 1);
    EXPECT_FALSE(lever_.state());
}

TEST_F(SwitchViewTest, TakesNoTouchWhileItIsNotFree)
{
    lever_.setFree(false);
    QTest::mouseClick(&lever_, Qt::LeftButton);
    EXPECT_EQ(touches_, 0);
}

TEST_F(SwitchViewTest, AFingerThatSlidesOffDoesNotSwitch)
{
    QTest::mousePress(&lever_, Qt::LeftButton);
    QTest::mouseRelease(&lever_, Qt::LeftButton, {}, {300, 150});
    EXPECT_EQ(touches_, 0);
}

TEST_F(SwitchViewTest, TheTwoStatesLookDifferent)
{
    const QImage off = lever_.grab().toImage();
    lever_.setState(true);
    EXPECT_NE(lever_.grab().toImage(), off);
    EXPECT_EQ(touches_, 0);
}

TEST_F(SwitchViewTest, AnotherButtonThatIsLiftedDoesNotSwitch)
{
    QTest::mousePress(&lever_, Qt::LeftButton);
    QTest::mouseRelease(&lever_, Qt::RightButton);
    EXPECT_EQ(touches_, 0);
    QTest::mouseRelease(&lever_, Qt::LeftButton);
    EXPECT_EQ(touches_, 1);
}
