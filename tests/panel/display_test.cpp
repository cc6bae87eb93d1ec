#include "panel/program/display.h"

#include "support/standard_project.h"
#include "test_project.h"

#include <gtest/gtest.h>

#include <QFileInfo>
#include <QProcess>
#include <QStandardPaths>
#include <QTest>
#include <QWidget>

using servopanel::panel::placeOnScreen;

namespace {
constexpr QRect screen{0, 0, 1280, 1024};
}

TEST(Display, AWindowThatFillsTheScreenFollowsItsSize)
{
    EXPECT_EQ(placeOnScreen({0, 0, 1280, 1024}, {0, 0, 1920, 1080}, true), (QRect{0, 0, 1920, 1080}));
    EXPECT_EQ(placeOnScreen({1920, 0, 1280, 1024}, screen, true), screen);
}

TEST(Display, AWindowStaysWhereItIsWhileItsScreenIsThere)
{
    EXPECT_EQ(placeOnScreen({100, 50, 800, 600}, screen, false), (QRect{100, 50, 800, 600}));
}

TEST(Display, AWindowComesBackFromAScreenThatHasGone)
{
    EXPECT_EQ(placeOnScreen({2000, 300, 800, 600}, screen, false), (QRect{240, 212, 800, 600}));
    // Too large for what is left: its upper left corner is seen.
    EXPECT_EQ(placeOnScreen({2000, 300, 1280, 1024}, {0, 0, 800, 600}, false), (QRect{0, 0, 1280, 1024}));
}

TEST(Display, WithoutAnyScreenNothingMoves)
{
    EXPECT_EQ(placeOnScreen({100, 50, 800, 600}, {}, true), (QRect{100, 50, 800, 600}));
}

namespace {

// A line of what a process says, "" when it says none in time.
QByteArray lineOf(QProcess& process)
{
    constexpr int longest = 20000; // milliseconds
    while (!process.canReadLine())
        if (!process.waitForReadyRead(longest)) return {};
    return process.readLine().trimmed();
}

} // namespace

// The supervisor of a kiosk goes by the status, and whoever looks after it by the line.
TEST(Display, AnXServerThatEndsEndsThePanelWithAWord)
{
    const QString server = QStandardPaths::findExecutable(QStringLiteral("Xvfb"));
    ASSERT_FALSE(server.isEmpty()) << "the package xvfb is missing";
    QProcess display;
    display.setStandardErrorFile(QProcess::nullDevice());
    display.start(server, {"-displayfd", "1", "-screen", "0", "1280x1024x24", "-nolisten", "tcp"});
    const QByteArray number = lineOf(display);
    ASSERT_FALSE(number.isEmpty());

    const servopanel::testing::TestProject project{servopanel::testing::standardProject};
    const QString trace = QString::fromStdString(project.file("trace").string());
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert("DISPLAY", ':' + number);
    environment.insert("QT_QPA_PLATFORM", "xcb");
    environment.remove("WAYLAND_DISPLAY");
    QProcess panel;
    panel.setProcessEnvironment(environment);
    panel.start(SERVO_PANEL, {"--trace", trace, QString::fromStdString(project.folder().string())});
    // The screen opens once the window is there.
    ASSERT_TRUE(QTest::qWaitFor([&] { return QFileInfo{trace}.size() > 0; }, 20000))
        << panel.readAllStandardError().toStdString();
    ASSERT_EQ(panel.state(), QProcess::Running);

    display.kill();
    ASSERT_TRUE(display.waitForFinished());
    ASSERT_TRUE(panel.waitForFinished(20000));
    EXPECT_EQ(panel.exitStatus(), QProcess::NormalExit);
    EXPECT_EQ(panel.exitCode(), 1);
    const QByteArray said = panel.readAllStandardError();
    EXPECT_TRUE(said.contains("servo-panel: the display has gone away, the panel ends\n"))
        << said.toStdString();
}
