#include "basic/error.h"
#include "monkey/allocations.h"
#include "monkey/kept_scenario.h"
#include "monkey/parameters.h"
#include "monkey/play.h"
#include "monkey/program.h"
#include "monkey/random_operator.h"
#include "recording/replay.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <memory>
#include <stdexcept>

#include <unistd.h>

namespace servopanel::monkey {

namespace {

constexpr std::size_t commandsOfASeed = 300;
constexpr unsigned seeds = 20;

std::string asText(const Finding& finding)
{
    std::string text = finding.rule + "\n";
    for (const std::string& command : finding.commands)
        text.append(command).append("\n");
    return text;
}

// One test for all seeds, because what they did is counted together.
TEST(Monkey, BreaksNoRuleAndDoesWhatTheRulesAreAbout)
{
    Tally tally;
    for (unsigned seed = 1; seed <= seeds; ++seed) {
        const Played done = played(commandsOf(seed, commandsOfASeed));
        if (done.finding) ADD_FAILURE() << "seed " << seed << ": " << asText(shrunk(*done.finding, play));
        tally.add(done.tally);
    }
    constexpr std::size_t often = 20;
    constexpr std::size_t seldom = 5;
    for (const char* const servo : {"3", "5", "7"})
        EXPECT_GE(tally.times(Tally::confirms, servo), often) << tally.text();
    for (const Family& family : families)
        EXPECT_GE(tally.times(Tally::values, family.inWords), often) << tally.text();
    for (const std::string_view what : {Tally::editors, Tally::failedWrites, Tally::scrolls, Tally::diagnosis,
             Tally::discards, Tally::refused})
        EXPECT_GE(tally.times(what), seldom) << what << " of " << tally.text();
    EXPECT_GE(tally.times(Tally::unread), 1U) << tally.text();
}

TEST(Monkey, HoldsNoMoreTheSecondTime)
{
    EXPECT_FALSE(played(commandsOf(1, commandsOfASeed), {}, allocationsAlive).finding);
}

// What a leaking library would do is done here at every command.
TEST(Monkey, SeesWhatIsNotGivenBack)
{
    std::vector<std::unique_ptr<int>> kept;
    kept.reserve(100); // holds no more itself meanwhile
    const auto leaking = [&](std::size_t) { kept.push_back(std::make_unique<int>(1)); };
    EXPECT_FALSE(played({"create", "show", "terminate"}, {}, allocationsAlive).finding);
    const auto found = played({"create", "show", "terminate"}, leaking, allocationsAlive).finding;
    ASSERT_TRUE(found);
    EXPECT_EQ(found->rule, memoryRule);
}

TEST(Monkey, SeesWhatComesOutOfAnOperation)
{
    EXPECT_EQ(exceptionOf([] {}), std::nullopt);
    EXPECT_EQ(exceptionOf([] { throw basic::Error{5, "", "no answer"}; }), "an error came out: no answer");
    EXPECT_EQ(exceptionOf([] { throw std::runtime_error{"no room"}; }), "an exception came out: no room");
    EXPECT_EQ(exceptionOf([] { throw 1; }), "an exception of another kind came out");
}

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

const Commands toThePage{"var Ch-1.intern<.servo_zeiger> = 1", "create", "show"};

Commands onThePage(Commands more)
{
    more.insert(more.begin(), toThePage.begin(), toThePage.end());
    return more;
}

// What a broken page could do is done here by another hand: it says that something waits, and nothing was entered.
const Commands forged = onThePage({"poke modified -1", "key 10"});

TEST(Rules, SeeAWriteThatNobodyConfirmed)
{
    EXPECT_FALSE(play(onThePage({"touch SollwertL 1", "mask 5", "key 10"})));
    const auto found = play(forged);
    ASSERT_TRUE(found);
    EXPECT_NE(found->rule.find("is written by 'key 10', and nothing was entered"), std::string::npos)
        << found->rule;
}

TEST(Shrinking, LeavesWhatMatters)
{
    const auto needsTwo = [](const Commands& commands) -> std::optional<Finding> {
        const auto first = std::find(commands.begin(), commands.end(), "a");
        const auto second = std::find(first, commands.end(), "b");
        if (second == commands.end()) return std::nullopt;
        return Finding{"b after a", {commands.begin(), second + 1}};
    };
    Commands commands(100, "x");
    commands[20] = "a";
    commands[77] = "b";
    const Finding least = shrunk(*needsTwo(commands), needsTwo);
    EXPECT_EQ(least.commands, (Commands{"a", "b"}));
}

class KeptScenario : public ::testing::Test {
protected:
    KeptScenario() { std::filesystem::create_directories(folder_); }
    ~KeptScenario() override { std::filesystem::remove_all(folder_); }

