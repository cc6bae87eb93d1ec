#include "journal/journal_fixture.h"
#include "journal/tool.h"
#include "portable/csv.h"

#include <string>
#include <vector>

namespace servopanel::testing {

namespace {

class ServoJournal : public JournalFixture {
protected:
    int run(std::vector<std::string> arguments)
    {
        arguments.insert(arguments.begin(), folder.path().string());
        return runAlone(arguments);
    }
    int runAlone(const std::vector<std::string>& arguments)
    {
        output = {};
        return static_cast<int>(journal::runTool(arguments, {}, output));
    }
    // The times of the entries that the options leave, as minutes.
    std::string minutes(const std::vector<std::string>& options)
    {
        std::vector<std::string> arguments{"--csv"};
        arguments.insert(arguments.end(), options.begin(), options.end());
        EXPECT_EQ(run(arguments), 0) << output.errors;
        std::string minutes;
        for (const portable::CsvLine& line : portable::parseCsv(output.text))
            if (line.number > 1) minutes.append(line.cells[1]->substr(14, 2)).append(" ");
        return minutes;
    }

    // Three writes, a minute apart: done, refused, unknown.
    void writeThree()
    {
        change(1, 36);
        now += 60'000;
        machine->failure = basic::Error{6, "Process variables", "the value is out of range"};
        EXPECT_THROW(change(0, 99), basic::Error);
        now += 60'000;
        machine->failure = basic::Error{2110, "Process variables", "no answer"};
        variables.ReadValue(text);
        EXPECT_THROW(variables.WriteValue(text, ""), basic::Error);
        machine->failure.reset();
    }

