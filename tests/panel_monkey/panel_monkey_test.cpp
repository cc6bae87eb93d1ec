#include "panel_monkey/panel_run.h"
#include "panel_monkey/random_hands.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

namespace servopanel::monkey {

namespace {

class PanelMonkey : public ::testing::TestWithParam<unsigned> { };

TEST_P(PanelMonkey, BreaksNoRule)
{
    constexpr std::size_t commands = 200;
    const auto found = playSeedOnPanel(GetParam(), commands);
    if (!found) return;
    std::string scenario;
    for (const std::string& command : shrunk(*found, playOnPanel).commands)
        scenario += command + "\n";
    ADD_FAILURE() << found->rule << "\n" << scenario;
}

INSTANTIATE_TEST_SUITE_P(Seeds, PanelMonkey, ::testing::Range(1U, 7U));

std::size_t times(const std::string& what, const std::string& text)
{
    std::size_t count = 0;
    for (std::size_t at = text.find(what); at != std::string::npos; at = text.find(what, at + 1))
        ++count;
    return count;
}

// Rules that nothing puts to the test would always hold.
TEST(HandsOnPanel, DoWhatTheRulesAreAbout)
{
    constexpr std::size_t often = 5;
    std::string trace;
    for (unsigned seed = 1; seed <= 3; ++seed) {
        RandomHands hands{seed};
        std::vector<std::string> commands(400);
        std::generate(commands.begin(), commands.end(), [&] { return hands.next(); });
        trace += tracedOnPanel(commands);
    }
    EXPECT_EQ(times("broken: ", trace), 0U) << trace;
    for (const char* const line : {"> touch ", "> mask ", "> key 10\n", "> key 11\n", "> timer\n",
             "> language ", "> menuup ", "> terminate\n", "write Ch1.M1_T_servo_", " failed\n"})
        EXPECT_GE(times(line, trace), often) << line;
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
