// What the tour does beside its steps.
#include "test_project.h"

#include "panel/tour/tour.h"
#include "support/standard_project.h"

#include <gtest/gtest.h>

using namespace servopanel;
using servopanel::testing::TestProject;

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
