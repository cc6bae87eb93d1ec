#include "platform/ids.h"
#include "servo_menu/servo_menu.h"
#include "support/lone.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <memory>
#include <optional>
#include <ostream>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace servopanel::testing {

// Every procedure reports under its own name when a child of the menu fails, and comes back.
TEST(MenuErrorNames, AreThoseOfTheProcedures)
{
    Lone<servo_menu::ServoMenu> menu;
    menu.failing = true;
    menu.surround.zustand.ServoAnzahl = 8;
    menu.surround.zustand.FehlerAnzahl = 1;
    using Call = std::function<void(servo_menu::ServoMenu&)>;
    const std::vector<std::pair<std::string, Call>> calls{
        {"Me BildInit Let", [](auto& m) { m.BildInit(1); }},
        {"Me BildShow Let", [](auto& m) { m.BildShow(-1); }},
        {"Ma Let SpracheGeandert", [](auto& m) { m.put(platform::names::SpracheGeandert, "no number"); }},
        {"Ma TextFontsAendern", [](auto& m) { m.TextFontsAendern(); }},
        {"Me TextAusgabe", [](auto& m) { m.TextAusgabe(); }},
        {"Me FußzeileFreigabe", [](auto& m) { m.FußzeileFreigabe(false); }},
        {"Me Aufbauen", [](auto& m) { m.Aufbauen(); }},
        {"Me TasteZeichnen", [](auto& m) { m.TasteZeichnen(1, true); }},
        {"Me TasteGedrueckt", [](auto& m) { m.TasteGedrueckt(1, true), m.TasteGedrueckt(1, false); }},
        {"Me Beschriftung_MouseDown", [](auto& m) { m.Beschriftung_MouseDown(1, 1, 0, 0, 0); }},
        {"Me Beschriftung_MouseMove", [](auto& m) { m.Beschriftung_MouseMove(1, 1, 0, 0, 0); }},
        {"Me Beschriftung_MouseUp", [](auto& m) { m.Beschriftung_MouseUp(1, 1, 0, 0, 0); }},
        {"Me BildIm_MouseDown", [](auto& m) { m.BildIm_MouseDown(1, 1, 0, 0, 0); }},
        {"Me BildIm_MouseMove", [](auto& m) { m.BildIm_MouseMove(1, 1, 0, 0, 0); }},
        {"Me BildIm_MouseUp", [](auto& m) { m.BildIm_MouseUp(1, 1, 0, 0, 0); }},
        {"Me Fußzeile_TasteClick", [](auto& m) { m.deliver({"Fußzeile"}, "TasteClick", {}); }},
        {"Me ScrollBar_NeuePos", [](auto& m) { m.deliver({"ScrollBar"}, "NeuePos", {}); }},
        {"Me UserControl_MouseDown", [](auto& m) { m.deliver({}, "MouseDown", {}); }},
        {"Me UserControl_MouseMove", [](auto& m) { m.deliver({}, "MouseMove", {}); }},
        {"Me UserControl_MouseUp", [](auto& m) { m.deliver({}, "MouseUp", {}); }},
    };
    for (const auto& [name, call] : calls) {
        menu.surround.errors.reports.clear();
        call(menu.control);
        bool named = false;
        for (const Report& report : menu.surround.reports())
            named = named || report.procedure == name;
        EXPECT_TRUE(named) << name;
    }
}

