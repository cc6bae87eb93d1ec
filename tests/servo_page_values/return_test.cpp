#include "platform/ids.h"
#include "servo_page/servo_main.h"
#include "servo_page_values/lone_page.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <limits>
#include <utility>

namespace servopanel::testing {

namespace {

// Every procedure returns, also when its last statement fails: whoever calls it goes on.
class PageReturns : public LonePage {
protected:
    Reports clicked(std::int16_t key)
    {
        page.surround.errors.reports.clear();
        page.control.Fußzeile_TasteClick(key);
        return reports();
    }

    const Reports overflow{{6, "Ma Fußzeile_TasteClick"}};
};

} // namespace

// 400 machines make screen numbers beyond 16 bits.
TEST_F(PageReturns, AfterAScreenWhoseNumberIsTooLarge)
{
    page.surround.zustand.AktuelleMaschine = 400;
    for (const std::int16_t key : {std::int16_t{9}, std::int16_t{31}, std::int16_t{11}})
        EXPECT_EQ(clicked(key), overflow) << key;
}

TEST_F(PageReturns, AfterAServoNumberThatIsTooLarge)
{
    page.surround.zustand.AktServo = std::numeric_limits<std::int16_t>::max();
    EXPECT_EQ(clicked(6), overflow);
}

TEST_F(PageReturns, AfterAKeyThatTakesNoColour)
{
    page.gone = {"Fußzeile(-1)"};
    for (int i = 0; i < 2; ++i)
        EXPECT_EQ(clicked(4), (Reports{{91, "Ma Fußzeile_TasteClick"}})) << i;
}

TEST_F(PageReturns, AfterAMenuThatNobodyShows)
{
    page.surround.zustand.MitMenu = true;
    page.failing = true;
    // Key 11 stops the timer before.
    EXPECT_EQ(clicked(11), (Reports(2, {91, "Ma Fußzeile_TasteClick"})));
}

// A panel of no known width keeps the scale of before, here one that makes 180 twips too many for single precision.
TEST_F(PageReturns, AfterACorrectionThatIsTooLarge)
{
    page.surround.zustand.FaktorY = 3e38F;
    page.surround.world().variables["parameter<.aufloesung>"] = std::int16_t{900};
    forget("Fehlertext");
    page.control.BildInit(1);
    EXPECT_EQ(puts("Fehlertext", "Visible = False"), 1);
}

// The servo is another one from the colour of the caption on: there is no file for its place any more.
TEST_F(PageReturns, AfterACaptionWhoseFileHasNoNameAnyMore)
{
    page.surround.world().profiles["P:\\Servo\\Servo_3.ini"]["[Parameter] 1Col"] = "ws";
    FakeControl& caption = *page.fake("ParaBeschriftung");
    caption.afterPut = [&] {
        if (caption.crossings.back().member.name == "ForeColor") page.surround.zustand.AktServo = 0;
    };
    page.control.SeiteUmschalten(false);
    const auto reported = [&](const char* procedure) {
        return std::count(reports().begin(), reports().end(), Report{9, procedure});
    };
    EXPECT_GE(reported("Ma SeiteUmschalten"), 3); // Ali, X and Y
    EXPECT_GE(reported("Ma WerteLesen"), 1); // the full read that follows
}

// A mask that was left open when the page is built: nothing was touched yet, so nothing is coloured.
TEST(PageAtFirst, ColoursNothingThatNobodyTouched)
{
    Lone<servo_page::ServoMain> page;
    page.fake("Eingabemaske")->properties["OFFEN"] = true;
    page.control.Eingabemaske_EingabeAenderung();
    EXPECT_EQ(page.fake("SollwertL")->puts(), Texts{});
}

namespace {

// What the page keeps of an input that is touched while the page is built anew.
class PageBuiltAnew : public LonePage {
protected:
    // Once, as soon as this property was put.
    void touchAt(const std::string& child, std::string_view property, std::int16_t field)
    {
        FakeControl& control = *page.fake(child);
        control.afterPut = [this, &control, property, field] {
            if (control.crossings.back().member.name != property || std::exchange(came_, true)) return;
            touch(field);
        };
        page.control.BildInit(1);
        EXPECT_TRUE(came_);
    }

private:
    bool came_ = false;
};

} // namespace

TEST_F(PageBuiltAnew, ForgetsTheInputThatIsTouchedAsTheMaskGoes)
{
    touchAt("Eingabemaske", "Visible", 1);
    EXPECT_EQ(page.control.zustand().bearbeitung.AktiverSollwert, 0);
}

TEST_F(PageBuiltAnew, KeepsTheDrawingNumberThatIsTouchedAsTheEditorCloses)
{
    touchAt("IniEingabe", "Offen", 41);
    EXPECT_EQ(page.control.zustand().bearbeitung.AktiveZeichnung, 41);
}

} // namespace servopanel::testing
