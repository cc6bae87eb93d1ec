#include "page_test.h"

#include "servo_page/servo_main.h"
#include "support/lone.h"

#include <algorithm>
#include <ostream>

namespace servopanel::testing {

namespace {

// Rows of the two halves.
class AdressenUmschaltenRows : public PageTest {
protected:
    std::string visible(const std::string& name) { return state(name + ".Visible"); }
    float number(const std::string& property) { return std::stof(state(property)); }
    // Shows the page with this text for setpoint 1.
    void caption(const std::string& text, const std::string& more = {})
    {
        show("text Servo.M1.Servo3.1 = \"" + text + "\"\n" + more);
    }
};

TEST_F(AdressenUmschaltenRows, CentreCaptionAndUnitOnTheInput)
{
    show();
    EXPECT_EQ(lines({"put ServoMain.BeschriftungR(11).Top", "put ServoMain.EinheitR(11).Top"}),
        "put ServoMain.BeschriftungR(11).Top = 165\n"
        "put ServoMain.EinheitR(11).Top = 165\n");
}

TEST_F(AdressenUmschaltenRows, ShowCaptionUnitAndInput)
{
    caption("Weg;mm");
    EXPECT_EQ(state("BeschriftungL(1).28"), "\"Weg\"");
    EXPECT_EQ(state("EinheitL(1).28"), "\"mm\"");
    for (const std::string name : {"BeschriftungL(1)", "EinheitL(1)", "SollwertL(1)"})
        EXPECT_EQ(visible(name), "true") << name;
    EXPECT_EQ(visible("BeschriftungL2(1)"), "false");
}

TEST_F(AdressenUmschaltenRows, BreakALongCaptionAtItsLastBlank)
{
    caption("Speed of the feeder;mm/s");
    EXPECT_EQ(state("BeschriftungL(1).28"), "\"Speed of the\"");
    EXPECT_EQ(state("BeschriftungL2(1).28"), "\"feeder\"");
    EXPECT_EQ(visible("BeschriftungL2(1)"), "true");
}

TEST_F(AdressenUmschaltenRows, LetTheTwoLinesTouchAtTheMiddleOfTheInput)
{
    caption("Speed of the feeder");
    const float middle = number("SollwertL(1).Top") + number("SollwertL(1).Height") / 2;
    EXPECT_EQ(number("BeschriftungL(1).Top") + number("BeschriftungL(1).Height"), middle);
    EXPECT_EQ(number("BeschriftungL2(1).Top"), middle);
}

// The smallest panel's inputs have an odd number of pixels, so their middle is at half a pixel.
TEST_F(AdressenUmschaltenRows, LetTheTwoLinesTouchAtHalfAPixel)
{
    caption("Speed of the feeder", "var parameter<.aufloesung> = 800\n");
    EXPECT_EQ(state("SollwertL(1).Top"), "15");
    EXPECT_EQ(state("SollwertL(1).Height"), "315");
    EXPECT_EQ(state("BeschriftungL(1).Height"), "165");
    EXPECT_EQ(state("BeschriftungL(1).Top"), "7.5");
    EXPECT_EQ(state("BeschriftungL2(1).Top"), "172.5");
}

TEST_F(AdressenUmschaltenRows, TrimBothLines)
{
    caption("Feeder   speed;mm");
    EXPECT_EQ(state("BeschriftungL(1).28"), "\"Feeder\"");
    EXPECT_EQ(state("BeschriftungL2(1).28"), "\"speed\"");
}

TEST_F(AdressenUmschaltenRows, NeverBreakACaptionWithoutABlank)
{
    caption("Geschwindigkeitsvorsteuerung;%");
    EXPECT_EQ(state("BeschriftungL(1).28"), "\"Geschwindigkeitsvorsteuerung\"");
    EXPECT_EQ(visible("BeschriftungL2(1)"), "false");
    EXPECT_EQ(state("BeschriftungL(1).Top"), "165");
}

// 105 twips for each character: five fit 585 twips, six do not.
TEST_F(AdressenUmschaltenRows, BreakOnlyWhatIsWiderThanTheCaptionWidth)
{
    caption("ab cd");
    EXPECT_EQ(visible("BeschriftungL2(1)"), "false");
    run("text Servo.M1.Servo3.1 = abc de\nkey! 10\n");
    EXPECT_EQ(visible("BeschriftungL2(1)"), "true");
    EXPECT_EQ(state("BeschriftungL(1).28"), "\"abc\"");
}

// Three fit 360 twips, four do not.
TEST_F(AdressenUmschaltenRows, HaveNarrowerCaptionsOnTheSmallestPanel)
{
    caption("a b", "var parameter<.aufloesung> = 800\n");
    EXPECT_EQ(visible("BeschriftungL2(1)"), "false");
    run("text Servo.M1.Servo3.1 = ab c\nkey! 10\n");
    EXPECT_EQ(visible("BeschriftungL2(1)"), "true");
}

TEST_F(AdressenUmschaltenRows, GoBackToOneLineForAShorterCaption)
{
    caption("Speed of the feeder");
    run("text Servo.M1.Servo3.1 = Speed\nkey! 10\n");
    EXPECT_EQ(visible("BeschriftungL2(1)"), "false");
    EXPECT_EQ(state("BeschriftungL(1).28"), "\"Speed\"");
    EXPECT_EQ(state("BeschriftungL(1).Top"), "165");
}

TEST_F(AdressenUmschaltenRows, HideWhatTheServosDefinitionsLeaveOut)
{
    show();
    for (const std::string name : {"SollwertL(3)", "BeschriftungL(3)", "BeschriftungL2(3)", "EinheitL(3)",
             "SollwertR(12)", "SollwertL(22)", "SollwertR(24)", "SchalterL(32)", "BeschriftungL(32)",
             "SchalterR(34)", "ZeichnungR(42)", "ZeichnungR(44)", "PunktR(44)", "ZeichnungR(46)",
             "PunktR(46)", "BeschriftungR(42)"})
        EXPECT_EQ(visible(name), "false") << name;
    for (const std::string name : {"SollwertL(1)", "SollwertL(2)", "SollwertR(11)", "SollwertL(21)",
             "SchalterL(31)", "BeschriftungL(31)", "SchalterR(33)", "ZeichnungL(41)", "ZeichnungL(43)",
             "PunktL(43)", "ZeichnungL(45)", "PunktL(45)", "BeschriftungL(41)"})
        EXPECT_EQ(visible(name), "true") << name;
}

TEST_F(AdressenUmschaltenRows, ShowEverythingWithoutDefinitions)
{
    show("db Servo\\Servo.mdb empty\n");
    for (const std::string name : {"SollwertL(10)", "SollwertR(20)", "SollwertL(22)", "SollwertR(24)",
             "SchalterL(32)", "SchalterR(34)", "ZeichnungR(46)"})
        EXPECT_EQ(visible(name), "true") << name;
}

TEST_F(AdressenUmschaltenRows, HideAllThatASingleDefinitionLeavesOut)
{
    show("db Servo\\Servo.mdb empty\n"
         "db Servo\\Servo.mdb M1 Ch1.M1_T_servo_3<.mM1_servo_para_3> 0 0 1000 0 100 1\n");
    EXPECT_EQ(visible("SollwertL(1)"), "true");
    EXPECT_EQ(visible("SollwertL(2)"), "false");
    EXPECT_EQ(visible("ZeichnungR(46)"), "false");
}

TEST_F(AdressenUmschaltenRows, ShowAgainWhatAnotherServoUses)
{
    show("db Servo\\Servo.mdb M1 Ch1.M1_T_servo_5<.mM1_servo_para_5> 2 0 1000 0 100 1\n");
    EXPECT_EQ(visible("SollwertL(3)"), "false");
    run("key 6\n");
    EXPECT_EQ(visible("SollwertL(3)"), "true");
    EXPECT_EQ(visible("SollwertL(1)"), "false");
}

TEST_F(AdressenUmschaltenRows, NeverShowThePointsBeforeTheFirstPart)
{
    show("db Servo\\Servo.mdb empty\n");
    EXPECT_EQ(visible("PunktL(41)"), "false");
    EXPECT_EQ(visible("PunktR(42)"), "false");
}

TEST_F(AdressenUmschaltenRows, GiveSwitchesTextsThatFollowTheLanguage)
{
    show();
    EXPECT_EQ(lines({"put ServoMain.BeschriftungL(31).T", "put ServoMain.BeschriftungL(31).28",
                  "put ServoMain.BeschriftungL(31).V", "put ServoMain.SchalterL(31).V"}),
        "put ServoMain.BeschriftungL(31).Top = 7905\n"
        "put ServoMain.BeschriftungL(31).28 = \"@Servo.M1.Servo3.25\"\n"
        "put ServoMain.SchalterL(31).Visible = true\n"
        "put ServoMain.BeschriftungL(31).Visible = true\n");
    EXPECT_EQ(state("BeschriftungR(33).28"), "\"@Servo.M1.Servo3.27\"");
}

TEST_F(AdressenUmschaltenRows, GiveDrawingNumbersACaptionAndTwoPoints)
{
    show();
    EXPECT_EQ(state("BeschriftungL(41).28"), "\"@Servo.M1.Servo3.35\"");
    EXPECT_EQ(state("PunktL(43).28"), "\"@Servo.M1.Servo3.37\"");
    EXPECT_EQ(state("PunktL(45).28"), "\"@Servo.M1.Servo3.39\"");
}

TEST_F(AdressenUmschaltenRows, BreakACaptionAtABlankAtItsEnd)
{
    caption("Feeder speed ;mm");
    EXPECT_EQ(state("BeschriftungL(1).28"), "\"Feeder speed\"");
    EXPECT_EQ(state("BeschriftungL2(1).28"), "\"\"");
    EXPECT_EQ(visible("BeschriftungL2(1)"), "true");
    EXPECT_EQ(state("BeschriftungL(1).Top"), "15");
}

struct CaptionWidth {
    const char* name;
    const char* text;
    const char* panel;
    const char* twoLines;
};
void PrintTo(const CaptionWidth& row, std::ostream* out) { *out << row.name; }

class CaptionWidths : public AdressenUmschaltenRows, public ::testing::WithParamInterface<CaptionWidth> { };

TEST_P(CaptionWidths, DecideWhetherACaptionIsBroken)
{
    caption(GetParam().text, GetParam().panel);
    EXPECT_EQ(visible("BeschriftungL2(1)"), GetParam().twoLines);
}

// Each character has seven pixels; the screen gives their twips, for half a twip beside the limit.
const CaptionWidth captionWidths[] = {
    {"below_585_twips", "ab cd", "screen 16.7 15\n", "false"},
    {"above_585_twips", "ab cd", "screen 16.73 15\n", "true"},
    {"below_360_twips", "a b", "var parameter<.aufloesung> = 800\nscreen 17.1 15\n", "false"},
    {"above_360_twips", "a b", "var parameter<.aufloesung> = 800\nscreen 17.15 15\n", "true"},
    {"525_twips_on_1024", "ab cd", "var parameter<.aufloesung> = 1024\n", "false"},
    {"630_twips_on_1024", "abc de", "var parameter<.aufloesung> = 1024\n", "true"},
};
INSTANTIATE_TEST_SUITE_P(Panels, CaptionWidths, ::testing::ValuesIn(captionWidths),
    [](const auto& row) { return std::string{row.param.name}; });

TEST_F(AdressenUmschaltenRows, StandCaptionsWhereTheyAreScaledToOnPanelsOf1024Pixels)
{
    show("var parameter<.aufloesung> = 1024\n");
    EXPECT_EQ(state("BeschriftungL(1).Left"), "75");
}

TEST_F(AdressenUmschaltenRows, FollowTheLanguageByTheirOwnTexts)
{
    show("db Servo\\Servo.mdb empty\n");
    for (const auto& [name, text] :
        {std::pair{"BeschriftungL(31)", 25}, {"BeschriftungL(32)", 26}, {"BeschriftungR(33)", 27},
            {"BeschriftungR(34)", 28}, {"BeschriftungL(41)", 35}, {"BeschriftungR(42)", 36},
            {"PunktL(43)", 37}, {"PunktR(44)", 38}, {"PunktL(45)", 39}, {"PunktR(46)", 40}})
        EXPECT_EQ(state(std::string{name} + ".28"), "\"@Servo.M1.Servo3." + std::to_string(text) + "\"")
            << name;
}

// A row alone, with a text that could be broken.
class CaptionAlone : public ::testing::Test {
protected:
    CaptionAlone()
    {
        page.surround.zustand.MaschinenBez = "M1";
        page.surround.zustand.AktServo = 1;
        page.surround.zustand.ServoNr[1] = 3;
        page.control.BildInit(1);
        page.surround.errors.reports.clear();
        page.fake("VWLanguage")->result = "a b;mm";
        for (const char* name : {"BeschriftungL", "BeschriftungL2", "EinheitL"})
            page.fake(name)->crossings.clear();
    }
    std::ptrdiff_t puts(const std::string& control, const std::string& line)
    {
        const Texts lines = page.fake(control)->puts();
        return std::count(lines.begin(), lines.end(), line);
    }