    journal::ToolOutput output;
};

} // namespace

TEST_F(ServoJournal, ShowsATable)
{
    writeThree();
    EXPECT_EQ(run({}), 0);
    EXPECT_EQ(output.errors, "");
    EXPECT_EQ(output.text,
        "write  time                      panel  level  machine  servo  variable                             "
        "element"
        "  old      new  result\n"
        "1      2026-11-22T01:19:05.250Z  P1     3      M1       3      Ch1.M1_T_servo_3<.mM1_servo_para_3>  "
        "1      "
        "  35.5     36   done\n"
        "2      2026-11-22T01:20:05.250Z  P1     3      M1       3      Ch1.M1_T_servo_3<.mM1_servo_para_3>  "
        "0      "
        "  20       99   refused 6: the value is out of range\n"
        "3      2026-11-22T01:21:05.250Z  P1     3      M2       12     Ch1.M2_T_servo_12<.mM2_fetext_12>    "
        "all    "
        "  \"ready\"  \"\"   unknown 2110: no answer\n");
}

TEST_F(ServoJournal, LeavesOutWhatNobodyAskedFor)
{
    writeThree();
    EXPECT_EQ(minutes({}), "19 20 21 ");
    EXPECT_EQ(minutes({"--since", "2026-11-22T01:20"}), "20 21 ");
    EXPECT_EQ(minutes({"--until", "2026-11-22T01:20"}), "19 20 ");
    EXPECT_EQ(minutes({"--since", "2026-11-22T01:19:06", "--until", "2026-11-22T01:21:04"}), "20 ");
    EXPECT_EQ(minutes({"--since", "2026-11-22", "--until", "2026-11-22"}), "19 20 21 ");
    EXPECT_EQ(minutes({"--until", "2026-11-21"}), "");
    EXPECT_EQ(minutes({"--servo", "3"}), "19 20 ");
    EXPECT_EQ(minutes({"--element", "1"}), "19 ");
    EXPECT_EQ(minutes({"--machine", "M2"}), "21 ");
    EXPECT_EQ(minutes({"--machine", "m2"}), "");
    EXPECT_EQ(minutes({"--panel", "P1"}), "19 20 21 ");
    EXPECT_EQ(minutes({"--panel", "P"}), "");
    EXPECT_EQ(minutes({"--variable", "FETEXT"}), "21 ");
    EXPECT_EQ(minutes({"--result", "done"}), "19 ");
    EXPECT_EQ(minutes({"--result", "refused"}), "20 ");
    EXPECT_EQ(minutes({"--result", "unknown"}), "21 ");
    EXPECT_EQ(minutes({"--servo", "3", "--result", "unknown"}), "");
}

TEST_F(ServoJournal, TellsWhatChangedFromWhatWasOnlySaidAgain)
{
    variables.WriteValue(para, variables.ReadValue(para));
    now += 60'000;
    change(1, 36);
    now += 60'000;
    variables.WriteValue(para, basic::doubles({1, 2, 3})); // nobody has read what it was before
    EXPECT_EQ(minutes({"--changes"}), "20 21 ");
    EXPECT_EQ(run({"--changes", "--element", "1"}), 0);
    EXPECT_NE(output.text.find("1        35.5  36   done\n"), std::string::npos) << output.text;
    EXPECT_EQ(run({"--until", "2026-11-22T01:19"}), 0);
    EXPECT_NE(output.text.find("none     unchanged  unchanged  done\n"), std::string::npos) << output.text;
    EXPECT_EQ(run({"--csv", "--until", "2026-11-22T01:19"}), 0);
    EXPECT_NE(output.text.find(",-1,\"[20, 35.5, 0]\",\"[20, 35.5, 0]\",done,"), std::string::npos)
        << output.text;
}

TEST_F(ServoJournal, WritesCsvThatOthersRead)
{
    variables.WriteValue(text, "a;b \"c\"\nd, e");
    variables.WriteValue(text, "=1+1");
    variables.WriteValue(text, "");
    change(1, -36);
    EXPECT_EQ(run({"--csv"}), 0);
    const std::string start = ",2026-11-22T01:19:05.250Z,P1,3,M2,12,Ch1.M2_T_servo_12<.mM2_fetext_12>,-1,,";
    EXPECT_EQ(output.text,
        "write,time,panel,level,machine,servo,variable,element,old,new,result,number,text\n1" + start
            + "\"a;b \"\"c\"\"\nd, e\",done,,\n2" + start + "'=1+1,done,,\n3" + start + "\"\",done,,\n"
            + "4,2026-11-22T01:19:05.250Z,P1,3,M1,3," + para + ",1,35.5,-36,done,,\n");
    const std::vector<portable::CsvLine> lines = portable::parseCsv(output.text);
    ASSERT_EQ(lines.size(), 5U);
    EXPECT_EQ(lines[1].cells[9], "a;b \"c\"\nd, e");
    EXPECT_EQ(portable::withFormula(*lines[2].cells[9]), "=1+1");
    EXPECT_EQ(lines[3].cells[9], "");
    EXPECT_FALSE(lines[3].cells[8]);
}

TEST_F(ServoJournal, KeepsControlCharactersFromTheTerminal)
{
    variables.WriteValue(text, "\x1B[2J\n");
    EXPECT_EQ(run({}), 0);
    EXPECT_EQ(output.text.find('\x1B'), std::string::npos);
    EXPECT_NE(output.text.find("\"\\x1B[2J\\n\""), std::string::npos) << output.text;
}

TEST_F(ServoJournal, BrokenLinesAreFindings)
{
    change(1, 36);
    put(content() + "nonsense\n");
    EXPECT_EQ(run({"--csv"}), 1);
    EXPECT_TRUE(output.errors.starts_with("journal: line 3: ")) << output.errors;
    EXPECT_NE(output.text.find(",35.5,36,done,"), std::string::npos) << output.text;
    folder.folder("journal.1");
    EXPECT_EQ(run({"--csv"}), 2);
    EXPECT_NE(output.text.find(",35.5,36,done,"), std::string::npos) << output.text;
}

TEST_F(ServoJournal, SaysWhatIsWrongWithTheCommandLine)
{
    EXPECT_EQ(run({}), 2);
    EXPECT_EQ(output.errors,
        "servo-journal: '" + folder.path().string() + "': there is no journal in this folder\n");
    const std::pair<std::vector<std::string>, std::string> rows[]{{{"--since"}, "--since needs a value"},
        {{"--since", "noon"}, "'noon' is no time such as 2026-11-22 or 2026-11-22T01:19"},
        {{"--servo", "3x"}, "'3x' is no number of a servo"},
        {{"--element", "-"}, "'-' is no number of an element"},
        {{"--result", "open"}, "'open' is no result; they are done, refused and unknown"},
        {{"--color"}, "unknown option --color"}, {{"other"}, "only one folder can be read: other"}};
    for (const auto& [arguments, problem] : rows) {
        EXPECT_EQ(run(arguments), 2);
        EXPECT_TRUE(output.errors.starts_with("servo-journal: " + problem + "\n\nservo-journal FOLDER"))
            << output.errors;
        EXPECT_EQ(output.text, "");
    }
    EXPECT_EQ(runAlone({}), 2);
    EXPECT_TRUE(output.errors.starts_with("servo-journal: the folder of the journal is missing\n"));
    EXPECT_EQ(runAlone({"--help"}), 0);
    EXPECT_TRUE(output.text.starts_with("servo-journal FOLDER [OPTION...]\n"));
}

} // namespace servopanel::testing
