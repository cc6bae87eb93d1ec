// A project that is changed while the panel runs.
#include "panel/program/session.h"

#include "journal/journal_reader.h"
#include "panel/program/reload_request.h"
#include "portable/temporary_folder.h"
#include "support/full_disk.h"
#include "support/standard_project.h"
#include "test_project.h"

#include <gtest/gtest.h>

#include <QProcess>

#include <cerrno>
#include <csignal>
#include <sys/resource.h>
#include <system_error>

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
    void SetUp() override { start(project_.settings()); }
    void start(const panel::PanelSettings& settings)
    {
        session_ = std::make_unique<Session>(
            settings,
            [this](Panel& panel) {
                ++shows_;
                reader_ = std::make_unique<servopanel::testing::MessageReader>(panel);
                panel.window().show();
                ASSERT_TRUE(QTest::qWaitForWindowExposed(&panel.window()));
                panel.openServo();
                hands_ = std::make_unique<Operator>(panel);
            },
            [this](const std::string& reason) {
                reader_.reset();
                hands_.reset();
                ended_ = reason;
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
    std::string ended_;
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

TEST_F(SessionTest, TheJournalGoesOn)
{
    session_.reset();
    const servopanel::tests::TemporaryFolder folder;
    panel::PanelSettings settings = project_.settings();
    settings.journal = folder.path();
    start(settings);
    const auto confirm = [&](const char* number) {
        hands_->input("SollwertL", 1);
        hands_->type(number);
        hands_->ok();
        hands_->footerKey(10);
    };
    hands_->menuKey(1);
    {
        // What waits while the disk is full survives the panel.
        const servopanel::testing::FullDisk full;
        confirm("42.5");
        ASSERT_TRUE(reloads());
    }
    confirm("43.5");
    const journal::Journal journal = journal::readJournal(folder.path());
    EXPECT_TRUE(journal.problems.empty());
    std::string changes;
    for (const journal::Entry& entry : journal.entries)
        if (entry.variable == setpoints) changes.append(entry.newValue.dump()).append(" ");
    EXPECT_EQ(changes, "42.5 43.5 ");
    EXPECT_FALSE(isReported("another program is writing"));
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

// Between the two somebody may have replaced the folder.
TEST_F(SessionTest, APanelTakesTheProjectFileThatWasRead)
{
    panel::PanelSettings settings = project_.settings();
    settings.file = Panel::loadProject(settings.project);
    project_.remove("project.json");
    const Panel panel{settings};
    EXPECT_EQ(panel.project().title, "Test");
}

TEST_F(SessionTest, APanelThatCannotBeMadeOfTheNewProjectComesBackWithTheOld)
{
    panel::PanelSettings settings = project_.settings();
    int panels = 0;
    settings.wrapVariables = [&](auto own) {
        if (++panels == 2) throw panel::CannotStart{"the machine is not there"};
        return own;
    };
    start(settings);
    retitle("Changed");
    ASSERT_TRUE(reloads());
    EXPECT_EQ(title(), "Test");
    EXPECT_EQ(session_->panel().shownPart()->className(), "ServoMenu");
    EXPECT_TRUE(isReported("the machine is not there"));
    EXPECT_TRUE(isReported("The project was not read anew"));
}

TEST_F(SessionTest, EndsWithAReasonWhenNoPanelCanBeMadeAnyMore)
{
    panel::PanelSettings settings = project_.settings();
    int panels = 0;
    settings.wrapVariables = [&](auto own) {
        if (++panels > 1) throw std::runtime_error{"the machine is not there"};
        return own;
    };
    start(settings);
    session_->reload();
    ASSERT_TRUE(QTest::qWaitFor([&] { return session_->hasEnded(); }, 5000));
    EXPECT_EQ(ended_, "the machine is not there");
    EXPECT_EQ(shows_, 2); // of this test's set-up and its own
    session_->reload();
    EXPECT_FALSE(session_->isWaiting());
}

TEST_F(SessionTest, GoesOnWithoutATraceThatCannotBeWrittenAnyMore)
{
    panel::PanelSettings settings = project_.settings();
    settings.trace = project_.file("traces/today.trace");
    std::filesystem::create_directories(settings.trace.parent_path());
    start(settings);
    std::filesystem::remove_all(settings.trace.parent_path());
    retitle("Changed");
    ASSERT_TRUE(reloads());
    EXPECT_EQ(title(), "Changed");
    EXPECT_TRUE(isReported("the trace cannot be written"));
}

// The first message waits for its reader before the session is there.
TEST_F(SessionTest, TheSignalIsKeptWhileTheFirstMessageIsOpen)
{
    project_.remove("Servo/ServoMenu_1280.bmp"); // of which there is a message
    const std::filesystem::path trace = project_.file("trace");
    const auto isInTrace = [&](const std::string& text) {
        std::ifstream in{trace};
        const std::string all{std::istreambuf_iterator<char>{in}, {}};
        return all.find(text) != std::string::npos;
    };
    QProcess program;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert("QT_QPA_PLATFORM", "offscreen");
    environment.insert("TEMPVELM", QString::fromStdString(project_.file("temporary").string()));
    program.setProcessEnvironment(environment);
    program.start(SERVO_PANEL,
        {QString::fromStdString(project_.folder().string()), "--trace",
            QString::fromStdString(trace.string())});
    ASSERT_TRUE(QTest::qWaitFor([&] { return isInTrace("message \""); }, 20000));
    kill(static_cast<pid_t>(program.processId()), SIGHUP);
    EXPECT_FALSE(program.waitForFinished(1000));
    EXPECT_EQ(program.state(), QProcess::Running);
    program.kill();
    program.waitForFinished();
}

// A tour knows no reload at all; like every start before its first screen.
TEST_F(SessionTest, TheSignalEndsNothingWhereNobodyWaitsForIt)
{
    const std::filesystem::path trace = project_.file("trace");
    QProcess program;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert("QT_QPA_PLATFORM", "offscreen");
    program.setProcessEnvironment(environment);
    program.start(SERVO_PANEL,
        {QString::fromStdString(project_.folder().string()), "--trace",
            QString::fromStdString(trace.string()), "--tour",
            QString::fromStdString(project_.file("tour").string())});
    ASSERT_TRUE(QTest::qWaitFor([&] { return std::filesystem::exists(trace); }, 20000));
    kill(static_cast<pid_t>(program.processId()), SIGHUP);
    EXPECT_FALSE(program.waitForFinished(500) && program.exitStatus() == QProcess::CrashExit);
    program.kill();
    program.waitForFinished();
}

TEST_F(SessionTest, TheSignalLeavesTheErrorOfWhatItInterruptsAlone)
{
    const panel::ReloadRequest request{[] {}};
    // More than a pipe holds: what does not fit is an error in the handler.
    for (int i = 0; i < 100'000; ++i) {
        errno = ENOENT;
        std::raise(SIGHUP);
        ASSERT_EQ(errno, ENOENT) << i;
    }
}

TEST_F(SessionTest, ASystemWithoutAPipeForTheSignalIsSaid)
{
    rlimit before{};
    ASSERT_EQ(::getrlimit(RLIMIT_NOFILE, &before), 0);
    const rlimit none{0, before.rlim_max};
    ASSERT_EQ(::setrlimit(RLIMIT_NOFILE, &none), 0);
    EXPECT_THROW(panel::ReloadRequest{[] {}}, std::system_error);
    ASSERT_EQ(::setrlimit(RLIMIT_NOFILE, &before), 0);
    EXPECT_NO_THROW(panel::ReloadRequest{[] {}});
}

TEST_F(SessionTest, TheSignalAsksForIt)
{
    const panel::ReloadRequest request{[this] { session_->reload(); }};
    retitle("Changed");
    ASSERT_EQ(std::raise(SIGHUP), 0);
    ASSERT_TRUE(QTest::qWaitFor([&] { return title() == "Changed"; }, 5000));
}
