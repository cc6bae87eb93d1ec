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

} // namespace servopanel::testing
