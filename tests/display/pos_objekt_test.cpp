#include "display/mglobal.h"
#include "support/fake_control.h"
#include "support/fakes.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <map>
#include <string>
#include <utility>

namespace {

using namespace servopanel;
using servopanel::testing::FakeControl;
using servopanel::testing::Reports;
using servopanel::testing::Surround;
using servopanel::testing::Texts;

struct PosObjekt : ::testing::Test {
    Surround surround;
    display::MGlobal global{surround.umfeld};
    FakeControl textanzeige{"VWSIndex"};
    FakeControl label{"Label"};

    PosObjekt()
    {
        panel(1280, 1.0F, 1.0F);
        for (FakeControl* control : {&textanzeige, &label}) {
            control->properties = {{"HEIGHT", 300.0F}, {"LEFT", 150.0F}, {"TOP", 75.0F}, {"WIDTH", 1500.0F},
                {"FONT.SIZE", 12.0F}, {"ALIGNMENT", std::int16_t{0}}};
        }
    }
    void panel(std::int16_t breite, float faktorX, float faktorY, float twips = 15)
    {
        surround.zustand.Aufloesung = breite;
        surround.zustand.FaktorX = faktorX;
        surround.zustand.FaktorY = faktorY;
        surround.zustand.TwipsProPixelX = twips;
        surround.zustand.TwipsProPixelY = twips;
    }
};

TEST_F(PosObjekt, SetsWhatTheCallerHasScaledInAFixedOrder)
{
    global.PosObjekt(label, {.höhe = 10.5F, .links = 20, .oben = 30, .breite = 40});
    EXPECT_EQ(label.puts(), (Texts{"Height = 10.5", "Left = 20", "Top = 30", "Width = 40"}));
    for (const auto& crossing : label.crossings) {
        EXPECT_TRUE(crossing.member.isNamed());
        EXPECT_EQ(crossing.value.type(), basic::VariantType::Single);
    }
}

TEST_F(PosObjekt, ChangesOnlyTheFontOfATextDisplayOnThePanelOfTheDesign)
{
    global.PosObjekt(textanzeige, {.schriftAnpassen = true});
    EXPECT_EQ(textanzeige.puts(), Texts{"FontClass = LSU12"});
    global.PosObjekt(label, {});
    EXPECT_TRUE(label.puts().empty());
}

TEST_F(PosObjekt, ScalesWhatIsThereToWholePixels)
{
    panel(1024, 0.8F, 0.75F);
    label.properties["HEIGHT"] = 299.0F; // 14.95 pixels
    label.properties["LEFT"] = 100.0F; // 5.33 pixels
    global.PosObjekt(label, {});
    EXPECT_EQ(label.puts(), (Texts{"Height = 210", "Left = 75", "Top = 45", "Width = 1200"}));
}

TEST_F(PosObjekt, MixesGivenAndScaledLengths)
{
    panel(800, 0.625F, 0.5859375F);
    global.PosObjekt(label, {.höhe = 7, .breite = 9});
    EXPECT_EQ(label.puts(), (Texts{"Height = 7", "Left = 90", "Top = 30", "Width = 9"}));
}

TEST_F(PosObjekt, CountsPixelsOf12TwipsBySquaringThem)
{
    panel(1024, 0.8F, 0.75F, 12);
    label.properties["HEIGHT"] = 1000.0F; // 750 twips in steps of 9.6: 78
    global.PosObjekt(label, {});
    EXPECT_EQ(label.puts().front(), "Height = 936");
}

// In single precision a step of 9.6 twips is 9.6000004: each length here makes a little less than whole steps, and only
// the quotient's own precision may round it up again.
TEST_F(PosObjekt, CountsStepsInSinglePrecision)
{
    panel(1024, 0.8F, 0.75F, 12);
    label.properties["HEIGHT"] = 1280.0F; // 960 twips: 99.999996 steps
    label.properties["TOP"] = 832.0F; // 624: 64.999997, the same as 65
    label.properties["WIDTH"] = 1200.0F; // 0.8 is a little more than that, the product is 960 nevertheless
    global.PosObjekt(label, {});
    EXPECT_EQ(label.puts(), (Texts{"Height = 1188", "Left = 144", "Top = 780", "Width = 1188"}));
}

TEST_F(PosObjekt, CountsEachDirectionInItsOwnPixels)
{
    panel(1024, 0.8F, 0.75F);
    surround.zustand.TwipsProPixelX = 12; // steps of 9.6
    label.properties["WIDTH"] = 1510.0F;
    global.PosObjekt(label, {});
    EXPECT_EQ(label.puts(), (Texts{"Height = 225", "Left = 144", "Top = 45", "Width = 1500"}));
}

TEST_F(PosObjekt, ScalesForAPanelOfAnotherWidthThanTheDesignOnly)
{
    panel(1024, 0.8F, 0.75F);
    global.PosObjekt(label, {.schriftAnpassen = true, .entwurfsBreite = 1024});
    EXPECT_EQ(label.puts(), Texts{"Font.Size = 12"});
    label.crossings.clear();
    panel(1280, 1.0F, 1.0F);
    global.PosObjekt(label, {.entwurfsBreite = 1024});
    EXPECT_EQ(label.puts(), (Texts{"Height = 300", "Left = 150", "Top = 75", "Width = 1500"}));
}

TEST_F(PosObjekt, TakesTheSmallestFontFromItsCaller)
{
    panel(800, 0.625F, 0.5859375F); // 12 points become 7.03
    for (const auto& [smallest, size] : {std::pair{7, "Font.Size = 7"}, std::pair{10, "Font.Size = 10"}}) {
        label.crossings.clear();
        label.properties["FONT.SIZE"] = 12.0F;
        global.PosObjekt(label,
            {.höhe = 1,
                .links = 1,
                .oben = 1,
                .breite = 1,
                .schriftAnpassen = true,
                .kleinsteSchrift = static_cast<std::int16_t>(smallest)});
        EXPECT_EQ(label.puts().front(), size);
    }
}

TEST_F(PosObjekt, TakesTheDesignsTwipsOfEachDirectionFromItsCaller)
{
    panel(1024, 0.8F, 0.75F);
    FakeControl other{"Label"};
    other.properties = label.properties;
    global.PosObjekt(label, {.entwurfTwipsX = 12}); // steps of 18.75: 6.4 and 64
    EXPECT_EQ(label.puts(), (Texts{"Height = 225", "Left = 90", "Top = 45", "Width = 960"}));
    global.PosObjekt(other, {.entwurfTwipsY = 12}); // 12 and 3
    EXPECT_EQ(other.puts(), (Texts{"Height = 180", "Left = 120", "Top = 45", "Width = 1200"}));
}

TEST_F(PosObjekt, ScalesTheFontButNotBelowTheSmallest)
{
    panel(1024, 0.8F, 0.75F);
    global.PosObjekt(textanzeige, {.höhe = 1, .links = 1, .oben = 1, .breite = 1, .schriftAnpassen = true});
    EXPECT_EQ(textanzeige.puts().front(), "FontClass = LSU9");

    panel(800, 0.625F, 0.5859375F);
    label.properties["FONT.SIZE"] = 8.0F; // 4.6875
    global.PosObjekt(label, {.höhe = 1, .links = 1, .oben = 1, .breite = 1, .schriftAnpassen = true});
    EXPECT_EQ(label.puts().front(), "Font.Size = 8");
    EXPECT_EQ(label.properties["FONT.SIZE"], basic::Variant{std::int16_t{8}});
}

TEST_F(PosObjekt, TakesTheNearestWholePointsOnThePanelOfTheDesign)
{
    // A half goes to the even number.
    for (const auto& [size, points] : {std::pair{8.25F, "8"}, {8.5F, "8"}, {9.5F, "10"}, {9.75F, "10"}}) {
        label.crossings.clear();
        label.properties["FONT.SIZE"] = size;
        global.PosObjekt(label, {.schriftAnpassen = true});
        EXPECT_EQ(label.puts(), Texts{std::string{"Font.Size = "} + points});
    }
}

TEST_F(PosObjekt, RoundsTheFontDownWhenScaling)
{
    panel(1024, 0.8F, 0.75F);
    label.properties["FONT.SIZE"] = 15.9F; // 11.925
    global.PosObjekt(label, {.höhe = 1, .links = 1, .oben = 1, .breite = 1, .schriftAnpassen = true});
    EXPECT_EQ(label.puts().front(), "Font.Size = 11");
}

TEST_F(PosObjekt, KnowsATextDisplayInAnyCase)
{
    FakeControl other{"vwsindex"};
    other.properties = textanzeige.properties;
    global.PosObjekt(other, {.schriftAnpassen = true});
    EXPECT_EQ(other.puts(), Texts{"FontClass = LSU12"});
}

TEST_F(PosObjekt, MirrorsTheAlignmentOnRightToLeftPanels)
{
    surround.zustand.Arabisch = true;
    for (std::int16_t alignment = 0; alignment <= 2; ++alignment) {
        textanzeige.properties["ALIGNMENT"] = alignment;
        global.PosObjekt(textanzeige, {.schriftAnpassen = true});
        EXPECT_EQ(
            textanzeige.properties["ALIGNMENT"], basic::Variant{static_cast<std::int16_t>(alignment + 3)});
    }
    textanzeige.properties["ALIGNMENT"] = std::int16_t{3};
    global.PosObjekt(textanzeige, {.schriftAnpassen = true});
    EXPECT_EQ(textanzeige.properties["ALIGNMENT"], basic::Variant{std::int16_t{3}});
}

TEST_F(PosObjekt, KeepsTheAlignmentWhenToldToOrOnLeftToRightPanels)
{
    global.PosObjekt(textanzeige, {.schriftAnpassen = true});
    surround.zustand.Arabisch = true;
    global.PosObjekt(textanzeige, {.schriftAnpassen = true, .ausrichtungBehalten = true});
    global.PosObjekt(label, {.schriftAnpassen = true});
    global.PosObjekt(textanzeige, {});
    EXPECT_EQ(textanzeige.properties["ALIGNMENT"], basic::Variant{std::int16_t{0}});
    EXPECT_EQ(label.properties["ALIGNMENT"], basic::Variant{std::int16_t{0}});
}

TEST_F(PosObjekt, ReportsAMissingPropertyAndSetsTheOthers)
{
    panel(1024, 0.8F, 0.75F);
    surround.zustand.Arabisch = true;
    const std::map<std::string, basic::Variant> before = textanzeige.properties;
    const std::map<std::string, basic::Variant> after{{"FONT.SIZE", 12.0F}, {"FONTCLASS", "LSU9"},
        {"ALIGNMENT", std::int16_t{3}}, {"HEIGHT", 225.0F}, {"LEFT", 120.0F}, {"TOP", 45.0F},
        {"WIDTH", 1200.0F}};
    for (const std::string member : {"FONTCLASS", "ALIGNMENT", "HEIGHT", "LEFT", "TOP", "WIDTH"}) {
        surround.errors.reports.clear();
        FakeControl control{"VWSIndex"};
        control.properties = before;
        control.missing = {member};
        global.PosObjekt(control, {.schriftAnpassen = true});
        auto expected = after;
        expected.erase(member);
        if (before.contains(member)) expected[member] = before.at(member);
        EXPECT_EQ(control.properties, expected) << member;
        EXPECT_EQ(surround.reports(), (Reports{{438, "PosObjekt"}})) << member;
    }
}

TEST_F(PosObjekt, ReportsAControlWithoutAFontAndPlacesIt)
{
    label.missing = {"FONT.SIZE"};
    global.PosObjekt(label, {.links = 30, .schriftAnpassen = true});
    EXPECT_EQ(label.properties["LEFT"], basic::Variant{30.0F});
    EXPECT_EQ(surround.reports(), (Reports{{438, "PosObjekt"}, {438, "PosObjekt"}}));
}

// A size that cannot be read counts as 0, whatever the class of that is.
TEST_F(PosObjekt, TakesASizeThatCannotBeReadForNone)
{
    textanzeige.missing = {"FONT.SIZE"};
    global.PosObjekt(textanzeige, {.schriftAnpassen = true});
    EXPECT_EQ(textanzeige.puts(), Texts{"FontClass = LSU0"});
    EXPECT_EQ(surround.reports(), (Reports{{438, "PosObjekt"}}));
}

TEST_F(PosObjekt, LeavesTheFontOfAControlThatDoesNotTellItsClass)
{
    textanzeige.isClassUnknown = true;
    global.PosObjekt(textanzeige, {.links = 30, .schriftAnpassen = true});
    EXPECT_EQ(textanzeige.puts(), Texts{"Left = 30"});
    EXPECT_EQ(surround.reports(), (Reports{{91, "PosObjekt"}}));
}

TEST_F(PosObjekt, ReportsADesignWithoutPixelsForItsDirectionOnly)
{
    panel(1024, 0.8F, 0.75F);
    global.PosObjekt(label, {.entwurfTwipsX = 0});
    EXPECT_EQ(label.puts(), (Texts{"Height = 225", "Top = 45"}));
    EXPECT_EQ(surround.reports(), (Reports{{11, "PosObjekt"}, {11, "PosObjekt"}, {11, "PosObjekt"}}));
    global.PosObjekt(label, {.höhe = 100, .entwurfTwipsY = 0});
    EXPECT_EQ(
        label.puts(), (Texts{"Height = 225", "Top = 45", "Height = 100", "Left = 120", "Width = 1200"}));
}

TEST_F(PosObjekt, ReportsAValueThatIsNoLength)
{
    panel(1024, 0.8F, 0.75F);
    label.properties["TOP"] = "high";
    global.PosObjekt(label, {});
    EXPECT_EQ(label.puts(), (Texts{"Height = 225", "Left = 120", "Width = 1200"}));
    EXPECT_EQ(surround.reports(), (Reports{{13, "PosObjekt"}}));
}

TEST_F(PosObjekt, MeasuresTheGridHorizontallyFirst)
{
    surround.zustand.TwipsProPixelY = 0;
    global.PosObjekt(label, {.entwurfTwipsX = 0, .entwurfTwipsY = 0});
    EXPECT_EQ(surround.reports(), (Reports{{11, "PosObjekt"}, {6, "PosObjekt"}}));
}

} // namespace
