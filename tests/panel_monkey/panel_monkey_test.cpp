#include "monkey/kept_scenario.h"
#include "monkey/parameters.h"
#include "panel_monkey/panel_run.h"
#include "panel_monkey/random_hands.h"
#include "recording/replay.h"

#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <vector>

namespace servopanel::monkey {

namespace {

// What the machine is given.
std::vector<std::string> writesIn(const std::string& trace)
{
    std::vector<std::string> writes;
    std::istringstream lines{trace};
    for (std::string line; std::getline(lines, line);)
        if (line.starts_with("write Ch1.")) writes.push_back(line);
    return writes;
}

std::vector<std::string> writesOfReplay(const std::string& scenario)
{
    recording::Replay replay;
    return writesIn(replay.run(scenario));
}

// One test for all seeds, because what they did is counted together: rules that nothing puts to the test always hold.
TEST(PanelMonkey, BreaksNoRuleAndDoesWhatTheRulesAreAbout)
{
    constexpr std::size_t commands = 400;
    Tally tally;
    for (unsigned seed = 1; seed <= 6; ++seed) {
        std::string trace;
        const Played played = playedOnPanel(commandsOnPanel(seed, commands), {}, &trace);
        if (played.finding) {
            std::string scenario;
            for (const std::string& command : shrunk(*played.finding, playOnPanel).commands)
                scenario += command + "\n";
            ADD_FAILURE() << played.finding->rule << "\n" << scenario;
        }
        tally.add(played.tally);
        EXPECT_EQ(writesOfReplay(scenarioOf({"none", played.commands})), writesIn(trace)) << "seed " << seed;
    }
    // All inputs of the project fit on its pages: there is nothing to scroll.
    constexpr std::size_t often = 3;
    for (const char* const servo : {"3", "5", "7"})
        EXPECT_GE(tally.times(Tally::confirms, servo), often) << tally.text();
    for (const Family& family : families)
        EXPECT_GE(tally.times(Tally::values, family.inWords), often) << tally.text();
    for (const std::string_view what :
        {Tally::editors, Tally::failedWrites, Tally::diagnosis, Tally::discards, Tally::skipped})
        EXPECT_GE(tally.times(what), 1U) << what << " of " << tally.text();
}

Commands onThePage(Commands more)
{
    const Commands toThePage{"# panel: open", "menudown BildIm 1 100 100"};
    more.insert(more.begin(), toThePage.begin(), toThePage.end());
    return more;
}

TEST(PanelRun, ConfirmsAsAnOperatorDoes)
{
    const std::string trace = tracedOnPanel(onThePage({"touch SollwertL 1", "mask 42.5", "key 10"}));
    EXPECT_NE(trace.find("> touch SollwertL 1\n"), std::string::npos) << trace;
    EXPECT_NE(trace.find("write Ch1.M1_T_servo_3<.mM1_servo_para_3> = [42.5, "), std::string::npos) << trace;
}

// A panel's run is kept with what its library got, and a replay of that gives the machine the same.
constexpr std::size_t writesOfAConfirm = 5; // four families, and that they were changed
const std::string setpoints =
    "write Ch1.M1_T_servo_3<.mM1_servo_para_3> = [42.5, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16, "
    "17, 18, 19, 20]";
// With something before the confirm, and after it what the rules notice.
const Commands brokenAfterAConfirm{"var parameter<.aufloesung> = 800", "# panel: open", "timer", "key 4",
    "menudown BildIm 2 100 100", "menuup BildIm 2 100 100", "# panel: press Esc", "show",
    "menudown BildIm 1 100 100", "touch SollwertL 1", "mask 42.5", "fail read Ch-1.intern<.passwort> 1",
    "key 10", "touch SollwertL 2", "mask 7", "# panel: forge 10"};

TEST(PanelScenario, IsPlayedByTheReplay)
{
    std::string trace;
    const Finding found = *playedOnPanel(brokenAfterAConfirm, {}, &trace).finding;
    const std::string scenario = scenarioOf(found);
    recording::Replay replay;
    const std::vector<std::string> writes = writesIn(replay.run(scenario));
    EXPECT_EQ(writes, writesIn(trace));
    ASSERT_EQ(writes.size(), 2 * writesOfAConfirm);
    EXPECT_EQ(writes.front(), setpoints);
    EXPECT_NE(replay.lines("picture ").find("Servo\\ServoMain_800."), std::string::npos);

    const std::optional<Finding> again = playOnPanel(commandsIn(scenario));
    ASSERT_TRUE(again);
    EXPECT_EQ(again->rule, found.rule);
    EXPECT_EQ(again->commands, found.commands);
}

TEST(PanelScenario, IsPlayedByTheReplayWhenItIsShrunk)
{
    // What is looked for is the confirm itself.
    std::string trace;
    const auto confirms = [&trace](const Commands& commands) -> std::optional<Finding> {
        trace.clear();
        const Played played = playedOnPanel(commands, {}, &trace);
        const std::vector<std::string> writes = writesIn(trace);
        if (writes.empty() || writes.front() != setpoints) return std::nullopt;
        return Finding{"it confirms", played.commands};
    };
    const Finding least = shrunk(*confirms(brokenAfterAConfirm), confirms);
    const std::string scenario = scenarioOf(least);
    EXPECT_EQ(least.commands.size(), 5U); // open, choose the servo, touch, enter, confirm
    EXPECT_TRUE(confirms(commandsIn(scenario)));
    EXPECT_EQ(writesIn(trace).size(), writesOfAConfirm);
    EXPECT_EQ(writesOfReplay(scenario), writesIn(trace));
}

// Else nothing could be left out of it, and playing what was kept would show another finding.
TEST(PanelScenario, BreaksTheSameRuleWhereTheLibraryGotNothing)
{
    const Commands before = onThePage({"timer", "# panel: forge numb"});
    for (const char* const touch : {"touch SchalterL 31", "touch SollwertL 1"}) {
        Commands commands = before;
        commands.push_back(touch);
        const Finding found = *playOnPanel(commands);
        const std::optional<Finding> again = playOnPanel(commandsIn(scenarioOf(found)));
        ASSERT_TRUE(again) << touch;
        EXPECT_EQ(again->rule, found.rule);
        EXPECT_EQ(again->commands, found.commands);
        const std::size_t withoutTheTimer = commands.size() - 1;
        EXPECT_EQ(shrunk(found, playOnPanel).commands.size(), withoutTheTimer) << touch;
    }
}

TEST(PanelScenario, ARestartBeginsAnewInTheReplay)
{
    std::string trace;
    const Played played =
        playedOnPanel(onThePage({"touch SollwertL 1", "mask 42.5", "key 10",
                          "fail write Ch1.M1_T_servo_3<.mM1_servo_para_3>", "# panel: restart 800",
                          "menudown BildIm 1 100 100", "touch SollwertL 2", "mask 9", "key 10"}),
            {}, &trace);
    EXPECT_FALSE(played.finding);
    EXPECT_EQ(writesIn(trace).size(), 2 * writesOfAConfirm);
    EXPECT_EQ(writesOfReplay(scenarioOf({"none", played.commands})), writesIn(trace));
}

TEST(PanelRun, CountsWhatItPlaysAndWhatItSkips)
{
    const Tally tally =
        playedOnPanel({"key 10", "# panel: open", "# panel: open", "input 0", "menudown BildIm 1 100 100",
                          "menuup BildIm 1 100 100", "touch SollwertL 1"})
            .tally;
    EXPECT_EQ(tally.times(Tally::played), 3U);
    EXPECT_EQ(tally.times(Tally::skipped), 4U);
}

TEST(PanelRun, SeesAConfirmThatNobodyTouched)
{
    EXPECT_EQ(tracedOnPanel(onThePage({"touch SollwertL 1", "mask 42.5", "# panel: forge 10"})),
        "broken: '# panel: forge 10' confirms, and no confirm key was touched");
}

TEST(PanelRun, SeesAWritePastTheLibrary)
{
    EXPECT_EQ(tracedOnPanel(onThePage({"# panel: forge write"})),
        "broken: 'Ch1.M1_T_servo_3<.mM1_servo_schalt_3>' was written past the library");
}

TEST(PanelRun, SeesATouchOfAnotherInput)
{
    EXPECT_EQ(tracedOnPanel(onThePage({"touch SollwertL 02"})),
        "broken: 'touch SollwertL 02' reached another input: > touch SollwertL 2");
}

TEST(PanelRun, SeesAPanelThatDoesNotAnswer)
{
    EXPECT_EQ(tracedOnPanel(onThePage({"# panel: forge deaf", "# panel: probe"})),
        "broken: a touch of key 11 does nothing");
}

TEST(PanelRun, SeesAKeyBackThatLeadsNowhere)
{
    EXPECT_EQ(tracedOnPanel({"# panel: open", "menukey 11", "# panel: forge deaf", "# panel: probe"}),
        "broken: the key back leads nowhere");
}

TEST(PanelRun, KnowsThatTheWayOutClosesTheListOfReportsFirst)
{
    const std::string theList = "# panel: at 561 36";
    const std::string trace =
        tracedOnPanel({"# panel: open", theList, "menudown BildIm 3 100 100", "key 11", "key 11"});
    EXPECT_EQ(trace.find("broken"), std::string::npos) << trace;
    const std::size_t first = trace.find("> key 11\n");
    ASSERT_NE(first, std::string::npos) << trace;
    EXPECT_EQ(trace.find("> key 11\n", first + 1), std::string::npos) << trace;
}

TEST(PanelRun, SeesWhatTakesNoTouch)
{
    const std::string numb = "# panel: forge numb";
    const std::string reason = " does not reach the library, and nobody says why";
    EXPECT_EQ(tracedOnPanel(onThePage({numb, "touch SollwertL 1"})), "broken: 'touch SollwertL 1'" + reason);
    EXPECT_EQ(
        tracedOnPanel(onThePage({numb, "touch SchalterL 31"})), "broken: 'touch SchalterL 31'" + reason);
    EXPECT_EQ(tracedOnPanel(onThePage({"touch SollwertL 2", "mask 42.5", numb, "key 10"})),
        "broken: 'key 10'" + reason);
}

// It never had a state that could be turned over.
TEST(PanelRun, HearsWhyAnUnreadSwitchTakesNoTouch)
{
    const std::string trace =
        tracedOnPanel({"# panel: open", "fail read Ch1.M1_T_servo_3<.mM1_servo_schalt_3>",
            "menudown BildIm 1 100 100", "touch SchalterL 31"});
    EXPECT_NE(trace.find("read Ch1.M1_T_servo_3<.mM1_servo_schalt_3> failed"), std::string::npos) << trace;
    EXPECT_EQ(trace.find("broken"), std::string::npos) << trace;
}

TEST(PanelRun, SeesASwitchThatIsMarkedAndWasNotTurned)
{
    EXPECT_EQ(tracedOnPanel(onThePage({"# panel: forge turn"})),
        "broken: switch 31 is marked as changed, and nobody turned it");
}

TEST(PanelRun, SeesASwitchThatWasTurnedAndIsNotMarked)
{
    EXPECT_EQ(tracedOnPanel(onThePage({"touch SchalterL 31", "# panel: forge settle"})),
        "broken: switch 31 was turned, and it is not marked");
}

TEST(PanelRun, SeesWhatComesOutOfAnOperation)
{
    EXPECT_EQ(tracedOnPanel({"# panel: forge throw"}),
        "broken: '# panel: forge throw': an exception came out: no room");
}

// A real panel keeps within both.
TEST(PanelRun, SeesWhatGrowsWithoutEnd)
{
    EXPECT_EQ(brokenAmount("key 5", 200, 20'000), std::nullopt);
    EXPECT_EQ(brokenAmount("key 5", 201, 0), "the list of reports grows without end");
    EXPECT_EQ(brokenAmount("key 5", 0, 20'001), "'key 5' has no end");
}

TEST(PanelRun, StartsAnewForAnotherScreen)
{
    const std::string trace = tracedOnPanel(onThePage({"touch SollwertL 1", "mask 42.5",
        "# panel: restart 800", "menudown BildIm 1 100 100", "touch SollwertL 1", "mask 42.5", "key 10"}));
    EXPECT_EQ(trace.find("broken"), std::string::npos) << trace;
    EXPECT_NE(trace.find("picture Servo\\ServoMain_800."), std::string::npos);
}

TEST(PanelRun, TellsTheResolutionByTheFirstCommand)
{
    const std::string trace =
        tracedOnPanel({"var parameter<.aufloesung> = 800", "# panel: open", "menudown BildIm 1 100 100"});
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
