#include "servo_page_values/lone_page.h"
#include "servo_page_values/page.h"

#include "basic/variant.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <ostream>
#include <string>
#include <tuple>
#include <utility>

namespace servopanel::servo_page::tests {
namespace {

const std::string setpointArray =
    "[10, 20, 30, 40, 50, 60, 70, 80, 90, 100, 110, 120, 130, 140, 150, 160, 170, 180, "
    "190, 200]";

std::string readAndWrite(std::string_view family, const std::string& read, const std::string& written)
{
    return "read " + variable(family) + " = " + read + "\nwrite " + variable(family) + " = " + written + "\n";
}

// Confirms although nothing was touched.
const char* const confirmUntouched = "poke modified -1\nkey! 10\n";

TEST(WerteSchreiben, DoesEverythingInItsOrder)
{
    Page page;
    page.run("touch SollwertL 5\nmask 55\n");
    const std::string expected = R"(> key 10
call ServoMain.Fußzeile.0x68030006(10, 12632256)
call ServoMain.Fußzeile.0x68030004(10, false)
call ServoMain.Fußzeile.0x68030007(10, "Servo\Servo_Diag_1280.gif")
)" + normalKeys()
        + refresh({5})
        + readAndWrite("_servo_para_", setpointArray,
            "[10, 20, 30, 40, 55, 60, 70, 80, 90, 100, 110, 120, 130, 140, 150, 160, 170, 180, 190, 200]")
        + readAndWrite("_servo_para2_", "[210, 220, 230, 240]", "[210, 220, 230, 240]")
        + readAndWrite("_servo_schalt_", "5", "5")
        + readAndWrite("_servo_zeich_", "[123456789, 7000012]", "[123456789, 7000012]") + inputs()
        + released() + "write " + variable("_servoaender_") + " = 1\n";
    EXPECT_EQ(page.run("key 10\n").substr(0, expected.size()), expected);
}

TEST(WerteSchreiben, WritesEveryFamilyBackUnchangedWhenNothingIsMarked)
{
    Page page;
    EXPECT_EQ(beginning(page.run(confirmUntouched), {"write "}),
        "write " + variable("_servo_para_") + " = " + setpointArray + "\nwrite " + variable("_servo_para2_")
            + " = [210, 220, 230, 240]\nwrite " + variable("_servo_schalt_") + " = 5\nwrite "
            + variable("_servo_zeich_") + " = [123456789, 7000012]\nwrite " + variable("_servoaender_")
            + " = 1\n");
}

// The read of the second group fails while the page is shown and works again at the confirmation.
TEST(WerteSchreiben, KeepsTheMachinesValueOfATouchedFieldThatShowsNone)
{
    Page page{"fail read " + variable("_servo_para2_") + "\n"};
    page.run("touch SollwertL 5\nmask 55\ntouch SollwertL 21\nmask cancel\nfail none\n");
    EXPECT_EQ(beginning(page.run("key 10\n"), {"write " + variable("_servo_para2_")}),
        "write " + variable("_servo_para2_") + " = [210, 220, 230, 240]\n");
}

TEST(WerteSchreiben, KeepsADrawingNumberOfWhichOnlyAPartWasEverShown)
{
    Page page{"fail read " + variable("_servo_zeich_") + "\n"};
    page.run("touch ZeichnungL 43\nmask 7\nfail none\n");
    EXPECT_EQ(beginning(page.run("key 10\n"), {"write " + variable("_servo_zeich_")}),
        "write " + variable("_servo_zeich_") + " = [123456789, 7000012]\n");
}

TEST(WerteSchreiben, KeepsADrawingNumberWhoseThirdPartWasOnlyTouched)
{
    Page page{"fail read " + variable("_servo_zeich_") + "\n"};
    page.run("touch ZeichnungL 41\nmask 12\ntouch ZeichnungL 43\nmask 3\ntouch ZeichnungL 45\nmask cancel\n"
             "fail none\n");
    const std::string trace = page.run("key 10\n");
    EXPECT_EQ(beginning(trace, {"write " + variable("_servo_zeich_")}),
        "write " + variable("_servo_zeich_") + " = [123456789, 7000012]\n");
    EXPECT_EQ(count(trace, "error 13 \"Ma WerteSchreiben\""), 1U);
}

// The operator has seen and confirmed the whole number, wherever the machine's is.
TEST(WerteSchreiben, WritesADrawingNumberThatWasEnteredInFull)
{
    for (const auto& [half, item, written] :
        {std::tuple{"L", 41, "[12030045, 7000012]"}, std::tuple{"R", 42, "[123456789, 12030045]"}}) {
        Page page{"fail read " + variable("_servo_zeich_") + "\n"};
        int part = item;
        for (const char* number : {"12", "3", "45"}) {
            page.run(std::string{"touch Zeichnung"} + half + " " + std::to_string(part) + "\nmask " + number
                + "\n");
            part += 2;
        }
        page.run("fail none\n");
        const std::string trace = page.run("key 10\n");
        EXPECT_EQ(beginning(trace, {"write " + variable("_servo_zeich_")}),
            "write " + variable("_servo_zeich_") + " = " + written + "\n");
        EXPECT_EQ(holding(trace, "error "), "");
    }
}

// Another servo's parts stand there; a new servo has to be entered in full again.
TEST(WerteSchreiben, ForgetsTheEnteredPartsWithTheirServo)
{
    const std::string zeich = variable("_servo_zeich_", {}, "5");
    Page page{"fail read " + variable("_servo_zeich_") + "\nfail read " + zeich + "\n"};
    page.run("touch ZeichnungL 41\nmask 12\ntouch ZeichnungL 43\nmask 3\nkey 11\nkey 6\n");
    page.run("touch ZeichnungL 45\nmask 45\nfail none\n");
    EXPECT_EQ(beginning(page.run("key 10\n"), {"write " + zeich}), "write " + zeich + " = [0, 0]\n");
}

// Empty is what the machine held, and the input shows it.
TEST(WerteSchreiben, WritesAnEmptyValueAsItStands)
{
    Page page;
    const basic::Variant held{
        basic::Array{basic::VariantType::Variant, 0, {basic::Variant{}, 2.0, 3.0, 4.0}}};
    page.world().variables.set(variable("_servo_para2_"), held);
    page.run("timer\ntouch SollwertL 22\nmask 25\ntouch SollwertL 21\nmask cancel\n");
    page.world().variables.set(
        variable("_servo_para2_"), basic::Array{basic::VariantType::Variant, 0, {1.0, 2.0, 3.0, 4.0}});
    const std::string trace = page.run("key 10\n");
    EXPECT_EQ(holding(trace, "write " + variable("_servo_para2_")),
        "write " + variable("_servo_para2_") + " = [empty, 25, 3, 4]\n");
    EXPECT_EQ(holding(trace, "error "), "");
}

// Whatever state it stands in, nobody has seen the machine's.
TEST(WerteSchreiben, KeepsTheMachinesBitOfATouchedSwitchThatShowsNone)
{
    Page page{"fail read " + variable("_servo_schalt_") + "\n"};
    page.run("touch SchalterL 31\nfail none\n");
    const std::string written = page.run("key 10\n");
    EXPECT_EQ(holding(written, "write " + variable("_servo_schalt_")),
        "write " + variable("_servo_schalt_") + " = 5\n");
    EXPECT_EQ(holding(written, "error "), mismatches("Ma WerteSchreiben", 1));
}

// The first servo's values still stand in the inputs when the second one's cannot be read.
TEST(WerteSchreiben, NeverWritesWhatAnotherServoLeftStanding)
{
    const std::string para = variable("_servo_para_", {}, "5");
    const std::string zeich = variable("_servo_zeich_", {}, "5");
    Page page;
    page.run("fail read " + para + "\nfail read " + zeich + "\nkey 6\n");
    page.run("touch SollwertL 2\nmask 55\ntouch SollwertL 1\nmask cancel\ntouch ZeichnungL 43\nmask 7\nfail "
             "none\n");
    const std::string held = page.run("key 10\n");
    const std::string read = beginning(held, {"read " + para + " = "});
    const std::string written = beginning(held, {"write " + para + " = "});
    ASSERT_NE(written, "");
    // Only the second element differs from what the machine held.
    const auto elements = [](const std::string& lines) {
        const std::string line = lines.substr(0, lines.find('\n'));
        return line.substr(line.find('['));
    };
    std::string expected = elements(read);
    expected.replace(expected.find(", ") + 2,
        expected.find(", ", expected.find(", ") + 2) - expected.find(", ") - 2, "55");
    EXPECT_EQ(elements(written), expected);
    EXPECT_EQ(elements(beginning(held, {"write " + zeich})), elements(beginning(held, {"read " + zeich})));
}

TEST(WerteSchreiben, NeverWritesLimits)
{
    Page page;
    page.run("touch SollwertL 5\nmask 55\nkey 10\n");
    const std::string written = page.run("vars\n");
    EXPECT_EQ(holding(written, "_un_"), "");
    EXPECT_EQ(holding(written, "_ob_"), "");
}

TEST(WerteSchreiben, KeepsWhatTheMachineChangedMeanwhile)
{
    Page page;
    page.run("touch SollwertL 22\nmask 25\n");
    page.run("var " + variable("_servo_para2_") + " = [1.25, 2, 3, 4]\n");
    EXPECT_EQ(holding(page.run("key 10\n"), "write " + variable("_servo_para2_")),
        "write " + variable("_servo_para2_") + " = [1.25, 25, 3, 4]\n");
}

TEST(WerteSchreiben, WritesATouchedFieldThatKeptItsValue)
{
    Page page;
    page.run("touch SollwertL 22\nmask 25\ntouch SollwertR 23\nmask cancel\n");
    page.run("var " + variable("_servo_para2_") + " = [1, 2, 3, 4]\n");
    EXPECT_EQ(holding(page.run("key 10\n"), "write " + variable("_servo_para2_")),
        "write " + variable("_servo_para2_") + " = [1, 25, 230, 4]\n");
}

TEST(WerteSchreiben, WritesAnEditThatEqualsTheMachineMeanwhile)
{
    Page page;
    page.run("touch SollwertL 22\nmask 25\n");
    page.run("var " + variable("_servo_para2_") + " = [1, 25, 3, 4]\n");
    EXPECT_EQ(holding(page.run("key 10\n"), "write " + variable("_servo_para2_")),
        "write " + variable("_servo_para2_") + " = [1, 25, 3, 4]\n");
}

TEST(WerteSchreiben, KeepsElementTypeAndLowerBound)
{
    Page page;
    page.world().variables.set(variable("_servo_para2_"),
        basic::Array{basic::VariantType::Int16, 0,
            {std::int16_t{1}, std::int16_t{2}, std::int16_t{3}, std::int16_t{4}}});
    page.run("timer\ntouch SollwertL 22\nmask 26.5\nkey 10\n");
    const basic::Variant* written = page.world().variables.find(variable("_servo_para2_"));
    ASSERT_NE(written, nullptr);
    EXPECT_EQ(*written,
        (basic::Variant{basic::Array{basic::VariantType::Int16, 0,
            {std::int16_t{1}, std::int16_t{26}, std::int16_t{3}, std::int16_t{4}}}}));
}

TEST(WerteSchreiben, WritesAnArrayThatCountsFromOneBackAsItCame)
{
    Page page;
    const basic::Variant fromOne{basic::Array{basic::VariantType::Double, 1, {1.0, 2.0, 3.0, 4.0}}};
    page.run("touch SollwertL 21\nmask 100\n");
    page.world().variables.set(variable("_servo_para2_"), fromOne);
    const std::string trace = page.run("key 10\n");
    EXPECT_EQ(count(trace, "error 9 \"Ma WerteSchreiben\""), 1U);
    EXPECT_EQ(count(trace, "write " + variable("_servo_para2_") + " = [1, 2, 3, 4]\n"), 1U);
    EXPECT_EQ(*page.world().variables.find(variable("_servo_para2_")), fromOne);
}

TEST(WerteSchreiben, KeepsTheMachinesElementWhenTheInputDoesNotFitIt)
{
    Page page;
    page.run("touch SollwertL 21\nmask 300\n");
    page.world().variables.set(variable("_servo_para2_"),
        basic::Array{basic::VariantType::Byte, 0,
            {std::uint8_t{1}, std::uint8_t{2}, std::uint8_t{3}, std::uint8_t{4}}});
    const std::string trace = page.run("key 10\n");
    EXPECT_EQ(count(trace, "error 6 \"Ma WerteSchreiben\""), 1U);
    EXPECT_EQ(count(trace, "write " + variable("_servo_para2_") + " = [1, 2, 3, 4]\n"), 1U);
}

TEST(WerteSchreiben, LeavesAFamilyAloneThatIsEmptyOrNull)
{
    for (const basic::Variant& nothing : {basic::Variant{}, basic::Variant{basic::Null{}}}) {
        for (const char* family : {"_servo_para_", "_servo_para2_", "_servo_schalt_", "_servo_zeich_"}) {
            Page page;
            page.world().variables.set(variable(family), nothing);
            EXPECT_EQ(holding(page.run(confirmUntouched), "write " + variable(family)), "") << family;
        }
    }
}

struct Edit {
    const char* name;
    const char* touch;
    const char* value;
    const char* family;
    const char* written;
};
void PrintTo(const Edit& row, std::ostream* out) { *out << row.name; }

class WerteSchreibenEdit : public ::testing::TestWithParam<Edit> { };

TEST_P(WerteSchreibenEdit, PutsTheFieldIntoItsElement)
{
    Page page;
    page.run(std::string{"touch "} + GetParam().touch + "\nmask " + GetParam().value + "\n");
    EXPECT_EQ(holding(page.run("key 10\n"), "write " + variable(GetParam().family)),
        "write " + variable(GetParam().family) + " = " + GetParam().written + "\n");
}

const Edit edits[] = {
    {"field_1", "SollwertL 1", "7", "_servo_para_",
        "[7, 20, 30, 40, 50, 60, 70, 80, 90, 100, 110, 120, 130, 140, 150, 160, 170, 180, 190, 200]"},
    {"field_11", "SollwertR 11", "17", "_servo_para_",
        "[10, 20, 30, 40, 50, 60, 70, 80, 90, 100, 17, 120, 130, 140, 150, 160, 170, 180, 190, 200]"},
    {"field_20", "SollwertR 20", "27.5", "_servo_para_",
        "[10, 20, 30, 40, 50, 60, 70, 80, 90, 100, 110, 120, 130, 140, 150, 160, 170, 180, 190, 27.5]"},
    {"field_21", "SollwertL 21", "100", "_servo_para2_", "[100, 220, 230, 240]"},
    {"field_24", "SollwertR 24", "100", "_servo_para2_", "[210, 220, 230, 100]"},
    {"item_41", "ZeichnungL 41", "12", "_servo_zeich_", "[12456789, 7000012]"},
    {"item_43", "ZeichnungL 43", "3", "_servo_zeich_", "[123036789, 7000012]"},
    {"item_45", "ZeichnungL 45", "0", "_servo_zeich_", "[123450000, 7000012]"},
    {"item_42", "ZeichnungR 42", "999", "_servo_zeich_", "[123456789, 999000012]"},
    {"item_44", "ZeichnungR 44", "99", "_servo_zeich_", "[123456789, 7990012]"},
    {"item_46", "ZeichnungR 46", "9999", "_servo_zeich_", "[123456789, 7009999]"},
};
INSTANTIATE_TEST_SUITE_P(Fields, WerteSchreibenEdit, ::testing::ValuesIn(edits),
    [](const auto& row) { return std::string{row.param.name}; });

TEST(WerteSchreiben, JoinsThePartsOfADrawingNumber)
{
    Page page;
    page.run("touch ZeichnungL 41\nmask 12\ntouch ZeichnungL 43\nmask 3\ntouch ZeichnungL 45\nmask 45\n");
    EXPECT_EQ(holding(page.run("key 10\n"), "write " + variable("_servo_zeich_")),
        "write " + variable("_servo_zeich_") + " = [12030045, 7000012]\n");
}

TEST(WerteSchreiben, ClearsTheHigherBitsOfTheSwitchWord)
{
    Page page{"var " + variable("_servo_schalt_") + " = 245\n"};
    EXPECT_EQ(holding(page.run(confirmUntouched), "write " + variable("_servo_schalt_")),
        "write " + variable("_servo_schalt_") + " = 5\n");
}

TEST(WerteSchreiben, TakesMarkedSwitchesFromTheControlAndTheOthersFromTheMachine)
{
    Page page;
    page.run("touch SchalterL 31\ntouch SchalterR 34\n"); // off, on
    page.run("var " + variable("_servo_schalt_") + " = 3\n"); // 32 was switched on elsewhere, 33 off
    EXPECT_EQ(holding(page.run("key 10\n"), "write " + variable("_servo_schalt_")),
        "write " + variable("_servo_schalt_") + " = 10\n");
}

TEST(WerteSchreiben, TakesUnmarkedSwitchesFromItsOwnReadAndNotFromWhatIsShown)
{
    Page page;
    page.run("touch SchalterL 31\n");
    page.run("var " + variable("_servo_schalt_") + " = 8\nfail read " + variable("_servo_schalt_") + " 1\n");
    EXPECT_EQ(holding(page.run("key 10\n"), "write " + variable("_servo_schalt_")),
        "write " + variable("_servo_schalt_") + " = 8\n");
}

struct Family {
    const char* name;
    const char* family;
};
void PrintTo(const Family& row, std::ostream* out) { *out << row.name; }

// The variables of a servo that a confirm writes, but for one family.
std::string othersThan(std::string_view family)
{
    std::string names;
    for (const char* one :
        {"_servo_para_", "_servo_para2_", "_servo_schalt_", "_servo_zeich_", "_servoaender_"})
        if (one != family) names += variable(one) + "\n";
    return names;
}

// The variables of a servo that a trace shows written, without their values.
std::string written(std::string_view trace)
{
    std::string lines = beginning(trace, {"write Ch1."});
    std::string names;
    while (!lines.empty()) {
        names += lines.substr(6, lines.find('>') - 5) + "\n";
        lines.erase(0, lines.find('\n') + 1);
    }
    return names;
}

class WerteSchreibenFailing : public ::testing::TestWithParam<Family> { };

TEST_P(WerteSchreibenFailing, LeavesAFamilyAloneThatItCouldNotRead)
{
    Page page;
    page.run("touch SollwertL 5\nmask 55\n");
    page.run("fail read " + variable(GetParam().family) + "\n");
    const std::string trace = page.run("key 10\n");
    EXPECT_EQ(written(trace), othersThan(GetParam().family));
    EXPECT_GE(count(trace, "error 13 \"Ma WerteSchreiben\""), 1U);
}

TEST_P(WerteSchreibenFailing, WritesAFamilyThatOnlyTheRefreshCouldNotRead)
{
    Page page;
    page.run("touch SollwertL 5\nmask 55\n");
    page.run("fail read " + variable(GetParam().family) + " 1\n");
    const std::string trace = page.run("key 10\n");
    EXPECT_EQ(written(trace), othersThan({}));
    EXPECT_EQ(count(trace, "\"Ma WerteSchreiben\""), 0U);
}

TEST_P(WerteSchreibenFailing, LeavesAFamilyAloneWhoseValueIsOfAnotherKind)
{
    Page page;
    const bool word = std::string_view{GetParam().family} == "_servo_schalt_";
    page.run("var " + variable(GetParam().family) + (word ? " = \"on\"\n" : " = 12\n"));
    const std::string trace = page.run(confirmUntouched);
    EXPECT_EQ(written(trace), othersThan(GetParam().family));
    EXPECT_EQ(count(trace, "error 13 \"Ma WerteSchreiben\""), word ? 5U : 1U);
}

TEST_P(WerteSchreibenFailing, GoesOnWhenAWriteFails)
{
    Page page;
    page.run("touch SollwertL 5\nmask 55\n");
    page.run("fail write " + variable(GetParam().family) + "\n");
    const std::string trace = page.run("key 10\n");
    EXPECT_EQ(
        written(without(trace, {"write " + variable(GetParam().family)})), othersThan(GetParam().family));
    EXPECT_EQ(count(trace, "write " + variable(GetParam().family) + " failed\n"), 1U);
    EXPECT_EQ(count(trace, "\"Ma WerteSchreiben\""), 1U);
}

const Family families[] = {
    {"setpoints", "_servo_para_"},
    {"second_setpoints", "_servo_para2_"},
    {"switch_word", "_servo_schalt_"},
    {"drawing_numbers", "_servo_zeich_"},
};
INSTANTIATE_TEST_SUITE_P(Families, WerteSchreibenFailing, ::testing::ValuesIn(families),
    [](const auto& row) { return std::string{row.param.name}; });

TEST(WerteSchreiben, ReportsAMarkedFieldThatTheArrayDoesNotHave)
{
    Page page;
    page.run("touch SollwertR 24\nmask 100\n");
    page.run("var " + variable("_servo_para2_") + " = [1, 2, 3]\n");
    const std::string trace = page.run("key 10\n");
    EXPECT_EQ(count(trace, "error 9 \"Ma WerteSchreiben\""), 1U);
    EXPECT_EQ(holding(trace, "write " + variable("_servo_para2_")),
        "write " + variable("_servo_para2_") + " = [1, 2, 3]\n");
}

TEST(WerteSchreiben, ClearsTheMarksEvenWhenAWriteFails)
{
    Page page;
    page.run("touch SollwertL 5\nmask 55\nfail write " + variable("_servo_para_") + "\nkey 10\n");
    EXPECT_EQ(page.run("timer\n"), "> timer\n" + refresh());
}

TEST(WerteSchreiben, ClearsTheModifiedFlag)
{
    Page page;
    page.run("touch SollwertL 5\nmask 55\nkey 10\n");
    // With nothing left to write the key goes to the diagnosis page.
    EXPECT_EQ(beginning(page.run("key 10\n"), {"write "}), "");
}

TEST(WerteSchreiben, ClearsTheModifiedFlagItself)
{
    // In the second input mode the page is built anew without a read that would clear the flag, too.
    Page page{levelFive()};
    page.run("key 4\npoke modified -1\n");
    EXPECT_NE(beginning(page.run("key! 10\n"), {"write "}), "");
    EXPECT_EQ(beginning(page.run("key! 10\n"), {"write "}), "");
}

TEST(WerteSchreiben, TurnsTheFieldBlackAgain)
{
    Page page;
    page.run("touch SollwertL 5\nmask 55\n");
    EXPECT_EQ(page.state("ServoMain.SollwertL(5).-513"), "32768");
    page.run("key 10\n");
    EXPECT_EQ(page.state("ServoMain.SollwertL(5).-513"), "0");
}

TEST(WerteSchreiben, WritesTheSwitchWordIn32BitsAndADrawingNumberAsDouble)
{
    Page page;
    const basic::Array numbers{
        basic::VariantType::Variant, 0, {std::int32_t{123456789}, std::int32_t{7000012}}};
    page.world().variables.set(variable("_servo_schalt_"), std::int16_t{5});
    page.world().variables.set(variable("_servo_zeich_"), numbers);
    page.run("touch ZeichnungL 41\nmask 12\nkey 10\n");
    EXPECT_EQ(*page.world().variables.find(variable("_servo_schalt_")), basic::Variant{std::int32_t{5}});
    // What was not edited goes back as it came.
    EXPECT_EQ(*page.world().variables.find(variable("_servo_zeich_")),
        (basic::Variant{basic::Array{basic::VariantType::Variant, 0, {12456789.0, std::int32_t{7000012}}}}));
}

class WerteSchreibenAlone : public testing::LonePage {
protected:
    // Marks setpoint 5 and switch 31.
    WerteSchreibenAlone()
    {
        page.control.WerteLesen(true);
        touch(5);
        page.control.Eingabemaske_EingabeAenderung();
        page.fake("Eingabemaske")->properties["OFFEN"] = false;
        touch(31);
        page.surround.errors.reports.clear();
    }
    // How many setpoints and switches of the left half a refresh shows: all that are not marked.
    std::pair<std::ptrdiff_t, std::ptrdiff_t> refreshed()
    {
        forget("SollwertL");
        forget("SchalterL");
        page.control.WerteLesen(true);
        return {puts("SollwertL", "Wert"), puts("SchalterL", "Zustand")};
    }
};

TEST_F(WerteSchreibenAlone, ClearsTheMarksItself)
{
    EXPECT_EQ(refreshed(), (std::pair<std::ptrdiff_t, std::ptrdiff_t>{11, 1}));
    page.control.WerteSchreiben();
    EXPECT_EQ(refreshed(), (std::pair<std::ptrdiff_t, std::ptrdiff_t>{12, 2}));
}

// A setpoint keeps the machine's element; of a switch nobody can tell any more that it was on.
TEST_F(WerteSchreibenAlone, LosesWhatCannotBeReadFromItsControl)
{
    auto& variables = page.surround.world().variables;
    const basic::Variant setpoints = variables[variable("_servo_para_")];
    page.fake("SollwertL")->missing = {"WERT"};
    page.fake("SchalterL")->missing = {"ZUSTAND"};
    page.control.WerteSchreiben();
    const testing::Report lost{438, "Ma WerteSchreiben"};
    EXPECT_EQ(std::count(reports().begin(), reports().end(), lost), 2);
    EXPECT_EQ(variables[variable("_servo_para_")], setpoints);
    EXPECT_EQ(variables[variable("_servo_schalt_")], basic::Variant{std::int32_t{4}});
}

// The page before its first reading: its inputs show nothing but what is entered.
class WerteSchreibenUngelesen : public testing::LonePage {
protected:
    void enter(std::int16_t field)
    {
        touch(field);
        page.control.Eingabemaske_EingabeAenderung();
        page.fake("Eingabemaske")->properties["OFFEN"] = false;
    }
    const basic::Variant& written(const char* family, std::int32_t element)
    {
        return basic::element(page.surround.world().variables[variable(family)], element);
    }
};

// What the machine told has not reached its inputs: whatever they show is not its value.
TEST_F(WerteSchreibenUngelesen, KeepsTheMachinesValueWhereAnInputRefusedIt)
{
    page.fake("SchalterL")->missing = {"ZUSTAND"};
    page.fake("ZeichnungL")->missing = {"TEXT"};
    page.control.WerteLesen(true);
    page.fake("SchalterL")->missing.clear();
    page.fake("ZeichnungL")->missing.clear();
    enter(41);
    touch(31);
    page.control.WerteSchreiben();
    EXPECT_EQ(page.surround.world().variables[variable("_servo_schalt_")], basic::Variant{std::int32_t{5}});
    EXPECT_EQ(written("_servo_zeich_", 0), basic::Variant{123456789.0});
}

// An input that refuses the colour of a change has taken the change all the same. All setpoints of the half are one
// fake: field 5 has what field 22 was given last.
TEST_F(WerteSchreibenUngelesen, WritesWhatWasEnteredEvenWithoutItsColour)
{
    page.fake("SollwertL")->missing = {"VORDERGRUND"};
    page.fake("ZeichnungL")->missing = {"FARBE"};
    page.fake("ZeichnungL")->properties["TEXT"] = "7";
    for (const int field : {5, 41, 43, 45})
        enter(static_cast<std::int16_t>(field));
    page.control.WerteSchreiben();
    EXPECT_EQ(written("_servo_para_", 4), basic::Variant{20.0});
    EXPECT_EQ(written("_servo_zeich_", 0), basic::Variant{7070007.0});
}

} // namespace
} // namespace servopanel::servo_page::tests
