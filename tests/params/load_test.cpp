#include "params/params_fixture.h"

#include "journal/journal_reader.h"

#include <csignal>

namespace servopanel::testing {

namespace {

class ServoParamsLoad : public ParamsFixture {
protected:
    // Two setpoints and a switch of servo 3 differ from what the machine holds, the third setpoint does not.
    std::string three()
    {
        return setFile(row("servo_para", 3, 0, "25") + row("servo_para", 3, 1, "30.5")
            + row("servo_para", 3, 2, "0") + row("servo_schalt", 3, 1, "1"));
    }
    void answer(std::vector<std::string> answers)
    {
        surroundings.ask = [this, answers, i = std::size_t{0}](
                               const std::string& question) mutable -> std::optional<std::string> {
            questions.append(question);
            if (asked) asked();
            if (i == answers.size()) return {};
            return answers[i++];
        };
    }

    std::string questions;
    std::function<void()> asked;
};

const std::string para = variable("servo_para", 3);
const std::string flag = variable("servoaender", 3);

} // namespace

TEST_F(ServoParamsLoad, SendsNothingWithoutApply)
{
    described = line_machine::describeMachine(store, "M1").hash();
    EXPECT_EQ(load(three(), {"--level", "3"}), 1) << output.errors;
    EXPECT_EQ(output.text,
        "servo  family        element  name  unit  machine  file  result\n"
        "3      servo_para    0                    20       25    to be written\n"
        "3      servo_para    1                    35.5     30.5  to be written\n"
        "3      servo_schalt  1                    0        1     to be written\n"
        "3 to be written, 1 unchanged\n"
        "Nothing was sent; --apply writes.\n");
    EXPECT_TRUE(says("1 row to be written without a definition, which the page does not show"))
        << output.errors;
    EXPECT_EQ(commands(), "");
    EXPECT_EQ(held("servo_para", 3, 0), 20);
}

TEST_F(ServoParamsLoad, WritesWholeArraysAndTellsTheServo)
{
    EXPECT_EQ(load(three(), {"--level", "3", "--apply"}), 0) << output.errors << output.text;
    EXPECT_TRUE(shows("20       25    done\n")) << output.text;
    EXPECT_TRUE(shows("3 done, 1 unchanged\n")) << output.text;
    EXPECT_EQ(commands(), para + " " + variable("servo_schalt", 3) + " " + flag + " ");
    EXPECT_EQ(store.ReadValue(para), basic::doubles({25, 30.5, 0}));
    EXPECT_EQ(word("servo_schalt", 3), 39) << "bits that the page does not show stay";
    EXPECT_EQ(word("servoaender", 3), 1);
    EXPECT_EQ(word("servoaender", 1), 0);
    EXPECT_EQ(store.ReadValue(variable("servo_para", 1)), basic::doubles({10, 20, 30}));
}

TEST_F(ServoParamsLoad, WritesNothingTheSecondTime)
{
    const std::string file = three();
    ASSERT_EQ(load(file, {"--level", "3", "--apply"}), 0) << output.errors;
    const std::string sent = commands();
    EXPECT_EQ(load(file, {"--level", "3", "--apply"}), 0) << output.errors;
    EXPECT_EQ(output.text, "4 unchanged\n");
    EXPECT_EQ(commands(), sent);
    EXPECT_EQ(load(file, {"--level", "3", "--apply", "--all"}), 0);
    EXPECT_TRUE(shows("3      servo_para    2                    0        0     unchanged\n")) << output.text;
}

TEST_F(ServoParamsLoad, LeavesUntouchedElementsAsTheMachineHasThem)
{
    const std::string file = three();
    answer({"y", "y", "y"});
    // Somebody else changes the element that the file does not change, while the engineer is thinking.
    asked = [this] {
        set("servo_para", 3, {20, 35.5, 7});
        pass(3000);
    };
    EXPECT_EQ(load(file, {"--level", "3", "--apply", "--ask"}), 0) << output.errors << output.text;
    EXPECT_EQ(store.ReadValue(para), basic::doubles({25, 30.5, 7}));
}

TEST_F(ServoParamsLoad, RefusesARowThatSomebodyElseHasChanged)
{
    const std::string file = three();
    answer({"a"});
    asked = [this] {
        set("servo_para", 3, {20, 36, 0});
        pass(3000);
    };
    EXPECT_EQ(load(file, {"--level", "3", "--apply", "--ask"}), 2);
    EXPECT_TRUE(shows("30.5  refused: somebody else has changed the value meanwhile: the machine holds 36\n"))
        << output.text;
    EXPECT_TRUE(shows("2 done, 1 refused, 1 unchanged\n")) << output.text;
    EXPECT_EQ(store.ReadValue(para), basic::doubles({25, 36, 0}));
}

TEST_F(ServoParamsLoad, RefusesRowsBeforeAnythingIsSent)
{
    const std::string file = setFile(row("servo_para", 3, 0, "31") + row("servo_para", 3, 1, "30.5")
        + row("servo_para", 3, 2, "50.5") + row("servo_para", 3, 3, "1") + row("servo_para2", 3, 0, "2.5")
        + row("servo_schalt", 3, 0, "2") + row("servo_schalt", 3, 3, "1"));
    EXPECT_EQ(load(file, {"--level", "2", "--apply"}), 2);
    EXPECT_TRUE(shows("31    refused: by the definitions: 31 is above Max 30\n")) << output.text;
    EXPECT_TRUE(shows("30.5  refused: the access level is too low: element 1: level 3 is needed\n"))
        << output.text;
    EXPECT_TRUE(shows("50.5  refused: the value is out of range: element 2: 50.5 is beyond the limit 50\n"))
        << output.text;
    EXPECT_TRUE(shows("-        1     refused: the machine has 3 elements\n")) << output.text;
    EXPECT_TRUE(shows("2     refused: a switch is 0 or 1\n")) << output.text;
    EXPECT_TRUE(shows("1     refused: the access level is too low: bit 3: level 4 is needed\n"))
        << output.text;
    EXPECT_TRUE(shows("1 done, 6 refused\n")) << output.text;
    EXPECT_EQ(commands(), variable("servo_para2", 3) + " " + flag + " ");
}

TEST_F(ServoParamsLoad, ReportsWhatTheControllerRefuses)
{
    controller->orderFault(R"({"fault": "refuse", "code": "busy", "times": 1})");
    EXPECT_EQ(load(three(), {"--level", "3", "--apply"}), 2);
    EXPECT_TRUE(shows("25    refused: the controller is busy: on purpose\n")) << output.text;
    EXPECT_TRUE(shows("30.5  refused: the controller is busy: on purpose\n")) << output.text;
    EXPECT_TRUE(shows("0        1     done\n")) << output.text;
    EXPECT_EQ(held("servo_para", 3, 0), 20);
    EXPECT_EQ(word("servoaender", 3), 1) << "the switch was written";
}

TEST_F(ServoParamsLoad, EndsWithTheFirstWriteThatIsNotAnswered)
{
    controller->orderFault(R"({"fault": "silent", "times": 1})");
    EXPECT_EQ(load(three(), {"--level", "3", "--apply"}), 2);
    EXPECT_TRUE(shows("25    unknown: no answer, and the machine does not hold the new value\n"))
        << output.text;
    EXPECT_TRUE(shows("1     not sent: the write before it was not answered\n")) << output.text;
    EXPECT_TRUE(shows("1 not sent, 2 unknown, 1 unchanged\n")) << output.text;
    EXPECT_TRUE(says("no answer: the machine may be gone, or the broker lets our name only look on"))
        << output.errors;
    EXPECT_EQ(commands(), para + " ");
    EXPECT_EQ(word("servoaender", 3), 0);
}

TEST_F(ServoParamsLoad, SaysWhenTheServoWasNotTold)
{
    controller->orderFault(R"({"fault": "silent", "times": 1, "acts": true})");
    EXPECT_EQ(load(three(), {"--level", "3", "--apply"}), 2);
    EXPECT_TRUE(shows("25    unknown: no answer, but the machine holds the new value\n")) << output.text;
    EXPECT_TRUE(says("servo 3: the machine has the values and does not know of it: ")) << output.errors;
    EXPECT_EQ(word("servoaender", 3), 0);
}

TEST_F(ServoParamsLoad, ChoosesRows)
{
    const std::string file = folder
                                 .file("named.csv",
                                     "servo parameters,1\nmachine,M1\nvariable,element,name,unit,value\n"
                                         + para + ",0,Web tension,N,25\n" + para + ",1,Draw,%,30.5\n"
                                         + variable("servo_schalt", 3) + ",1,,,1\n")
                                 .string();
    EXPECT_EQ(load(file, {"--level", "3", "--only", "servo_para", "--except", "WEB TENSION"}), 1)
        << output.errors;
    EXPECT_TRUE(shows("1 to be written, 2 left out\n")) << output.text;
    EXPECT_TRUE(shows("30.5  to be written\n")) << output.text;
    EXPECT_EQ(load(file, {"--level", "3", "--only", "servo_schalt:1", "--apply"}), 0) << output.errors;
    EXPECT_TRUE(shows("1 done, 2 left out\n")) << output.text;
    EXPECT_EQ(commands(), variable("servo_schalt", 3) + " " + flag + " ");
    EXPECT_EQ(load(file, {"--only", "servo_para:7"}), 2);
    EXPECT_EQ(output.errors, "servo-params: the file has no row 'servo_para:7'\n");
}

TEST_F(ServoParamsLoad, AsksForEachRow)
{
    EXPECT_EQ(load(three(), {"--apply", "--ask"}), 2);
    EXPECT_TRUE(says("--ask needs a terminal")) << output.errors;
    answer({"n", "what?", "y"});
    EXPECT_EQ(load(three(), {"--level", "3", "--apply", "--ask"}), 0) << output.errors;
    EXPECT_NE(shown.find("the machine describes its variables otherwise"), std::string::npos) << shown;
    EXPECT_EQ(sentBefore, "");
    EXPECT_EQ(store.ReadValue(para), basic::doubles({20, 30.5, 0}));
    EXPECT_TRUE(shows("1 done, 2 left out, 1 unchanged\n")) << output.text;
    answer({"q"});
    EXPECT_EQ(load(three(), {"--level", "3", "--apply", "--ask"}), 0) << output.errors;
    EXPECT_EQ(store.ReadValue(para), basic::doubles({20, 30.5, 0}));
}

TEST_F(ServoParamsLoad, GoesToAnotherServoWhereThatIsSaid)
{
    const std::string file = setFile(row("servo_para", 3, 0, "25") + row("servo_para", 3, 1, "30"));
    EXPECT_EQ(load(file, {"--servo", "1", "--apply"}), 0) << output.errors << output.text;
    EXPECT_TRUE(says("servo 3 of the file goes to servo 1 of machine M1")) << output.errors;
    EXPECT_TRUE(
        says("servo 1, servo_para: the machine has 3 elements, the file 2; the others stay as they are"))
        << output.errors;
    EXPECT_EQ(store.ReadValue(variable("servo_para", 1)), basic::doubles({25, 30, 30}));
    EXPECT_EQ(store.ReadValue(para), basic::doubles({20, 35.5, 0}));
    const std::string both =
        setFile(row("servo_para", 1, 0, "11") + row("servo_para", 3, 0, "25"), "both.csv");
    EXPECT_EQ(load(both, {"--servo", "3", "--from", "1", "--level", "5"}), 1) << output.errors;
    EXPECT_TRUE(shows("20       11    to be written\n")) << output.text;
    EXPECT_EQ(load(both, {"--servo", "4"}), 2);
    EXPECT_EQ(output.errors, "servo-params: the file has no servo 4; its servos are 1, 3\n");
    EXPECT_EQ(load(file, {"--servo", "4"}), 2);
    EXPECT_TRUE(says("machine M1 has no parameters of a servo 4; its servos are 1, 3")) << output.errors;
}

TEST_F(ServoParamsLoad, WritesWithoutDefinitionsOnlyWhenThatIsSaid)
{
    std::filesystem::remove(folder.path() / "project" / "Servo" / "Servo.mdb");
    const std::string file = setFile(row("servo_para", 3, 0, "31"));
    EXPECT_EQ(load(file, {"--level", "3"}), 1);
    EXPECT_TRUE(says("the definitions of the project cannot be read: ")) << output.errors;
    EXPECT_EQ(load(file, {"--level", "3", "--apply"}), 2);
    EXPECT_TRUE(says("; --no-definitions goes on without them")) << output.errors;
    EXPECT_EQ(commands(), "");
    EXPECT_EQ(load(file, {"--level", "3", "--apply", "--no-definitions"}), 0) << output.errors;
    EXPECT_EQ(held("servo_para", 3, 0), 31);
}

TEST_F(ServoParamsLoad, RefusesWhatTheMachinesTypeCannotHold)
{
    const std::string singles = variable("servo_para2", 1);
    store.declare(singles, basic::Array{basic::VariantType::Single, 0, {basic::Variant{0.1F}}});
    controller.emplace(line_machine::ControllerSettings{.machine = "M1", .epoch = 1'700'000'000'001},
        line_machine::describeMachine(store, "M1"), store, machineLink, clock);
    EXPECT_EQ(load(setFile(row("servo_para2", 1, 0, "0.1")), {"--apply"}), 0) << output.text;
    EXPECT_EQ(output.text, "1 unchanged\n");
    EXPECT_EQ(load(setFile(row("servo_para2", 1, 0, "16777217")), {"--apply"}), 2);
    EXPECT_TRUE(shows("refused: the machine cannot hold exactly this number\n")) << output.text;
    EXPECT_EQ(load(setFile(row("servo_para2", 1, 0, "0.3")), {"--apply"}), 0) << output.text;
    EXPECT_EQ(
        store.ReadValue(singles), (basic::Array{basic::VariantType::Single, 0, {basic::Variant{0.3F}}}));
    EXPECT_EQ(load(setFile(row("servo_para2", 1, 0, "0.3")), {"--apply"}), 0);
    EXPECT_EQ(output.text, "1 unchanged\n");
}

TEST_F(ServoParamsLoad, KeepsAJournal)
{
    const std::string journal = folder.folder("journal").string();
    EXPECT_EQ(load(three(), {"--level", "3", "--apply", "--journal", journal, "--name", "office"}), 0)
        << output.errors;
    const journal::Journal kept = journal::readJournal(journal);
    ASSERT_EQ(kept.entries.size(), 4U);
    EXPECT_EQ(kept.entries[0].panel, "office");
    EXPECT_EQ(kept.entries[0].level, 3);
    EXPECT_EQ(kept.entries[0].variable, para);
    EXPECT_EQ(kept.entries[0].element, 0);
    EXPECT_EQ(kept.entries[0].oldValue, 20.0);
    EXPECT_EQ(kept.entries[0].newValue, 25.0);
    EXPECT_EQ(kept.entries[0].result, journal::Result::Done);
    EXPECT_EQ(kept.entries[1].element, 1);
    EXPECT_EQ(kept.entries[3].variable, flag);
    EXPECT_EQ(
        load(setFile(row("servo_para", 3, 0, "26")), {"--level", "3", "--apply", "--journal", "/nowhere"}),
        2);
    EXPECT_TRUE(says("the journal cannot be written, nothing was sent: ")) << output.errors;
    EXPECT_EQ(held("servo_para", 3, 0), 25);
}

TEST_F(ServoParamsLoad, StoppedTellsTheMachineWhatItHasAndShowsTheRest)
{
    for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
        const std::size_t before = controller->seen().size();
        set("servo_para", 1, {10, 20, 30});
        set("servo_para", 3, {20, 35.5, 0});
        pass(3000);
        net.others = [this, signal, before] {
            controller->poll(0);
            if (controller->seen().size() == before + 1) ::raise(signal); // the first write is under way
        };
        const std::string file = setFile(
            row("servo_para", 1, 0, "11") + row("servo_para2", 1, 0, "2.5") + row("servo_para", 3, 0, "25"));
        EXPECT_EQ(load(file, {"--level", "3", "--apply"}), 2);
        EXPECT_TRUE(shows("11    done\n")) << output.text;
        EXPECT_TRUE(shows("2.5   not sent: stopped\n")) << output.text;
        EXPECT_TRUE(shows("25    not sent: stopped\n")) << output.text;
        ASSERT_EQ(controller->seen().size(), before + 2);
        EXPECT_EQ(controller->seen().back().name, variable("servoaender", 1));
        EXPECT_EQ(held("servo_para", 3, 0), 20);
    }
    net.others = [this] { controller->poll(0); };
    EXPECT_EQ(load(three(), {"--level", "3", "--apply"}), 0) << "the next one knows nothing of it";
}

