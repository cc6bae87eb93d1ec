#include "servo_page_values/lone_page.h"
#include "servo_page_values/page.h"

#include <gtest/gtest.h>

#include <ostream>
#include <string>

namespace servopanel::servo_page::tests {
namespace {

const std::string closed =
    "put ServoMain.Eingabemaske.0x68030000 = false\nput ServoMain.Eingabemaske.Visible = false\n";

TEST(Eingabemaske, AcceptedSetpointTurnsGreenAndAsksForConfirmation)
{
    Page page;
    page.run("touch SollwertL 5\n");
    EXPECT_EQ(page.run("mask 55\n"),
        "> mask 55\nput ServoMain.SollwertL(5).-513 = 32768\n" + confirmKeys() + closed + inputs({}, {5})
            + confirmKeys());
}

TEST(Eingabemaske, AcceptedPartGoesBackIntoItsDrawingNumber)
{
    Page page;
    page.run("touch ZeichnungL 45\n");
    EXPECT_EQ(page.run("mask 7\n"),
        "> mask 7\nput ServoMain.ZeichnungL(45).19 = 32768\n" + confirmKeys() + closed
            + R"(put ServoMain.ZeichnungL(45).28 = "0007"
put ServoMain.ZeichnungL(45).17 = 12632256
)" + inputs({}, {45})
            + confirmKeys());
}

struct Part {
    const char* name;
    const char* touch;
    const char* value;
    const char* text;
};
void PrintTo(const Part& row, std::ostream* out) { *out << row.name; }

class Eingabefertig : public ::testing::TestWithParam<Part> { };

TEST_P(Eingabefertig, ShowsAPartWithAllItsDigits)
{
    Page page;
    const std::string touch = GetParam().touch;
    page.run("touch " + touch + "\nmask " + GetParam().value + "\n");
    const std::string object = touch.substr(0, 10) + "(" + touch.substr(11) + ")";
    EXPECT_EQ(page.state("ServoMain." + object + ".28"), std::string{"\""} + GetParam().text + "\"");
    EXPECT_EQ(page.state("ServoMain." + object + ".17"), "12632256");
}

const Part parts[] = {
    {"item_41", "ZeichnungL 41", "7", "007"},
    {"item_43", "ZeichnungL 43", "7", "07"},
    {"item_45", "ZeichnungL 45", "7", "0007"},
    {"item_42", "ZeichnungR 42", "8", "008"},
    {"item_44", "ZeichnungR 44", "8", "08"},
    {"item_46", "ZeichnungR 46", "8", "0008"},
    {"half_rounds_up", "ZeichnungR 44", "2.5", "03"},
};
INSTANTIATE_TEST_SUITE_P(Items, Eingabefertig, ::testing::ValuesIn(parts),
    [](const auto& row) { return std::string{row.param.name}; });

TEST(Eingabemaske, UnchangedValueBringsTheNormalFooterBack)
{
    Page page;
    page.run("touch SollwertL 5\n");
    const std::string expected = "> mask 50\n" + closed + inputs() + released();
    const std::string trace = page.run("mask 50\n");
    EXPECT_EQ(trace.substr(0, expected.size()), expected);
    EXPECT_EQ(holding(trace, "32768"), "");
    EXPECT_EQ(page.run("timer\n"), "> timer\n" + refresh());
}

TEST(Eingabemaske, CancelBringsTheNormalFooterBack)
{
    Page page;
    page.run("touch SollwertL 5\n");
    const std::string expected = "> mask cancel\n" + closed + inputs() + released();
    EXPECT_EQ(page.run("mask cancel\n").substr(0, expected.size()), expected);
}

TEST(Eingabemaske, CancelOfALaterEditKeepsTheEarlierOneWaiting)
{
    Page page;
    page.run("touch SollwertL 5\nmask 55\ntouch SollwertL 6\n");
    EXPECT_EQ(page.run("mask cancel\n"), "> mask cancel\n" + closed + inputs({}, {5}) + confirmKeys());
    // The second field was touched: it keeps its mark and goes out with what it shows.
    EXPECT_EQ(page.run("timer\n"), "> timer\n" + refresh({5, 6}));
}

TEST(Eingabemaske, RefusesWhatLiesOutsideTheLimits)
{
    Page page;
    page.run("touch SollwertL 5\n");
    EXPECT_EQ(page.run("mask 1006\n"), "> mask 1006\nrefused mask\n");
    EXPECT_EQ(page.run("mask 4.5\n"), "> mask 4.5\nrefused mask\n");
    EXPECT_EQ(holding(page.run("mask 1005\n"), "refused"), "");
}

TEST(Eingabemaske, UsesLimitsThatChangeWhileItIsOpen)
{
    Page page;
    page.run("touch SollwertL 21\n");
    page.run("var " + variable("_servo_para2_ob_") + " = [500, 500, 500, 500]\ntimer\n");
    EXPECT_EQ(page.run("mask 600\n"), "> mask 600\nrefused mask\n");
}

TEST(Eingabemaske, ColoursOnlyTheInputThatItEdits)
{
    Page page;
    page.run("touch ZeichnungL 43\nmask 7\ntouch SollwertL 6\n");
    EXPECT_EQ(holding(page.run("mask 66\n"), "32768"), "put ServoMain.SollwertL(6).-513 = 32768\n");
    page.run("touch ZeichnungR 42\n");
    EXPECT_EQ(holding(page.run("mask 9\n"), "32768"), "put ServoMain.ZeichnungR(42).19 = 32768\n");
}

TEST(Eingabemaske, TogglingASwitchAfterAnEditColoursNothing)
{
    Page page;
    page.run("touch SollwertL 6\nmask 66\n");
    EXPECT_EQ(holding(page.run("touch SchalterL 31\n"), "32768"), "");
}

TEST(Eingabemaske, KeepsItsTargetThroughARefresh)
{
    Page page;
    page.run("touch SollwertL 5\ntimer\nmask 55\n");
    EXPECT_EQ(page.state("ServoMain.SollwertL(5).8"), "55");
    page.run("timer\n");
    EXPECT_EQ(page.state("ServoMain.SollwertL(5).8"), "55");
}

TEST(Eingabemaske, KeepsAskingForAnyModifiedFlagButZero)
{
    Page page;
    page.run("touch SollwertL 5\npoke modified 1\n");
    EXPECT_EQ(page.run("mask cancel\n"), "> mask cancel\n" + closed + inputs() + confirmKeys());
    // Asking has made the flag a plain True: key 10 writes.
    EXPECT_EQ(count(page.run("key 10\n"), "write " + variable("_servoaender_") + " = 1"), 1U);
}

class EingabemaskeAlone : public testing::LonePage {
protected:
    // The mask is opened for a number that is no field and reports a change.
    std::ptrdiff_t greenWithoutATarget()
    {
        touch(30);
        forget("SollwertL");
        page.control.Eingabemaske_EingabeAenderung();
        page.control.Eingabemaske_Eingabefertig();
        return puts("SollwertL", "Vordergrund = 32768");
    }
};

TEST_F(EingabemaskeAlone, ColoursNothingWithoutATarget)
{
    EXPECT_EQ(greenWithoutATarget(), 0);
    // Nor with one that an edit before has left, nor with one whose mask went when the page was built anew.
    touch(5);
    page.control.Eingabemaske_Eingabefertig();
    EXPECT_EQ(greenWithoutATarget(), 0);
    touch(5);
    page.control.BildInit(1);
    EXPECT_EQ(greenWithoutATarget(), 0);
}

// The drawing item of that mask takes no colour from a later one.
TEST_F(EingabemaskeAlone, ColoursWhatItEditsAfterAMaskThatWentWithItsPage)
{
    touch(43);
    page.control.BildInit(1);
    touch(5);
    page.control.Eingabemaske_EingabeAenderung();
    EXPECT_EQ(puts("SollwertL", "Vordergrund = 32768"), 1);
    EXPECT_EQ(puts("ZeichnungL", "Farbe = 32768"), 0);
}

TEST_F(EingabemaskeAlone, ColoursNothingWhenItCannotBeAsked)
{
    touch(5);
    forget("SollwertL");
    page.fake("Eingabemaske")->missing = {"OFFEN"};
    page.control.Eingabemaske_EingabeAenderung();
    EXPECT_EQ(puts("SollwertL"), testing::Texts{});
    EXPECT_EQ(reports(), (testing::Reports{{438, "Ma Eingabemaske_EingabeAenderung"}}));
}

} // namespace
} // namespace servopanel::servo_page::tests
