// Keys of a keyboard as the system delivers them to the panel's window, which has to find out what they are meant for.
#include "test_project.h"

#include "panel/form/control_host.h"
#include "panel/form/eingabemaske.h"
#include "panel/form/fusszeile.h"
#include "panel/form/text_child.h"
#include "panel/widgets/message_sheet.h"
#include "support/standard_project.h"

#include <gtest/gtest.h>

#include <QWindow>

using namespace servopanel;
using panel::Panel;
using panel::PanelWindow;

namespace {

class Keyboard : public ::testing::TestWithParam<PanelWindow::Zoom> {
protected:
    Keyboard()
    {
        panel::PanelSettings settings = project_.settings();
        settings.zoom = GetParam();
        panel_ = std::make_unique<Panel>(settings);
        reader_ = std::make_unique<servopanel::testing::MessageReader>(*panel_);
        if (GetParam() == PanelWindow::Zoom::ToWindow) panel_->window().resize(1600, 900);
        panel_->window().show();
        panel_->window().activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&panel_->window()));
        panel_->openServo();
        hands_ = std::make_unique<panel::Operator>(*panel_);
        hands_->menuKey(1);
        reader_.reset();
    }
    QWindow* window() { return panel_->window().windowHandle(); }
    void type(const std::string& keys)
    {
        for (const char key : keys)
            QTest::keyClick(window(), key);
        hands_->wait(20);
    }
    void press(Qt::Key key)
    {
        QTest::keyClick(window(), key);
        hands_->wait(20);
    }
    panel::EingabemaskeChild& mask()
    {
        return panel_->shownPart()->require<panel::EingabemaskeChild>("Eingabemaske");
    }
    panel::TextView& field(std::int16_t index)
    {
        return panel_->shownPart()->require<panel::TextChild>("SollwertL", index).shownText();
    }

    servopanel::testing::TestProject project_{servopanel::testing::standardProject};
    std::unique_ptr<Panel> panel_;
    std::unique_ptr<servopanel::testing::MessageReader> reader_;
    std::unique_ptr<panel::Operator> hands_;
};

} // namespace

INSTANTIATE_TEST_SUITE_P(Windows, Keyboard,
    ::testing::Values(PanelWindow::Zoom::None, PanelWindow::Zoom::ToWindow),
    [](const auto& of) { return of.param == PanelWindow::Zoom::None ? "AsItIs" : "Zoomed"; });

TEST_P(Keyboard, ANumberGoesIntoTheMaskThatATouchHasOpened)
{
    hands_->input("SollwertL", 1);
    type("42.5");
    EXPECT_EQ(mask().mask().shown(), "42.5 mm");
    press(Qt::Key_Return);
    EXPECT_FALSE(mask().isOpen());
    EXPECT_EQ(field(1).text(), "42.5");
    EXPECT_TRUE(field(1).marks().changed);
}

TEST_P(Keyboard, EscLeavesTheMaskAndNothingElse)
{
    const QString before = field(1).text();
    hands_->input("SollwertL", 1);
    type("7");
    press(Qt::Key_Escape);
    EXPECT_FALSE(mask().isOpen());
    EXPECT_EQ(field(1).text(), before);
    EXPECT_EQ(panel_->shownPart()->className(), platform::classes::ServoMain);
}

TEST_P(Keyboard, TheNextFieldTakesKeysToo)
{
    hands_->input("SollwertL", 1);
    type("42.5");
    press(Qt::Key_Enter);
    hands_->input("SollwertL", 21);
    type("12");
    press(Qt::Key_Enter);
    EXPECT_EQ(field(21).text(), "12");
}

TEST_P(Keyboard, FunctionKeysWorkAfterTheMask)
{
    hands_->input("SollwertL", 1);
    type("42.5");
    press(Qt::Key_Return);
    press(Qt::Key_F10);
    EXPECT_EQ(panel_->answers().text(), "Written, values: 1");
    press(Qt::Key_Escape);
    EXPECT_EQ(panel_->shownPart()->className(), platform::classes::ServoMenu);
}

TEST_P(Keyboard, AMessageTakesTheKeysAndGivesThemBack)
{
    hands_->input("SollwertL", 1);
    type("42");
    auto* message = new panel::MessageSheet{&panel_->window().stage(), "Title", "Something is missing", "OK"};
    QTimer::singleShot(20, message, [&] { QTest::keyClick(window(), Qt::Key_Return); });
    message->run();
    delete message;
    ASSERT_TRUE(mask().isOpen());
    type(".5");
    EXPECT_EQ(mask().mask().shown(), "42.5 mm");
    press(Qt::Key_Return);
    EXPECT_FALSE(mask().isOpen());
    EXPECT_EQ(field(1).text(), "42.5");
}

TEST_P(Keyboard, EscClosesWhatLiesOnThePageFirst)
{
    panel_->note("something");
    panel_->errors().open();
    press(Qt::Key_Escape);
    EXPECT_FALSE(panel_->errors().isOpen());
    EXPECT_EQ(panel_->shownPart()->className(), platform::classes::ServoMain);
    press(Qt::Key_Escape);
    EXPECT_EQ(panel_->shownPart()->className(), platform::classes::ServoMenu);
}
