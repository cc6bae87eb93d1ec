#include "servo_page_values/lone_page.h"
#include "servo_page_values/page.h"

#include "basic/variant.h"

#include <gtest/gtest.h>

#include <ostream>
#include <string>

namespace servopanel::servo_page::tests {
namespace {

TEST(WerteLesen, RefreshShowsEveryFamilyAndNothingElse)
{
    Page page;
    EXPECT_EQ(page.run("timer\n"), "> timer\n" + refresh());
}

TEST(WerteLesen, FullReadSetsKeysThenValuesThenInputsThenFooter)
{
    Page page;
    page.run("touch SchalterL 31\n");
    const std::string expected = "> key 11\n" + normalKeys() + refresh() + inputs() + released();
    EXPECT_EQ(page.run("key 11\n").substr(0, expected.size()), expected);
}

TEST(WerteLesen, FullReadTakesBackWhatWasTouched)
{
    Page page;
    page.run("touch SollwertL 5\nmask 55\n");
    EXPECT_EQ(page.state("ServoMain.SollwertL(5).8"), "55");
    page.run("key 11\n");
    EXPECT_EQ(page.state("ServoMain.SollwertL(5).8"), "50");
    EXPECT_EQ(page.run("timer\n"), "> timer\n" + refresh());
}

TEST(WerteLesen, FullReadEndsTheModifiedState)
{
    Page page;
    page.run("touch SchalterL 31\nkey 11\n");
    // Nothing is left to confirm: key 10 goes to the diagnosis page.
    EXPECT_EQ(holding(page.run("key 10\n"), "write"), "");
}

struct Touched {
    const char* name;
    const char* command;
    Fields marked;
};
void PrintTo(const Touched& row, std::ostream* out) { *out << row.name; }

class WerteLesenMarked : public ::testing::TestWithParam<Touched> { };

TEST_P(WerteLesenMarked, KeepsWhatTheFieldShowsButRefreshesLimits)
{
    Page page;
    page.run(std::string{GetParam().command} + "\n");
    EXPECT_EQ(page.run("timer\n"), "> timer\n" + refresh(GetParam().marked));
}

const Touched touched[] = {
    {"first_setpoint", "touch SollwertL 1", {1}},
    {"setpoint_5", "touch SollwertL 5", {5}},
    {"setpoint_10", "touch SollwertL 10", {10}},
    {"right_setpoint", "touch SollwertR 20", {20}},
    {"second_group_left", "touch SollwertL 21", {21}},
    {"second_group_right", "touch SollwertR 24", {24}},
    {"left_switch", "touch SchalterL 32", {32}},
    {"right_switch", "touch SchalterR 33", {33}},
    {"left_drawing_number", "touch ZeichnungL 45", {41}},
    {"right_drawing_number", "touch ZeichnungR 44", {42}},
};
INSTANTIATE_TEST_SUITE_P(Fields, WerteLesenMarked, ::testing::ValuesIn(touched),
    [](const auto& row) { return std::string{row.param.name}; });

struct Family {
    const char* name;
    const char* family;
    int dependents;
};
void PrintTo(const Family& row, std::ostream* out) { *out << row.name; }

class WerteLesenFailing : public ::testing::TestWithParam<Family> { };

TEST_P(WerteLesenFailing, LosesThatFamilyAloneWhenItsReadFails)
{
    Page page;
    page.run("fail read " + variable(GetParam().family) + "\n");
    EXPECT_EQ(page.run("timer\n"),
        "> timer\n"
            + refresh({}, {{GetParam().family, unreadable(GetParam().family, GetParam().dependents)}}));
}

TEST_P(WerteLesenFailing, ShowsTheFamilyAgainOnceItCanBeRead)
{
    Page page;
    page.run("fail read " + variable(GetParam().family) + " 1\ntimer\n");
    EXPECT_EQ(page.run("timer\n"), "> timer\n" + refresh());
}

// A drawing number costs four statements: it cannot be split, and its three items get no text.
const Family families[] = {
    {"setpoints", "_servo_para_", 20},
    {"lower_limits", "_servo_para_un_", 20},
    {"upper_limits", "_servo_para_ob_", 20},
    {"second_setpoints", "_servo_para2_", 4},
    {"second_lower_limits", "_servo_para2_un_", 4},
    {"second_upper_limits", "_servo_para2_ob_", 4},
    {"switch_word", "_servo_schalt_", 4},
    {"drawing_numbers", "_servo_zeich_", 8},
};
INSTANTIATE_TEST_SUITE_P(Families, WerteLesenFailing, ::testing::ValuesIn(families),
    [](const auto& row) { return std::string{row.param.name}; });

TEST(WerteLesen, ReportsEachUseOfAValueThatIsNoArray)
{
    Page page;
    page.run("var " + variable("_servo_para2_") + " = 7\n");
    EXPECT_EQ(page.run("timer\n"),
        "> timer\n"
            + refresh({},
                {{"_servo_para2_",
                    "read " + variable("_servo_para2_") + " = 7\n" + mismatches("Ma WerteLesen", 4)}}));
}

TEST(WerteLesen, ShowsTheElementsThatAShortArrayHas)
{
    Page page;
    page.run("var " + variable("_servo_para2_") + " = [1.5, \"a\", 3]\n");
    EXPECT_EQ(page.run("timer\n"),
        "> timer\n" + refresh({}, {{"_servo_para2_", "read " + variable("_servo_para2_") + R"( = [1.5, "a", 3]
put ServoMain.SollwertL(21).8 = 1.5
put ServoMain.SollwertL(22).8 = "a"
put ServoMain.SollwertR(23).8 = 3
error 9 "Ma WerteLesen" "Subscript out of range"
)"}}));
}

TEST(WerteLesen, TurnsLimitsIntoTexts)
{
    Page page;
    page.run("var " + variable("_servo_para2_un_") + " = [-0.5, 0.1, 1000000.25, \"-3\"]\n");
    page.run("timer\n");
    EXPECT_EQ(page.state("ServoMain.SollwertL(21).22"), "\"-0.5\"");
    EXPECT_EQ(page.state("ServoMain.SollwertL(22).22"), "\"0.1\"");
    EXPECT_EQ(page.state("ServoMain.SollwertR(23).22"), "\"1000000.25\"");
    EXPECT_EQ(page.state("ServoMain.SollwertR(24).22"), "\"-3\"");
}

TEST(WerteLesen, LosesOnlyTheElementsThatHaveNoText)
{
    Page page;
    page.world().variables.set(variable("_servo_para2_ob_"),
        basic::Array{basic::VariantType::Variant, 0, {1.5, basic::Null{}, "x", basic::Variant{}}});
    EXPECT_EQ(page.run("timer\n"),
        "> timer\n"
            + refresh({},
                {{"_servo_para2_ob_", "read " + variable("_servo_para2_ob_") + R"( = [1.5, null, "x", empty]
put ServoMain.SollwertL(21).21 = "1.5"
error 94 "Ma WerteLesen" "Invalid use of Null"
put ServoMain.SollwertR(23).21 = "x"
put ServoMain.SollwertR(24).21 = ""
)"}}));
}

// A value that the machine holds and that is Empty is a value; only a failed read leaves the switches as they are.
TEST(WerteLesen, ShowsAnEmptySwitchWordAsZero)
{
    Page page;
    page.world().variables.set(variable("_servo_schalt_"), basic::Variant{});
    EXPECT_EQ(page.run("timer\n"),
        "> timer\n" + refresh({}, {{"_servo_schalt_", "read " + variable("_servo_schalt_") + R"( = empty
put ServoMain.SchalterL(31).0x68030000 = 0
put ServoMain.SchalterL(32).0x68030000 = 0
put ServoMain.SchalterR(33).0x68030000 = 0
put ServoMain.SchalterR(34).0x68030000 = 0
)"}}));
}

TEST(WerteLesen, ShowsAnEmptyFaultTextAsNone)
{
    Page page;
    page.run("key 10\n");
    page.world().variables.set(variable("_fetext_", "1"), basic::Variant{});
    const std::string trace = page.run("timer\n");
    EXPECT_EQ(holding(trace, "Fehlertext"), "put ServoMain.Fehlertext.Caption = \"\"\n");
    EXPECT_EQ(holding(trace, "error "), "");
}

struct Word {
    const char* name;
    const char* value;
    const char* states[4];
};
void PrintTo(const Word& row, std::ostream* out) { *out << row.name; }

class WerteLesenSwitchWord : public ::testing::TestWithParam<Word> { };

TEST_P(WerteLesenSwitchWord, GivesEachSwitchTheWeightOfItsBit)
{
    Page page;
    page.run("var " + variable("_servo_schalt_") + " = " + GetParam().value + "\ntimer\n");
    EXPECT_EQ(page.state("ServoMain.SchalterL(31).0x68030000"), GetParam().states[0]);
    EXPECT_EQ(page.state("ServoMain.SchalterL(32).0x68030000"), GetParam().states[1]);
    EXPECT_EQ(page.state("ServoMain.SchalterR(33).0x68030000"), GetParam().states[2]);
    EXPECT_EQ(page.state("ServoMain.SchalterR(34).0x68030000"), GetParam().states[3]);
}

const Word words[] = {
    {"five", "5", {"1", "0", "4", "0"}},
    {"ten", "10", {"0", "2", "0", "8"}},
    {"zero", "0", {"0", "0", "0", "0"}},
    {"higher_bits_only", "240", {"0", "0", "0", "0"}},
    {"minus_one", "-1", {"1", "2", "4", "8"}},
    {"true_is_minus_one", "true", {"1", "2", "4", "8"}},
    {"half_rounds_to_even", "4.5", {"0", "0", "4", "0"}},
    {"beyond_16_bits", "65539", {"1", "2", "0", "0"}},
};
INSTANTIATE_TEST_SUITE_P(Values, WerteLesenSwitchWord, ::testing::ValuesIn(words),
    [](const auto& row) { return std::string{row.param.name}; });

TEST(WerteLesen, LeavesTheSwitchesWhenTheWordIsNoNumber)
{
    Page page;
    page.run("var " + variable("_servo_schalt_") + " = \"on\"\n");
    EXPECT_EQ(page.run("timer\n"),
        "> timer\n"
            + refresh({},
                {{"_servo_schalt_",
                    "read " + variable("_servo_schalt_") + " = \"on\"\n" + mismatches("Ma WerteLesen", 4)}}));
}

TEST(WerteLesen, ShowsADrawingNumberOfZeroAsZeros)
{
    Page page;
    page.run("var " + variable("_servo_zeich_") + " = [0, -1]\n");
    EXPECT_EQ(holding(page.run("timer\n"), "Zeichnung"), R"(put ServoMain.ZeichnungL(41).28 = "000"
put ServoMain.ZeichnungL(43).28 = "00"
put ServoMain.ZeichnungL(45).28 = "0000"
put ServoMain.ZeichnungR(42).28 = "-001"
put ServoMain.ZeichnungR(44).28 = "99"
put ServoMain.ZeichnungR(46).28 = "9999"
)");
}

TEST(WerteLesen, DoesNotTakeADrawingNumberFromTheOtherHalf)
{
    Page page;
    page.run("var " + variable("_servo_zeich_") + " = [2.5, \"abc\"]\n");
    EXPECT_EQ(page.run("timer\n"),
        "> timer\n" + refresh({}, {{"_servo_zeich_", "read " + variable("_servo_zeich_") + R"( = [2.5, "abc"]
put ServoMain.ZeichnungL(41).28 = "000"
put ServoMain.ZeichnungL(43).28 = "00"
put ServoMain.ZeichnungL(45).28 = "0003"
)" + mismatches("Ma WerteLesen", 4)}}));
}

TEST(WerteLesen, ReadsNoDiagnosisOnTheParameterPage)
{
    Page page;
    const std::string trace = page.start() + page.run("timer\n");
    EXPECT_EQ(holding(trace, "_servo_diag_"), "");
    EXPECT_EQ(holding(trace, "_fetext_"), "");
}

std::string diagnosis(const std::string& page)
{
    std::string text = "read " + variable("_servo_diag_", page) + " = [101";
    for (int item = 102; item <= 140; ++item)
        text += ", " + std::to_string(item);
    text += "]\n";
    for (int item = 101; item <= 120; ++item)
        text += "put ServoMain.IstWert(" + std::to_string(item) + ").8 = " + std::to_string(item) + "\n";
    for (int item = 121; item <= 140; ++item)
        text += "put ServoMain.IstWertTab(" + std::to_string(item) + ").Caption = \"" + std::to_string(item)
            + "\"\n";
    return text + "read " + variable("_fetext_", page) + " = \"Fault " + page
        + "\"\nput ServoMain.Fehlertext.Caption = \"Fault " + page + "\"\n";
}

TEST(WerteLesen, ShowsActualValuesAndFaultTextOnDiagnosisPages)
{
    Page page;
    page.run("key 10\n");
    EXPECT_EQ(page.run("timer\n"), "> timer\n" + refresh() + diagnosis("1"));
    page.run("key 8\n");
    EXPECT_EQ(page.run("timer\n"), "> timer\n" + refresh() + diagnosis("2"));
}

TEST(WerteLesen, AppendsThePageNumberToTheServoNumber)
{
    EXPECT_EQ(variable("_servo_diag_", "1"), "Ch1.M1_T_servo_3<.mM1_servo_diag_31>");
    Page page;
    EXPECT_EQ(count(page.run("key 10\n"), "read Ch1.M1_T_servo_3<.mM1_servo_diag_31> = "), 1U);
}

TEST(WerteLesen, KeepsTheActualValuesWhenDiagnosisCannotBeRead)
{
    Page page;
    page.run("key 10\nfail read " + variable("_servo_diag_", "1") + "\n");
    const std::string trace = page.run("timer\n");
    EXPECT_EQ(count(trace, "error 13 \"Ma WerteLesen\""), 40U);
    EXPECT_EQ(holding(trace, "put ServoMain.IstWert"), "");
    EXPECT_EQ(count(trace, "put ServoMain.Fehlertext.Caption = \"Fault 1\""), 1U);
}

TEST(WerteLesen, KeepsTheFaultTextWhenItCannotBeRead)
{
    Page page;
    page.run("key 10\nfail read " + variable("_fetext_", "1") + "\n");
    const std::string trace = page.run("timer\n");
    EXPECT_EQ(holding(trace, "Fehlertext"), "");
    EXPECT_EQ(count(trace, "put ServoMain.IstWert"), 40U);
    EXPECT_EQ(count(trace, "error "), 2U);
}

TEST(WerteLesen, ReportsATextNumberBeyond16BitsAndGoesOn)
{
    Page page{R"(var Ch-1.intern<.aktuelle_maschine> = 318
var parameter<.maschinenbez_318> = "M1"
var parameter<.servo_anzahl_318> = 1
file Parameter\Program.ini
[318Machine]
Servo1=3
end
)"};
    const std::string trace = page.start();
    EXPECT_GE(count(trace,
                  "error 6 \"Ma WerteLesen\" \"Overflow\"\ncall ServoMain.Fußzeile.0x68030005(11, 10000)\n"),
        1U);
    EXPECT_EQ(page.run("timer\n"), "> timer\n" + refresh());
}

TEST(WerteLesen, ReadsNothingWhenTheServoIsOutsideTheList)
{
    Page page{"var Ch-1.intern<.servo_zeiger> = 51\n"};
    const std::string trace = page.run("timer\n");
    EXPECT_EQ(beginning(trace, {"read ", "put "}), "");
    EXPECT_EQ(count(trace, "error 9 \"Ma WerteLesen\" \"Subscript out of range\"\n"), 8U);
    EXPECT_EQ(count(trace, "error 13 \"Ma WerteLesen\" \"Type mismatch\"\n"), 84U);
}

TEST(WerteLesen, TurnsAFaultTextThatIsANumberIntoText)
{
    Page page;
    page.run("var " + variable("_fetext_", "1") + " = 17\n");
    EXPECT_GE(count(page.run("key 10\n"), "put ServoMain.Fehlertext.Caption = \"17\"\n"), 1U);
}

struct LostControl {
    const char* name;
    const char* control;
    const char* member; // that this array does not have
    int elements;
    const char* other; // array that has it
};
void PrintTo(const LostControl& row, std::ostream* out) { *out << row.name; }

class WerteLesenLost : public testing::LonePage, public ::testing::WithParamInterface<LostControl> { };

TEST_P(WerteLesenLost, UpdatesAllControlsButThoseThatFail)
{
    const LostControl& lost = GetParam();
    for (const char* control : {"SollwertL", lost.other})
        forget(control);
    page.fake(lost.control)->missing = {basic::upperCase(lost.member)};
    page.control.WerteLesen(true);
    EXPECT_EQ(reports(), testing::Reports(static_cast<std::size_t>(lost.elements), {438, "Ma WerteLesen"}));
    EXPECT_EQ(puts(lost.other, lost.member), lost.elements);
    EXPECT_EQ(puts("SollwertL", "Untergrenze"), 12);
    EXPECT_EQ(puts("SollwertL", "Obergrenze"), 12);
}

const LostControl lostControls[] = {
    {"setpoints", "SollwertL", "Wert", 12, "SollwertR"},
    {"switches", "SchalterL", "Zustand", 2, "SchalterR"},
    {"drawing_number", "ZeichnungL", "Text", 3, "ZeichnungR"},
};
INSTANTIATE_TEST_SUITE_P(Arrays, WerteLesenLost, ::testing::ValuesIn(lostControls),
    [](const auto& row) { return std::string{row.param.name}; });

} // namespace
} // namespace servopanel::servo_page::tests
