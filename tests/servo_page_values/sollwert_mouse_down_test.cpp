#include "servo_page_values/lone_page.h"
#include "servo_page_values/page.h"

#include <gtest/gtest.h>

#include <ostream>
#include <string>

namespace servopanel::servo_page::tests {
namespace {

std::string allOff()
{
    const auto off = [](const char* array, int first, int last, int step) {
        std::string text;
        for (int item = first; item <= last; item += step)
            text +=
                std::string{"put ServoMain."} + array + "(" + std::to_string(item) + ").Enabled = false\n";
        return text;
    };
    return off("SollwertL", 1, 10, 1) + off("SollwertR", 11, 20, 1) + off("SollwertL", 21, 22, 1)
        + off("SollwertR", 23, 24, 1) + off("ZeichnungL", 41, 45, 2) + off("ZeichnungR", 42, 46, 2);
}

std::string opened(const std::string& left = "3210")
{
    return "put ServoMain.Eingabemaske.Top = 2235\nput ServoMain.Eingabemaske.Left = " + left
        + "\nput ServoMain.Eingabemaske.0x68030000 = true\nput ServoMain.Eingabemaske.Visible = true\n"
        + withdrawn();
}

std::string editorOpened(const std::string& left = "3210")
{
    return "put ServoMain.IniEingabe.Top = 2235\nput ServoMain.IniEingabe.Left = " + left
        + "\nput ServoMain.IniEingabe.0x68030009 = true\nput ServoMain.IniEingabe.Visible = true\n"
        + withdrawn();
}

TEST(Sollwert_MouseDown, OpensTheMaskForASetpoint)
{
    Page page;
    EXPECT_EQ(page.run("touch SollwertL 5\n"),
        "> touch SollwertL 5\n" + allOff()
            + "put ServoMain.Eingabemaske.0x68030001 = ServoMain.SollwertL(5)\n" + opened("11810"));
}

TEST(Sollwert_MouseDown, OpensTheMaskForAPartOfADrawingNumber)
{
    Page page;
    EXPECT_EQ(page.run("touch ZeichnungL 45\n"),
        "> touch ZeichnungL 45\n" + allOff() + R"(put ServoMain.Pseudo.22 = "0"
put ServoMain.Pseudo.21 = "9999"
put ServoMain.ZeichnungL(45).17 = 65280
put ServoMain.Pseudo.8 = 6789
put ServoMain.Eingabemaske.0x68030001 = ServoMain.Pseudo
)" + opened());
}

TEST(Sollwert_MouseDown, TogglesASwitchAtOnce)
{
    Page page;
    EXPECT_EQ(page.run("touch SchalterL 31\n"),
        "> touch SchalterL 31\nput ServoMain.SchalterL(31).0x68030000 = false\n" + withdrawn()
            + confirmKeys());
    EXPECT_EQ(page.run("touch SchalterR 34\n"),
        "> touch SchalterR 34\nput ServoMain.SchalterR(34).0x68030000 = true\n" + withdrawn()
            + confirmKeys());
}

TEST(Sollwert_MouseDown, KeepsMarkAndConfirmModeOfASwitchToggledTwice)
{
    Page page;
    page.run("touch SchalterL 31\ntouch SchalterL 31\n");
    EXPECT_EQ(page.state("ServoMain.SchalterL(31).0x68030000"), "true");
    EXPECT_EQ(page.run("timer\n"), "> timer\n" + refresh({31}));
    EXPECT_EQ(count(page.run("key 10\n"), "write " + variable("_servoaender_") + " = 1"), 1U);
}

TEST(Sollwert_MouseDown, OnlyTellsAUserWithoutPermission)
{
    Page page{"input 0\n"};
    for (const char* touch : {"touch SollwertL 5", "touch SchalterL 31", "touch ZeichnungR 46"})
        EXPECT_EQ(page.run(std::string{touch} + "\n"),
            std::string{"> "} + touch
                + "\ntext Standard.15000 = \"No permission\"\nmessage \"No permission\"\n");
    EXPECT_EQ(page.run("timer\n"), "> timer\n" + refresh());
}

TEST(Sollwert_MouseDown, TakesAnyPermissionButZero)
{
    Page page{"input 1\n"};
    const std::string trace = page.run("touch SollwertL 5\n");
    EXPECT_EQ(count(trace, "put ServoMain.Eingabemaske.0x68030000 = true\n"), 1U);
    EXPECT_EQ(count(trace, "message"), 0U);
}

TEST(Sollwert_MouseDown, IgnoresATouchWhileTheMaskIsOpen)
{
    Page page;
    page.run("touch SollwertL 5\n");
    EXPECT_EQ(page.run("touch SchalterL 31\n"), "> touch SchalterL 31\n");
    EXPECT_EQ(page.run("timer\n"), "> timer\n" + refresh({5}));
}

struct Place {
    const char* name;
    const char* touch;
    const char* left;
};
void PrintTo(const Place& row, std::ostream* out) { *out << row.name; }

class MaskPlace : public ::testing::TestWithParam<Place> { };

TEST_P(MaskPlace, IsLeftForFieldsFrom10On)
{
    Page page;
    EXPECT_EQ(holding(page.run(std::string{"touch "} + GetParam().touch + "\n"), "Eingabemaske.Left"),
        std::string{"put ServoMain.Eingabemaske.Left = "} + GetParam().left + "\n");
}

const Place places[] = {
    {"field_1", "SollwertL 1", "11810"},
    {"field_9", "SollwertL 9", "11810"},
    {"field_10", "SollwertL 10", "3210"},
    {"field_11", "SollwertR 11", "3210"},
    {"field_22", "SollwertL 22", "3210"},
    {"item_41", "ZeichnungL 41", "3210"},
    {"item_46", "ZeichnungR 46", "3210"},
};
INSTANTIATE_TEST_SUITE_P(Touches, MaskPlace, ::testing::ValuesIn(places),
    [](const auto& row) { return std::string{row.param.name}; });

TEST(Sollwert_MouseDown, ScalesTheMasksPlaceWithoutSnapping)
{
    Page page{"var parameter<.aufloesung> = 800\n"};
    EXPECT_EQ(holding(page.run("touch SollwertL 9\n"), "ServoMain.Eingabemaske"),
        R"(put ServoMain.Eingabemaske.0x68030001 = ServoMain.SollwertL(9)
put ServoMain.Eingabemaske.Top = 1309.5703
put ServoMain.Eingabemaske.Left = 7381.25
put ServoMain.Eingabemaske.0x68030000 = true
put ServoMain.Eingabemaske.Visible = true
)");
}

struct Part {
    const char* name;
    const char* touch;
    const char* limit;
    const char* value;
};
void PrintTo(const Part& row, std::ostream* out) { *out << row.name; }

class DrawingPart : public ::testing::TestWithParam<Part> { };

TEST_P(DrawingPart, IsEditedInPseudoWithinItsDigits)
{
    Page page;
    EXPECT_EQ(holding(page.run(std::string{"touch "} + GetParam().touch + "\n"), "put ServoMain.Pseudo"),
        std::string{"put ServoMain.Pseudo.22 = \"0\"\nput ServoMain.Pseudo.21 = \""} + GetParam().limit
            + "\"\nput ServoMain.Pseudo.8 = " + GetParam().value + "\n");
}

const Part parts[] = {
    {"item_41", "ZeichnungL 41", "999", "123"},
    {"item_43", "ZeichnungL 43", "99", "45"},
    {"item_45", "ZeichnungL 45", "9999", "6789"},
    {"item_42", "ZeichnungR 42", "999", "7"},
    {"item_44", "ZeichnungR 44", "99", "0"},
    {"item_46", "ZeichnungR 46", "9999", "12"},
};
INSTANTIATE_TEST_SUITE_P(Items, DrawingPart, ::testing::ValuesIn(parts),
    [](const auto& row) { return std::string{row.param.name}; });

// The second input mode.

class EditorPage : public Page {
public:
    EditorPage()
        : Page{levelFive() + definitions(3)}
    {
        run("key 4\n");
    }
};

TEST(DefinitionBearbeiten, OpensTheEditorForASetpoint)
{
    EditorPage page;
    EXPECT_EQ(without(page.run("touch SollwertL 5\n"), {"call ServoMain.Fußzeile"}),
        without("> touch SollwertL 5\nput ServoMain.IniEingabe.0x68030004 = 3\n"
                "put ServoMain.IniEingabe.0x68030005 = 99\nput ServoMain.IniEingabe.0x68030006 = 1\n"
                + allOff() + editorOpened("11810"),
            {"call ServoMain.Fußzeile"}));
}

TEST(DefinitionBearbeiten, WithdrawsTheFooterWithItsColours)
{
    EditorPage page;
    const std::string trace = page.run("touch SollwertL 5\n");
    EXPECT_EQ(count(trace, "call ServoMain.Fußzeile.0x68030008(4) -> 65280\n"), 1U);
    EXPECT_EQ(count(trace, "0x68030004("), 11U + count(trace, "IniEingabe.0x68030004("));
}

TEST(DefinitionBearbeiten, OpensTheEditorForASwitchWithoutTogglingIt)
{
    EditorPage page;
    const std::string trace = page.run("touch SchalterR 33\n");
    EXPECT_EQ(holding(trace, "put ServoMain.IniEingabe.0x68030009"),
        "put ServoMain.IniEingabe.0x68030009 = true\n");
    EXPECT_EQ(holding(trace, "put ServoMain.SchalterR"), "");
    EXPECT_EQ(page.state("ServoMain.SchalterR(33).0x68030000"), "4");
}

TEST(DefinitionBearbeiten, MarksAllThreeItemsOfADrawingNumber)
{
    Page page{levelFive() + definitions(3) + definition("_servo_zeich_", 1, 4)};
    page.run("key 4\n");
    const std::string trace = page.run("touch ZeichnungR 46\n");
    EXPECT_EQ(holding(trace, ").17 ="), R"(put ServoMain.ZeichnungR(42).17 = 65280
put ServoMain.ZeichnungR(44).17 = 65280
put ServoMain.ZeichnungR(46).17 = 65280
)");
    EXPECT_EQ(
        holding(trace, "put ServoMain.IniEingabe.0x68030004"), "put ServoMain.IniEingabe.0x68030004 = 4\n");
    EXPECT_EQ(holding(trace, "put ServoMain.IniEingabe.Left"), "put ServoMain.IniEingabe.Left = 3210\n");
}

TEST(DefinitionBearbeiten, MarksNothingAndWritesNothing)
{
    EditorPage page;
    const std::string trace = page.run("touch SollwertL 5\n");
    EXPECT_EQ(beginning(trace, {"write ", "read "}), "");
    EXPECT_EQ(page.run("timer\n"), "> timer\n" + refresh());
}

TEST(DefinitionBearbeiten, IgnoresATouchWhileTheEditorIsOpen)
{
    EditorPage page;
    page.run("touch SollwertL 5\n");
    EXPECT_EQ(page.run("touch SchalterL 31\n"), "> touch SchalterL 31\n");
}

TEST(DefinitionBearbeiten, OnlyTellsAUserWithoutPermission)
{
    Page page{"input 0\n" + levelFive()};
    page.run("key 4\n");
    for (const char* touch : {"touch SollwertL 5", "touch SchalterL 31", "touch ZeichnungR 44"})
        EXPECT_EQ(page.run(std::string{touch} + "\n"),
            std::string{"> "} + touch
                + "\ntext Standard.15000 = \"No permission\"\nmessage \"No permission\"\n");
}

class SollwertMouseDownAlone : public testing::LonePage { };

TEST_F(SollwertMouseDownAlone, OpensTheMaskWhenTheEditorCannotBeAsked)
{
    page.fake("IniEingabe")->missing = {"OFFEN"};
    touch(5);
    EXPECT_EQ(puts("Eingabemaske", "Offen = True"), 1);
    EXPECT_EQ(reports(), (testing::Reports{{438, "Ma Sollwert_MouseDown"}}));
}

TEST_F(SollwertMouseDownAlone, IgnoresATouchUnderAnOpenMaskWithoutAskingTheEditor)
{
    page.fake("IniEingabe")->missing = {"OFFEN"};
    page.fake("Eingabemaske")->properties["OFFEN"] = true;
    forget("Eingabemaske");
    touch(5);
    EXPECT_TRUE(puts("Eingabemaske").empty());
    EXPECT_TRUE(reports().empty());
}

TEST_F(SollwertMouseDownAlone, OpensTheMaskWithoutATargetForANumberThatIsNoField)
{
    forget("Eingabemaske");
    forget("SollwertL");
    touch(30);
    EXPECT_EQ(puts("Eingabemaske"),
        (testing::Texts{"Top = 2235", "Left = 3210", "Offen = True", "Visible = True"}));
    for (const testing::Crossing& crossing : page.fake("Eingabemaske")->crossings)
        EXPECT_NE(crossing.verb, "putRef");
    EXPECT_EQ(puts("SollwertL"), testing::Texts(12, "Enabled = False"));
}

TEST_F(SollwertMouseDownAlone, OpensNoEditorForANumberThatIsNoField)
{
    page.control.Fußzeile_TasteClick(4);
    for (const int field : {25, 30, 35, 40, 47, 0}) {
        forget("IniEingabe");
        forget("Fußzeile");
        touch(static_cast<std::int16_t>(field));
        EXPECT_TRUE(puts("IniEingabe").empty()) << field;
        EXPECT_TRUE(page.fake("Fußzeile")->crossings.empty()) << field;
    }
    EXPECT_TRUE(reports().empty());
}

} // namespace
} // namespace servopanel::servo_page::tests
