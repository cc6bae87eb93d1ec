// A project that is changed while the panel runs.
#include "panel/program/session.h"

#include "panel/program/reload_request.h"
#include "support/standard_project.h"
#include "test_project.h"

#include <gtest/gtest.h>

#include <csignal>

using namespace servopanel;
using basic::Variant;
using panel::Operator;
using panel::Panel;
using panel::Session;
using servopanel::testing::TestProject;

namespace {

constexpr std::string_view setpoints = "Ch1.M1_T_servo_3<.mM1_servo_para_3>";

class SessionTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        session_ = std::make_unique<Session>(project_.settings(), [this](Panel& panel) {
            ++shows_;
            reader_ = std::make_unique<servopanel::testing::MessageReader>(panel);
            panel.window().show();
            ASSERT_TRUE(QTest::qWaitForWindowExposed(&panel.window()));
            panel.openServo();
            hands_ = std::make_unique<Operator>(panel);
        });
    }
    std::string projectJson() const
    {
        std::ifstream in{project_.file("project.json")};
        return {std::istreambuf_iterator<char>{in}, {}};
    }
    void retitle(const std::string& title)
    {
        std::string text = projectJson();
        text.replace(text.find("\"Test\""), 6, '"' + title + '"');
        project_.write("project.json", text);
    }
    std::string title() { return session_->panel().project().title; }
    bool isReported(const std::string& part)
    {
        for (const auto& entry : session_->panel().errors().entries())
            if (entry.text.contains(QString::fromStdString(part))) return true;
        return false;
    }
    bool reloads()
    {
        const int before = shows_;
        session_->reload();
        return QTest::qWaitFor([&] { return shows_ > before; }, 5000);
    }

    TestProject project_{servopanel::testing::standardProject};
    int shows_ = 0;
    std::unique_ptr<Session> session_;
    std::unique_ptr<servopanel::testing::MessageReader> reader_;
    std::unique_ptr<Operator> hands_;
};

} // namespace

TEST_F(SessionTest, ReadsAChangedProjectAnew)
{
    retitle("Changed");
    EXPECT_EQ(title(), "Test");
    ASSERT_TRUE(reloads());
    EXPECT_EQ(title(), "Changed");
}

TEST_F(SessionTest, ComesBackToTheServoWithItsValues)
{
    hands_->menuKey(1);
    hands_->input("SollwertL", 1);
    hands_->type("42.5");
    hands_->ok();
    hands_->footerKey(10);
    const Variant written = *session_->panel().variables().find(setpoints);
    retitle("Changed");
    ASSERT_TRUE(reloads());
    EXPECT_EQ(session_->panel().shownPart()->className(), "ServoMain");
    EXPECT_EQ(*session_->panel().variables().find(setpoints), written);
}

TEST_F(SessionTest, WaitsUntilChangedValuesAreConfirmed)
{
    hands_->menuKey(1);
    hands_->input("SollwertL", 1);
    hands_->type("42.5");
    hands_->ok();
    retitle("Changed");
    session_->reload();
    QTest::qWait(1200);
    EXPECT_EQ(title(), "Test");
    EXPECT_TRUE(session_->isWaiting());
    EXPECT_TRUE(isReported("once all inputs are finished"));
    hands_->footerKey(10);
    ASSERT_TRUE(QTest::qWaitFor([&] { return title() == "Changed"; }, 5000));
    EXPECT_FALSE(session_->isWaiting());
}

TEST_F(SessionTest, WaitsWhileTheMaskIsOpen)
{
    hands_->menuKey(1);
    hands_->input("SollwertL", 1);
    session_->reload();
    QTest::qWait(1200);
    EXPECT_EQ(shows_, 1);
    hands_->cancel();
    EXPECT_TRUE(QTest::qWaitFor([&] { return shows_ == 2; }, 5000));
}

TEST_F(SessionTest, AProjectThatBreaksOffChangesNothing)
{
    project_.write("project.json", projectJson().substr(0, 200));
    session_->reload();
    ASSERT_TRUE(QTest::qWaitFor([&] { return !session_->isWaiting(); }, 5000));
    EXPECT_EQ(shows_, 1);
    EXPECT_EQ(title(), "Test");
    EXPECT_TRUE(isReported("The project was not read anew"));
    EXPECT_TRUE(isReported("project.json"));
}

TEST_F(SessionTest, AProjectThatHasGoneChangesNothing)
{
    project_.remove("project.json");
    session_->reload();
    ASSERT_TRUE(QTest::qWaitFor([&] { return !session_->isWaiting(); }, 5000));
    EXPECT_EQ(shows_, 1);
    EXPECT_TRUE(isReported("it has no project.json"));
}

TEST_F(SessionTest, TheSignalAsksForIt)
{
    const panel::ReloadRequest request{[this] { session_->reload(); }};
    retitle("Changed");
    ASSERT_EQ(std::raise(SIGHUP), 0);
    ASSERT_TRUE(QTest::qWaitFor([&] { return title() == "Changed"; }, 5000));
}