// Nothing but an error of the seam costs a single statement. What else a host lets out ends the whole procedure, and is
// reported under the name of the event.
TEST(MenuEntryNames, AreThoseOfTheEvents)
{
    using Call = std::function<void(servo_menu::ServoMenu&)>;
    const auto event = [](const char* child, const char* name) {
        return [=](servo_menu::ServoMenu& m) {
            const std::vector<basic::Variant> args{std::int16_t{11}, std::int16_t{0}, 0.0F, 0.0F};
            EXPECT_TRUE(m.deliver({child, 1}, name, args)) << child << ' ' << name;
        };
    };
    const auto put = [](const platform::Member& member, std::int16_t value) {
        return [=](servo_menu::ServoMenu& m) { m.put(member, value); };
    };
    const std::pair<const char*, Call> calls[]{
        {"Me UserControl_Terminate", [](servo_menu::ServoMenu& m) { m.terminate(); }},
        {"Me BildInit Let", put(platform::names::BildInit, 1)},
        {"Me BildShow Let", put(platform::names::BildShow, -1)},
        {"Ma Let SpracheGeandert", put(platform::names::SpracheGeandert, 1)},
        {"Me Beschriftung_MouseDown", event("Beschriftung", "MouseDown")},
        {"Me Beschriftung_MouseMove", event("Beschriftung", "MouseMove")},
        {"Me Beschriftung_MouseUp", event("Beschriftung", "MouseUp")},
        {"Me BildIm_MouseDown", event("BildIm", "MouseDown")},
        {"Me BildIm_MouseMove", event("BildIm", "MouseMove")},
        {"Me BildIm_MouseUp", event("BildIm", "MouseUp")},
        {"Me ScrollBar_NeuePos", event("ScrollBar", "NeuePos")},
        {"Me Fußzeile_TasteClick", event("Fußzeile", "TasteClick")},
    };
    const auto display = std::make_shared<FakeErrorDisplay>();
    display->broken = true;
    for (const auto& [name, call] : calls) {
        Lone<servo_menu::ServoMenu> menu;
        menu.broken = true;
        menu.surround.zustand.FehlerAnzeige = display;
        menu.surround.zustand.FehlerAnzahl = 1;
        menu.surround.world().accessed = [] { throw std::runtime_error{"a mistake of the host"}; };
        call(menu.control);
        EXPECT_EQ(menu.surround.reports(), (Reports{{51, name}}));
    }
}

// Button and shift state are looked at by nobody, but an event that brings none is no touch.
TEST(MenuTouch, IsRefusedWhenAnArgumentIsNoNumber)
{
    Lone<servo_menu::ServoMenu> menu;
    for (const auto& [child, procedure] : {std::pair{"", "Me UserControl_MouseMove"},
             {"Beschriftung", "Me Beschriftung_MouseMove"}, {"BildIm", "Me BildIm_MouseMove"}})
        for (std::size_t i = 0; i < 4; ++i) {
            std::vector<basic::Variant> args(4, std::int16_t{1});
            args[i] = "none";
            menu.surround.errors.reports.clear();
            EXPECT_TRUE(menu.control.deliver({child, 1}, "MouseMove", args));
            EXPECT_EQ(menu.surround.reports(), (Reports{{13, procedure}})) << i;
        }
}

TEST(MenuWelcheTaste, IsNoneBesideTheKeys)
{
    Lone<servo_menu::ServoMenu> menu;
    std::int16_t key = 5;
    menu.control.WelcheTaste(-1, -1, key);
    EXPECT_EQ(key, 0);
}

TEST(MenuTasteZeichnen, KnowsNoKeyBeforeTheFirst)
{
    Lone<servo_menu::ServoMenu> menu;
    menu.control.TasteZeichnen(0, true);
    menu.control.TasteZeichnen(-1, true);
    EXPECT_EQ(menu.drawn, Texts{});
    EXPECT_EQ(menu.surround.reports(), Reports{});
}

TEST(MenuTasteZeichnen, ReportsAKeyBehindTheLast)
{
    Lone<servo_menu::ServoMenu> menu;
    menu.control.TasteZeichnen(9, true);
    EXPECT_EQ(menu.drawn, Texts{});
    EXPECT_EQ(menu.surround.reports(), (Reports{{9, "Me TasteZeichnen"}}));
}

// 400 machines make screen numbers beyond 16 bits.
TEST(MenuFooter, ReturnsAfterAScreenWhoseNumberIsTooLarge)
{
    Lone<servo_menu::ServoMenu> menu;
    menu.surround.zustand.AktuelleMaschine = 400;
    menu.control.Fußzeile_TasteClick(11);
    EXPECT_EQ(menu.surround.reports(), (Reports{{6, "Me Fußzeile_TasteClick"}}));
}

TEST(MenuAtFirst, HasNotBeenBuiltOrShown)
{
    Lone<servo_menu::ServoMenu> menu;
    EXPECT_EQ(menu.control.BildInit(), 0);
    EXPECT_EQ(menu.control.BildShow(), 0);
}

