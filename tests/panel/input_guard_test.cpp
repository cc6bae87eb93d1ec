// Touch storms, keys pressed together and touches that came too late.
#include "panel/runtime/input_guard.h"

#include "panel/widgets/touch_key.h"
#include "panel/window/panel_window.h"

#include "event_turns.h"

#include <gtest/gtest.h>

#include <QTest>
#include <QWindow>

using namespace servopanel::panel;
using servopanel::testing::letEventsPass;

namespace {

class InputGuardTest : public ::testing::Test {
protected:
    InputGuardTest()
    {
        left_.setGeometry(100, 100, 100, 100);
        right_.setGeometry(300, 100, 100, 100);
        for (TouchKey* key : {&left_, &right_})
            key->setAction([this] {
                ++actions_;
                const EventGate::Entry entry{gate_, kind_};
                if (during_) during_();
            });
        window_.setKeyHandler([this](int number) { keys_.push_back(number); });
        window_.show();
        EXPECT_TRUE(QTest::qWaitForWindowExposed(&window_));
        letEventsPass();
    }
    QWindow* window() { return window_.windowHandle(); }
    // As a window system does it: the events wait until the event loop comes to them.
    void queueTap(QPoint at)
    {
        queue(at, Qt::LeftButton, QEvent::MouseButtonPress);
        queue(at, Qt::NoButton, QEvent::MouseButtonRelease);
    }
    void queue(QPoint at, Qt::MouseButtons buttons, QEvent::Type type)
    {
        QMetaObject::invokeMethod(
            &window_,
            [=, this] {
                qt_handleMouseEvent(
                    window(), at, window()->mapToGlobal(at), buttons, Qt::LeftButton, type, {}, 0);
            },
            Qt::QueuedConnection);
    }
    static constexpr QPoint onLeft{150, 150};
    static constexpr QPoint onRight{350, 150};

    EventGate gate_;
    PanelWindow window_{{800, 600}, PanelWindow::Zoom::None};
    TouchKey& left_ = *new TouchKey{&window_.stage()};
    TouchKey& right_ = *new TouchKey{&window_.stage()};
    int touches_ = 0;
    InputGuard guard_{window_, gate_, [this](std::optional<QPoint>) { ++touches_; }};
    int actions_ = 0;
    EventGate::Entry::Kind kind_ = EventGate::Entry::Kind::Action;
    std::function<void()> during_;
    std::vector<int> keys_;
};

} // namespace

TEST_F(InputGuardTest, OfAStormOnlyTheFirstTouchCounts)
{
    for (int i = 0; i < 300; ++i)
        queueTap(onLeft);
    letEventsPass();
    EXPECT_EQ(actions_, 1);
    // What comes afterwards is meant for what is now on the screen.
    queueTap(onLeft);
    letEventsPass();
    EXPECT_EQ(actions_, 2);
}

TEST_F(InputGuardTest, ATouchThatCameWhileAProcedureRanIsDroppedAsAWhole)
{
    during_ = [this] {
        // Comes while the procedure keeps the panel busy; its end comes much later.
        queue(onRight, Qt::LeftButton, QEvent::MouseButtonPress);
        during_ = nullptr;
    };
    queueTap(onLeft);
    letEventsPass();
    EXPECT_EQ(actions_, 1);
    EXPECT_FALSE(right_.isDown());
    queue(onRight, Qt::NoButton, QEvent::MouseButtonRelease);
    letEventsPass();
    EXPECT_EQ(actions_, 1);
    queueTap(onRight);
    letEventsPass();
    EXPECT_EQ(actions_, 2);
}

TEST_F(InputGuardTest, TheEndOfATouchIsNeverLost)
{
    // The press starts a procedure, as an input does; the finger is lifted while it runs.
    right_.setRepeating(true);
    during_ = [this] { queue(onRight, Qt::NoButton, QEvent::MouseButtonRelease); };
    queue(onRight, Qt::LeftButton, QEvent::MouseButtonPress);
    letEventsPass();
    EXPECT_FALSE(right_.isDown());
}

TEST_F(InputGuardTest, ARefreshCostsNoTouch)
{
    kind_ = EventGate::Entry::Kind::Refresh;
    queueTap(onLeft);
    queueTap(onRight);
    letEventsPass();
    EXPECT_EQ(actions_, 2);
}

