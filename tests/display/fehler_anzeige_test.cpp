#include "display/fehler_anzeige.h"
#include "support/fakes.h"

#include <gtest/gtest.h>

#include <memory>

namespace {

using namespace servopanel;
using servopanel::testing::FakeErrorDisplay;
using servopanel::testing::Reports;

struct FehlerAnzeigeSchliessen : ::testing::Test {
    std::shared_ptr<FakeErrorDisplay> anzeige = std::make_shared<FakeErrorDisplay>();
    display::GemeinsamerZustand zustand;
    servopanel::testing::ErrorList errors;
    basic::StatementTrap trap{errors, "Terminate"};

    FehlerAnzeigeSchliessen()
    {
        zustand.FehlerAnzeige = anzeige;
        zustand.FehlerAnzahl = 2;
    }
};

TEST_F(FehlerAnzeigeSchliessen, ClosesOnceAndLetsGo)
{
    display::fehlerAnzeigeSchliessen(trap, zustand);
    display::fehlerAnzeigeSchliessen(trap, zustand);
    EXPECT_EQ(anzeige->closings, 1);
    EXPECT_EQ(zustand.FehlerAnzeige, nullptr);
}

TEST_F(FehlerAnzeigeSchliessen, KeepsTheCount)
{
    display::fehlerAnzeigeSchliessen(trap, zustand);
    EXPECT_EQ(zustand.FehlerAnzahl, 2);
}

TEST_F(FehlerAnzeigeSchliessen, LeavesADisplayThatGotNoReport)
{
    zustand.FehlerAnzahl = 0;
    display::fehlerAnzeigeSchliessen(trap, zustand);
    EXPECT_EQ(anzeige->closings, 0);
    EXPECT_EQ(zustand.FehlerAnzeige, anzeige);
}

TEST_F(FehlerAnzeigeSchliessen, AsksADisplayThatFailsOnlyOnce)
{
    anzeige->fails = true;
    display::fehlerAnzeigeSchliessen(trap, zustand);
    display::fehlerAnzeigeSchliessen(trap, zustand);
    EXPECT_EQ(anzeige->closings, 1);
    EXPECT_EQ(zustand.FehlerAnzeige, nullptr);
    EXPECT_EQ(errors.reports, (Reports{{91, "Terminate"}}));
}

} // namespace
