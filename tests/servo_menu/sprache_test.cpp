#include "servo_menu/menu_project.h"
#include "support/replay_fixture.h"

namespace servopanel::testing {

class MenuSprache : public ReplayFixture { };

TEST_F(MenuSprache, ChangesFontsFirstThenTheCaptions)
{
    run(menuProject(2));
    run("create\nshow\ntext Servo.M1.Servo1.0 = Antrieb 1");
    run("language 2");
    const std::string lines =
        replay.lines({"put ServoMenu.SpracheGeandert", "put ServoMenu.Überschrift.Font.Weight",
            "text Servo.M1.Servo1.0", "put ServoMenu.Beschriftung(1).Caption"});
    EXPECT_EQ(lines,
        "put ServoMenu.SpracheGeandert = 2\n"
        "put ServoMenu.Überschrift.Font.Weight = 400\n"
        "text Servo.M1.Servo1.0 = \"Antrieb 1\"\n"
        "put ServoMenu.Beschriftung(1).Caption = \"Antrieb 1\"\n");
}

TEST_F(MenuSprache, AsksForTextsOfEmptyKeysToo)
{
    run(menuProject(2));
    run("create\nshow");
    EXPECT_NE(replay.lines("text Servo.M1.Servo0.0"), "");
}

TEST_F(MenuSprache, LeavesTheTextsOfAPageThatIsGivenUpToTheNextBuild)
{
    run(menuProject(10));
    run("create\non pump scroll 2\non pump language 2");
    run("show");
    // Servo 10 stands on a key at position 2 only.
    EXPECT_EQ(replay.lines("text Servo.M1.Servo10.0"), "text Servo.M1.Servo10.0 = \"Drive 10\"\n");
    EXPECT_NE(replay.lines("put ServoMenu.Überschrift.Font.Weight"), "");
}

} // namespace servopanel::testing
