#include "servo_page_values/lone_page.h"
#include "servo_page_values/page.h"

#include <gtest/gtest.h>

#include <string>

namespace servopanel::servo_page::tests {
namespace {

const std::string pointer = "Ch-1.intern<.servo_zeiger>";

bool startsWith(const std::string& trace, const std::string& start)
{
    return trace.substr(0, start.size()) == start;
}

TEST(Fußzeile_TasteClick, IgnoresKeysWithoutAnAction)
{
    Page page;
    for (const char* key : {"-1", "0", "1", "2", "3", "12", "30", "32", "32767"})
        EXPECT_EQ(page.run(std::string{"key! "} + key + "\n"), std::string{"> key! "} + key + "\n");
}

// Key 4

TEST(Fußzeile_TasteClick, Key4SwitchesTheSecondInputModeAtLevel5)
{
    Page page{levelFive()};
    EXPECT_EQ(page.run("key 4\n"), "> key 4\ncall ServoMain.Fußzeile.0x68030006(4, 65280)\n");
    EXPECT_EQ(page.run("key 4\n"), "> key 4\ncall ServoMain.Fußzeile.0x68030006(4, 12632256)\n");
}

TEST(Fußzeile_TasteClick, Key4ASecondTimeBringsTheMaskBack)
{
    Page page{levelFive()};
    page.run("key 4\nkey 4\n");
    const std::string trace = page.run("touch SollwertL 5\n");
    EXPECT_NE(holding(trace, "Eingabemaske.0x68030000"), "");
    EXPECT_EQ(holding(trace, "IniEingabe"), "");
}

TEST(Fußzeile_TasteClick, Key4DoesNothingAtOtherLevels)
{
    for (const char* level : {"4", "6", "0"}) {
        Page page{std::string{"var Ch-1.intern<.passwort> = "} + level + "\n"};
        EXPECT_EQ(page.run("key! 4\n"), "> key! 4\n");
        EXPECT_NE(holding(page.run("touch SollwertL 5\n"), "Eingabemaske.0x68030000"), "");
    }
}

TEST(Fußzeile_TasteClick, Key4DoesNothingWhileTheMaskIsOpen)
{
    Page page{levelFive()};
    page.run("touch SollwertL 5\n");
    EXPECT_EQ(page.run("key! 4\n"), "> key! 4\n");
}

TEST(Fußzeile_TasteClick, Key4DoesNothingWhileTheEditorIsOpen)
{
    Page page{levelFive()};
    page.run("key 4\ntouch SollwertL 5\n");
    EXPECT_EQ(page.run("key! 4\n"), "> key! 4\n");
}

TEST(Fußzeile_TasteClick, Key4DoesNothingWhileChangesWait)
{
    Page page{levelFive()};
    page.run("touch SollwertL 5\nmask 55\n");
    EXPECT_EQ(page.run("key! 4\n"), "> key! 4\n");
}

// Keys 5 and 6

TEST(Fußzeile_TasteClick, Key6ShowsTheNextServoAndKey5ThePrevious)
{
    Page page;
    const std::string hidden = R"(put ServoMain.ParaBeschriftung(0).Visible = false
put ServoMain.ParaBeschriftung(1).Visible = false
put ServoMain.ParaBeschriftung(2).Visible = false
)";
    const std::string next = page.run("key 6\n");
    EXPECT_TRUE(startsWith(next, "> key 6\n" + hidden)) << next;
    EXPECT_EQ(holding(next, "write"), "write " + pointer + " = 2\n");
    EXPECT_EQ(count(next, "read " + variable("_servo_para_", {}, "5")), 1U);

