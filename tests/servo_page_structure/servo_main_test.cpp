#include "basic/error.h"
#include "page_test.h"
#include "servo_page/servo_main.h"
#include "servo_page/structure/form.h"
#include "support/lone.h"

#include <set>
#include <utility>

namespace servopanel::testing {

namespace {

class ServoMainEntries : public PageTest { };

TEST_F(ServoMainEntries, GiveBackWhatWasPut)
{
    show();
    EXPECT_EQ(run("get ServoMain.BildInit\n"), "> get ServoMain.BildInit\nstate ServoMain.BildInit = true\n");
    EXPECT_EQ(run("get ServoMain.BildShow\n"), "> get ServoMain.BildShow\nstate ServoMain.BildShow = true\n");
}

TEST_F(ServoMainEntries, IgnoreAKeyWithoutAnAction)
{
    show();
    const std::string trace = run("key! 32767\n");
    EXPECT_EQ(trace, "> key! 32767\n");
}

TEST_F(ServoMainEntries, LetAScenarioChangeTheModifiedFlag)
{
    show();
    run("poke modified 1\nkey 10\n");
    // A modified flag that is not True confirms nothing and writes nothing, but it is not the way to the diagnosis.
    EXPECT_EQ(lines("write"), "");
    EXPECT_EQ(state("DetailBox.Visible"), "false");
}

TEST(ServoMainAtFirst, HasNotBeenBuiltOrShown)
{
    Lone<servo_page::ServoMain> page;
    EXPECT_EQ(page.control.BildInit(), 0);
    EXPECT_EQ(page.control.BildShow(), 0);
}

TEST(ServoMainAlone, KeepsTheNumbersThatWerePut)
{
    Lone<servo_page::ServoMain> page;
    page.control.BildInit(7);
    page.control.BildShow(3);
    EXPECT_EQ(page.control.BildInit(), 7);
    EXPECT_EQ(page.control.BildShow(), 3);
}

TEST(ServoMainAlone, RefusesATouchOfWhichAnArgumentIsNoNumber)
{
    Lone<servo_page::ServoMain> page;
    for (std::size_t i = 0; i < 4; ++i) {
        std::vector<basic::Variant> args(4, std::int16_t{1});
        args[i] = "none";
        page.surround.errors.reports.clear();
        EXPECT_TRUE(page.control.deliver({"ZeichnungR", 42}, "MouseDown", args));
        EXPECT_EQ(page.surround.reports(), (Reports{{13, "Ma ZeichnungR_MouseDown"}})) << i;
    }
}

// Both fail here, and tell their order.
TEST(ServoMainTerminate, StopsTheTimerThenClosesAnErrorDisplayThatGotReports)
{
    Lone<servo_page::ServoMain> page;
    const auto display = std::make_shared<FakeErrorDisplay>();
    display->fails = true;
    page.surround.zustand.FehlerAnzeige = display;
    page.fake("Timer")->missing = {"ENABLED"};
    page.control.terminate();
    EXPECT_EQ(display->closings, 0);
    page.surround.errors.reports.clear();
    page.surround.zustand.FehlerAnzahl = 1;
    page.control.terminate();
    EXPECT_EQ(display->closings, 1);
    EXPECT_EQ(page.surround.zustand.FehlerAnzeige, nullptr);
    EXPECT_EQ(page.surround.reports(),
        (Reports{{438, "Ma UserControl_Terminate"}, {91, "Ma UserControl_Terminate"}}));
}

TEST(ServoMainForm, HoldsEachChildOnceBelowWhatLiesOnIt)
{
    std::set<std::pair<std::string_view, std::int16_t>> seen;
    for (const platform::FormChild& child : servo_page::servoMainForm()) {
        const bool onAnother = !child.parent.name.empty();
        EXPECT_EQ(seen.count({child.parent.name, child.parent.index}), onAnother ? 1U : 0U) << child.id.name;
        EXPECT_TRUE(seen.insert({child.id.name, child.id.index}).second) << child.id.name;
    }
}

TEST(ServoMainForm, PutsTheInputMaskOnTop)
{
    EXPECT_EQ(servo_page::servoMainForm().back().id.name, "Eingabemaske");
}

} // namespace

} // namespace servopanel::testing