TEST(MenuAufbauen, ChangesNoNameAndMakesNothingWhenAFileCannotBeLookedFor)
{
    Lone<servo_menu::ServoMenu> menu;
    menu.surround.zustand.ServoAnzahl = 1;
    menu.surround.zustand.ServoNr[1] = 1;
    menu.surround.world().fail("exists P:\\\\_S_1_.gif");
    menu.surround.world().fail("exists \\\\_S_1_.gif");
    menu.control.Aufbauen();
    EXPECT_EQ(menu.surround.logged("exists"), (Texts{"P:\\\\_S_1_.gif", "\\\\_S_1_.gif"}));
    EXPECT_TRUE(menu.surround.logged("picture").empty());
    EXPECT_TRUE(menu.surround.logged("save").empty());
    EXPECT_TRUE(menu.surround.logged("mkdir").empty());
}

TEST(MenuChoice, LeavesTheServoNumberInAktServoUntilTheShellReplacesIt)
{
    Lone<servo_menu::ServoMenu> menu;
    menu.surround.zustand.ServoAnzahl = 3;
    menu.surround.zustand.ServoNr[2] = 17;
    std::vector<std::int16_t> seen;
    menu.raised = [&] { seen.push_back(menu.surround.zustand.AktServo); };
    menu.control.TasteGedrueckt(2, true);
    menu.control.TasteGedrueckt(2, false);
    EXPECT_EQ(seen, std::vector<std::int16_t>{17});
}

TEST(MenuTerminate, ClosesAnErrorDisplayThatGotReportsAndLetsItGo)
{
    Lone<servo_menu::ServoMenu> menu;
    const auto display = std::make_shared<FakeErrorDisplay>();
    display->fails = true;
    menu.surround.zustand.FehlerAnzeige = display;
    menu.control.terminate();
    EXPECT_EQ(display->closings, 0);
    menu.surround.zustand.FehlerAnzahl = 1;
    menu.control.terminate();
    EXPECT_EQ(display->closings, 1);
    EXPECT_EQ(menu.surround.zustand.FehlerAnzeige, nullptr);
    EXPECT_EQ(menu.surround.reports(), (Reports{{91, "Me UserControl_Terminate"}}));
}

TEST(MenuFooter, ForgetsTheServoAs16Bits)
{
    Lone<servo_menu::ServoMenu> menu;
    menu.control.Fußzeile_TasteClick(11);
    EXPECT_EQ(menu.surround.world().variables["Ch-1.intern<.servo_zeiger>"], basic::Variant{std::int16_t{0}});
    EXPECT_EQ(menu.surround.logged("screen"), Texts{"1011"}); // machine 0
}

// A newer position comes in while the picture of the first key is loaded.
TEST(MenuAufbauen, SavesNothingForAPageThatIsGivenUp)
{
    Lone<servo_menu::ServoMenu> menu;
    menu.surround.zustand.ServoAnzahl = 1;
    menu.surround.zustand.ServoNr[1] = 1;
    menu.surround.world().pictures["P:\\\\_1_.gif"] = nullptr;
    bool once = true;
    menu.surround.platform.loading = [&] {
        if (!std::exchange(once, false)) return;
        menu.fake("ScrollBar")->properties["POSITION"] = std::int16_t{2};
        menu.control.ScrollBar_NeuePos(2);
    };
    menu.control.ScrollBar_NeuePos(1);
    EXPECT_FALSE(once);
    EXPECT_EQ(menu.surround.logged("mkdir"), Texts{});
    EXPECT_EQ(menu.surround.logged("save"), Texts{});
    EXPECT_EQ(menu.surround.zustand.menüBilder.geladen[1], display::wahr);
    EXPECT_EQ(menu.surround.zustand.menüBilder.bild[1], nullptr);
}

// They come in while the picture of the first key is loaded; the scroll that caused the build is the first.
TEST(MenuScroll, CountsTheRequestsOfOneBuildIn16Bits)
{
    Lone<servo_menu::ServoMenu> menu;
    menu.surround.zustand.ServoAnzahl = 1;
    menu.surround.zustand.ServoNr[1] = 1;
    menu.surround.world().pictures["P:\\\\_1_.gif"] = nullptr;
    bool once = true;
    menu.surround.platform.loading = [&] {
        if (!std::exchange(once, false)) return;
        for (int i = 2; i <= 32768; ++i)
            menu.control.ScrollBar_NeuePos(1);
    };
    menu.control.ScrollBar_NeuePos(1);
    const Reports& reports = menu.surround.reports();
    EXPECT_EQ(std::count(reports.begin(), reports.end(), Report{6, "Me ScrollBar_NeuePos"}), 1);
}