    const std::string previous = page.run("key 5\n");
    EXPECT_TRUE(startsWith(previous, "> key 5\n" + hidden)) << previous;
    EXPECT_EQ(holding(previous, "write"), "write " + pointer + " = 1\n");
    EXPECT_EQ(count(previous, "read " + variable("_servo_para_")), 1U);
}

TEST(Fußzeile_TasteClick, AnotherServosDiagnosisBeginsWithItsFirstPage)
{
    Page page;
    page.run("key 10\nkey 8\n");
    const std::string trace = page.run("key 6\n");
    EXPECT_EQ(count(trace, "read " + variable("_servo_diag_", "1", "5")), 1U);
    EXPECT_EQ(holding(trace, "_servo_diag_52"), "");
}

TEST(Fußzeile_TasteClick, AnotherServosParametersFollowParameters)
{
    Page page;
    const std::string trace = page.run("key 6\n");
    EXPECT_EQ(count(trace, "read " + variable("_servo_para_", {}, "5")), 1U);
    EXPECT_EQ(holding(trace, "_servo_diag_"), "");
}

TEST(Fußzeile_TasteClick, LeavesTheListWithReportsWhenItIsPushed)
{
    Page page;
    const std::string trace = page.run("key! 5\n");
    EXPECT_EQ(holding(trace, "Ch1."), "");
    EXPECT_EQ(count(trace, "error 9 \"Ma WerteLesen\""), 8U);
    EXPECT_EQ(holding(trace, "write"), "write " + pointer + " = 0\n");
}

TEST(Fußzeile_TasteClick, DoesNothingFurtherWhenTheServosNumberOverflows)
{
    Page page{"var " + pointer + " = 32767\n"};
    EXPECT_EQ(page.run("key! 6\n"), "> key! 6\nerror 6 \"Ma Fußzeile_TasteClick\" \"Overflow\"\n");
}

TEST(Fußzeile_TasteClick, ForgetsChangesOfTheServoBefore)
{
    Page page;
    page.run("touch SollwertL 5\nmask 55\n");
    page.run("key! 6\n");
    EXPECT_EQ(page.state("ServoMain.SollwertL(5).8"), "50");
    EXPECT_EQ(
        holding(page.run("timer\n"), "put ServoMain.SollwertL(5).8"), "put ServoMain.SollwertL(5).8 = 50\n");
}

// Keys 7 and 8

TEST(Fußzeile_TasteClick, Keys7And8ShowTheDiagnosisPages)
{
    Page page;
    page.run("key 10\n");
    const std::string second = page.run("key 8\n");
    EXPECT_EQ(count(second, "read " + variable("_servo_diag_", "2")), 1U);
    // As for another servo: the definitions are read and the servo is remembered again.
    EXPECT_EQ(count(second, "write " + pointer + " = 1"), 1U);
    const std::string first = page.run("key 7\n");
    EXPECT_EQ(count(first, "read " + variable("_servo_diag_", "1")), 1U);
    EXPECT_EQ(count(first, "write " + pointer + " = 1"), 1U);
}

// Key 9

TEST(Fußzeile_TasteClick, Key9ForgetsTheServoAndOpensTheMachines)
{
    Page page;
    EXPECT_EQ(page.run("key! 9\n"), "> key! 9\nwrite " + pointer + " = 0\nscreen 1109\n");
    EXPECT_EQ(page.run("timer\n"), "> timer\n" + refresh());
}

// Key 10

TEST(Fußzeile_TasteClick, Key10TogglesBetweenParametersAndFirstDiagnosis)
{
    Page page;
    EXPECT_EQ(count(page.run("key 10\n"), "read " + variable("_servo_diag_", "1")), 1U);
    page.run("key 8\n");
    EXPECT_EQ(holding(page.run("key 10\n"), "_servo_diag_"), "");
    EXPECT_EQ(page.run("timer\n"), "> timer\n" + refresh());
}

TEST(Fußzeile_TasteClick, Key10BuildsThePageWithoutReadingDefinitionsAgain)
{
    Page page{definitions(1)};
    const std::string trace = page.run("key 10\n");
    EXPECT_EQ(holding(trace, "db open"), "");
    EXPECT_EQ(holding(trace, "write"), "");
}

TEST(Fußzeile_TasteClick, Key10TellsTheMachineAfterWriting)
{
    Page page;
    page.run("touch SollwertL 5\nmask 55\n");
    const std::string trace = page.run("key 10\n");
    const std::string names = beginning(trace, {"write "});
    EXPECT_NE(names.find("write " + variable("_servoaender_") + " = 1\n"), std::string::npos);
    EXPECT_EQ(names.substr(names.rfind("write ")), "write " + variable("_servoaender_") + " = 1\n");
    // The same page, its values from the machine.
    EXPECT_EQ(holding(trace, "_servo_diag_"), "");
    EXPECT_EQ(count(trace, "read " + variable("_servo_para_") + " = "), 3U);
}

TEST(Fußzeile_TasteClick, Key10WritesNothingWhenTheFlagIsSetButNotTrue)
{
    Page page;
    page.run("touch SollwertL 5\nmask 55\npoke modified 1\n");
    const std::string trace = page.run("key 10\n");
    EXPECT_EQ(holding(trace, "write"), "");
    EXPECT_EQ(count(trace, "read " + variable("_servo_para_") + " = "), 1U);
    // Confirm mode is over: key 11 leaves.
    EXPECT_EQ(count(page.run("key 11\n"), "raise ServoMain.MenuAnzeigen()"), 1U);
}

TEST(Fußzeile_TasteClick, Key10StaysOnTheDiagnosisPageWhenItConfirms)
{
    Page page;
    page.run("key 10\npoke modified -1\n");
    const std::string trace = page.run("key! 10\n");
    EXPECT_EQ(count(trace, "write " + variable("_servoaender_")), 1U);
    EXPECT_GE(count(trace, "read " + variable("_servo_diag_", "1")), 1U);
}

TEST(Fußzeile_TasteClick, Key10GoesOnWhenTheMachineCannotBeTold)
{
    Page page;
    page.run("touch SollwertL 5\nmask 55\nfail write " + variable("_servoaender_") + "\n");
    const std::string trace = page.run("key 10\n");
    EXPECT_EQ(count(trace, "error -2147467259 \"Ma Fußzeile_TasteClick\""), 1U);
    EXPECT_EQ(count(trace, "read " + variable("_servo_para_") + " = "), 3U);
}

// Key 11

TEST(Fußzeile_TasteClick, Key11DiscardsAndReadsTwice)
{
    Page page;
    page.run("touch SollwertL 5\nmask 55\n");
    const std::string trace = page.run("key 11\n");
    EXPECT_EQ(holding(trace, "write"), "");
    EXPECT_EQ(holding(trace, "raise"), "");
    EXPECT_EQ(count(trace, "read " + variable("_servo_para_") + " = "), 2U);
    EXPECT_EQ(page.state("ServoMain.SollwertL(5).8"), "50");
    EXPECT_EQ(page.state("ServoMain.Timer.Enabled"), "true");
}

TEST(Fußzeile_TasteClick, Key11RebuildsWithoutReadingFirstWhenNothingIsModified)
{
    Page page;
    page.run("touch SollwertL 5\nmask 55\npoke modified 0\n");
    // The one read is that of the page's rebuilding.
    EXPECT_EQ(count(page.run("key 11\n"), "read " + variable("_servo_para_") + " = "), 1U);
}

TEST(Fußzeile_TasteClick, Key11LeavesForTheMenu)
{
    Page page;
    const std::string start = "> key 11\nput ServoMain.Timer.Enabled = false\nwrite " + pointer
        + " = 0\nraise ServoMain.MenuAnzeigen()\n";
    const std::string trace = page.run("key 11\n");
    EXPECT_TRUE(startsWith(trace, start)) << trace;
    EXPECT_EQ(holding(trace, "screen"), "");
}

TEST(Fußzeile_TasteClick, Key11LeavesForAScreenWithoutAMenu)
{
    Page page{R"(file Parameter\Program.ini
[1Machine]
Servo1=3
Servo2=5
end
)"};
    EXPECT_EQ(page.run("key 11\n"),
        "> key 11\nput ServoMain.Timer.Enabled = false\nwrite " + pointer + " = 0\nscreen 1111\n");
    EXPECT_EQ(page.run("timer\n"), "> timer\ntimer off\n");
}

TEST(Fußzeile_TasteClick, Key11LeavesEvenWhenTheServoCannotBeForgotten)
{
    Page page;
    page.run("fail write " + pointer + "\n");
    const std::string trace = page.run("key 11\n");
    EXPECT_EQ(count(trace, "error -2147467259 \"Ma Fußzeile_TasteClick\""), 1U);
    EXPECT_EQ(count(trace, "raise ServoMain.MenuAnzeigen()"), 1U);
}

// Key 31

TEST(Fußzeile_TasteClick, Key31LeavesForItsScreen)
{
    Page page;
    EXPECT_EQ(page.run("key 31\n"),
        "> key 31\nput ServoMain.Timer.Enabled = false\nwrite " + pointer + " = 0\nscreen 1131\n");
}

// Screens by machine

std::string machine(const std::string& number)
{
    return "var Ch-1.intern<.aktuelle_maschine> = " + number + "\nvar parameter<.maschinenbez_" + number
        + "> = \"M1\"\nvar parameter<.servo_anzahl_" + number + "> = 1\nfile Parameter\\Program.ini\n["
        + number + "Machine]\nServo1=3\nend\n";
}

TEST(Fußzeile_TasteClick, CountsScreensByMachine)
{
    Page page{machine("3")};
    EXPECT_EQ(holding(page.run("key 11\n"), "screen"), "screen 1311\n");
    EXPECT_EQ(holding(page.run("key! 9\n"), "screen"), "screen 1309\n");
}

TEST(Fußzeile_TasteClick, OpensNoScreenBeyond16BitsButForgetsTheServo)
{
    Page page{machine("327")};
    EXPECT_EQ(page.run("key 31\n"),
        "> key 31\nput ServoMain.Timer.Enabled = false\nwrite " + pointer
            + " = 0\nerror 6 \"Ma Fußzeile_TasteClick\" \"Overflow\"\n");
    EXPECT_EQ(page.run("key! 9\n"),
        "> key! 9\nwrite " + pointer + " = 0\nerror 6 \"Ma Fußzeile_TasteClick\" \"Overflow\"\n");
}

TEST(Fußzeile_TasteClick, Key11OnlyRebuildsWhenTheFlagIsSetButNotTrue)
{
    Page page;
    page.run("touch SollwertL 5\nmask 55\npoke modified 1\n");
    // The one read is that of the page's rebuilding.
    EXPECT_EQ(count(page.run("key 11\n"), "read " + variable("_servo_para_") + " = "), 1U);
    // Confirm mode is over.
    EXPECT_EQ(count(page.run("key 11\n"), "raise ServoMain.MenuAnzeigen()"), 1U);
}

TEST(Fußzeile_TasteClick, Key10WritesNothingOfAnyServoOutsideTheList)
{
    Page page;
    page.run("key! 5\npoke modified -1\n");
    const std::string trace = page.run("key! 10\n");
    EXPECT_EQ(holding(trace, "write Ch1."), "");
    EXPECT_EQ(count(trace, "error 9 \"Ma Fußzeile_TasteClick\""), 1U);
}

class FußzeileTasteClickAlone : public testing::LonePage { };

TEST_F(FußzeileTasteClickAlone, Key4DoesNothingWhenTheEditorCannotBeAsked)
{
    page.fake("IniEingabe")->missing = {"OFFEN"};
    forget("Fußzeile");
    page.control.Fußzeile_TasteClick(4);
    EXPECT_TRUE(page.fake("Fußzeile")->crossings.empty());
    EXPECT_EQ(reports(), (testing::Reports{{438, "Ma Fußzeile_TasteClick"}}));
}

TEST_F(FußzeileTasteClickAlone, Key31ForgetsTheServoAs16Bits)
{
    page.control.Fußzeile_TasteClick(31);
    EXPECT_EQ(page.surround.world().variables[pointer], basic::Variant{std::int16_t{0}});
    EXPECT_EQ(page.surround.logged("screen"), testing::Texts{"1031"}); // machine 0
}

} // namespace
} // namespace servopanel::servo_page::tests
