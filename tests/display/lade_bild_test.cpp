#include "display/mglobal.h"
#include "support/fakes.h"

#include <gtest/gtest.h>

#include <memory>

namespace {

using namespace servopanel;
using servopanel::testing::Surround;
using servopanel::testing::Texts;

struct LadeBild : ::testing::Test {
    Surround surround;
    display::MGlobal global{surround.umfeld};
};

TEST_F(LadeBild, GivesThePictureOfTheResolvedFile)
{
    const auto bild = std::make_shared<basic::Object>();
    surround.world().pictures["P:\\Servo\\a.bmp"] = bild;
    EXPECT_EQ(global.LadeBild("Servo\\a.bmp"), bild);
    EXPECT_TRUE(surround.platform.shown.empty());
}

TEST_F(LadeBild, ShowsItsOwnMessageOncePerCallAndReportsNothing)
{
    EXPECT_EQ(global.LadeBild("Servo\\a.bmp"), nullptr);
    EXPECT_EQ(surround.platform.shown, Texts{"Picture 'P:\\Servo\\a.bmp' can not be loaded !"});
    EXPECT_EQ(global.LadeBild("Servo\\a.bmp"), nullptr);
    EXPECT_EQ(surround.platform.shown.size(), 2U);
    EXPECT_TRUE(surround.reports().empty());
}

TEST_F(LadeBild, ResolvesTheNameAgainForTheMessage)
{
    surround.world().fail("path a.bmp", 1);
    EXPECT_EQ(global.LadeBild("a.bmp"), nullptr);
    EXPECT_EQ(surround.platform.shown, Texts{"Picture 'P:\\a.bmp' can not be loaded !"});
    EXPECT_TRUE(surround.logged("picture").empty());
    EXPECT_TRUE(surround.reports().empty());
}

TEST_F(LadeBild, TellsAboutAPictureWithoutAPathToo)
{
    surround.world().fail("create PathHelper");
    EXPECT_EQ(global.LadeBild("a.bmp"), nullptr);
    EXPECT_EQ(surround.platform.shown, Texts{"Picture '' can not be loaded !"});
    EXPECT_TRUE(surround.reports().empty());
}

TEST_F(LadeBild, StaysSilentWhenEvenTheMessageFails)
{
    surround.world().fail("message");
    EXPECT_EQ(global.LadeBild("a.bmp"), nullptr);
    EXPECT_TRUE(surround.reports().empty());
}

} // namespace