// Each statement is lost for itself: while no child answers, a procedure reports as often as it asks one of them.
struct Losses {
    const char* name;
    std::function<void(servo_menu::ServoMenu&)> call;
    const char* procedure;
    int reports;
    std::int16_t servos = 0;
};
void PrintTo(const Losses& row, std::ostream* out) { *out << row.name; }

class MenuLosses : public ::testing::TestWithParam<Losses> { };

TEST_P(MenuLosses, CostOneStatementEach)
{
    const Losses& row = GetParam();
    Lone<servo_menu::ServoMenu> menu;
    menu.surround.zustand.ServoAnzahl = row.servos;
    menu.surround.zustand.ServoNr[1] = 1;
    menu.failing = true;
    row.call(menu.control);
    const Reports& reports = menu.surround.reports();
    EXPECT_EQ(std::count_if(reports.begin(), reports.end(),
                  [&](const Report& report) { return report.procedure == row.procedure; }),
        row.reports);
}

const auto build = [](servo_menu::ServoMenu& m) { m.BildInit(1); };

const Losses losses[] = {
    {"building", build, "Me BildInit Let", 55},
    {"fonts", build, "Ma TextFontsAendern", 36},
    {"captions", [](auto& m) { m.TextAusgabe(); }, "Me TextAusgabe", 8},
    {"keys_beyond_the_list", [](auto& m) { m.Aufbauen(); }, "Me Aufbauen", 8},
    // Source, two sides of the canvas, copy, stretch, saving and loading; on the first key; is each of the 8 visible?
    {"key_without_a_copy", [](auto& m) { m.Aufbauen(); }, "Me Aufbauen", 7 + 1 + 8, 1},
    {"withdrawal", [](auto& m) { m.FußzeileFreigabe(false); }, "Me FußzeileFreigabe", 30},
    {"drawing", [](auto& m) { m.TasteZeichnen(1, true); }, "Me TasteZeichnen", 4},
};
INSTANTIATE_TEST_SUITE_P(Procedures, MenuLosses, ::testing::ValuesIn(losses),
    [](const auto& row) { return std::string{row.param.name}; });

// Servo 51 has no place in the cache, the picture of the key does not answer.
TEST(MenuAufbauen, ReportsInTheOrderOfItsSteps)
{
    Lone<servo_menu::ServoMenu> menu;
    menu.surround.zustand.ServoAnzahl = 1;
    menu.surround.zustand.ServoNr[1] = 51;
    menu.gone = {"BildIm(1)"};
    menu.control.Aufbauen();
    const Reports& reports = menu.surround.reports();
    ASSERT_GE(reports.size(), 3U);
    EXPECT_EQ(reports[0], (Report{9, "Me Aufbauen"}));
    EXPECT_EQ(reports[1], (Report{9, "Me Aufbauen"}));
    EXPECT_EQ(reports[2], (Report{91, "Me Aufbauen"}));
}

// Position 51 of a list that has 50 places.
TEST(MenuChoice, IsReportedEvenWhenTheServoCannotBeStored)
{
    Lone<servo_menu::ServoMenu> menu;
    menu.surround.zustand.ServoAnzahl = 51;
    menu.fake("ScrollBar")->properties["POSITION"] = std::int16_t{26};
    menu.control.TasteGedrueckt(1, true);
    menu.control.TasteGedrueckt(1, false);
    EXPECT_EQ(menu.surround.reports(), (Reports{{9, "Me TasteGedrueckt"}}));
    EXPECT_EQ(menu.events, Texts{"ServoBildAufrufen 51"});
}

TEST(MenuChoice, LeavesNoKeyPressedWhenNobodyCanBeTold)
{
    Lone<servo_menu::ServoMenu> menu;
    menu.surround.zustand.ServoAnzahl = 1;
    menu.control.TasteGedrueckt(1, true);
    menu.failing = true;
    menu.control.TasteGedrueckt(1, false);
    EXPECT_EQ(std::count(menu.surround.reports().begin(), menu.surround.reports().end(),
                  Report{91, "Me TasteGedrueckt"}),
        1);
    EXPECT_EQ(menu.control.zustand().GedrückteTaste, 0);
}