TEST_F(InputGuardTest, AMessageIsNotReadByTouchesFromBefore)
{
    gate_.close();
    queueTap(onLeft);
    letEventsPass();
    EXPECT_EQ(actions_, 0);
    queueTap(onLeft);
    letEventsPass();
    EXPECT_EQ(actions_, 1);
    gate_.open();
}

TEST_F(InputGuardTest, OfTwoFunctionKeysTheFirstCountsUntilItIsReleased)
{
    QTest::keyPress(window(), Qt::Key_F5);
    QTest::keyPress(window(), Qt::Key_F6);
    EXPECT_EQ(keys_, (std::vector{5}));
    QTest::keyRelease(window(), Qt::Key_F5);
    QTest::keyRelease(window(), Qt::Key_F6);
    QTest::keyClick(window(), Qt::Key_F6);
    EXPECT_EQ(keys_, (std::vector{5, 6}));
}

TEST_F(InputGuardTest, AFunctionKeyAndATouchTogetherAreTheFirstOfThem)
{
    QTest::keyPress(window(), Qt::Key_F5);
    QTest::mouseClick(window(), Qt::LeftButton, {}, onLeft);
    QTest::keyRelease(window(), Qt::Key_F5);
    EXPECT_EQ(actions_, 0);
    EXPECT_EQ(keys_, (std::vector{5}));
    QTest::mousePress(window(), Qt::LeftButton, {}, onLeft);
    QTest::keyClick(window(), Qt::Key_F6);
    QTest::mouseRelease(window(), Qt::LeftButton, {}, onLeft);
    EXPECT_EQ(actions_, 1);
    EXPECT_EQ(keys_, (std::vector{5}));
}

TEST_F(InputGuardTest, DigitsMayOverlapAsFastTypistsDo)
{
    QString typed;
    class Typed : public QWidget {
    public:
        Typed(QWidget* parent, QString& into)
            : QWidget{parent}
            , into_{into}
        {
            setFocusPolicy(Qt::StrongFocus);
        }

    protected:
        void keyPressEvent(QKeyEvent* event) override { into_ += event->text(); }

    private:
        QString& into_;
    };
    auto* target = new Typed{&window_.stage(), typed};
    target->show();
    target->setFocus();
    letEventsPass();
    QTest::keyPress(window(), Qt::Key_1);
    QTest::keyPress(window(), Qt::Key_2);
    QTest::keyRelease(window(), Qt::Key_1);
    QTest::keyRelease(window(), Qt::Key_2);
    EXPECT_EQ(typed, "12");
}

TEST_F(InputGuardTest, AQuickSecondTouchCounts)
{
    // The window system tells of it as a press and a double click.
    queueTap(onLeft);
    letEventsPass();
    queueTap(onLeft);
    letEventsPass();
    EXPECT_EQ(actions_, 2);
}

TEST_F(InputGuardTest, TellsOfEveryTouchThatCounts)
{
    QTest::mouseClick(window(), Qt::LeftButton, {}, onLeft);
    letEventsPass();
    QTest::keyClick(window(), Qt::Key_F5);
    EXPECT_EQ(touches_, 2);
}

TEST_F(InputGuardTest, ASecondButtonIsLeftOutAsAWhole)
{
    class Seen : public QWidget {
    public:
        using QWidget::QWidget;
        int releases = 0;

    protected:
        void mousePressEvent(QMouseEvent* event) override { event->accept(); }
        void mouseReleaseEvent(QMouseEvent*) override { ++releases; }
    };
    auto* target = new Seen{&window_.stage()};
    target->setGeometry(100, 300, 100, 100);
    target->show();
    const QPoint on{150, 350};
    const auto mouse = [&](Qt::MouseButtons buttons, Qt::MouseButton button, QEvent::Type type) {
        qt_handleMouseEvent(window(), on, window()->mapToGlobal(on), buttons, button, type, {}, 0);
        letEventsPass();
    };
    mouse(Qt::LeftButton, Qt::LeftButton, QEvent::MouseButtonPress);
    mouse(Qt::LeftButton | Qt::RightButton, Qt::RightButton, QEvent::MouseButtonPress);
    mouse(Qt::LeftButton, Qt::RightButton, QEvent::MouseButtonRelease);
    EXPECT_EQ(target->releases, 0);
    mouse(Qt::NoButton, Qt::LeftButton, QEvent::MouseButtonRelease);
    EXPECT_EQ(target->releases, 1);
}
