#include "display/fehler_anzeige.h"
#include "support/fakes.h"

#include <gtest/gtest.h>

#include <memory>
#include <string_view>

namespace {

using namespace servopanel;
using servopanel::testing::Reports;

class Display final : public platform::ErrorDisplay {
public:
    void ErrMessage(std::int32_t, std::string_view, std::string_view, std::string_view) override { }
    void CloseMe() override
    {
        ++closings;
        if (fails) basic::raise(basic::ErrorNumber::ObjectNotSet);
    }
    int closings = 0;
    bool fails = false;
};

struct FehlerAnzeigeSchliessen : ::testing::Test {
    std::shared_ptr<Display> anzeige = std::make_shared<Display>();
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
