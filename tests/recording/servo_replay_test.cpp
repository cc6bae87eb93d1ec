#include "support/run_in_shell.h"

#include <gtest/gtest.h>

#include <fstream>
#include <string>

namespace {

using servopanel::testing::Outcome;

Outcome servoReplay(const std::string& arguments)
{
    return servopanel::testing::runInShell(std::string{SERVO_REPLAY} + " " + arguments);
}

std::string scenarioFile(const std::string& name, const std::string& text)
{
    // Tests run at the same time.
    const std::string test = ::testing::UnitTest::GetInstance()->current_test_info()->name();
    const std::string path = ::testing::TempDir() + test + "_" + name;
    std::ofstream{path, std::ios::binary} << text;
    return path;
}

TEST(ServoReplay, EndsWithZeroWhenTheScenarioRan)
{
    const Outcome outcome = servoReplay(scenarioFile("good.scenario", "var A = 1\nvars\nget Servo.Height\n"));
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.text, "> vars\n> get Servo.Height\nstate Servo.Height failed\n");
}

TEST(ServoReplay, NamesFileLineAndReasonAndPlaysNothing)
{
    const std::string path = scenarioFile("bad.scenario", "vars\nfoo\n");
    const Outcome outcome = servoReplay(path);
    EXPECT_EQ(outcome.status, 2);
    EXPECT_EQ(outcome.text, path + ":2: unknown command 'foo'\n");
}

TEST(ServoReplay, NamesTheLineThatCannotBePlayed)
{
    const std::string path = scenarioFile("show.scenario", "vars\nshow\n");
    const Outcome outcome = servoReplay(path);
    EXPECT_EQ(outcome.status, 2);
    EXPECT_EQ(outcome.text, "> vars\n> show\n" + path + ":2: there is no control; 'create' makes one\n");
}

TEST(ServoReplay, ReadsStandardInput)
{
    EXPECT_EQ(servoReplay("- < " + scenarioFile("in.scenario", "vars\n")).text, "> vars\n");
    const Outcome outcome = servoReplay("- < " + scenarioFile("bad.scenario", "foo\n"));
    EXPECT_EQ(outcome.status, 2);
    EXPECT_EQ(outcome.text, "-:1: unknown command 'foo'\n");
}

TEST(ServoReplay, ExplainsItself)
{
    const Outcome help = servoReplay("--help");
    EXPECT_EQ(help.status, 0);
    EXPECT_EQ(help.text.substr(0, 38), "servo-replay SCENARIO [--project DIR]\n");
    for (const char* wrong : {"", "--other x", "a b", "x --project"}) {
        const Outcome outcome = servoReplay(wrong);
        EXPECT_EQ(outcome.status, 2) << wrong;
        EXPECT_EQ(outcome.text, help.text) << wrong;
    }
}

TEST(ServoReplay, SaysThatAFileOrFolderIsMissing)
{
    const Outcome file = servoReplay("/no/such/file");
    EXPECT_EQ(file.status, 2);
    EXPECT_EQ(file.text, "servo-replay: cannot read /no/such/file\n");
    const Outcome folder =
        servoReplay(scenarioFile("good.scenario", "vars\n") + " --project /no/such/folder");
    EXPECT_EQ(folder.status, 2);
    EXPECT_EQ(folder.text.find("servo-replay: "), 0U);
}

} // namespace
