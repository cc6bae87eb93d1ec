#include "page_test.h"

#include "platform/ids.h"
#include "servo_page/servo_main.h"
#include "support/lone.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

namespace servopanel::testing {

namespace {

class BildInit : public PageTest {
protected:
    std::string create(std::string_view more = {})
    {
        run(standardProject);
        run("var Ch-1.intern<.servo_zeiger> = 1\n");
        run(more);
        return run("create\n");
    }
    // A second BildInit of the same page.
    void again()
    {
        replay.host()
            .servo()
            ->form()
            .find({"ServoMain"})
            ->put(platform::names::BildInit, {}, std::int16_t{-1});
    }
};

TEST_F(BildInit, PublishesTheLibrarysName)
{
    create("library Achsen\n");
    EXPECT_EQ(lines("write"),
        "write Ch-1.intern<.ocxname> = \"Achsen\"\n"
        "write Ch-1.intern<.ocxname> = \"Achsen\"\n");
}

TEST_F(BildInit, GoesOnWhenTheNameCannotBeWritten)
{
    const std::string trace = create("fail write Ch-1.intern<.ocxname>\n");
    EXPECT_TRUE(contains(trace, "\"Ma BildInit Let\""));
    EXPECT_TRUE(contains(trace, "load ServoMain.SollwertR(24)\n"));
}

TEST_F(BildInit, ClosesAndHidesMaskAndEditor)
{
    create();
    EXPECT_EQ(lines({"put ServoMain.Eingabemaske.0x", "put ServoMain.Eingabemaske.V",
                  "put ServoMain.IniEingabe.0x", "put ServoMain.IniEingabe.V"}),
        "put ServoMain.Eingabemaske.0x68030000 = false\n"
        "put ServoMain.Eingabemaske.Visible = false\n"
        "put ServoMain.IniEingabe.0x68030009 = false\n"
        "put ServoMain.IniEingabe.Visible = false\n");
}

TEST_F(BildInit, FillsThePanel)
{
    create("var parameter<.aufloesung> = 800\n");
    EXPECT_EQ(lines({"put ServoMain.Height", "put ServoMain.Width"}),
        "put ServoMain.Height = 9000\nput ServoMain.Width = 12000\n");
}

TEST_F(BildInit, LoadsCaptionSecondCaptionUnitAndInputOfEachRow)
{
    create();
    const std::string loads = lines("load ServoMain.");
    EXPECT_EQ(loads.substr(0, loads.find("load ServoMain.BeschriftungL(3)")),
        "load ServoMain.BeschriftungL(2)\n"
        "load ServoMain.BeschriftungL2(2)\n"
        "load ServoMain.EinheitL(2)\n"
        "load ServoMain.SollwertL(2)\n");
}

TEST_F(BildInit, LoadsRowsInFourRuns)
{
    create();
    std::string expected;
    const auto run = [&](const std::string& half, int first, int last) {
        for (int item = first; item <= last; ++item)
            expected += "load ServoMain.Sollwert" + half + "(" + std::to_string(item) + ")\n";
    };
    run("L", 2, 10);
    run("R", 12, 20);
    run("L", 21, 22);
    run("R", 23, 24);
    EXPECT_EQ(lines("load ServoMain.Sollwert"), expected);
}

TEST_F(BildInit, BindsEveryInputToItsEditVariable)
{
    const std::string trace = create();
    EXPECT_TRUE(contains(trace, "put ServoMain.SollwertL(7).7 = \"Ch-1.intern_v<.l2_07>\"\n"));
    EXPECT_TRUE(contains(trace, "put ServoMain.SollwertR(24).7 = \"Ch-1.intern_v<.l2_24>\"\n"));
    // The first input of each half has its variable from the form.
    EXPECT_EQ(count(trace, "Ch-1.intern_v<.l2_"), 22U);
    EXPECT_EQ(state("SollwertL(1).7"), "\"Ch-1.intern_v<.l2_01>\"");
    EXPECT_EQ(state("SollwertR(11).7"), "\"Ch-1.intern_v<.l2_11>\"");
}

TEST_F(BildInit, LoadsSwitchesAndDrawingNumbers)
{
    create();
    EXPECT_EQ(lines({"load ServoMain.Schalter", "load ServoMain.Zeichnung", "load ServoMain.Punkt",
                  "load ServoMain.BeschriftungL(3", "load ServoMain.BeschriftungR(3",
                  "load ServoMain.BeschriftungL(4", "load ServoMain.BeschriftungR(4"}),
        "load ServoMain.BeschriftungL(3)\n"
        "load ServoMain.BeschriftungL(4)\n"
        "load ServoMain.BeschriftungL(31)\n"
        "load ServoMain.BeschriftungL(32)\n"
        "load ServoMain.SchalterL(32)\n"
        "load ServoMain.BeschriftungR(33)\n"
        "load ServoMain.BeschriftungR(34)\n"
        "load ServoMain.SchalterR(34)\n"
        "load ServoMain.BeschriftungL(41)\n"
        "load ServoMain.ZeichnungL(43)\n"
        "load ServoMain.PunktL(43)\n"
        "load ServoMain.ZeichnungL(45)\n"
        "load ServoMain.PunktL(45)\n"
        "load ServoMain.BeschriftungR(42)\n"
        "load ServoMain.ZeichnungR(44)\n"
        "load ServoMain.PunktR(44)\n"
        "load ServoMain.ZeichnungR(46)\n"
        "load ServoMain.PunktR(46)\n");
}

TEST_F(BildInit, HasAValueInEveryDiagnosisLineAndACellInEveryPlaceOfTheTable)
{
    create();
    EXPECT_EQ(count(lines("load ServoMain.IstWert("), "\n"), 19U);
    EXPECT_EQ(count(lines("load ServoMain.Einheit("), "\n"), 19U);
    EXPECT_EQ(count(lines("load ServoMain.Beschriftung("), "\n"), 21U);
    EXPECT_EQ(count(lines("load ServoMain.IstWertTab("), "\n"), 19U);
}

TEST_F(BildInit, ShowsCaptionsOnlyInHeadingLines)
{
    create();
    for (const std::string line : {"101", "102", "111"}) {
        EXPECT_EQ(state("Beschriftung(" + line + ").Visible"), "true");
        EXPECT_EQ(state("IstWert(" + line + ").Visible"), "false");
        EXPECT_EQ(state("Einheit(" + line + ").Visible"), "false");
        EXPECT_EQ(state("Beschriftung(" + line + ").Font.Bold"), "true");
    }
    for (const std::string line : {"103", "110", "112", "120"}) {
        EXPECT_EQ(state("Beschriftung(" + line + ").Visible"), "true");
        EXPECT_EQ(state("IstWert(" + line + ").Visible"), "true");
        EXPECT_EQ(state("Einheit(" + line + ").Visible"), "true");
        EXPECT_EQ(state("Beschriftung(" + line + ").Font.Bold"), "false");
    }
}

TEST_F(BildInit, MarksTheColumnHeadingsOfTheTable)
{
    create();
    EXPECT_EQ(
        lines("put ServoMain.IstWertTab(121).Font.Bold"), "put ServoMain.IstWertTab(121).Font.Bold = true\n");
    for (const std::string heading : {"121", "122", "126", "131", "136"})
        EXPECT_EQ(state("IstWertTab(" + heading + ").Font.Bold"), "true") << heading;
    for (const std::string cell : {"123", "125", "127", "130", "132", "135", "137", "140"})
        EXPECT_EQ(state("IstWertTab(" + cell + ").Font.Bold"), "false") << cell;
}

struct ColumnGaps {
    std::string panel; // pixels
    std::vector<float> gaps; // pixels, from left to right
};

// Left edge and width of a column are each snapped down to the panel's pixels, so that two may become one or three.
TEST_F(BildInit, LeavesTwoPixelsBetweenTheColumnsOfTheTable)
{
    const ColumnGaps panels[]{{"1280", {2, 2, 2}}, {"1024", {3, 2, 2}}, {"800", {2, 1, 2}}};
    for (const auto& [panel, gaps] : panels) {
        create("var parameter<.aufloesung> = " + panel + "\n");
        const auto twips = [&](int column, int row, const std::string& property) {
            return std::stof(state("IstWertTab(" + std::to_string(121 + 5 * column + row) + ")." + property));
        };
        std::vector<float> found;
        for (int column = 0; column < 3; ++column)
            found.push_back(
                (twips(column + 1, 0, "Left") - twips(column, 0, "Left") - twips(column, 0, "Width")) / 15);
        EXPECT_EQ(found, gaps) << panel;
        for (int column = 0; column < 4; ++column) {
            EXPECT_EQ(twips(column, 4, "Left"), twips(column, 0, "Left")) << panel;
            EXPECT_EQ(twips(column, 4, "Width"), twips(column, 0, "Width")) << panel;
        }
        run("terminate\n");
    }
}

TEST_F(BildInit, HidesTheFaultText)
{
    create();
    EXPECT_EQ(lines("put ServoMain.Fehlertext.Visible"), "put ServoMain.Fehlertext.Visible = false\n");
}

TEST_F(BildInit, LoadsTheBackgroundsLast)
{
    const std::string trace = create();
    EXPECT_EQ(trace.substr(trace.find("picture ")),
        "picture Servo\\ServoMain_1280.bmp\n"
        "put ServoMain.Picture = <picture Servo\\ServoMain_1280.bmp>\n"
        "picture Servo\\ServoDiag_1280.bmp\n"
        "put ServoMain.DetailBox.Picture = <picture Servo\\ServoDiag_1280.bmp>\n");
}

TEST_F(BildInit, TellsOfAMissingBackgroundAndGoesOn)
{
    const std::string trace = create("var parameter<.aufloesung> = 1024\n");
    EXPECT_TRUE(contains(trace,
        "picture Servo\\ServoMain_1024.bmp missing\n"
        "message \"Picture '<project>\\Servo\\ServoMain_1024.bmp' can not be loaded !\"\n"
        "put ServoMain.Picture = <none>\n"));
    EXPECT_FALSE(contains(trace, "error "));
}

TEST_F(BildInit, BringsFontsToThePanelsSizeOnce)
{
    create("var parameter<.aufloesung> = 1024\n");
    EXPECT_EQ(lines({"put ServoMain.BeschriftungL(1).FontClass", "put ServoMain.SollwertL(1).Font"}),
        "put ServoMain.BeschriftungL(1).FontClass = \"LSU8\"\n"
        "put ServoMain.SollwertL(1).Font.Size = 9\n");
    EXPECT_EQ(lines("put ServoMain.SollwertL(2).Font"), "");
    EXPECT_EQ(state("SollwertL(2).Font.Size"), "9");
    EXPECT_EQ(state("BeschriftungL(2).FontClass"), "\"LSU8\"");
}

TEST_F(BildInit, MirrorsTextsOnRightToLeftPanels)
{
    create("var Ch-1.param_client<.arabisch> = true\n");
    EXPECT_EQ(state("BeschriftungL(1).Alignment"), "3");
    EXPECT_EQ(state("BeschriftungL(2).Alignment"), "3");
    EXPECT_EQ(state("ZeichnungR(46).Alignment"), "5");
}

TEST_F(BildInit, StandsCaptionsThreePixelsFurtherLeftOnTheSmallestPanel)
{
    create("var parameter<.aufloesung> = 800\n");
    EXPECT_EQ(state("BeschriftungL(1).Left"), "15");
    EXPECT_EQ(state("EinheitL(1).Left"), "4485");
}

// A pixel of 11000 twips: three of them are more than 16 bits hold.
TEST_F(BildInit, LeavesCaptionsWhereTheyAreWhenThreePixelsOverflow)
{
    create("var parameter<.aufloesung> = 800\nscreen 11000 15\n");
    EXPECT_EQ(count(lines("error 6 \"Ma BildInit Let\""), "\n"), 1U);
    EXPECT_EQ(state("BeschriftungL(1).Left"), "0");
}

TEST_F(BildInit, StandsCaptionsForAWiderPanelWhenItRunsTwice)
{
    create("var parameter<.aufloesung> = 800\n");
    run("var parameter<.aufloesung> = 1280\n");
    again();
    EXPECT_EQ(state("BeschriftungL(1).Left"), "105");
}

TEST_F(BildInit, KeepsTheLowestLevelWhenTheAccessLevelCannotBeRead)
{
    create("fail read Ch-1.intern<.passwort>\n");
    EXPECT_EQ(count(lines("error "), "\"Ma BildInit Let\""), 1U);
    EXPECT_TRUE(contains(run("show\n"), picture(3, "Standard\\F_Pass_0_1280.gif")));
}

TEST_F(BildInit, ReportsEveryElementThatExistsAlreadyWhenItRunsTwice)
{
    const std::size_t loaded = count(create(), "\nload ");
    run("");
    again();
    EXPECT_EQ(count(lines("error 360 \"Ma BildInit Let\""), "\n"), loaded);
    EXPECT_NE(lines("put ServoMain.DetailBox.Picture"), "") << "it runs to its end";
}

TEST_F(BildInit, StartsAnewForAControlCreatedAgain)
{
    create();
    const std::string again = run("terminate\ncreate\n");
    EXPECT_EQ(lines("error "), "");
    EXPECT_TRUE(contains(again, "load ServoMain.SollwertR(24)\n"));
}

TEST_F(BildInit, ForgetsChangesThatWaitToBeWritten)
{
    show();
    run("touch SollwertL 1\nmask 7\n");
    again();
    run("key! 10\n");
    EXPECT_EQ(lines("write "), "");
    EXPECT_EQ(state("DetailBox.Visible"), "true");
}

TEST_F(BildInit, EndsTheConfirmMode)
{
    show();
    run("touch SchalterL 31\n");
    again();
    EXPECT_TRUE(contains(run("key! 11\n"), "raise ServoMain.MenuAnzeigen()\n"));
}

TEST_F(BildInit, EndsTheEditingOfDefinitions)
{
    show("var Ch-1.intern<.passwort> = 5\n");
    run("key 4\n");
    again();
    run("touch SollwertL 1\n");
    EXPECT_EQ(
        lines("put ServoMain.Eingabemaske.0x68030000"), "put ServoMain.Eingabemaske.0x68030000 = true\n");
    EXPECT_EQ(lines("put ServoMain.IniEingabe.0x68030009"), "");
}

TEST(BildInitAlone, LeavesAPageReadOnlyWhosePermissionCannotBeRead)
{
    Lone<servo_page::ServoMain> page;
    page.surround.world().fail("create PathHelper");
    page.control.BildInit(1);
    page.surround.platform.shown.clear();
    page.fake("Eingabemaske")->crossings.clear();
    page.control.Sollwert_MouseDown(5, 1, 0, 0, 0);
    EXPECT_EQ(page.surround.platform.shown.size(), 1U);
    EXPECT_TRUE(page.fake("Eingabemaske")->crossings.empty());
}

class PageAlone : public ::testing::Test {
protected:
    PageAlone()
    {
        page.surround.zustand.AktServo = 1;
        page.surround.zustand.ServoNr[1] = 3;
    }
    // The numbers of a procedure's reports.
    std::vector<std::int32_t> errors(std::string_view procedure) const
    {
        std::vector<std::int32_t> numbers;
        for (const Report& report : page.surround.reports())
            if (report.procedure == procedure) numbers.push_back(report.number);
        return numbers;
    }