TEST_F(ServoParamsLoad, GoesOnWithoutADriveThatIsGone)
{
    controller->orderFault(R"({"fault": "absent", "match": "servo_1<"})");
    const std::string file = setFile(row("servo_para", 1, 0, "11") + row("servo_para", 3, 0, "25"));
    EXPECT_EQ(load(file, {"--level", "3", "--apply"}), 2);
    EXPECT_TRUE(shows("-        11    refused: it cannot be read: ")) << output.text;
    EXPECT_TRUE(shows("20       25    done\n")) << output.text;
    EXPECT_EQ(held("servo_para", 1, 0), 10);
}

TEST_F(ServoParamsLoad, SendsNothingWhenTheMachineIsGoneMeanwhile)
{
    answer({"a"});
    asked = [this] {
        controller.reset();
        pass(3000);
    };
    EXPECT_EQ(load(three(), {"--level", "3", "--apply", "--ask"}), 2);
    EXPECT_TRUE(shows("25    not sent: machine M1")) << output.text;
    EXPECT_TRUE(shows("3 not sent, 1 unchanged\n")) << output.text;
    EXPECT_EQ(held("servo_para", 3, 0), 20);
}

TEST_F(ServoParamsLoad, SaysWhoseFileItIs)
{
    const std::string file = folder
                                 .file("m2.csv",
                                     "servo parameters,1\nmachine,M2\nvariable,element,name,unit,value\n"
                                         + variable("servo_para", 3, "M2") + ",0,,,22\n")
                                 .string();
    EXPECT_EQ(load(file, {"--level", "1"}), 1) << output.errors;
    EXPECT_TRUE(says("the file is of machine M2, not of M1")) << output.errors;
    EXPECT_TRUE(shows("20       22    to be written\n")) << output.text;
    EXPECT_EQ(load(file, {"--level", "1", "--apply"}), 2);
    EXPECT_EQ(output.errors,
        "servo-params: the file is of machine M2, not of M1; --other-machine writes all the same\n");
    EXPECT_EQ(commands(), "");
    EXPECT_EQ(load(file, {"--level", "1", "--apply", "--other-machine"}), 0) << output.errors;
    EXPECT_EQ(held("servo_para", 3, 0), 22);
    EXPECT_NE(shown.find("the file is of machine M2, not of M1\n"), std::string::npos) << shown;
    EXPECT_NE(shown.find("servo 3 of the file goes to servo 3 of machine M1\n"), std::string::npos) << shown;
    EXPECT_EQ(sentBefore, "") << "he knew it before anything was sent";
    EXPECT_EQ(load("/nowhere.csv"), 2);
    EXPECT_TRUE(says("/nowhere.csv")) << output.errors;
}

} // namespace servopanel::testing