    std::string folder() const { return folder_.string(); }
    static std::string content(const std::string& file)
    {
        std::ifstream in{file};
        return {std::istreambuf_iterator<char>{in}, {}};
    }
    int run(const Kind& kind, const std::vector<std::string>& more) const
    {
        std::vector<std::string> words{"monkey", "--runs", "1", "--keep", folder()};
        words.insert(words.end(), more.begin(), more.end());
        std::vector<const char*> arguments;
        for (const std::string& word : words)
            arguments.push_back(word.c_str());
        return runProgram(static_cast<int>(arguments.size()), arguments.data(), kind);
    }

private:
    std::filesystem::path folder_ =
        std::filesystem::path{::testing::TempDir()} / ("monkey_" + std::to_string(getpid()));
};

TEST_F(KeptScenario, BreaksTheSameAgain)
{
    const Finding found = *play(forged);
    const std::string file = keep(found, folder(), "monkey", 7);
    const auto again = play(readKept(file));
    ASSERT_TRUE(again);
    EXPECT_EQ(again->rule, found.rule);
}

// servo-replay knows no rules; what it plays writes the same to the machine.
TEST_F(KeptScenario, IsPlayedByTheReplay)
{
    recording::Replay replay;
    replay.run(content(keep(*play(forged), folder(), "monkey", 7)));
    EXPECT_NE(replay.lines("write ").find("write Ch1.M1_T_servo_3<.mM1_servo_para_3> = [1.5, 2, "),
        std::string::npos);
}

TEST_F(KeptScenario, KeepsCommandsOfSeveralLines)
{
    const Commands commands{"file A.ini\n[A]\nx=1\nend", "create",
        "db A.mdb empty\ndb A.mdb M1 x 0 0 1 0 1 1",
        "# panel: at 1 2\nkey 5\nfile A.ini\n[A]\nend\n# panel: end"};
    EXPECT_EQ(commandsIn(scenarioOf({"a rule", commands})), commands);
}

TEST_F(KeptScenario, HasWhatTheLibraryGotOfAPanel)
{
    EXPECT_EQ(asScenario("key 5", "key 5\n"), "key 5");
    EXPECT_EQ(
        asScenario("fail read x 1", "fail read x\n"), "# panel: fail read x 1\nfail read x\n# panel: end");
    EXPECT_EQ(asScenario("# panel: at 1 2", ""), "# panel: at 1 2\n# panel: end");
    EXPECT_EQ(ofThePanel("# panel: at 1 2\nkey 5\n# panel: end"), "# panel: at 1 2");
    EXPECT_EQ(ofThePanel("key 5"), "key 5");
    EXPECT_EQ(ofTheLibrary({"# panel: at 1 2\nkey 5\nkey 6\n# panel: end", "key 7", "# panel: probe"}),
        (Commands{"key 5", "key 6", "key 7"}));
}

// What was only drawn, as before a crash, takes nothing in that follows it.
TEST_F(KeptScenario, EndsWhatAPanelAloneHas)
{
    EXPECT_EQ(commandsIn(scenarioOf({"a crash", {"# panel: probe", "key 5"}})),
        (Commands{"# panel: probe\n# panel: end", "key 5"}));
}

Kind kindOf(std::function<Played(const Commands&)> play)
{
    Kind kind;
    kind.name = "a-monkey";
    kind.commandsOf = [](unsigned, std::size_t) { return Commands{"a", "b", "boom", "c"}; };
    kind.played = [play](const Commands& commands, const Progress& tell, std::string_view) {
        Played played;
        for (std::size_t i = 0; i < commands.size(); ++i) {
            tell(i);
            play({commands[i]});
            played.commands.push_back(commands[i] + ", noted");
        }
        return played;
    };
    return kind;
}

TEST_F(KeptScenario, IsKeptOfACrash)
{
    const Kind kind = kindOf([](const Commands& commands) -> Played {
        // It goes wrong after another one, and as silently as can be.
        static bool isPrepared = false;
        isPrepared = isPrepared || commands.front().starts_with("a");
        if (commands.front() == "boom" && isPrepared) std::raise(SIGKILL);
        return {};
    });
    ::testing::internal::CaptureStdout();
    EXPECT_EQ(run(kind, {"--seed", "9"}), 1);
    const std::string said = ::testing::internal::GetCapturedStdout();
    EXPECT_NE(said.find("seed 9: a crash: signal 9\n  at command 3\n"), std::string::npos) << said;
    EXPECT_EQ(commandsIn(content(folder() + "/a-monkey_9.scenario")), (Commands{"a, noted", "boom"}));

    ::testing::internal::CaptureStdout();
    EXPECT_EQ(run(kind, {"--play", folder() + "/a-monkey_9.scenario"}), 1);
    EXPECT_NE(::testing::internal::GetCapturedStdout().find("a crash: signal 9"), std::string::npos);
}

TEST_F(KeptScenario, IsKeptAmongTemporaryFilesUnlessToldOtherwise)
{
    const Kind kind = kindOf([](const Commands&) -> Played { std::exit(7); });
    const char* const arguments[]{"monkey", "--runs", "1", "--seed", "4000000001"};
    const std::filesystem::path file =
        std::filesystem::temp_directory_path() / "a-monkey_4000000001.scenario";
    std::filesystem::remove(file);
    ::testing::internal::CaptureStdout();
    EXPECT_EQ(runProgram(5, arguments, kind), 1);
    EXPECT_NE(::testing::internal::GetCapturedStdout().find(file.string() + "\n"), std::string::npos);
    EXPECT_TRUE(std::filesystem::remove(file));
}

TEST(Monkey, CountsWhatItPlaysAndWhatItSkips)
{
    const Played done = played(
        {"key 10", "create", "create", "show", "show", "menudown BildIm 1 100 100", "touch SollwertL 1"});
    EXPECT_EQ(done.tally.times(Tally::played), 3U);
    EXPECT_EQ(done.tally.times(Tally::skipped), 4U);
    EXPECT_EQ(done.commands, (Commands{"create", "show", "menudown BildIm 1 100 100"}));
}

TEST_F(KeptScenario, NeedsItsFolder)
{
    const Kind kind = kindOf([](const Commands&) { return Played{}; });
    ::testing::internal::CaptureStderr();
    EXPECT_EQ(run(kind, {"--keep", folder() + "/missing"}), 2);
    EXPECT_NE(::testing::internal::GetCapturedStderr().find("/missing"), std::string::npos);
    EXPECT_THROW(keep({"a rule", {}}, folder() + "/missing", "monkey", 1), std::runtime_error);
    EXPECT_THROW(readKept(folder() + "/missing"), std::runtime_error);
}

TEST(Tally, ComesBackFromItsLines)
{
    Tally tally;
    tally.add(Tally::confirms, "3", 12);
    tally.add(Tally::editors);
    EXPECT_EQ(Tally::fromLines(tally.lines()).text(), tally.text());
    EXPECT_EQ(tally.text(), "confirms of servo 3: 12, editor OKs: 1");
}

} // namespace

} // namespace servopanel::monkey