    Lone<servo_page::ServoMain> page;
};

// Whoever asks while it is being built or shown must not start that a second time.
TEST_F(PageAlone, SaysThatItIsBeingBuiltAndShown)
{
    std::vector<std::int16_t> numbers;
    page.surround.world().accessed = [&] { numbers.push_back(page.control.BildInit()); };
    page.control.BildInit(7);
    ASSERT_FALSE(numbers.empty());
    EXPECT_EQ(numbers.front(), 7);
    numbers.clear();
    page.surround.world().accessed = [&] { numbers.push_back(page.control.BildShow()); };
    page.control.BildShow(-1);
    ASSERT_FALSE(numbers.empty());
    EXPECT_EQ(numbers.front(), -1);
}

TEST_F(PageAlone, ReportsTheAccessLevelBeforeThePermission)
{
    page.surround.world().fail("create PathHelper");
    page.control.BildInit(1);
    EXPECT_EQ(errors("Ma BildInit Let"), (std::vector<std::int32_t>{1001, 1000}));
}

// On a screen whose pixels have no size nothing can be measured: error 11, or 6 for a length of 0. The first two
// reports are those of the corrections.
TEST_F(PageAlone, MeasuresAnElementByHeightPlaceAndWidth)
{
    page.surround.world().twipsPerPixelX = 0;
    page.surround.world().twipsPerPixelY = 0;
    page.control.BildInit(1);
    const std::vector<std::int32_t> numbers = errors("KorrekturTwipPix");
    const auto element = [&](std::ptrdiff_t place) {
        return std::vector<std::int32_t>{
            numbers.begin() + 2 + 4 * place, numbers.begin() + 2 + 4 * (place + 1)};
    };
    ASSERT_GT(numbers.size(), 2U + 4U * 29U);
    EXPECT_EQ(element(0), (std::vector<std::int32_t>{11, 11, 11, 11})); // heading
    EXPECT_EQ(element(2), (std::vector<std::int32_t>{11, 6, 6, 11})); // caption at the left top
    EXPECT_EQ(element(28), (std::vector<std::int32_t>{11, 6, 11, 11})); // footer at the left
}

// A panel width that no panel has leaves the vertical factor 0, so that the wide correction has no length.
TEST_F(PageAlone, MeasuresTheNarrowCorrectionBeforeTheWideOne)
{
    page.surround.world().variables["parameter<.aufloesung>"] = std::int16_t{900};
    page.surround.world().twipsPerPixelX = 0;
    page.control.BildInit(1);
    const std::vector<std::int32_t> numbers = errors("KorrekturTwipPix");
    ASSERT_GE(numbers.size(), 2U);
    EXPECT_EQ(numbers[0], 11);
    EXPECT_EQ(numbers[1], 6);
}

TEST_F(PageAlone, SetsItsOwnSizeBeforeItMeasures)
{
    page.failingSurface = true;
    page.surround.world().twipsPerPixelX = 0;
    page.control.BildInit(1);
    const Reports& reports = page.surround.reports();
    const auto measured = std::find(reports.begin(), reports.end(), Report{11, "KorrekturTwipPix"});
    EXPECT_EQ(std::count(reports.begin(), measured, Report{91, "Ma BildInit Let"}), 2); // height and width
}

TEST_F(PageAlone, HoldsItsFileWhileTheKeysAreRead)
{
    page.surround.world().texts["P:\\\\.ini"].text = "[Footer]\n";
    page.surround.world().texts["P:\\other.ini"].text = "[A]\n";
    std::optional<bool> read;
    page.fake("Fußzeile")->afterCall = [&] {
        if (!read) read = page.service.OpenIni("other.ini", true);
    };
    page.control.BildShow(-1);
    EXPECT_EQ(read, false);
}

class PageNotBuilt : public PageAlone { };

TEST_F(PageNotBuilt, HasNoWidthForCaptions)
{
    page.fake("VWLanguage")->result = "two words";
    page.width = [] { return 0.5F; };
    page.control.AdressenUmschalten(true);
    const Texts second = page.fake("BeschriftungL2")->puts();
    EXPECT_NE(std::find(second.begin(), second.end(), "Text = words"), second.end());
}

TEST_F(PageNotBuilt, HoldsNoChangeThatKey10CouldConfirm)
{
    page.control.Fußzeile_TasteClick(10);
    EXPECT_EQ(page.fake("DetailBox")->puts(), Texts{"Visible = True"});
}

TEST_F(PageNotBuilt, HoldsNoChangeThatKey11CouldDiscard)
{
    page.control.Fußzeile_TasteClick(11);
    EXPECT_EQ(page.surround.logged("screen"), Texts{"1011"});
}

TEST_F(PageNotBuilt, ReadsTheValuesWhenTheEditorEnds)
{
    page.control.IniEingabe_EingabeFertig();
    const Texts read = page.surround.logged("read");
    EXPECT_NE(std::find(read.begin(), read.end(), "Ch1._T_servo_3<.m_servo_para_3>"), read.end());
}

} // namespace

} // namespace servopanel::testing
