#include "display/mglobal.h"
#include "support/fakes.h"

#include <gtest/gtest.h>

#include <memory>

namespace {

using namespace servopanel;
using servopanel::testing::Reports;
using servopanel::testing::Surround;
using servopanel::testing::Texts;

struct BildLaden : ::testing::Test {
    Surround surround;
    display::MGlobal global{surround.umfeld};
    display::BildSpeicher& speicher = surround.zustand.ladeBilder;

    BildLaden() { surround.zustand.AufloesungText = "1280"; }
};

TEST_F(BildLaden, FillsTheSlotOfTheServo)
{
    const auto bild = std::make_shared<basic::Object>();
    surround.world().pictures["P:\\Servo\\Servo_3_1280.gif"] = bild;
    global.BildLaden("Servo", 3, 1);
    EXPECT_EQ(speicher.bild[3], bild);
    EXPECT_EQ(speicher.geladen[3], display::wahr);
    EXPECT_EQ(speicher.geladen[4], display::falsch);
    EXPECT_EQ(surround.zustand.menüBilder.geladen[3], display::falsch);
}

TEST_F(BildLaden, NamesVariantsFrom2On)
{
    surround.zustand.MaschinenPrefix = "M1_";
    global.BildLaden("Servo", 3, 2);
    global.BildLaden("Servo", 3, 1);
    global.BildLaden("Servo", 3, 0);
    EXPECT_EQ(surround.logged("picture"),
        (Texts{"P:\\Servo\\Servo_M1_3_2_1280.gif", "P:\\Servo\\Servo_M1_3_1280.gif",
            "P:\\Servo\\Servo_M1_3_1280.gif"}));
}

TEST_F(BildLaden, CountsAMissingPictureAsLoaded)
{
    speicher.bild[3] = std::make_shared<basic::Object>();
    global.BildLaden("Servo", 3, 1);
    EXPECT_EQ(speicher.bild[3], nullptr);
    EXPECT_EQ(speicher.geladen[3], display::wahr);
    EXPECT_EQ(surround.platform.shown.size(), 1U);
    EXPECT_TRUE(surround.reports().empty());
}

TEST_F(BildLaden, ReadsNoFileForAServoWithoutASlot)
{
    global.BildLaden("Servo", 0, 1);
    global.BildLaden("Servo", 51, 1);
    EXPECT_TRUE(surround.world().log.empty());
    EXPECT_EQ(surround.reports(),
        (Reports{{9, "BildLaden"}, {9, "BildLaden"}, {9, "BildLaden"}, {9, "BildLaden"}}));
}

// Loading may let events in, and they must not take the empty slot for the picture.
TEST_F(BildLaden, CountsAPictureAsLoadedOnceItIs)
{
    std::int16_t meanwhile = display::wahr;
    surround.platform.loading = [&] { meanwhile = speicher.geladen[3]; };
    global.BildLaden("Servo", 3, 1);
    EXPECT_EQ(meanwhile, display::falsch);
    EXPECT_EQ(speicher.geladen[3], display::wahr);
}

} // namespace
