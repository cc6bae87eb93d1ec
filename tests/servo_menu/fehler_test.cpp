#include "platform/ids.h"
#include "servo_menu/servo_menu.h"
#include "support/lone.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>
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

} // namespace servopanel::testing
