// Each rule notices the fault that it is about, and lets what is right pass. Traces and screens are made up here: a
// library that does such things is not to be had.
#include "monkey/rules.h"

#include "monkey/project.h"

#include <gtest/gtest.h>

#include <map>
#include <set>

namespace servopanel::monkey {

namespace {

using basic::Variant;

class FakeScreen : public Screen {
public:
    const Variant* variable(std::string_view name) override
    {
        const auto found = variables.find(name);
        return found == variables.end() ? nullptr : &found->second;
    }
    bool isShown() override { return true; }
    bool isSeen(std::string_view part) override { return part == "ServoMain" ? page : menu; }
    std::set<std::int16_t> marked() override { return green; }
    bool offersConfirm() override { return offered; }
    bool isConfirmOn() override { return confirmOn; }
    bool isInputOpen() override { return inputOpen; }
    bool takesEveryNumber() override { return everyNumber; }

    std::map<std::string, Variant, std::less<>> variables;
    bool page = true;
    bool menu = false;
    std::set<std::int16_t> green; // inputs
    bool offered = false;
    bool confirmOn = true;
    bool inputOpen = false;
    bool everyNumber = false;
};

const std::string offer = "call ServoMain.Fußzeile.0x68030007(10, \"Standard\\OK.wmf\")\n";
const std::string maskOpens = "put ServoMain.Eingabemaske.0x68030000 = true\n";

const std::string report = "error 5 \"Ma WerteSchreiben\" \"no answer\"\n";

class RulesTest : public ::testing::Test {
protected:
    RulesTest()
    {
        for (const int servo : servos) {
            screen_.variables[name(servo, "_servo_para_")] = Variant{basic::doubles({1.5, 2, 3})};
            screen_.variables[name(servo, "_servo_para2_")] = Variant{basic::doubles({21, 22})};
            screen_.variables[name(servo, "_servo_para_ob_")] = Variant{basic::doubles({100, 100, 100})};
            screen_.variables[name(servo, "_servo_schalt_")] = Variant{std::int32_t{5}};
            screen_.variables[name(servo, "_servo_zeich_")] = Variant{basic::doubles({123456789, 0})};
            screen_.variables[name(servo, "_servoaender_")] = Variant{std::int16_t{0}};
        }
    }

    static std::string name(int servo, std::string_view family) { return servoVariable(servo, family); }
    static std::string read(int servo, std::string_view family, const std::string& value)
    {
        return "read " + name(servo, family) + " = " + value + "\n";
    }
    static std::string readAll(int servo)
    {
        return read(servo, "_servo_para_", "[1.5, 2, 3]") + read(servo, "_servo_para_un_", "[0, 0, 0]")
            + read(servo, "_servo_para_ob_", "[100, 100, 100]") + read(servo, "_servo_para2_", "[21, 22]")
            + read(servo, "_servo_schalt_", "5") + read(servo, "_servo_zeich_", "[123456789, 0]");
    }

    // What is broken after a command with this trace; "" when nothing is.
    std::string after(const std::string& trace)
    {
        const std::optional<std::string> wrong = rules_.broken(trace);
        rules_.before();
        return wrong.value_or("");
    }
    void showServo(int place)
    {
        rules_.before();
        ASSERT_EQ(
            after("> menuup BildIm " + std::to_string(place) + " 1 1\nwrite Ch-1.intern<.servo_zeiger> = "
                + std::to_string(place) + "\n" + readAll(servos[place - 1])),
            "");
    }
    // An input with a number of the operator's that waits.
    std::string enter(const std::string& input, const std::string& number)
    {
        screen_.inputOpen = true;
        std::string wrong = after("> touch " + input + "\n" + maskOpens);
        screen_.inputOpen = false;
        screen_.green.insert(itemOf(input));
        screen_.offered = true;
        return wrong + after("> mask " + number + "\n" + offer);
    }
    void nothingWaits()
    {
        screen_.green.clear();
        screen_.offered = false;
    }
    // A write that the machine takes.
    std::string write(int servo, std::string_view family, const Variant& value, const std::string& text)
    {
        screen_.variables[name(servo, family)] = value;
        return "write " + name(servo, family) + " = " + text + "\n";
    }
    std::string setpoints(int servo, double first, const std::string& text)
    {
        return write(servo, "_servo_para_", Variant{basic::doubles({first, 2, 3})}, "[" + text + ", 2, 3]");
    }
    std::string told(int servo) { return write(servo, "_servoaender_", Variant{std::int16_t{1}}, "1"); }
    std::string confirmed(const std::string& writes)
    {
        nothingWaits();
        return after("> key 10\n" + writes);
    }