    Lone<servo_page::ServoMain> page;
};

TEST_F(CaptionAlone, StaysInOneLineAtExactlyItsWidth)
{
    page.width = [] { return 585.0F; };
    page.control.AdressenUmschalten(true);
    EXPECT_EQ(puts("BeschriftungL", "Text = a b"), 12);
    EXPECT_EQ(puts("BeschriftungL2", "Visible = False"), 12);
}

TEST_F(CaptionAlone, StaysAsItWasWhenItsWidthCannotBeMeasured)
{
    page.width = []() -> float { basic::raise(basic::ErrorNumber::ObjectNotSet); };
    page.control.AdressenUmschalten(true);
    EXPECT_EQ(puts("BeschriftungL", "Text = a b"), 0);
    EXPECT_EQ(page.fake("BeschriftungL2")->puts(), Texts{});
    EXPECT_EQ(puts("EinheitL", "Text = mm"), 12);
    EXPECT_EQ(page.surround.reports(), (Reports{24, {91, "Ma AdressenUmschalten"}}));
}

struct CaptionOfASwitch {
    const char* name;
    float switchHeight; // twips, as the others; every switch stands at 7800
    float height;
    const char* place;
};
void PrintTo(const CaptionOfASwitch& row, std::ostream* out) { *out << row.name; }

class CaptionsOfSwitches : public CaptionAlone, public ::testing::WithParamInterface<CaptionOfASwitch> { };

TEST_P(CaptionsOfSwitches, StandAtTheMiddleOfTheSwitch)
{
    for (const std::string half : {"L", "R"}) {
        auto& place = page.fake("Schalter" + half)->properties;
        place["TOP"] = 7800.0F;
        place["HEIGHT"] = GetParam().switchHeight;
        page.fake("Beschriftung" + half)->properties["HEIGHT"] = GetParam().height;
    }
    page.control.AdressenUmschalten(true);
    // Two switches in each half.
    EXPECT_EQ(puts("BeschriftungL", GetParam().place), 2);
    EXPECT_EQ(puts("BeschriftungR", GetParam().place), 2);
}

const CaptionOfASwitch captionsOfSwitches[] = {
    {"as_high_as_the_switch", 540, 540, "Top = 7800"},
    {"higher", 300, 540, "Top = 7680"},
    {"lower_by_an_odd_length", 541, 300, "Top = 7920.5"},
};
INSTANTIATE_TEST_SUITE_P(Heights, CaptionsOfSwitches, ::testing::ValuesIn(captionsOfSwitches),
    [](const auto& row) { return std::string{row.param.name}; });

} // namespace

} // namespace servopanel::testing