// A source of 200 x 219 pixels on a screen whose pixels are higher than wide. The canvas has 2942.094 x 4027.5 twips:
// 245 x 268 pixels.
class MenuScaling : public ::testing::Test {
protected:
    MenuScaling()
    {
        menu.surround.world().variables["parameter<.aufloesung>"] = std::int16_t{1280};
        menu.surround.world().twipsPerPixelX = 12;
        menu.surround.zustand.SchriftStufe = 2;
        menu.control.BildInit(1);
        menu.surround.zustand.ServoAnzahl = 1;
        menu.surround.zustand.ServoNr[1] = 1;
        menu.fake("TempPicQuelle")->properties["WIDTH"] = 2400.0F;
        menu.fake("TempPicQuelle")->properties["HEIGHT"] = 3285.0F;
        menu.surround.errors.reports.clear();
    }
    // What is done to the work pictures for a servo without a copy.
    const Texts& worked()
    {
        menu.worked.clear();
        menu.surround.zustand.menüBilder.geladen[1] = display::falsch;
        menu.control.Aufbauen();
        return menu.worked;
    }

    Lone<servo_menu::ServoMenu> menu;
};

TEST_F(MenuScaling, StretchesTheWholeCanvas)
{
    EXPECT_EQ(worked(),
        (Texts{"clear TempPicZwischen", "bitblt TempPicQuelle TempPicZwischen 23 44 200 219",
            "refresh TempPicZwischen", "stretch TempPicZwischen TempPicZiel 245 268 746 179",
            "refresh TempPicZiel"}));
}

// Twips of the key grid: 495 of height less five pixels, two pixels below the row at 2340.
TEST_F(MenuScaling, PutsCaptionsIntoTheFrameByTheHeightOfAPixel)
{
    const Texts puts = menu.fake("Beschriftung")->puts();
    const auto first = [&](std::string_view name) {
        const auto put = std::find_if(
            puts.begin(), puts.end(), [&](const std::string& line) { return line.starts_with(name); });
        return put == puts.end() ? std::string{} : *put;
    };
    EXPECT_EQ(first("Height"), "Height = 420");
    EXPECT_EQ(first("Top"), "Top = 2370");
}

TEST_F(MenuScaling, GoesOnAfterEachStepThatFails)
{
    const Texts all = worked();
    EXPECT_EQ(all.size(), 5U);
    for (const std::string& step : all) {
        Texts others = all;
        std::erase(others, step);
        menu.refused = step;
        EXPECT_EQ(worked(), others) << step;
    }
}

TEST_F(MenuScaling, ClearsAndRefreshesPicturesThatDoNotAnswer)
{
    menu.failing = true;
    EXPECT_EQ(worked(), (Texts{"clear TempPicZwischen", "refresh TempPicZwischen", "refresh TempPicZiel"}));
}

// Whoever asks while it is being built or shown must not start that a second time.
TEST(MenuAtOnce, SaysThatItIsBeingBuiltAndShown)
{
    Lone<servo_menu::ServoMenu> menu;
    std::vector<std::int16_t> numbers;
    menu.surround.world().accessed = [&] { numbers.push_back(menu.control.BildInit()); };
    menu.control.BildInit(7);
    ASSERT_FALSE(numbers.empty());
    EXPECT_EQ(numbers.front(), 7);
    numbers.clear();
    menu.surround.world().accessed = [&] { numbers.push_back(menu.control.BildShow()); };
    menu.control.BildShow(-1);
    ASSERT_FALSE(numbers.empty());
    EXPECT_EQ(numbers.front(), -1);
}

TEST(MenuBuilding, ReportsTheFontsBeforeTheFolderOfThePictures)
{
    Lone<servo_menu::ServoMenu> menu;
    menu.failing = true;
    menu.surround.world().fail("environment TEMPVELM");
    menu.control.BildInit(1);
    const Reports& reports = menu.surround.reports();
    const auto folder = std::find(reports.begin(), reports.end(), Report{1000, "GetDOSEnvironmentVariable"});
    EXPECT_EQ(std::count(reports.begin(), folder, Report{91, "Ma TextFontsAendern"}), 36);
}

TEST(MenuBuilding, MeasuresTheWorkPictureByTheFirstKeyAlone)
{
    Lone<servo_menu::ServoMenu> menu;
    menu.gone = {"BildIm(1)"};
    menu.control.BildInit(1);
    EXPECT_EQ(menu.fake("TempPicZiel")->puts(), Texts{});
}

