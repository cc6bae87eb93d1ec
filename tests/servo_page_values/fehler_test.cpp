#include "platform/ids.h"
#include "servo_page/servo_main.h"
#include "servo_page_values/lone_page.h"
#include "support/lone.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
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
    page.control.deliver({"IniEingabe"}, "LostFocus", {});
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
    {"withdrawal", nothing, [](ServoMain& m) { m.FußzeileFreigabe(false); }, "Ma FußzeileFreigabe", 33},
    {"change", nothing, [](ServoMain& m) { m.Eingabemaske_EingabeAenderung(); },
        "Ma Eingabemaske_EingabeAenderung", 7},
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

} // namespace servopanel::testing
