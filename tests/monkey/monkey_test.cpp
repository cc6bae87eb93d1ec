#include "monkey/play.h"
#include "monkey/random_operator.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace servopanel::monkey {

namespace {

class Monkey : public ::testing::TestWithParam<unsigned> { };

TEST_P(Monkey, BreaksNoRule)
{
    constexpr std::size_t commands = 300;
    const auto found = playSeed(GetParam(), commands);
    if (!found) return;
    const Finding least = shrunk(*found, play);
    std::string scenario;
    for (const std::string& command : least.commands)
        scenario += command + "\n";
    ADD_FAILURE() << least.rule << "\n" << scenario;
}

INSTANTIATE_TEST_SUITE_P(Seeds, Monkey, ::testing::Range(1U, 25U));

TEST(RandomOperator, DoesTheSameForTheSameSeed)
{
    RandomOperator one{5};
    RandomOperator other{5};
    RandomOperator third{6};
    int different = 0;
    for (int i = 0; i < 100; ++i) {
        const std::string command = one.next();
        EXPECT_EQ(command, other.next());
        if (command != third.next()) ++different;
    }
    EXPECT_GT(different, 50);
}

// A write without a touch: what a broken page could do is done here by another hand.
TEST(Rules, SeeAWriteThatNobodyConfirmed)
{
    const std::string page = "var Ch-1.intern<.servo_zeiger> = 1";
    EXPECT_FALSE(play({page, "create", "show", "touch SollwertL 1", "mask 5", "key 10"}));
    const auto found = play({page, "create", "show", "touch SollwertL 1", "mask 5", "key! 10"});
    ASSERT_TRUE(found);
    EXPECT_NE(found->rule.find("is written by 'key! 10'"), std::string::npos) << found->rule;
}

TEST(Shrinking, LeavesWhatMatters)
{
    const auto needsTwo = [](const std::vector<std::string>& commands) -> std::optional<Finding> {
        const auto first = std::find(commands.begin(), commands.end(), "a");
        const auto second = std::find(first, commands.end(), "b");
        if (second == commands.end()) return std::nullopt;
        return Finding{"b after a", {commands.begin(), second + 1}};
    };
    std::vector<std::string> commands(100, "x");
    commands[20] = "a";
    commands[77] = "b";
    const Finding least = shrunk(*needsTwo(commands), needsTwo);
    EXPECT_EQ(least.commands, (std::vector<std::string>{"a", "b"}));
}

} // namespace

} // namespace servopanel::monkey