// Its own place, seven rows and four columns that go by it.
TEST(MenuBuilding, PlacesTheCaptionsByTheFirstOneAlone)
{
    Lone<servo_menu::ServoMenu> menu;
    menu.gone = {"Beschriftung(1)"};
    menu.control.BildInit(1);
    const Reports& reports = menu.surround.reports();
    EXPECT_EQ(std::count(reports.begin(), reports.end(), Report{91, "Me BildInit Let"}), 1 + 7 + 4);
}

TEST(MenuScroll, IsServedWhenItComesInBetweenTheCaptions)
{
    Lone<servo_menu::ServoMenu> menu;
    menu.surround.zustand.ServoAnzahl = 1;
    menu.surround.zustand.ServoNr[1] = 1;
    bool once = true;
    menu.fake("Beschriftung")->afterPut = [&] {
        if (std::exchange(once, false)) menu.control.ScrollBar_NeuePos(1);
    };
    menu.control.ScrollBar_NeuePos(1);
    EXPECT_FALSE(once);
    EXPECT_EQ(menu.surround.zustand.menüBilder.geladen[1], display::wahr);
}

// All keys lie in the corner then, and have no size.
TEST(MenuNotBuilt, HasNoKeyBesideItsCornerAndThereTheFirst)
{
    Lone<servo_menu::ServoMenu> menu;
    std::int16_t key = 5;
    menu.control.WelcheTaste(0.5F, 0, key);
    EXPECT_EQ(key, 0);
    menu.control.WelcheTaste(0, 0.5F, key);
    EXPECT_EQ(key, 0);
    menu.control.WelcheTaste(0, 0, key);
    EXPECT_EQ(key, 1);
}

TEST(MenuNotBuilt, ScalesNoPicture)
{
    Lone<servo_menu::ServoMenu> menu;
    menu.surround.zustand.ServoAnzahl = 1;
    menu.surround.zustand.ServoNr[1] = 1;
    menu.control.Aufbauen();
    EXPECT_EQ(menu.fake("TempPicZwischen")->puts(), Texts{});
}

TEST(MenuNotBuilt, ReleasesNoKeyOfTheFooter)
{
    Lone<servo_menu::ServoMenu> menu;
    menu.control.FußzeileFreigabe(true);
    EXPECT_TRUE(menu.fake("Fußzeile")->crossings.empty());
}

TEST(MenuTouch, IsPlacedHorizontallyFirst)
{
    Lone<servo_menu::ServoMenu> menu;
    menu.fake("Beschriftung")->missing = {"LEFT"};
    menu.fake("Beschriftung")->properties["TOP"] = "nowhere";
    menu.control.Beschriftung_MouseDown(1, 1, 0, 0, 0);
    EXPECT_EQ(menu.surround.reports(),
        (Reports{{438, "Me Beschriftung_MouseDown"}, {13, "Me Beschriftung_MouseDown"}}));
}

// A build that comes in then must not save its pictures anywhere else.
TEST(MenuBuilding, KnowsTheFolderOfThePicturesBeforeItMakesRoomForThem)
{
    Lone<servo_menu::ServoMenu> menu;
    std::string meanwhile;
    menu.fake("TempPicZiel")->afterPut = [&] {
        if (meanwhile.empty()) meanwhile = menu.surround.zustand.TempVerzeichnis;
    };
    menu.control.BildInit(1);
    EXPECT_EQ(meanwhile, "C:\\Temp\\Velmora");
}

// Another screen's file that comes in, and whether it was read.
class MenuFile : public ::testing::Test {
protected:
    MenuFile()
    {
        menu.surround.world().texts["P:\\\\.ini"].text = "[Machine0]\nF1=TRUE\n[Footer]\nF1=Help.gif\n";
        menu.surround.world().texts["P:\\other.ini"].text = "[A]\n";
    }
    bool readDuring(std::string_view method)
    {
        FakeControl& footer = *menu.fake("Fußzeile");
        std::optional<bool> read;
        footer.afterCall = [&] {
            if (footer.crossings.back().member.name == method && !read)
                read = menu.service.OpenIni("other.ini", true);
        };
        menu.control.BildShow(-1);
        EXPECT_TRUE(read.has_value());
        return read == true;
    }

    Lone<servo_menu::ServoMenu> menu;
};

TEST_F(MenuFile, IsHeldWhileTheKeysAreRead) { EXPECT_FALSE(readDuring("TextNummer")); }

TEST_F(MenuFile, IsFreeBeforeTheKeysAreShown) { EXPECT_TRUE(readDuring("Bild")); }

} // namespace servopanel::testing
