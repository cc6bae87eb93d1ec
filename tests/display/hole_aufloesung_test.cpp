#include "display/mglobal.h"
#include "support/fakes.h"

#include <gtest/gtest.h>

namespace {

using namespace servopanel;
using servopanel::testing::Reports;
using servopanel::testing::Surround;
using servopanel::testing::Texts;

struct HoleAufloesung : ::testing::Test {
    Surround surround;
    display::MGlobal global{surround.umfeld};
    display::GemeinsamerZustand& zustand = surround.zustand;

    HoleAufloesung() { panel(1280); }
    void panel(std::int16_t breite)
    {
        surround.world().variables["parameter<.aufloesung>"] = breite;
        surround.world().variables["Ch-1.param_client<.arabisch>"] = false;
    }
};

TEST_F(HoleAufloesung, ScalesThe1024Panel)
{
    panel(1024);
    global.HoleAufloesung(1280);
    EXPECT_EQ(zustand.Aufloesung, 1024);
    EXPECT_EQ(zustand.AufloesungText, "1024");
    EXPECT_EQ(zustand.FaktorX, 0.8F);
    EXPECT_EQ(zustand.FaktorY, 0.75F);
    EXPECT_TRUE(surround.reports().empty());
}

TEST_F(HoleAufloesung, ScalesThe800Panel)
{
    panel(800);
    global.HoleAufloesung(1280);
    EXPECT_EQ(zustand.Aufloesung, 800);
    EXPECT_EQ(zustand.FaktorX, 0.625F);
    EXPECT_EQ(zustand.FaktorY, 0.5859375F);
}

TEST_F(HoleAufloesung, TakesTheDesignsWidthForPanelsOutsideItsRange)
{
    for (std::int16_t breite : {std::int16_t{1600}, std::int16_t{640}, std::int16_t{799}, std::int16_t{-1}}) {
        panel(breite);
        global.HoleAufloesung(1280);
        EXPECT_EQ(zustand.Aufloesung, 1280) << breite;
        EXPECT_EQ(zustand.AufloesungText, "1280") << breite;
        EXPECT_EQ(zustand.FaktorX, 1.0F) << breite;
        EXPECT_EQ(zustand.FaktorY, 1.0F) << breite;
    }
}

TEST_F(HoleAufloesung, LeavesTheVerticalFactorForWidthsThatNoPanelHas)
{
    panel(900);
    global.HoleAufloesung(1280);
    EXPECT_EQ(zustand.Aufloesung, 900);
    EXPECT_EQ(zustand.AufloesungText, "900");
    EXPECT_EQ(zustand.FaktorX, 0.703125F);
    EXPECT_EQ(zustand.FaktorY, 0.0F);

    panel(1024);
    global.HoleAufloesung(1280);
    panel(900);
    global.HoleAufloesung(1280);
    EXPECT_EQ(zustand.FaktorY, 0.75F);
    EXPECT_TRUE(surround.reports().empty());
}

TEST_F(HoleAufloesung, ScalesDesignsOfSmallerPanels)
{
    panel(800);
    global.HoleAufloesung(1024);
    EXPECT_EQ(zustand.FaktorX, 0.78125F);
    EXPECT_EQ(zustand.FaktorY, 0.78125F);
    global.HoleAufloesung(800);
    EXPECT_EQ(zustand.FaktorX, 1.0F);
    EXPECT_EQ(zustand.FaktorY, 1.0F);
}

TEST_F(HoleAufloesung, ReportsADesignThatNoPanelHas)
{
    panel(800);
    global.HoleAufloesung(1000);
    EXPECT_EQ(zustand.FaktorX, 0.8F);
    EXPECT_EQ(zustand.FaktorY, 0.0F);
    EXPECT_EQ(surround.reports(), (Reports{{11, "HoleAufloesung"}}));
}

TEST_F(HoleAufloesung, HasNoFactorsForADesignWithoutWidth)
{
    panel(800);
    global.HoleAufloesung(0);
    EXPECT_EQ(zustand.Aufloesung, 0);
    EXPECT_EQ(zustand.FaktorX, 0.0F);
    EXPECT_EQ(zustand.FaktorY, 0.0F);
    EXPECT_EQ(surround.reports(), (Reports{{6, "HoleAufloesung"}}));
}

TEST_F(HoleAufloesung, HasNoPixelsWhileTheScreenIsUnknown)
{
    surround.world().fail("twipsPerPixelX");
    surround.world().fail("twipsPerPixelY");
    global.HoleAufloesung(1280);
    EXPECT_EQ(zustand.TwipsProPixelX, 0.0F);
    EXPECT_EQ(zustand.TwipsProPixelY, 0.0F);
}

TEST_F(HoleAufloesung, KeepsTheWidthWhenItCannotBeRead)
{
    panel(1024);
    global.HoleAufloesung(1280);
    surround.world().fail("read parameter<.aufloesung>");
    global.HoleAufloesung(1280);
    EXPECT_EQ(zustand.Aufloesung, 1024);
    EXPECT_EQ(surround.reports(), (Reports{{1000, "HoleAufloesung"}}));
}

TEST_F(HoleAufloesung, TakesTheDesignsWidthWhenTheFirstReadingFails)
{
    surround.world().variables["parameter<.aufloesung>"] = "wide";
    global.HoleAufloesung(1280);
    EXPECT_EQ(zustand.Aufloesung, 1280);
    EXPECT_EQ(surround.reports(), (Reports{{13, "HoleAufloesung"}}));
}

TEST_F(HoleAufloesung, TakesThePixelsOfTheScreen)
{
    surround.world().twipsPerPixelX = 12;
    surround.world().twipsPerPixelY = 11.25F;
    global.HoleAufloesung(1280);
    EXPECT_EQ(zustand.TwipsProPixelX, 12.0F);
    EXPECT_EQ(zustand.TwipsProPixelY, 11.25F);
    surround.world().fail("twipsPerPixelX");
    surround.world().twipsPerPixelY = 15;
    global.HoleAufloesung(1280);
    EXPECT_EQ(zustand.TwipsProPixelX, 12.0F);
    EXPECT_EQ(zustand.TwipsProPixelY, 15.0F);
}

TEST_F(HoleAufloesung, TakesTheDirectionOfReading)
{
    surround.world().variables["Ch-1.param_client<.arabisch>"] = std::int16_t{1};
    global.HoleAufloesung(1280);
    EXPECT_TRUE(zustand.Arabisch);
    surround.world().variables["Ch-1.param_client<.arabisch>"] = "right";
    global.HoleAufloesung(1280);
    EXPECT_TRUE(zustand.Arabisch);
    EXPECT_EQ(surround.reports(), (Reports{{13, "HoleAufloesung"}}));
}

TEST_F(HoleAufloesung, AsksInOrder)
{
    global.HoleAufloesung(1280);
    EXPECT_EQ(surround.world().log,
        (Texts{"create ProcessVarAccess", "read parameter<.aufloesung>", "twipsPerPixelX", "twipsPerPixelY",
            "read Ch-1.param_client<.arabisch>"}));
}

TEST_F(HoleAufloesung, ReportsInTheOrderOfItsSteps)
{
    surround.world().fail("twipsPerPixelY");
    global.HoleAufloesung(0);
    EXPECT_EQ(surround.reports(), (Reports{{1000, "HoleAufloesung"}, {6, "HoleAufloesung"}}));
}

TEST_F(HoleAufloesung, NamesPicturesByTheWidthFromThenOn)
{
    std::string meanwhile;
    surround.world().accessed = [&] {
        if (surround.world().log.back() == "twipsPerPixelX") meanwhile = zustand.AufloesungText;
    };
    global.HoleAufloesung(1280);
    EXPECT_EQ(meanwhile, "1280");
}

} // namespace
