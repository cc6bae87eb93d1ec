#include "platform/ids.h"
#include "servo_page/servo_main.h"
#include "servo_page_values/lone_page.h"
#include "support/lone.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

namespace servopanel::testing {

using servo_page::ServoMain;

// Every procedure reports under its own name when a child of the page fails, and comes back.
TEST(PageErrorNames, AreThoseOfTheProcedures)
{
    Lone<ServoMain> page;
    page.failing = true;
    page.surround.zustand.AktServo = 1;
    page.surround.zustand.FehlerAnzahl = 1;
    using Call = std::function<void(ServoMain&)>;
    const std::vector<std::pair<std::string, Call>> calls{
        {"Ma BildInit Let", [](auto& m) { m.BildInit(1); }},
        {"Ma BildShow Let", [](auto& m) { m.BildShow(-1); }},
        {"Ma Let SpracheGeandert", [](auto& m) { m.SpracheGeandert(1); }},
        {"Ma UserControl_Terminate", [](auto& m) { m.terminate(); }},
        {"Ma SeiteUmschalten", [](auto& m) { m.SeiteUmschalten(true); }},
        {"Ma AdressenUmschalten", [](auto& m) { m.AdressenUmschalten(false); }},
        {"Ma ZeichnenDesMainBereichsTeile",
            [](auto& m) {
                m.ZeichnenDesMainBereichsTeile({"MainBereich", 1}, 0, 600, true);
            }},
        {"Ma WerteLesen", [](auto& m) { m.WerteLesen(true); }},
        {"Ma WerteSchreiben", [](auto& m) { m.WerteSchreiben(); }},
        {"Ma EingabeDarstellen", [](auto& m) { m.EingabeDarstellen(false); }},
        {"Ma Sollwert_MouseDown", [](auto& m) { m.Sollwert_MouseDown(5, 1, 0, 0, 0); }},
        {"Ma Eingabemaske_EingabeAenderung", [](auto& m) { m.Eingabemaske_EingabeAenderung(); }},
        {"Ma Eingabemaske_Eingabefertig", [](auto& m) { m.Eingabemaske_Eingabefertig(); }},
        {"Ma IniEingabe_EingabeFertig", [](auto& m) { m.IniEingabe_EingabeFertig(); }},
        {"Ma FußzeileFreigabe", [](auto& m) { m.FußzeileFreigabe(false); }},
        {"Ma Fußzeile_TasteClick", [](auto& m) { m.Fußzeile_TasteClick(31); }},
        {"Ma ScrollBar_NeuePos", [](auto& m) { m.ScrollBar_NeuePos(-32768); }},
        {"Ma ScrollbarAnzeigen", [](auto& m) { m.ScrollbarAnzeigen(); }},
        // A touch that brings nothing along.
        {"Ma SollwertL_MouseDown",
            [](auto& m) {
                m.deliver({"SollwertL", 1}, "MouseDown", {});
            }},
        {"Ma SollwertR_MouseDown",
            [](auto& m) {
                m.deliver({"SollwertR", 11}, "MouseDown", {});
            }},
        {"Ma ZeichnungL_MouseDown",
            [](auto& m) {
                m.deliver({"ZeichnungL", 41}, "MouseDown", {});
            }},
        {"Ma ZeichnungR_MouseDown",
            [](auto& m) {
                m.deliver({"ZeichnungR", 42}, "MouseDown", {});
            }},
        {"Ma Fußzeile_TasteClick", [](auto& m) { m.deliver({"Fußzeile"}, "TasteClick", {}); }},
    };
    for (const auto& [name, call] : calls) {
        page.surround.errors.reports.clear();
        call(page.control);
        bool named = false;
        for (const Report& report : page.surround.reports())
            named = named || report.procedure == name;
        EXPECT_TRUE(named) << name;
    }
}

// Nothing but an error of the seam costs a single statement. What else a host lets out ends the whole procedure, and is
// reported under the name of the event.
TEST(PageEntryNames, AreThoseOfTheEvents)
{
    using Call = std::function<void(ServoMain&)>;
    const auto event = [](const char* child, const char* name, std::vector<basic::Variant> args = {}) {
        return [=](ServoMain& m) { EXPECT_TRUE(m.deliver({child, 41}, name, args)) << child << ' ' << name; };
    };
    const auto put = [](const platform::Member& member, std::int16_t value) {
        return [=](ServoMain& m) { m.put(member, value); };
    };
    const std::vector<basic::Variant> touched{std::int16_t{1}, std::int16_t{0}, 0.0F, 0.0F};
    const std::pair<const char*, Call> calls[]{
        {"Ma UserControl_Terminate", [](ServoMain& m) { m.terminate(); }},
        {"Ma BildInit Let", put(platform::names::BildInit, 1)},
        {"Ma BildShow Let", put(platform::names::BildShow, -1)},
        {"Ma Let SpracheGeandert", put(platform::names::SpracheGeandert, 1)},
        {"Ma SollwertL_MouseDown", event("SollwertL", "MouseDown", touched)},
        {"Ma SollwertR_MouseDown", event("SollwertR", "MouseDown", touched)},
        {"Ma ZeichnungL_MouseDown", event("ZeichnungL", "MouseDown", touched)},
        {"Ma ZeichnungR_MouseDown", event("ZeichnungR", "MouseDown", touched)},
        {"Ma SchalterL_SchalterGedrückt", event("SchalterL", "SchalterGedrückt")},
        {"Ma SchalterR_SchalterGedrückt", event("SchalterR", "SchalterGedrückt")},
        {"Ma Eingabemaske_EingabeAenderung", event("Eingabemaske", "EingabeAenderung")},
        {"Ma Eingabemaske_Eingabefertig", event("Eingabemaske", "Eingabefertig")},
        {"Ma IniEingabe_EingabeFertig", event("IniEingabe", "EingabeFertig")},
        {"Ma Fußzeile_TasteClick", event("Fußzeile", "TasteClick", {std::int16_t{4}})},
        {"Ma ScrollBar_NeuePos", event("ScrollBar", "NeuePos", {std::int16_t{1}})},
        {"Ma Timer_Timer", event("Timer", "Timer")},
    };
    for (const auto& [name, call] : calls) {
        Lone<ServoMain> page;
        page.surround.zustand.AktServo = 1;
        page.broken = true;
        page.surround.world().accessed = [] { throw std::runtime_error{"a mistake of the host"}; };
        call(page.control);
        EXPECT_EQ(page.surround.reports(), (Reports{{51, name}}));
    }
}

TEST(PageEntryNames, AreThoseOfThePropertiesWhenAValueIsNoNumber)
{
    Lone<ServoMain> page;
    const std::pair<const char*, const char*> properties[]{{"BildInit", "Ma BildInit Let"},
        {"BildShow", "Ma BildShow Let"}, {"SpracheGeandert", "Ma Let SpracheGeandert"},
        {"poke.modified", "Ma poke.modified"}};
    for (const auto& [property, procedure] : properties) {
        page.surround.errors.reports.clear();
        page.control.put(platform::named(property), "no number");
        EXPECT_EQ(page.surround.reports(), (Reports{{13, procedure}}));
    }
}

TEST(IniEingabe_EingabeFertig, ChangesNoRecordWithoutATarget)
{
    Lone<ServoMain> page;
    page.control.IniEingabe_EingabeFertig();
    int outside = 0;
    for (const Report& report : page.surround.reports())
        if (report == Report{9, "Ma IniEingabe_EingabeFertig"}) ++outside;
    EXPECT_EQ(outside, 3);
}

TEST(IniEingabe_LostFocus, DoesNothing)
{
    Lone<ServoMain> page;
    EXPECT_TRUE(page.control.deliver({"IniEingabe"}, "LostFocus", {}));
    EXPECT_TRUE(page.surround.reports().empty());
    EXPECT_TRUE(page.surround.world().log.empty());
}

// Each statement is lost for itself: while no child answers, a procedure reports as often as it asks one of them.
struct Losses {
    const char* name;
    std::function<void(ServoMain&)> before; // while all children answer
    std::function<void(ServoMain&)> call;
    const char* procedure;
    int reports;
};
void PrintTo(const Losses& row, std::ostream* out) { *out << row.name; }

class PageLosses : public LonePage, public ::testing::WithParamInterface<Losses> { };

TEST_P(PageLosses, CostOneStatementEach)
{
    const Losses& row = GetParam();
    page.surround.zustand.AktServo = 2; // key 5 leads to servo 3
    row.before(page.control);
    page.surround.errors.reports.clear();
    page.failing = true;
    row.call(page.control);
    EXPECT_EQ(std::count_if(reports().begin(), reports().end(),
                  [&](const Report& report) { return report.procedure == row.procedure; }),
        row.reports);
}

const auto nothing = [](ServoMain&) {};
const auto definitions = [](ServoMain& m) { m.Fußzeile_TasteClick(4); };
const auto key = [](std::int16_t number) {
    return [number](ServoMain& m) { m.Fußzeile_TasteClick(number); };
};
const auto touch = [](std::int16_t item) {
    return [item](ServoMain& m) { m.Sollwert_MouseDown(item, 1, 0, 0, 0); };
};
const auto touchDefinition = [](std::int16_t item) {
    return [item](ServoMain& m) { definitions(m), touch(item)(m); };
};
const auto maskDone = [](ServoMain& m) { m.Eingabemaske_Eingabefertig(); };
const auto editorDone = [](ServoMain& m) { m.IniEingabe_EingabeFertig(); };

const Losses losses[] = {
    {"building", nothing, [](ServoMain& m) { m.BildInit(1); }, "Ma BildInit Let", 326},
    {"showing", nothing, [](ServoMain& m) { m.BildShow(-1); }, "Ma BildShow Let", 15},
    {"parameter_page", nothing, [](ServoMain& m) { m.SeiteUmschalten(false); }, "Ma SeiteUmschalten", 25},
    {"diagnosis_page", key(10), [](ServoMain& m) { m.SeiteUmschalten(false); }, "Ma SeiteUmschalten", 25},
    {"rows", nothing, [](ServoMain& m) { m.AdressenUmschalten(false); }, "Ma AdressenUmschalten", 214},
    {"rows_and_diagnosis_lines", key(10), [](ServoMain& m) { m.AdressenUmschalten(false); },
        "Ma AdressenUmschalten", 236},
    {"withdrawal", nothing, [](ServoMain& m) { m.FußzeileFreigabe(false); }, "Ma FußzeileFreigabe", 33},
    {"change", nothing, [](ServoMain& m) { m.Eingabemaske_EingabeAenderung(); },
        "Ma Eingabemaske_EingabeAenderung", 6},
    // Per setpoint its switch, its colour and three captions; per switch two; per drawing number three items twice, and
    // a caption.
    {"inputs", nothing, [](ServoMain& m) { m.EingabeDarstellen(false); }, "Ma EingabeDarstellen",
        24 * 5 + 4 * 2 + 2 * 7},
    // Keys; setpoints with their two limits, switches and drawing items of the servo that key 5 leads to.
    {"full_read", key(5), [](ServoMain& m) { m.WerteLesen(false); }, "Ma WerteLesen", 4 + 24 * 3 + 4 + 6},
    {"scrolling", nothing, [](ServoMain& m) { m.ScrollbarAnzeigen(); }, "Ma ScrollbarAnzeigen", 2},
    {"language", nothing, [](ServoMain& m) { m.SpracheGeandert(1); }, "Ma Let SpracheGeandert", 8},
    {"key_5", nothing, key(5), "Ma Fußzeile_TasteClick", 3},
    {"key_31", nothing, key(31), "Ma Fußzeile_TasteClick", 1},
    {"touched_setpoint", nothing, touch(5), "Ma Sollwert_MouseDown", 36},
    {"touched_drawing_item", nothing, touch(45), "Ma Sollwert_MouseDown", 40},
    {"touched_switch", nothing, touch(31), "Ma Sollwert_MouseDown", 2},
    {"definition_of_a_setpoint", definitions, touch(5), "Ma Sollwert_MouseDown", 38},
    {"definition_of_a_drawing_number", definitions, touch(45), "Ma Sollwert_MouseDown", 41},
    {"edited_definition", touchDefinition(5), editorDone, "Ma IniEingabe_EingabeFertig", 5},
    {"edited_drawing_definition", touchDefinition(45), editorDone, "Ma IniEingabe_EingabeFertig", 6},
    {"edited_setpoint", touch(5), maskDone, "Ma Eingabemaske_Eingabefertig", 2},
    {"edited_drawing_item", touch(45), maskDone, "Ma Eingabemaske_Eingabefertig", 4},
};
INSTANTIATE_TEST_SUITE_P(Procedures, PageLosses, ::testing::ValuesIn(losses),
    [](const auto& row) { return std::string{row.param.name}; });

class PageWithoutFooter : public LonePage { };

TEST_F(PageWithoutFooter, KnowsOfAChangeAllTheSame)
{
    page.failing = true;
    page.control.Eingabemaske_EingabeAenderung();
    page.failing = false;
    page.control.Fußzeile_TasteClick(10);
    const Texts written = page.surround.logged("write");
    EXPECT_EQ(std::count(written.begin(), written.end(), variable("_servoaender_")), 1);
}

// What the host lets in while it is asked for something: once, at the first crossing for which `when` holds.
class PageMeanwhile : public LonePage {
protected:
    void during(
        std::function<void()>& crossing, std::function<void()> event,
        std::function<bool()> when = [] { return true; })
    {
        crossing = [this, event, when] {
            if (when() && !std::exchange(came_, true)) event();
        };
    }
    void TearDown() override { EXPECT_TRUE(came_); }
    // How often the setpoints went to the machine.
    std::ptrdiff_t writes() const
    {
        const Texts written = page.surround.logged("write");
        return std::count(written.begin(), written.end(), variable("_servo_para_"));
    }

private:
    bool came_ = false;
};

TEST_F(PageMeanwhile, AConfirmationFindsTheChangeThatIsBeingColoured)
{
    touch(1);
    during(page.fake("SollwertL")->afterPut, [&] { page.control.Fußzeile_TasteClick(10); });
    page.control.Eingabemaske_EingabeAenderung();
    EXPECT_EQ(writes(), 1);
}

TEST_F(PageMeanwhile, TheKeysConfirmAndCancelBeforeTheyAreOffered)
{
    FakeControl& footer = *page.fake("Fußzeile");
    const auto offered = [&] {
        const Crossing& call = footer.crossings.back();
        return call.member.name == "Freigabe" && call.args.front() == basic::Variant{std::uint8_t{10}};
    };
    during(
        footer.afterCall, [&] { page.control.Fußzeile_TasteClick(11); }, offered);
    page.control.Eingabemaske_EingabeAenderung();
    EXPECT_EQ(page.surround.logged("screen"), Texts{});
}

TEST_F(PageMeanwhile, ATouchGoesToTheEditorOnceKey4IsGreen)
{
    during(page.fake("Fußzeile")->afterCall, [&] { touch(1); });
    page.control.Fußzeile_TasteClick(4);
    EXPECT_EQ(puts("IniEingabe", "Visible = True"), 1);
    EXPECT_EQ(puts("Eingabemaske", "Visible = True"), 0);
}

TEST_F(PageMeanwhile, ATouchGoesToTheMaskOnceKey4IsSilver)
{
    page.control.Fußzeile_TasteClick(4);
    during(page.fake("Fußzeile")->afterCall, [&] { touch(1); });
    page.control.Fußzeile_TasteClick(4);
    EXPECT_EQ(puts("IniEingabe", "Visible = True"), 0);
    EXPECT_EQ(puts("Eingabemaske", "Visible = True"), 1);
}

TEST_F(PageMeanwhile, ARefreshLeavesTheSwitchThatIsBeingToggled)
{
    forget("SchalterL");
    during(page.fake("SchalterL")->afterPut, [&] { page.control.Timer_Timer(); });
    touch(31);
    EXPECT_EQ(puts("SchalterL", "Zustand"), 2); // the touch, and the refresh of switch 32
}

TEST_F(PageMeanwhile, ARefreshLeavesTheDrawingNumberThatIsBeingTouched)
{
    forget("ZeichnungL");
    during(page.fake("Pseudo")->afterPut, [&] { page.control.Timer_Timer(); });
    touch(41);
    EXPECT_EQ(puts("ZeichnungL", "Text"), 0);
}

TEST_F(PageMeanwhile, NoConfirmationWritesWhatIsBeingDiscarded)
{
    page.control.Eingabemaske_EingabeAenderung();
    during(page.fake("Fußzeile")->afterCall, [&] { page.control.Fußzeile_TasteClick(10); });
    page.control.Fußzeile_TasteClick(11);
    EXPECT_EQ(writes(), 0);
}

TEST_F(PageMeanwhile, ASecondConfirmationWritesNothingAgain)
{
    page.control.Eingabemaske_EingabeAenderung();
    during(page.fake("Fußzeile")->afterCall, [&] { page.control.Fußzeile_TasteClick(10); });
    page.control.Fußzeile_TasteClick(10);
    EXPECT_EQ(writes(), 1);
}

TEST_F(PageMeanwhile, ATouchFindsNoEditorOnceThePageIsBuiltAnew)
{
    page.control.Fußzeile_TasteClick(4);
    during(page.fake("Eingabemaske")->afterPut, [&] { touch(1); });
    page.control.BildInit(1);
    EXPECT_EQ(puts("IniEingabe", "Visible = True"), 0);
    EXPECT_EQ(puts("Eingabemaske", "Visible = True"), 1);
}

// The next servo is already chosen, but the inputs still show the one before.
TEST_F(PageMeanwhile, NoConfirmationPassesAValueOnToTheNextServo)
{
    page.surround.zustand.ServoNr[2] = 5;
    const std::string next = "Ch1.M1_T_servo_5<.mM1_servo_para_5>";
    const basic::Variant held = basic::doubles({50, 51, 52, 53, 54, 55, 56, 57, 58, 59});
    page.surround.world().variables[next] = held;
    page.control.WerteLesen(true);
    touch(1);
    page.control.Eingabemaske_EingabeAenderung();
    during(
        page.surround.world().accessed, [&] { page.control.Fußzeile_TasteClick(10); },
        [&] { return page.surround.world().log.back().starts_with("profile"); });
    page.control.Fußzeile_TasteClick(6);
    EXPECT_EQ(page.surround.world().variables[next], held);
}

class PageAlone : public LonePage { };

// Its colour could not be set when it was written, for example.
TEST_F(PageAlone, MakesAnInputThatStayedGreenBlackAfterTheEditor)
{
    page.control.Fußzeile_TasteClick(4);
    touch(1);
    page.fake("SollwertL")->properties["VORDERGRUND"] = std::int32_t{32768};
    page.control.IniEingabe_EingabeFertig();
    EXPECT_EQ(page.fake("SollwertL")->properties["VORDERGRUND"], basic::Variant{std::int32_t{0}});
}

TEST_F(PageAlone, ReportsAPositionBeforeTheScrollBarThatHasNone)
{
    page.fake("ScrollBar")->missing = {"POSITION"};
    page.control.ScrollBar_NeuePos(-32768);
    EXPECT_EQ(reports(), (Reports{{6, "Ma ScrollBar_NeuePos"}, {438, "Ma ScrollBar_NeuePos"}}));
}

// As many positions as 16 bits count, while the first one is still being shown.
TEST_F(PageAlone, ReportsThePositionThatCannotBeCountedAnyMore)
{
    bool came = false;
    page.fake("MainBereich")->afterPut = [&] {
        if (std::exchange(came, true)) return;
        const basic::Variant position{std::int16_t{2}};
        for (int i = 0; i < 32767; ++i)
            page.control.deliver({"ScrollBar"}, "NeuePos", {&position, 1});
    };
    page.control.ScrollBar_NeuePos(2);
    EXPECT_EQ(reports(), (Reports{{6, "Ma ScrollbarAnzeigen"}}));
}

// Touched before any value of this servo was read: whatever it shows is not even looked at.
TEST_F(PageAlone, DoesNotAskADrawingNumberThatShowsNothingOfThisServo)
{
    touch(41);
    page.surround.errors.reports.clear();
    page.fake("ZeichnungL")->missing = {"TEXT"};
    page.control.WerteSchreiben();
    std::vector<std::int32_t> numbers;
    for (const Report& report : reports())
        if (report.procedure == "Ma WerteSchreiben") numbers.push_back(report.number);
    EXPECT_EQ(numbers, std::vector<std::int32_t>{13});
}

// As when the inputs refused their colour while the page was switched.
TEST_F(PageAlone, ColoursTheInputsOnceMoreWhenItIsShown)
{
    const basic::Variant green{std::int32_t{32768}};
    FakeControl& input = *page.fake("SollwertL");
    input.properties["VORDERGRUND"] = green;
    int refused = 0;
    input.afterPut = [&] {
        if (input.crossings.back().member.name != "Vordergrund" || refused == 12) return;
        ++refused;
        input.properties["VORDERGRUND"] = green;
    };
    page.control.BildShow(-1);
    EXPECT_EQ(refused, 12); // inputs of the left half
    EXPECT_EQ(input.properties["VORDERGRUND"], basic::Variant{std::int32_t{0}});
}

} // namespace servopanel::testing
