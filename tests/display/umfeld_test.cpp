#include "display/umfeld.h"
#include "support/error_number.h"
#include "support/fakes.h"

#include <gtest/gtest.h>

namespace {

using namespace servopanel;
using servopanel::testing::errorNumber;
using servopanel::testing::Surround;
using servopanel::testing::Texts;

TEST(Umfeld, MakesEachObjectOnce)
{
    Surround surround;
    EXPECT_EQ(&display::processVarAccess(surround.umfeld), &display::processVarAccess(surround.umfeld));
    EXPECT_EQ(&display::pathHelper(surround.umfeld), &display::pathHelper(surround.umfeld));
    EXPECT_EQ(&display::dbEngine(surround.umfeld), &display::dbEngine(surround.umfeld));
    EXPECT_EQ(surround.logged("create"), (Texts{"ProcessVarAccess", "PathHelper", "DBEngine"}));
}

TEST(Umfeld, TriesAgainAfterAFailure)
{
    Surround surround;
    surround.world().fail("create DBEngine", 1);
    EXPECT_EQ(errorNumber([&] { return &display::dbEngine(surround.umfeld); }), 1000);
    EXPECT_EQ(errorNumber([&] { return &display::dbEngine(surround.umfeld); }), 0);
}

// A host that hands out nothing at all is treated like one that failed.
TEST(Umfeld, ReportsAnObjectThatThereIsNot)
{
    Surround surround;
    surround.platform.withoutObjects = true;
    EXPECT_EQ(errorNumber([&] { return &display::processVarAccess(surround.umfeld); }), 91);
    EXPECT_EQ(errorNumber([&] { return &display::pathHelper(surround.umfeld); }), 91);
    EXPECT_EQ(errorNumber([&] { return &display::dbEngine(surround.umfeld); }), 91);
}

TEST(Umfeld, ReadsAndWritesProcessVariables)
{
    Surround surround;
    display::WriteValue(surround.umfeld, "Ch-1.intern<.ocxname>", "Servo");
    EXPECT_EQ(display::ReadValue(surround.umfeld, "Ch-1.intern<.ocxname>"), basic::Variant{"Servo"});
    EXPECT_EQ(errorNumber([&] { return display::ReadValue(surround.umfeld, "unknown"); }), 1001);
}

// Whichever control of the library is made first finds it so.
TEST(GemeinsamerZustand, IsZeroFalseOrEmptyBeforeTheStartUp)
{
    const display::GemeinsamerZustand zustand;
    EXPECT_EQ(zustand.AktuelleMaschine, 0);
    EXPECT_EQ(zustand.MaschinenBez, "");
    EXPECT_EQ(zustand.ServoAnzahl, 0);
    EXPECT_EQ(zustand.AktServo, 0);
    EXPECT_FALSE(zustand.MitMenu);
    EXPECT_FALSE(zustand.MitStoerung);
    EXPECT_FALSE(zustand.MitMaschinenTyp);
    EXPECT_EQ(zustand.MaschinenPrefix, "");
    EXPECT_EQ(zustand.PasswortStufe, 0);
    EXPECT_EQ(zustand.SchriftStufe, 0);
    EXPECT_EQ(zustand.Aufloesung, 0);
    EXPECT_EQ(zustand.AufloesungText, "");
    EXPECT_EQ(zustand.FaktorX, 0.0F);
    EXPECT_EQ(zustand.FaktorY, 0.0F);
    EXPECT_EQ(zustand.TwipsProPixelX, 0.0F);
    EXPECT_EQ(zustand.TwipsProPixelY, 0.0F);
    EXPECT_FALSE(zustand.Arabisch);
    EXPECT_EQ(zustand.FehlerAnzahl, 0);
}

} // namespace
