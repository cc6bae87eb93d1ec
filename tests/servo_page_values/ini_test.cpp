#include "servo_page/servo_main.h"
#include "servo_page_values/lone_page.h"
#include "servo_page_values/page.h"
#include "support/lone.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <utility>

namespace servopanel::servo_page::tests {
namespace {

// Which setpoints, switches and drawing numbers the last EingabeDarstellen of a trace locked.
std::string locked(std::string_view trace)
{
    return holding(holding(trace, "put ServoMain.Beschriftung"), ".19 = 8421504");
}

TEST(IniLesen, TakesTheDefinitionOfEachFieldThatHasOne)
{
    Page page{definition("_servo_para_", 0, 3) + definition("_servo_zeich_", 1, 3)};
    EXPECT_EQ(
        count(locked(page.start()), "BeschriftungL(1)"), count(locked(page.start()), "BeschriftungR(42)"));
    EXPECT_GE(count(locked(page.start()), "BeschriftungR(42)"), 1U);
}

TEST(IniLesen, BuildsTheNamesFromDesignationAndServoNumber)
{
    Page page{R"(var parameter<.maschinenbez_1> = "A7"
var Ch1.A7_T_servo_12<.mA7_servopassiv_12> = false
file Parameter\Program.ini
[1Machine]
Servo1=12
end
db Servo\Servo.mdb A7 Ch1.A7_T_servo_12<.mA7_servo_schalt_12> 2 0 1 0 1 3
)"};
    EXPECT_GE(count(locked(page.start()), "BeschriftungR(33)"), 1U);
    EXPECT_EQ(count(locked(page.start()), "BeschriftungR(34)"), 0U);
}

TEST(IniLesen, LooksUpNothingForNumbersWithoutAParameter)
{
    Page page{definition("_servo_para_", 0, 3) + definition("_servo_para2_", 4, 9)
        + definition("_servo_schalt_", 4, 9) + definition("_servo_zeich_", 2, 9)};
    const std::string fields = locked(page.start());
    EXPECT_GE(count(fields, "BeschriftungL(1)"), 1U);
    // Nothing but what the first setpoint has.
    EXPECT_EQ(fields, locked(Page{definition("_servo_para_", 0, 3)}.start()));
}

TEST(IniLesen, KeepsThePagesDefinitionsWhenTheDatabaseHoldsNothing)
{
    Page page{definition("_servo_para_", 0, 3)};
    page.run("db Servo\\Servo.mdb empty\n");
    const std::string trace = page.run("key 6\n");
    EXPECT_EQ(holding(trace, "db row"), "");
    EXPECT_GE(count(locked(trace), "BeschriftungL(1)"), 1U);
}

TEST(IniLesen, KeepsTheDefinitionOfAFieldThatHasNoRowForThisServo)
{
    Page page{definition("_servo_para_", 0, 3)};
    EXPECT_GE(count(locked(page.run("key 6\n")), "BeschriftungL(1)"), 1U);
}

TEST(IniLesen, ReportsEachLookUpWithoutAServo)
{
    Page page{"var Ch-1.intern<.servo_zeiger> = 51\n" + definitions(3)};
    EXPECT_EQ(count(page.start(), "error 9 \"Ma IniLesen\" \"Subscript out of range\"\n"), 30U);
    EXPECT_EQ(locked(page.start()), "");
}

TEST(IniLesen, LooksNothingUpWithoutDefinitions)
{
    // Each look-up would report that there is no servo of this number.
    Page page{"var Ch-1.intern<.servo_zeiger> = 51\n"};
    EXPECT_EQ(holding(page.start(), "\"Ma IniLesen\""), "");
    // As reading its values does.
    EXPECT_NE(holding(page.start(), "error 9 \"Ma WerteLesen\""), "");
}

TEST(IniEingabe, ChangesLimitsAndAccessLevelOfAField)
{
    Page page{levelFive() + definitions(3)};
    page.run("key 4\ntouch SollwertL 5\n");
    const std::string trace = page.run("ini 2 50 4\n");
    const std::string expected = R"(> ini 2 50 4
put ServoMain.IniEingabe.0x68030009 = false
put ServoMain.IniEingabe.Visible = false
)";
    EXPECT_EQ(trace.substr(0, expected.size()), expected);
    EXPECT_EQ(count(trace, "db update "), 30U);
    EXPECT_EQ(count(trace, "db update " + variable("_servo_para_") + " 4\n"), 1U);
    // The row itself has changed: the editor shows it after the definitions were read anew.
    page.run("key 4\nkey 6\nkey 5\nkey 4\n");
    EXPECT_EQ(holding(page.run("touch SollwertL 5\n"), "put ServoMain.IniEingabe.0x6803000"),
        R"(put ServoMain.IniEingabe.0x68030004 = 4
put ServoMain.IniEingabe.0x68030005 = 50
put ServoMain.IniEingabe.0x68030006 = 2
put ServoMain.IniEingabe.0x68030009 = true
)");
}

TEST(IniEingabe, ChangesOnlyTheAccessLevelOfADrawingNumber)
{
    Page page{levelFive() + definitions(3)};
    page.run("key 4\ntouch ZeichnungL 43\n");
    const std::string trace = page.run("ini 2 50 4\n");
    EXPECT_EQ(holding(trace, ").17 ="), R"(put ServoMain.ZeichnungL(41).17 = 12632256
put ServoMain.ZeichnungL(43).17 = 12632256
put ServoMain.ZeichnungL(45).17 = 12632256
)");
    EXPECT_EQ(holding(page.run("touch ZeichnungL 41\n"), "put ServoMain.IniEingabe.0x6803000"),
        R"(put ServoMain.IniEingabe.0x68030004 = 4
put ServoMain.IniEingabe.0x68030005 = 99
put ServoMain.IniEingabe.0x68030006 = 1
put ServoMain.IniEingabe.0x68030009 = true
)");
}

TEST(IniEingabe, FinishesInItsOrder)
{
    Page page{levelFive() + definitions(3)};
    page.run("key 4\ntouch SchalterL 32\n");
    const std::string trace = page.run("ini 0 1 5\n");
    const std::size_t close = trace.find("db close\n");
    ASSERT_NE(close, std::string::npos);
    const std::string after = inputs() + released();
    EXPECT_EQ(trace.substr(close + 9, after.size()), after);
}

TEST(IniEingabe, LocksAFieldThatAsksForMoreThanTheOperatorHas)
{
    Page page{levelFive() + definitions(3)};
    page.run("key 4\ntouch SchalterL 32\n");
    EXPECT_EQ(locked(page.run("ini 0 1 6\n")), "put ServoMain.BeschriftungL(32).19 = 8421504\n");
}

TEST(IniEingabe, CancelCompletesWithTheOldDefinition)
{
    Page page{levelFive() + definitions(3)};
    page.run("key 4\ntouch SollwertL 5\n");
    const std::string trace = page.run("ini cancel\n");
    EXPECT_EQ(count(trace, "put ServoMain.IniEingabe.0x68030009 = false\n"), 1U);
    EXPECT_EQ(locked(trace), "");
}

TEST(IniEingabe, RefusesALowerLimitAboveTheUpper)
{
    Page page{levelFive() + definitions(3)};
    page.run("key 4\ntouch SollwertL 5\n");
    EXPECT_EQ(page.run("ini 3 2 1\n"), "> ini 3 2 1\nrefused ini\n");
}

TEST(IniSchreiben, OpensTheDatabaseForWritingEvenWhenNoFieldHasADefinition)
{
    Page page{levelFive() + "db Servo\\Servo.mdb empty\n"};
    page.run("key 4\ntouch SollwertL 5\n");
    const std::string trace = page.run("ini 1 2 3\n");
    // Once for writing, by the procedure itself; the page that is rebuilt afterwards reads no definitions.
    EXPECT_EQ(beginning(trace, {"db "}), "db open Servo\\Servo.mdb\ndb close\n");
}

TEST(IniSchreiben, LeavesColumnsThatCouldNotBeReadAsTheyAre)
{
    Page page{levelFive() + definition("_servo_para_", 0, 3) + "db Servo\\Servo.mdb M1 "
        + variable("_servo_para_", {}, "5") + " 0 \"x\" 1000 1 \"y\" \"z\"\n"};
    page.run("key 4\ntouch SollwertL 1\nini 1 2 3\n");
    // Read again for the next servo: the same columns are still unreadable, so nothing stands in for them.
    EXPECT_EQ(count(page.run("key 6\n"), "\"INI_Datenbank_Einlesen\""), 3U);
}

// Definition of setpoint 1 of which the columns Min, Max and Pass are as given.
std::string firstDefinition(const std::string& columns)
{
    return levelFive() + "db Servo\\Servo.mdb M1 " + variable("_servo_para_") + " 0 0 1000 " + columns + "\n";
}

// Columns that are unreadable when the database is read anew.
std::size_t unreadableColumns(Page& page)
{
    const std::size_t found = count(page.run("key 6\n"), "\"INI_Datenbank_Einlesen\"");
    page.run("key 5\n");
    return found;
}

// What the editor is given from then on.
std::string offered(Page& page)
{
    page.run("key 4\n");
    return beginning(page.run("touch SollwertL 1\n"),
        {"put ServoMain.IniEingabe.0x68030004", "put ServoMain.IniEingabe.0x68030005",
            "put ServoMain.IniEingabe.0x68030006"});
}

std::string offer(const std::string& least, const std::string& most, const std::string& level)
{
    return "put ServoMain.IniEingabe.0x68030004 = " + level + "\nput ServoMain.IniEingabe.0x68030005 = "
        + most + "\nput ServoMain.IniEingabe.0x68030006 = " + least + "\n";
}

TEST(IniSchreiben, WritesAZeroThatFollowsAnotherValue)
{
    Page page{firstDefinition("\"low\" 99 3")};
    page.run("key 4\ntouch SollwertL 1\nini 1 50 4\ntouch SollwertL 1\nini 0 50 4\n");
    EXPECT_EQ(unreadableColumns(page), 0U);
    EXPECT_EQ(offered(page), offer("0", "50", "4"));
}

// One changed number shows that the operator has accepted the editor, and so the 0 that it shows for the others.
TEST(IniSchreiben, WritesTheColumnsThatTheOperatorAccepted)
{
    struct Accepted {
        const char* least;
        const char* most;
        const char* level;
    };
    for (const auto& [least, most, level] :
        {Accepted{"0", "0", "4"}, Accepted{"0", "50", "3"}, Accepted{"-1", "0", "3"}}) {
        Page page{firstDefinition("\"low\" \"high\" 3")};
        page.run(std::string{"key 4\ntouch SollwertL 1\nini "} + least + " " + most + " " + level + "\n");
        EXPECT_EQ(unreadableColumns(page), 0U);
        EXPECT_EQ(offered(page), offer(least, most, level));
    }
}

TEST(IniSchreiben, LeavesTheColumnsOfACancelledEditorAsTheyAre)
{
    // OK without a change cannot be told from it.
    for (const char* left : {"ini cancel", "ini 0 0 3"}) {
        Page page{firstDefinition("\"low\" \"high\" 3")};
        page.run(std::string{"key 4\ntouch SollwertL 1\n"} + left + "\n");
        EXPECT_EQ(unreadableColumns(page), 2U) << left;
    }
}

// The page alone, with one definition whose access level cannot be read: a host that delivers no touch to a locked
// input would not let anybody near it.
class UnreadableLevel {
public:
    UnreadableLevel(const std::string& family, std::int16_t field)
    {
        testing::World& world = page_.surround.world();
        world.variables["Ch-1.intern<.passwort>"] = std::int16_t{5};
        world.existing.insert("P:\\Servo\\Servo.mdb");
        page_.surround.zustand.AktServo = 1;
        page_.surround.zustand.ServoNr[1] = 3;
        page_.surround.zustand.MaschinenBez = "M1";
        table().rows.push_back({1,
            {{"MACHINE_TYPE", "M1"}, {"VAR_NAME", variable(family)}, {"OFFSET_OR_BITNO", std::int16_t{0}},
                {"ABS_MIN", 0.0}, {"ABS_MAX", 1000.0}, {"MIN", 1.0}, {"MAX", 99.0}, {"PASS", "all"}}});
        page_.control.BildInit(1);
        page_.control.IniLesen();
        page_.control.Fußzeile_TasteClick(4);
        page_.control.Sollwert_MouseDown(field, 1, 0, 0, 0);
    }
    basic::Variant& editor(const char* property) { return page_.fake("IniEingabe")->properties[property]; }
    void leave() { page_.control.IniEingabe_EingabeFertig(); }
    basic::Variant stored() { return table().rows[0].columns["PASS"]; }
    // The member is not there when the page asks for it.
    void lose(const char* property) { page_.fake("IniEingabe")->missing = {property}; }

private:
    testing::FakeTable& table() { return page_.surround.platform.tables["P:\\Servo\\Servo.mdb"]; }

