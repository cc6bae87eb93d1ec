#include "monkey/parameters.h"
#include "panel_monkey/panel_run.h"
#include "panel_monkey/random_hands.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace servopanel::monkey {

namespace {

// One test for all seeds, because what they did is counted together: rules that nothing puts to the test always hold.
TEST(PanelMonkey, BreaksNoRuleAndDoesWhatTheRulesAreAbout)
{
    constexpr std::size_t commands = 400;
    Tally tally;
    for (unsigned seed = 1; seed <= 6; ++seed) {
        const Played played = playedOnPanel(commandsOnPanel(seed, commands));
        if (played.finding) {
            std::string scenario;
            for (const std::string& command : shrunk(*played.finding, playOnPanel).commands)
                scenario += command + "\n";
            ADD_FAILURE() << played.finding->rule << "\n" << scenario;
        }
        tally.add(played.tally);
    }
    // All inputs of the project fit on its pages: there is nothing to scroll.
    constexpr std::size_t often = 3;
    for (const char* const servo : {"3", "5", "7"})
        EXPECT_GE(tally.times(Tally::confirms, servo), often) << tally.text();
    for (const Family& family : families)
        EXPECT_GE(tally.times(Tally::values, family.inWords), often) << tally.text();
    for (const std::string_view what :
        {Tally::editors, Tally::failedWrites, Tally::diagnosis, Tally::discards, Tally::refused})
        EXPECT_GE(tally.times(what), 1U) << what << " of " << tally.text();
}

const std::string toThePage = "menudown BildIm 1 100 100";

TEST(PanelRun, ConfirmsAsAnOperatorDoes)
{
    const std::string trace = tracedOnPanel({toThePage, "touch SollwertL 1", "mask 42.5", "key 10"});
    EXPECT_NE(trace.find("> touch SollwertL 1\n"), std::string::npos) << trace;
    EXPECT_NE(trace.find("write Ch1.M1_T_servo_3<.mM1_servo_para_3> = [42.5, "), std::string::npos) << trace;
}

TEST(PanelRun, SeesAConfirmThatNobodyTouched)
{
    EXPECT_EQ(tracedOnPanel({toThePage, "touch SollwertL 1", "mask 42.5", "# panel: forge 10"}),
        "broken: '# panel: forge 10' confirms, and no confirm key was touched");
}

TEST(PanelRun, SeesAWritePastTheLibrary)
{
    EXPECT_EQ(tracedOnPanel({toThePage, "# panel: forge write"}),
        "broken: 'Ch1.M1_T_servo_3<.mM1_servo_schalt_3>' was written past the library");
}

TEST(PanelRun, SeesATouchOfAnotherInput)
{
    EXPECT_EQ(tracedOnPanel({toThePage, "touch SollwertL 02"}),
        "broken: 'touch SollwertL 02' reached another input: > touch SollwertL 2");
}

TEST(PanelRun, SeesAPanelThatDoesNotAnswer)
{
    EXPECT_EQ(tracedOnPanel({toThePage, "# panel: forge deaf", "# panel: probe"}),
        "broken: a touch of key 11 does nothing");
}

TEST(PanelRun, StartsAnewForAnotherScreen)
{
    const std::string trace = tracedOnPanel({toThePage, "touch SollwertL 1", "mask 42.5",
        "# panel: restart 800", toThePage, "touch SollwertL 1", "mask 42.5", "key 10"});
    EXPECT_EQ(trace.find("broken"), std::string::npos) << trace;
    EXPECT_NE(trace.find("picture Servo\\ServoMain_800."), std::string::npos);
}

TEST(PanelRun, TellsTheResolutionByTheFirstCommand)
{
    const std::string trace = tracedOnPanel({"# panel: resolution 800", toThePage});
    EXPECT_NE(trace.find("picture Servo\\ServoMain_800."), std::string::npos);
    EXPECT_EQ(trace.find("picture Servo\\ServoMain_1280."), std::string::npos);
}

TEST(RandomHands, DoTheSameForTheSameSeed)
{
    RandomHands one{5};
    RandomHands other{5};
    for (int i = 0; i < 100; ++i)
        EXPECT_EQ(one.next(), other.next());
}

} // namespace

} // namespace servopanel::monkey
