#include "recording/scenario/scenario.h"

#include <gtest/gtest.h>

#include <ostream>
#include <string>

namespace {

using servopanel::recording::parseScenario;
using servopanel::recording::ScenarioError;
using servopanel::recording::Step;

TEST(ParseScenario, PassesOverCommentsAndBlankLines)
{
    const auto steps = parseScenario("# a comment\n\n   \n\t# another\n  create  \nshow");
    ASSERT_EQ(steps.size(), 2U);
    EXPECT_EQ(steps[0].line, 5U);
    EXPECT_EQ(steps[0].echo, "create");
    EXPECT_EQ(steps[1].line, 6U);
    EXPECT_EQ(steps[1].echo, "show");
}

TEST(ParseScenario, EchoesOperationsOnly)
{
    const auto steps = parseScenario("var A = 1\non pump scroll 2\nmask  12.5");
    ASSERT_EQ(steps.size(), 3U);
    EXPECT_EQ(steps[0].echo, "");
    EXPECT_EQ(steps[1].echo, "on pump scroll 2");
    EXPECT_EQ(steps[2].echo, "mask  12.5");
}

TEST(ParseScenario, AcceptsTheLineEndsOfOtherSystems)
{
    const auto steps = parseScenario("\xEF\xBB\xBF"
                                     "create\r\nshow\r\n");
    ASSERT_EQ(steps.size(), 2U);
    EXPECT_EQ(steps[1].echo, "show");
}

TEST(ParseScenario, KnowsEveryCommand)
{
    const auto steps =
        parseScenario("library Servo2\n"
                      "screen 12 12\n"
                      "env TEMPVELM=D:\\Temp\n"
                      "env EMPTY=\n"
                      "input 0\n"
                      "var \"Ch1.M 1<.x>\" = [1, \"2\"]\n"
                      "fail read A\n"
                      "fail write A 2\n"
                      "fail load Servo\\A.gif\n"
                      "fail save C:\\Temp\\A.gif 1\n"
                      "fail mkdir C:\\Temp\\B\n"
                      "fail db update\n"
                      "fail db update 3\n"
                      "fail none\n"
                      "text A.B = \"x = y\"\n"
                      "text A.C =\n"
                      "db Servo\\Servo.mdb M1 A 0 1 2 3 4 5\n"
                      "db Servo\\Servo.mdb M1 A \"x\" -1 2.5 \"\" true 5\n"
                      "db Servo\\Servo.mdb empty\n"
                      "db Servo\\Servo.mdb delete A 0\n"
                      "picture C:\\Temp\\A.gif 10 20\n"
                      "file A.ini\n"
                      "  # kept\n"
                      "\n"
                      "end\n"
                      "project /tmp\n"
                      "create\nshow\nterminate\n"
                      "touch SollwertL 5\ntouch SchalterR 33\ntouch ZeichnungL 43\n"
                      "mask 12\nmask \"12,5\"\nmask cancel\n"
                      "ini 0 100.5 3\nini cancel\n"
                      "key 5\nmenukey 31\nkey! 10\nmenukey! 9\n"
                      "down 1 2\nmove -1.5 2.25\nup 0 0\n"
                      "menudown Beschriftung 1 10 20\nmenumove BildIm 8 1 1\nmenuup BildIm 8 1 1\n"
                      "scroll 1\npagescroll 200\n"
                      "timer\nlanguage 2\n"
                      "on pump scroll 3\non pump on pump timer\non pump var A = 5\n"
                      "poke modified 1\n"
                      "get ServoMain.SollwertL(5).8\nvars\n");
    EXPECT_EQ(steps.size(), 54U);
}

struct Case {
    const char* name;
    const char* scenario;
    std::size_t line;
    const char* reason;
    friend void PrintTo(const Case& shown, std::ostream* out) { *out << shown.name; }
};

class MalformedScenario : public ::testing::TestWithParam<Case> { };

TEST_P(MalformedScenario, IsRefusedWithLineAndReason)
{
    try {
        parseScenario(GetParam().scenario);
        ADD_FAILURE() << "accepted";
    } catch (const ScenarioError& error) {
        EXPECT_EQ(error.line(), GetParam().line);
        EXPECT_STREQ(error.what(), GetParam().reason);
    }
}

const Case cases[]{
    {"UnknownCommand", "create\n\nfoo 1\n", 3, "unknown command 'foo'"},
    {"CommandsHaveTheirLetterCase", "Create", 1, "unknown command 'Create'"},
    {"NothingBehindCreate", "create twice", 1, "'twice' is too much"},
    {"NothingBehindShow", "show 1", 1, "'1' is too much"},
    {"NothingBehindVars", "vars all", 1, "'all' is too much"},
    {"LibraryWithoutName", "library", 1, "the library's name is missing"},
    {"ScreenWithOneNumber", "screen 15", 1, "twips per pixel down is missing"},
    {"ScreenWithoutNumbers", "screen a b", 1, "twips per pixel across 'a' is no number"},
    {"EnvWithoutEquals", "env TEMPVELM", 1, "NAME=VALUE is missing"},
    {"EnvWithoutName", "env =x", 1, "NAME=VALUE is missing"},
    {"InputBeyond16Bits", "input 40000", 1, "the input permission 40000 is not between -32768 and 32767"},
    {"VarWithoutEquals", "var A 5", 1, "'=' is missing"},
    {"VarWithoutValue", "var A =", 1, "the variable's value is missing"},
    {"VarWithoutQuotes", "var A = abc", 1, "'abc' is no value"},
    {"VarWithTwoValues", "var A = 1 2", 1, "'2' is too much"},
    {"FailWithoutKind", "fail", 1, "what is to fail is missing"},
    {"FailOfUnknownKind", "fail everything", 1, "'everything' cannot be made to fail"},
    {"FailWithoutName", "fail read", 1, "the variable's name is missing"},
    {"FailWithNegativeTimes", "fail read A -1", 1, "the number of times -1 is not between 0 and 32767"},
    {"FailDbOther", "fail db insert", 1, "only 'fail db update' is known"},
    {"FailNoneWithMore", "fail none A", 1, "'A' is too much"},
    {"TextWithoutEquals", "text A", 1, "' = ' is missing"},
    {"TextWithoutBlanks", "text A=B", 1, "' = ' is missing"},
    {"TextKeyWithBlanks", "text A B = C", 1, "'B' is too much"},
    {"DbWithoutRow", "db Servo.mdb", 1, "a row, 'empty' or 'delete' is missing"},
    {"DbWithTooFewColumns", "db Servo.mdb M1 A 0 1 2 3 4", 1, "the access level is missing"},
    {"DbWithTooManyColumns", "db Servo.mdb M1 A 0 1 2 3 4 5 6", 1, "'6' is too much"},
    {"DbDeleteWithoutElement", "db Servo.mdb delete A", 1, "the element is missing"},
    {"DbWithTextWithoutQuotes", "db Servo.mdb M1 A x 1 2 3 4 5", 1, "'x' is no value"},
    {"FileWithoutName", "file", 1, "the file's name is missing"},
    {"FileWithoutEnd", "create\nfile A\nB\n", 2, "'end' of the file is missing"},
    {"FileOnPump", "on pump file A\nend", 1, "a file cannot be put there with 'on pump'"},
    {"PictureWithoutSize", "picture A.gif 10", 1, "the height is missing"},
    {"PictureOfNoSize", "picture A.gif 0 10", 1, "the width 0 is not between 1 and 32767"},
    {"ProjectWithoutFolder", "project", 1, "the project's folder is missing"},
    {"TouchOfOtherControl", "touch Header 1", 1, "'Header' cannot be touched here"},
    {"TouchWithoutIndex", "touch SollwertL", 1, "the input's index is missing"},
    {"TouchWithFraction", "touch SollwertL 1.5", 1, "the input's index '1.5' is no whole number"},
    {"MaskWithoutValue", "mask", 1, "the value is missing"},
    {"MaskWithWord", "mask close", 1, "'close' is no value"},
    {"MaskCancelWithMore", "mask cancel 1", 1, "'1' is too much"},
    {"IniWithTwoNumbers", "ini 1 2", 1, "the access level is missing"},
    {"IniWithText", "ini a 2 3", 1, "the lower limit 'a' is no number"},
    {"KeyWithoutNumber", "key", 1, "the key's number is missing"},
    {"KeyWithWord", "menukey exit", 1, "the key's number 'exit' is no whole number"},
    {"DownWithoutY", "down 1", 1, "Y is missing"},
    {"MoveWithWord", "move x 1", 1, "X 'x' is no number"},
    {"MenudownOfOtherControl", "menudown ScrollBar 1 1 1", 1, "'ScrollBar' cannot be touched here"},
    {"ScrollBelowOne", "scroll 0", 1, "the position 0 is not between 1 and 32767"},
    {"PagescrollWithoutPosition", "pagescroll", 1, "the position is missing"},
    {"TimerWithNumber", "timer 5", 1, "'5' is too much"},
    {"LanguageWithWord", "language german", 1, "the language 'german' is no whole number"},
    {"OnOther", "on show create", 1, "only 'on pump' is known"},
    {"OnPumpWithoutCommand", "on pump", 1, "a command is missing"},
    {"OnPumpOfUnknownCommand", "on pump foo", 1, "unknown command 'foo'"},
    {"PokeOther", "poke level 1", 1, "only 'modified' can be poked"},
    {"PokeWithoutNumber", "poke modified", 1, "the number is missing"},
    {"GetWithoutPoint", "get ServoMain", 1, "'ServoMain' is not OBJECT.ID"},
    {"GetWithoutObject", "get", 1, "OBJECT.ID is missing"},
    {"OpenQuote", "picture \"A 1 2", 1, "a quote is not closed"},
    {"QuoteWithTail", "picture \"A\"B 1 2", 1, "a blank is missing behind a quote"},
};

INSTANTIATE_TEST_SUITE_P(EveryCommand, MalformedScenario, ::testing::ValuesIn(cases),
    [](const auto& tested) { return std::string{tested.param.name}; });

} // namespace
