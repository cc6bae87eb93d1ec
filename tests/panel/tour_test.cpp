// What the tour does beside its steps.
#include "test_project.h"

#include "panel/tour/tour.h"
#include "portable/temporary_folder.h"
#include "support/standard_project.h"

#include <gtest/gtest.h>

using namespace servopanel;
using servopanel::testing::standardProject;
using servopanel::testing::TestProject;

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

TEST(Tour, SaysThatThereIsNoMenu)
{
    const TestProject project{standardProject};
    std::string options = servopanel::tests::contentOf(project.file("Parameter/Program.ini"));
    const std::string with = "ServoWithMenu=TRUE";
    ASSERT_NE(options.find(with), std::string::npos);
    project.write(
        "Parameter/Program.ini", options.replace(options.find(with), with.size(), "ServoWithMenu=FALSE"));
    panel::Panel panel{project.settings()};
    panel.window().show();
    panel.openServo();
    ::testing::internal::CaptureStderr();
    EXPECT_EQ((panel::Tour{panel, project.file("pictures")}.play()), 1);
    EXPECT_EQ(::testing::internal::GetCapturedStderr(),
        "servo-panel: step 1 of the tour did not find the menu of servos\n");
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
