#include "servo_page_values/lone_page.h"
#include "servo_page_values/page.h"

#include <gtest/gtest.h>

#include <ostream>
#include <string>

namespace servopanel::servo_page::tests {
namespace {

bool holds(std::string_view trace, std::string_view part)
{
    return trace.find(part) != std::string_view::npos;
}

TEST(EingabeDarstellen, GoesThroughTheFieldsInOrderAndSkipsTheUnusedNumbers)
{
    Page page;
    EXPECT_TRUE(holds(page.start(), inputs()));
}

TEST(EingabeDarstellen, LocksWhatAsksForMoreThanTheAccessLevel)
{
    Page page{definition("_servo_para_", 0, 3) + definition("_servo_para_", 1, 2)
        + definition("_servo_para_", 19, 32767) + definition("_servo_para2_", 3, 3)
        + definition("_servo_schalt_", 0, 3) + definition("_servo_schalt_", 3, 2)
        + definition("_servo_zeich_", 1, 5)};
    EXPECT_TRUE(holds(page.start(), inputs({1, 20, 24, 31, 42}))) << page.start();
}

TEST(EingabeDarstellen, OpensAFieldAtItsOwnLevel)
{
    Page page{"var Ch-1.intern<.passwort> = 3\n" + definitions(3)};
    EXPECT_TRUE(holds(page.start(), inputs())) << page.start();
}

TEST(EingabeDarstellen, LocksEverythingOneLevelBelow)
{
    Page page{definitions(3)};
    Fields all;
    for (int field = 1; field <= 42; ++field)
        all.insert(field);
    EXPECT_TRUE(holds(page.start(), inputs(all))) << page.start();
}

TEST(EingabeDarstellen, KeepsAChangedSetpointGreenWhenTheMaskCloses)
{
    Page page;
    page.run("touch SollwertL 5\n");
    EXPECT_TRUE(holds(page.run("mask 55\n"), inputs({}, {5})));
}

TEST(EingabeDarstellen, KeepsAChangedDrawingItemGreenWhenTheMaskCloses)
{
    Page page;
    page.run("touch ZeichnungR 44\n");
    EXPECT_TRUE(holds(page.run("mask 7\n"), inputs({}, {44})));
}

TEST(EingabeDarstellen, KeepsEarlierChangesGreenThroughALaterEdit)
{
    Page page;
    page.run("touch SollwertL 5\nmask 55\ntouch ZeichnungL 45\nmask 7\ntouch SollwertR 12\n");
    EXPECT_TRUE(holds(page.run("mask cancel\n"), inputs({}, {5, 45})));
}

TEST(EingabeDarstellen, TurnsGreenBlackAfterWriting)
{
    Page page;
    page.run("touch SollwertL 5\nmask 55\ntouch ZeichnungL 45\nmask 7\n");
    EXPECT_TRUE(holds(page.run("key 10\n"), inputs()));
    EXPECT_EQ(page.state("ServoMain.SollwertL(5).-513"), "0");
    EXPECT_EQ(page.state("ServoMain.ZeichnungL(45).19"), "0");
}

TEST(EingabeDarstellen, LeavesAnUnchangedFieldBlack)
{
    Page page;
    page.run("touch SollwertL 5\n");
    EXPECT_TRUE(holds(page.run("mask 50\n"), inputs()));
}

TEST(EingabeDarstellen, KeepsLockedFieldsGreyWhenTheMaskCloses)
{
    Page page{definition("_servo_para_", 0, 3) + definition("_servo_para_", 4, 2)};
    page.run("touch SollwertL 5\n");
    EXPECT_TRUE(holds(page.run("mask 55\n"), inputs({1}, {5})));
}

class EingabeDarstellenAlone : public testing::LonePage {
protected:
    // Draws the inputs while this array lacks a member: so many statements fail, each for itself.
    void drawWithout(const std::string& control, const std::string& member, std::size_t lost)
    {
        for (const char* child : {"SollwertL", "EinheitL", "ZeichnungR", "BeschriftungR"})
            forget(child);
        page.fake(control)->missing = {basic::upperCase(member)};
        page.control.EingabeDarstellen(false);
        EXPECT_EQ(reports(), testing::Reports(lost, {438, "Ma EingabeDarstellen"}));
    }
};

TEST_F(EingabeDarstellenAlone, ColoursSetpointsThatCannotBeSwitched)
{
    drawWithout("SollwertL", "Enabled", 12);
    EXPECT_EQ(puts("SollwertL", "Vordergrund = 0"), 12);
    EXPECT_EQ(puts("EinheitL", "Farbe = 0"), 12);
}

TEST_F(EingabeDarstellenAlone, SwitchesSetpointsWhoseColourCannotBeRead)
{
    drawWithout("SollwertL", "Vordergrund", 12);
    EXPECT_EQ(puts("SollwertL", "Enabled = True"), 12);
    EXPECT_EQ(puts("SollwertL", "Vordergrund"), 0);
    EXPECT_EQ(puts("EinheitL", "Farbe = 0"), 12);
}

// As when the machine's definitions were changed while a change waited to be confirmed.
TEST_F(EingabeDarstellenAlone, MakesALockedInputGreyThoughItIsGreen)
{
    page.surround.world().existing.insert("P:\\Servo\\Servo.mdb");
    for (const char* family : {"_servo_para_", "_servo_zeich_"})
        page.surround.platform.tables["P:\\Servo\\Servo.mdb"].rows.push_back({1,
            {{"MACHINE_TYPE", "M1"}, {"VAR_NAME", variable(family)}, {"OFFSET_OR_BITNO", std::int16_t{0}},
                {"ABS_MIN", 0.0}, {"ABS_MAX", 1000.0}, {"MIN", 1.0}, {"MAX", 99.0},
                {"PASS", std::int16_t{6}}}});
    page.control.IniLesen();
    page.fake("SollwertL")->properties["VORDERGRUND"] = std::int32_t{32768};
    page.fake("ZeichnungL")->properties["FARBE"] = std::int32_t{32768};
    page.control.EingabeDarstellen(true);
    EXPECT_EQ(puts("SollwertL", "Vordergrund = 8421504"), 1);
    EXPECT_EQ(puts("ZeichnungL", "Farbe = 8421504"), 3);
}

TEST_F(EingabeDarstellenAlone, SwitchesADrawingNumberWhoseColourCannotBeRead)
{
    drawWithout("ZeichnungR", "Farbe", 3);
    EXPECT_EQ(puts("ZeichnungR", "Enabled = True"), 3);
    // Twelve setpoints, two switches and the drawing number.
    EXPECT_EQ(puts("BeschriftungR", "Farbe = 0"), 15);
}

} // namespace
} // namespace servopanel::servo_page::tests
