#include "servo_menu/menu_project.h"
#include "support/replay_fixture.h"

namespace servopanel::testing {

class ServoEreignisse : public ReplayFixture {
protected:
    void pageOpened()
    {
        run(menuProject(2));
        run("create\nshow\ndown 200 2400\nup 200 2400");
    }
};

TEST_F(ServoEreignisse, ShowTheMenuAgainAsItIsWhenItWasShownBefore)
{
    pageOpened();
    run("key! 11");
    EXPECT_EQ(replay.lines({"raise", "put ServoMain.Visible", "put ServoMenu", "text"}),
        "raise ServoMain.MenuAnzeigen()\nput ServoMain.Visible = false\nput ServoMenu.Visible = true\n");
}

TEST_F(ServoEreignisse, BuildTheMenuWhenItIsAskedForTheFirstTime)
{
    run(menuProject(2) + "var Ch-1.intern<.servo_zeiger> = 1\n");
    run("create\nshow");
    run("key! 11");
    EXPECT_EQ(replay.lines({"raise", "put ServoMain.Visible", "put ServoMenu.Visible",
                  "put ServoMenu.BildInit", "put ServoMenu.BildShow"}),
        "raise ServoMain.MenuAnzeigen()\nput ServoMain.Visible = false\nput ServoMenu.BildInit = true\n"
        "put ServoMenu.BildShow = true\nraise ServoMenu.JetztAnzeigen()\nput ServoMenu.Visible = true\n");
}

TEST_F(ServoEreignisse, FillThePageAnewForEachChoiceButBuildItOnce)
{
    pageOpened();
    run("key! 11\ndown 9300 2400");
    run("up 9300 2400");
    EXPECT_EQ(replay.lines({"put ServoMain.Bild", "raise ServoMain"}),
        "put ServoMain.BildShow = true\nraise ServoMain.JetztAnzeigen()\n");
}

TEST_F(ServoEreignisse, PassALanguageToTheVisibleChildOnly)
{
    pageOpened();
    run("language 2");
    EXPECT_EQ(replay.lines({"put ServoMain.SpracheGeandert", "put ServoMenu.SpracheGeandert"}),
        "put ServoMain.SpracheGeandert = 2\n");
    run("key! 11");
    run("language 1");
    EXPECT_EQ(replay.lines({"put ServoMain.SpracheGeandert", "put ServoMenu.SpracheGeandert"}),
        "put ServoMenu.SpracheGeandert = 1\n");
}

// The servo is not forgotten on the way to the menu.
TEST_F(ServoEreignisse, BringThePageOverTheMenuWhenTheControlIsShownAgain)
{
    pageOpened();
    run("key! 11");
    run("show");
    EXPECT_EQ(replay.lines({"put ServoMain.Visible", "put ServoMenu.Visible", "put ServoMain.BildShow",
                  "put ServoMenu.BildShow"}),
        "put ServoMain.BildShow = true\nput ServoMain.Visible = true\n");
    // Both are visible now, so both are told.
    run("language 2");
    EXPECT_EQ(replay.lines({"put ServoMain.SpracheGeandert", "put ServoMenu.SpracheGeandert"}),
        "put ServoMain.SpracheGeandert = 2\nput ServoMenu.SpracheGeandert = 2\n");
}

TEST_F(ServoEreignisse, LeaveBothChildrenInvisibleUntilOneIsReady)
{
    run(menuProject(2));
    run("create\nget ServoMenu.Visible\nget ServoMain.Visible");
    EXPECT_EQ(replay.lines("state"), "state ServoMenu.Visible = false\nstate ServoMain.Visible = false\n");
}

} // namespace servopanel::testing
