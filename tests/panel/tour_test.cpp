// What the tour does beside its steps.
#include "test_project.h"

#include "panel/tour/tour.h"
#include "portable/temporary_folder.h"
#include "support/standard_project.h"

#include <gtest/gtest.h>

using namespace servopanel;
using servopanel::testing::standardProject;
using servopanel::testing::TestProject;

namespace {

struct Played {
    int status = -1;
    std::string said;
    std::string complained;
};

enum class Screen { Open, Closed };

// Nobody looks, so it does not wait.
Played play(const TestProject& project, Screen screen = Screen::Open)
{
    panel::Panel panel{project.settings()};
    panel.window().show();
    ::testing::internal::CaptureStdout();
    ::testing::internal::CaptureStderr();
    panel::Tour tour{panel, project.file("pictures"), {.settle = 0, .look = 0, .curve = 0}};
    if (screen == Screen::Open) panel.openServo();
    Played played;
    played.status = tour.play();
    played.said = ::testing::internal::GetCapturedStdout();
    played.complained = ::testing::internal::GetCapturedStderr();
    return played;
}

} // namespace

TEST(Tour, GoesToTheMenuFromThePageOfAServo)
{
    const TestProject project{standardProject + "\nvar Ch-1.intern<.servo_zeiger> = 2\n"};
    panel::Panel panel{project.settings()};
    panel.window().show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&panel.window()));
    panel.openServo();
    ASSERT_NE(panel.shownPart(), nullptr);
    ASSERT_EQ(panel.shownPart()->className(), "ServoMain");
    panel::Operator hands{panel};
    hands.goToMenu();
    ASSERT_NE(panel.shownPart(), nullptr);
    EXPECT_EQ(panel.shownPart()->className(), "ServoMenu");
    // Where the menu is shown already, nothing is touched.
    hands.goToMenu();
    EXPECT_EQ(panel.shownPart()->className(), "ServoMenu");
}

TEST(Tour, PlaysToItsEnd)
{
    const Played played = play(TestProject{standardProject});
    EXPECT_EQ(played.status, 0);
    EXPECT_EQ(played.complained, "");
    // The definitions of the second servo show none.
    EXPECT_NE(played.said.find("left out: setpoints, none can be changed"), std::string::npos) << played.said;
    EXPECT_TRUE(played.said.ends_with(" back\n")) << played.said;
}

TEST(Tour, LeavesOutTheMenuOfAProjectWithoutOne)
{
    const TestProject project{standardProject};
    project.replaceInFile("Parameter/Program.ini", "ServoWithMenu=TRUE", "ServoWithMenu=FALSE");
    const Played played = play(project);
    EXPECT_EQ(played.status, 0) << played.complained;
    EXPECT_TRUE(played.said.starts_with("   left out: the menu, this project has none\n01 parameter-page\n"))
        << played.said;
    EXPECT_EQ(played.said.find("menu-at-the-end"), std::string::npos) << played.said;
    EXPECT_TRUE(played.said.ends_with(" back\n")) << played.said;
}

TEST(Tour, LeavesOutWhatAServoDoesNotHave)
{
    TestProject project{standardProject};
    project.addEmptyTexts();
    project.replaceInFile(
        "project.json", R"("parameter<.servo_anzahl_1>": 3)", R"("parameter<.servo_anzahl_1>": 1)");
    const Played played = play(project);
    EXPECT_EQ(played.status, 0) << played.complained;
    for (const char* part :
        {"trends, no value of this page has one", "neighbours, the machine has one servo"})
        EXPECT_NE(played.said.find(std::string{"   left out: "} + part + "\n"), std::string::npos)
            << part << "\n"
            << played.said;
}

TEST(Tour, SaysWhatItDidNotFind)
{
    const Played played = play(TestProject{standardProject}, Screen::Closed);
    EXPECT_EQ(played.status, 1);
    EXPECT_EQ(played.complained, "servo-panel: step 1 of the tour did not find the menu of servos\n");
}

TEST(Tour, ReadsMessagesAndKeepsAPictureOfEach)
{
    const TestProject project{servopanel::testing::standardProject};
    project.remove("Servo/ServoMenu_1280.bmp");
    panel::Panel panel{project.settings()};
    panel.window().show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&panel.window()));
    const std::filesystem::path pictures = project.file("pictures");
    const panel::Tour tour{panel, pictures};
    // Where nobody reads the message, the test shall end all the same.
    QTimer::singleShot(3000, &panel.window(), [&] {
        if (panel::MessageSheet* message = servopanel::testing::openMessage(panel))
            QTest::mouseClick(&message->okKey(), Qt::LeftButton);
    });
    panel.openServo();
    EXPECT_TRUE(std::filesystem::exists(pictures / "01-message.png"));
    ASSERT_NE(panel.shownPart(), nullptr);
    EXPECT_EQ(panel.shownPart()->className(), "ServoMenu");
}