    testing::Lone<ServoMain> page_;
};

TEST(IniSchreiben, WritesAnUnreadableLevelOnceTheOperatorAcceptedOne)
{
    for (const auto& [family, field] :
        {std::pair{"_servo_para_", std::int16_t{1}}, std::pair{"_servo_zeich_", std::int16_t{45}}}) {
        UnreadableLevel edited{family, field};
        ASSERT_EQ(edited.editor("PASS"), basic::Variant{std::int16_t{32767}});
        edited.leave();
        EXPECT_EQ(edited.stored(), basic::Variant{"all"}) << family;
        edited.editor("PASS") = std::int16_t{4};
        edited.leave();
        EXPECT_EQ(edited.stored(), basic::Variant{std::int16_t{4}}) << family;
    }
}

// Another changed number shows that the level was accepted, too, but it has to be there to be taken.
TEST(IniSchreiben, WritesNoLevelThatTheEditorDidNotGive)
{
    UnreadableLevel edited{"_servo_para_", 1};
    edited.editor("MIN") = 2.0;
    edited.lose("PASS");
    edited.leave();
    EXPECT_EQ(edited.stored(), basic::Variant{"all"});
}

TEST(IniSchreiben, ReportsADatabaseThatRefusesUpdatesAndGoesOn)
{
    Page page{levelFive() + definition("_servo_para_", 0, 3)};
    page.run("key 4\ntouch SollwertL 1\nfail db update\n");
    const std::string trace = page.run("ini 1 2 3\n");
    EXPECT_EQ(count(trace, "\"INI_Datenbank_Schreiben\""), 1U);
    EXPECT_NE(trace.find(released()), std::string::npos);
}

TEST(IniSchreiben, WritesEvenWhenNoFieldCanBeLookedUp)
{
    Page page{levelFive() + definitions(3)};
    // There is no servo before the first.
    page.run("key! 5\nkey! 4\ntouch SollwertL 1\n");
    const std::string trace = page.run("ini 1 2 3\n");
    EXPECT_EQ(count(trace, "error 9 \"Ma IniSchreiben\""), 30U);
    EXPECT_EQ(count(trace, "db update "), 30U);
    EXPECT_EQ(count(trace, "db close\n"), 1U);
    // No record has taken the place of the first.
    EXPECT_EQ(count(trace, "db update " + variable("_servo_para_") + " 0\n"), 1U);
}

TEST(IniEingabe, ChangesTheAccessLevelOfTheRightDrawingNumberAlone)
{
    Page page{levelFive() + definitions(3)};
    page.run("key 4\ntouch ZeichnungR 44\n");
    EXPECT_EQ(holding(page.run("ini 2 50 4\n"), ").17 ="), R"(put ServoMain.ZeichnungR(42).17 = 12632256
put ServoMain.ZeichnungR(44).17 = 12632256
put ServoMain.ZeichnungR(46).17 = 12632256
)");
    EXPECT_EQ(holding(page.run("touch ZeichnungR 42\n"), "IniEingabe.0x68030004"),
        "put ServoMain.IniEingabe.0x68030004 = 4\n");
    page.run("ini cancel\n");
    EXPECT_EQ(holding(page.run("touch ZeichnungL 41\n"), "IniEingabe.0x68030004"),
        "put ServoMain.IniEingabe.0x68030004 = 3\n");
}

class IniEingabeAlone : public testing::LonePage {
protected:
    // Opens the editor for setpoint 5.
    IniEingabeAlone()
    {
        page.control.Fußzeile_TasteClick(4);
        touch(5);
        forget("IniEingabe");
    }
};

TEST_F(IniEingabeAlone, GivesLowerLimitUpperLimitAndLevelInThisOrder)
{
    page.control.IniEingabe_EingabeFertig();
    testing::Texts read;
    for (const testing::Crossing& crossing : page.fake("IniEingabe")->crossings)
        if (crossing.verb == "get") read.emplace_back(crossing.member.name);
    EXPECT_EQ(read, (testing::Texts{"Min", "Max", "Pass"}));
}

TEST_F(IniEingabeAlone, LosesOnlyTheValueThatCannotBeRead)
{
    const auto editor = page.fake("IniEingabe");
    editor->properties["MIN"] = 7.0;
    editor->properties["MAX"] = 50.0;
    editor->properties["PASS"] = std::int16_t{3};
    editor->missing = {"MIN"};
    page.control.IniEingabe_EingabeFertig();
    const testing::Report lost{438, "Ma IniEingabe_EingabeFertig"};
    EXPECT_EQ(std::count(reports().begin(), reports().end(), lost), 1);

    editor->missing.clear();
    forget("IniEingabe");
    touch(5);
    EXPECT_EQ(puts("IniEingabe"),
        (testing::Texts{"Pass = 3", "Max = 50", "Min = 0", "Top = 2235", "Left = 11810", "Offen = True",
            "Visible = True"}));
}

} // namespace
} // namespace servopanel::servo_page::tests