    FakeScreen screen_;
    Rules rules_{screen_};
};

#define EXPECT_RULE(text, broken) EXPECT_NE((broken).find(text), std::string::npos) << (broken)

TEST_F(RulesTest, AConfirmWritesWhatWasEntered)
{
    showServo(1);
    EXPECT_EQ(enter("SollwertL 1", "9"), "");
    EXPECT_EQ(confirmed(setpoints(3, 9, "9") + told(3) + readAll(3)), "");
    EXPECT_EQ(rules_.tally().times(Tally::confirms, "3"), 1U);
    EXPECT_EQ(rules_.tally().times(Tally::values, "setpoints"), 1U);
}

TEST_F(RulesTest, AConfirmWritesNoOtherNumber)
{
    showServo(1);
    enter("SollwertL 1", "9");
    EXPECT_RULE("is written as 777, and the operator meant 9", confirmed(setpoints(3, 777, "777") + told(3)));
}

TEST_F(RulesTest, AConfirmWritesTheServoThatIsShown)
{
    showServo(1);
    enter("SollwertL 1", "9");
    EXPECT_RULE("is written on the page of servo 3", confirmed(setpoints(5, 9, "9")));
}

TEST_F(RulesTest, AConfirmTellsTheServoThatIsShown)
{
    showServo(1);
    enter("SollwertL 1", "9");
    EXPECT_RULE("'Ch1.M1_T_servo_5<.mM1_servoaender_5>' is written on the page of servo 3",
        confirmed(setpoints(3, 9, "9") + told(5)));
}

TEST_F(RulesTest, AConfirmTellsTheMachine)
{
    showServo(1);
    enter("SollwertL 1", "9");
    EXPECT_RULE("does not tell servo 3", confirmed(setpoints(3, 9, "9")));
}

TEST_F(RulesTest, TheMachineIsToldOfAConfirmAlone)
{
    showServo(1);
    EXPECT_RULE("and nothing was entered", confirmed(told(3)));
    EXPECT_RULE("is written by 'timer'", after("> timer\n" + told(3)));
}

TEST_F(RulesTest, NothingThatNobodyTouchedChanges)
{
    showServo(1);
    enter("SollwertL 2", "9");
    EXPECT_RULE("nobody touched element 0", confirmed(setpoints(3, 9, "9") + told(3)));
}

TEST_F(RulesTest, WhatWasEnteredIsWritten)
{
    showServo(1);
    enter("SollwertL 21", "9");
    EXPECT_RULE(
        "was changed and confirmed, and is not written", confirmed(setpoints(3, 1.5, "1.5") + told(3)));
}

TEST_F(RulesTest, WhatTheMachineDoesNotTakeIsReported)
{
    showServo(1);
    enter("SollwertL 1", "9");
    const std::string failed = "write " + name(3, "_servo_para_") + " failed\n";
    EXPECT_EQ(confirmed(failed + report + told(3)), "");
    enter("SollwertL 1", "9");
    EXPECT_RULE("cannot be written, and nobody is told", confirmed(failed + told(3)));
    // A report of something else is none of this.
    enter("SollwertL 1", "9");
    EXPECT_RULE("cannot be written, and nobody is told", confirmed(report + failed + told(3) + report));
}

TEST_F(RulesTest, WhatTheMachineDoesNotGiveIsReported)
{
    showServo(1);
    enter("SollwertL 1", "9");
    const std::string failed = "read " + name(3, "_servo_para_") + " failed\n";
    EXPECT_EQ(confirmed(failed + report + told(3)), "");
    enter("SollwertL 1", "9");
    EXPECT_RULE("cannot be read, and nobody is told", confirmed(report + failed + told(3) + report));
    EXPECT_RULE("cannot be read, and nobody is told", after("> timer\n" + failed));
}

// The page reads a family to show it, then to write it, and then shows it again: it need not be written when the second of
// these reads fails.
TEST_F(RulesTest, WhatCanBeReadForAConfirmIsWritten)
{
    const std::string good = read(3, "_servo_para_", "[1.5, 2, 3]");
    const std::string bad = "read " + name(3, "_servo_para_") + " failed\n" + report;
    const std::string written = "was changed and confirmed, and is not written";
    showServo(1);
    enter("SollwertL 1", "9");
    EXPECT_EQ(confirmed(good + bad + told(3) + good), "");
    enter("SollwertL 1", "9");
    EXPECT_RULE(written, confirmed(bad + good + told(3)));
    enter("SollwertL 1", "8");
    EXPECT_RULE(written, confirmed(good + told(3) + bad));
}

TEST_F(RulesTest, AConfirmWritesEachFamilyOnce)
{
    showServo(1);
    enter("SollwertL 1", "9");
    const std::string once = setpoints(3, 9, "9");
    EXPECT_RULE("is written twice by one confirm", confirmed(once + once + told(3)));
    enter("SollwertL 1", "9");
    const std::string failed = "write " + name(3, "_servo_para_") + " failed\n" + report;
    EXPECT_RULE("is written twice by one confirm", confirmed(failed + once + told(3)));
}

TEST_F(RulesTest, AfterTheMachineIsToldNothingIsWritten)
{
    const std::string over = "is written after the confirm is over";
    showServo(1);
    enter("SollwertL 1", "9");
    EXPECT_RULE(over, confirmed(setpoints(3, 9, "9") + told(3) + told(3)));
    enter("SollwertL 1", "8");
    EXPECT_RULE(over, confirmed(told(3) + setpoints(3, 8, "8")));
    // Nor when the machine did not take it.
    enter("SollwertL 1", "7");
    EXPECT_RULE(
        over, confirmed("write " + name(3, "_servoaender_") + " failed\n" + report + setpoints(3, 7, "7")));
}

// The mask was left; on the way to another servo and back the touch is forgotten.
TEST_F(RulesTest, AnInputThatWasGivenUpIsNotWritten)
{
    showServo(1);
    after("> touch SollwertL 1\n" + maskOpens);
    after("> mask cancel\n" + readAll(3));
    after("> key 6\nwrite Ch-1.intern<.servo_zeiger> = 2\n" + readAll(5));
    after("> key 5\nwrite Ch-1.intern<.servo_zeiger> = 1\n" + readAll(3));
    enter("SollwertL 2", "9");
    EXPECT_RULE("nobody touched element 0",
        confirmed(write(3, "_servo_para_", Variant{basic::doubles({777, 9, 3})}, "[777, 9, 3]") + told(3)));
}

// It keeps the value of the moment when it was touched, as it is to be seen.
TEST_F(RulesTest, ATouchedInputIsWrittenAsItIsShown)
{
    showServo(1);
    enter("SollwertL 2", "9");
    after("> touch SollwertL 1\n" + maskOpens);
    after("> mask cancel\n" + offer);
    EXPECT_EQ(
        confirmed(write(3, "_servo_para_", Variant{basic::doubles({1.5, 9, 3})}, "[1.5, 9, 3]") + told(3)),
        "");
}

TEST_F(RulesTest, NothingIsTakenBeyondItsLimits)
{
    showServo(1);
    EXPECT_EQ(enter("SollwertL 1", "100"), "");
    EXPECT_RULE("lies outside its limits", enter("SollwertL 1", "100.5"));
    EXPECT_EQ(enter("SollwertL 1", "0"), "");
    EXPECT_RULE("lies outside its limits", enter("SollwertL 1", "-0.5"));
    after("> timer\n" + read(3, "_servo_para_un_", "[10, 0, 0]"));
    EXPECT_RULE("lies outside its limits", enter("SollwertL 1", "9.5"));
}

TEST_F(RulesTest, ANumberIsEnteredInAnInput)
{
    showServo(1);
    EXPECT_RULE("'mask 5' is taken, and no input was touched", after("> mask 5\n" + offer));
}

// Unless the mask began with a number that may not be the machine's.
TEST_F(RulesTest, TheNumberThatStandsThereIsNoChange)
{
    const std::string noChange = "a confirm is offered, and nothing was entered";
    showServo(1);
    screen_.offered = true;
    after("> touch SollwertL 1\n" + maskOpens);
    EXPECT_RULE(noChange, after("> mask 1.5\n" + offer));
    screen_.offered = false;
    after("> touch SollwertL 1\n" + maskOpens);
    EXPECT_EQ(after("> mask 1.5\n"), "");

    screen_.everyNumber = screen_.inputOpen = true;
    after("> touch SollwertL 1\n" + maskOpens);
    screen_.inputOpen = false;
    screen_.offered = true;
    screen_.green = {1};
    EXPECT_EQ(after("> mask 1.5\n" + offer), "");
}

TEST_F(RulesTest, ATouchThatIsNotRefusedDoesSomething)
{
    const std::string noAnswer = "'touch SollwertL 1' does nothing";
    showServo(1);
    EXPECT_RULE(noAnswer, after("> touch SollwertL 1\n"));
    EXPECT_RULE(noAnswer, after("> touch SollwertL 1\nput ServoMain.Eingabemaske.Left = 3210\n"));
    EXPECT_EQ(after("> touch SollwertL 1\nrefused touch\n"), "");
    EXPECT_EQ(after("> touch SollwertL 1\nmessage \"No permission\"\n"), "");
    EXPECT_EQ(after("> touch SollwertL 1\nput ServoMain.IniEingabe.0x68030009 = true\n"), "");
    EXPECT_RULE("'touch SchalterL 31' does nothing", after("> touch SchalterL 31\n"));
    screen_.inputOpen = true;
    after("> timer\n");
    EXPECT_EQ(after("> touch SollwertL 1\n"), ""); // one input at a time
}

TEST_F(RulesTest, KeysLeadToTheServoBeside)
{
    const auto to = [](int place, int servo) {
        return "write Ch-1.intern<.servo_zeiger> = " + std::to_string(place) + "\n" + readAll(servo);
    };
    showServo(1);
    EXPECT_EQ(after("> key 6\n" + to(2, 5)), "");
    EXPECT_EQ(after("> key 5\n" + to(1, 3)), "");
    EXPECT_RULE("'key 6' leads from place 1 to place 3", after("> key 6\n" + to(3, 7)));
    EXPECT_RULE("'key 5' leads from place 3 to place 3", after("> key 5\n" + to(3, 7)));
    // Forgotten for the next start is not forgotten by the page.
    after("> key 6\n" + to(2, 5));
    after("> key 11\nwrite Ch-1.intern<.servo_zeiger> = 0\n");
    EXPECT_EQ(after("> key 6\n" + to(3, 7)), "");
    // Whoever makes the control anew takes over what is remembered.
    EXPECT_EQ(after("> create\n" + to(1, 3)), "");
    // Where the machine was not told of the place, nobody knows where the keys lead.
    EXPECT_EQ(after("> key 6\nwrite Ch-1.intern<.servo_zeiger> failed\n" + report + readAll(5)), "");
    EXPECT_EQ(after("> key 6\n" + to(3, 7)), "");
}

TEST_F(RulesTest, TheServoOfThePlaceIsRead)
{
    showServo(1);
    EXPECT_RULE("'key 6' leads to servo 5 and reads servo 7",
        after("> key 6\nwrite Ch-1.intern<.servo_zeiger> = 2\n" + readAll(7)));
}

TEST_F(RulesTest, ATouchTurnsASwitch)
{
    showServo(1);
    screen_.offered = true;
    const std::string touch = "> touch SchalterL 31\nput ServoMain.SchalterL(31).0x68030000 = ";
    EXPECT_EQ(after(touch + "false\n" + offer), "");
    EXPECT_RULE("leaves switch 31 as it was", after(touch + "false\n" + offer));
}

TEST_F(RulesTest, ASwitchIsWrittenAsItWasTurned)
{
    showServo(1);
    screen_.offered = true;
    EXPECT_EQ(after("> touch SchalterL 31\nput ServoMain.SchalterL(31).0x68030000 = false\n" + offer), "");
    EXPECT_EQ(
        confirmed(write(3, "_servo_schalt_", Variant{std::int32_t{4}}, "4") + told(3) + readAll(3)), "");
    screen_.offered = true;
    after("> touch SchalterL 32\nput ServoMain.SchalterL(32).0x68030000 = true\n" + offer);
    EXPECT_RULE("the operator meant 1",
        confirmed(write(3, "_servo_schalt_", Variant{std::int32_t{4}}, "4") + told(3)));
}

TEST_F(RulesTest, ADrawingNumberIsWrittenOfItsParts)
{
    showServo(1);
    enter("ZeichnungL 43", "7");
    EXPECT_EQ(confirmed(write(3, "_servo_zeich_", Variant{basic::doubles({123076789, 0})}, "[123076789, 0]")
                  + told(3) + readAll(3)),
        "");
    enter("ZeichnungL 43", "8");
    EXPECT_RULE("the operator meant 123086789",
        confirmed(
            write(3, "_servo_zeich_", Variant{basic::doubles({8456789, 0})}, "[8456789, 0]") + told(3)));
}

TEST_F(RulesTest, LimitsAreNotWritten)
{
    showServo(1);
    EXPECT_RULE("is written by 'timer', and nothing writes it",
        after("> timer\nwrite " + name(3, "_servo_para_ob_") + " = [100, 100, 100]\n"));
}

TEST_F(RulesTest, OtherVariablesAreWrittenByTheirKeysAlone)
{
    showServo(1);
    EXPECT_RULE("'Ch-1.intern<.passwort>' is written by 'touch SollwertL 1'",
        after("> touch SollwertL 1\nwrite Ch-1.intern<.passwort> = 5\n"));
    EXPECT_RULE("is written by 'key 5'", after("> key 5\nwrite Ch-1.intern<.passwort> = 5\n"));
    EXPECT_RULE("is written by 'timer'", after("> timer\nwrite Ch-1.intern<.servo_zeiger> = 1\n"));
    EXPECT_RULE("as 2", after("> key 11\nwrite Ch-1.intern<.servo_zeiger> = 2\n"));
    EXPECT_EQ(after("> key 11\nwrite Ch-1.intern<.servo_zeiger> = 0\n"), "");
    EXPECT_EQ(after("> create\nwrite Ch-1.intern<.ocxname> = \"Servo\"\n"), "");
    EXPECT_RULE("' is written by 'create' with another name",
        after("> create\nwrite Ch-1.intern<.ocxname> = \"Servos\"\n"));
    EXPECT_RULE("' is written by 'create', and it is no value",
        after("> create\nwrite Ch-1.intern<.ocxname> = Servo\n"));
    const std::string countdown = "write Ch-1.intern<.navi_password_countdown> = 300\n";
    EXPECT_EQ(after("> create\n" + countdown), "");
    EXPECT_RULE("navi_password_countdown>' is written by 'show'", after("> show\n" + countdown));
}

// The three that tell of a write that cannot be compared with what the machine held before it.
TEST_F(RulesTest, WhatIsWrittenIsOfTheKindThatTheMachineHolds)
{
    showServo(1);
    enter("SollwertL 1", "9");
    EXPECT_RULE("is written, and not as 1",
        confirmed(setpoints(3, 9, "9") + write(3, "_servoaender_", Variant{std::int16_t{2}}, "2")));
    enter("SollwertL 1", "8");
    EXPECT_RULE("is written, and not as 1",
        confirmed(setpoints(3, 8, "8") + "write " + name(3, "_servoaender_") + " = one\n"));
    enter("SollwertL 1", "7");
    EXPECT_RULE("has another length",
        confirmed(write(3, "_servo_para_", Variant{basic::doubles({7, 2})}, "[7, 2]") + told(3)));
    enter("SollwertL 1", "6");
    EXPECT_RULE(
        "came out of nothing", confirmed("write " + name(3, "_servo_para_") + " = rubbish\n" + told(3)));
    screen_.variables.erase(name(3, "_servo_para_"));
    rules_.before();
    enter("SollwertL 1", "5");
    EXPECT_RULE("came out of nothing", confirmed(setpoints(3, 5, "5") + told(3)));
}

TEST_F(RulesTest, WhatIsRefusedWritesNothing)
{
    showServo(1);
    EXPECT_RULE("which was refused", after("> key 10\nrefused key\n" + setpoints(3, 9, "9")));
}

TEST_F(RulesTest, TheMachineHoldsWhatWasWritten)
{
    showServo(1);
    enter("SollwertL 1", "9");
    EXPECT_RULE("is held otherwise than it was written", confirmed(setpoints(3, 8, "9") + told(3)));
}

TEST_F(RulesTest, NothingChangesWithoutAWrite)
{
    showServo(1);
    screen_.variables[name(5, "_servo_para_ob_")] = Variant{basic::doubles({500, 100, 100})};
    EXPECT_RULE("has changed, and nothing wrote it", after("> timer\n"));
    screen_.variables[name(5, "_servo_para_ob_")] = Variant{basic::doubles({600, 100, 100})};
    EXPECT_EQ(after(""), ""); // the machine's own doing
}

TEST_F(RulesTest, ThePageReadsItsServoAlone)
{
    showServo(1);
    EXPECT_RULE("on the page of servo 3 reads", after("> timer\n" + readAll(5)));
}

TEST_F(RulesTest, PageOrMenuIsSeen)
{
    showServo(1);
    screen_.menu = true;
    EXPECT_RULE("at once", after("> timer\n"));
    screen_.menu = screen_.page = false;
    EXPECT_RULE("neither", after("> timer\n"));
}

TEST_F(RulesTest, WhatWaitsIsMarkedAndOffered)
{
    showServo(1);
    enter("SollwertL 1", "9");
    screen_.green.clear();
    EXPECT_RULE("entered in input 1, and it is not marked", after("> timer\n"));
    screen_.green = {1};
    screen_.offered = false;
    EXPECT_RULE("nothing offers to confirm it", after("> timer\n"));
    screen_.offered = true;
    screen_.confirmOn = false;
    EXPECT_RULE("its key is off", after("> timer\n"));
    screen_.inputOpen = true; // the mask withdraws the keys
    EXPECT_EQ(after("> timer\n"), "");
}

TEST_F(RulesTest, NothingElseIsMarkedOrOffered)
{
    showServo(1);
    screen_.offered = true;
    EXPECT_RULE("a confirm is offered, and nothing was entered", after("> timer\n"));
    screen_.green = {3};
    EXPECT_RULE("input 3 is marked as changed, and nothing was entered there", after("> timer\n"));
}

TEST_F(RulesTest, TheInputThatWaitsIsMarkedAndNoOther)
{
    showServo(1);
    EXPECT_EQ(enter("SollwertL 1", "9"), "");
    screen_.green = {2};
    EXPECT_RULE("input 2 is marked as changed, and nothing was entered there", after("> timer\n"));
    screen_.green = {1, 2};
    EXPECT_RULE("input 2 is marked as changed, and nothing was entered there", after("> timer\n"));
}

TEST_F(RulesTest, EachInputThatWaitsIsMarked)
{
    showServo(1);
    EXPECT_EQ(enter("SollwertL 1", "9"), "");
    EXPECT_EQ(enter("SollwertL 3", "7"), "");
    screen_.green = {1};
    EXPECT_RULE("entered in input 3, and it is not marked", after("> timer\n"));
    screen_.green = {1, 3};
    EXPECT_EQ(after("> timer\n"), "");
}

// The machine holds the number and was not told of it: it waits on, and that is to be seen.
TEST_F(RulesTest, WhatThePanelEntersAgainIsMarked)
{
    showServo(1);
    enter("SollwertL 1", "9");
    EXPECT_EQ(
        after("> key 10\n" + setpoints(3, 9, "9") + "write " + name(3, "_servoaender_")
            + " failed\nerror 5 \"Ma WerteSchreiben\" \"no answer\"\n" + read(3, "_servo_para_", "[9, 2, 3]")
            + "> touch SollwertL 1\n" + maskOpens + "> mask 9\n" + offer),
        "");
    screen_.green.clear();
    EXPECT_RULE("entered in input 1, and it is not marked", after("> timer\n"));
}

// The operator sees which of the three parts he has changed.
TEST_F(RulesTest, OfADrawingNumberTheEnteredPartIsMarked)
{
    showServo(1);
    EXPECT_EQ(enter("ZeichnungL 43", "7"), "");
    screen_.green = {41};
    EXPECT_RULE("input 41 is marked as changed, and nothing was entered there", after("> timer\n"));
    screen_.green = {41, 43, 45};
    EXPECT_RULE("input 41 is marked as changed, and nothing was entered there", after("> timer\n"));
}

TEST_F(RulesTest, AnInternalErrorIsNone)
{
    showServo(1);
    EXPECT_RULE("an internal error", after("> timer\nerror 51 \"Ma WerteLesen\" \"Internal error\"\n"));
}

} // namespace

} // namespace servopanel::monkey
