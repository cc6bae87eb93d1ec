#include "platform/ids.h"
#include "servo_page/servo_main.h"
#include "support/lone.h"

#include <gtest/gtest.h>

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
        {"Ma SollwertL_MouseDown",
            [](auto& m) {
                m.deliver({"SollwertL", 1}, "MouseDown", {});
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

} // namespace servopanel::testing
