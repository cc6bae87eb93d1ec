#include "display/mglobal.h"
#include "support/fakes.h"

#include <gtest/gtest.h>

namespace {

using namespace servopanel;
using servopanel::testing::Reports;
using servopanel::testing::Surround;
using servopanel::testing::Texts;

struct HoleDateiNamen : ::testing::Test {
    Surround surround;
    display::MGlobal global{surround.umfeld};
};

TEST_F(HoleDateiNamen, GivesTheFullPathOfAFileThatExists)
{
    surround.world().existing.insert("P:\\Servo\\Servo.mdb");
    EXPECT_EQ(global.HoleDateiNamen("Servo\\Servo.mdb"), "P:\\Servo\\Servo.mdb");
    EXPECT_TRUE(surround.platform.shown.empty());
    EXPECT_EQ(surround.world().log,
        (Texts{"create PathHelper", "path Servo\\Servo.mdb", "exists P:\\Servo\\Servo.mdb"}));
}

TEST_F(HoleDateiNamen, TellsTheOperatorAboutAMissingFile)
{
    EXPECT_EQ(global.HoleDateiNamen("Servo\\Servo.mdb"), "");
    EXPECT_EQ(surround.platform.shown, Texts{"File 'P:\\Servo\\Servo.mdb' can not be loaded !"});
    EXPECT_TRUE(surround.reports().empty());
}

TEST_F(HoleDateiNamen, SaysNothingAboutAFileWhenTheSearchFails)
{
    surround.world().existing.insert("P:\\a");
    surround.world().fail("exists P:\\a");
    EXPECT_EQ(global.HoleDateiNamen("a"), "");
    EXPECT_TRUE(surround.platform.shown.empty());
    EXPECT_EQ(surround.reports(), (Reports{{1000, "HoleDateiNamen"}}));
}

TEST_F(HoleDateiNamen, ReportsThatThereAreNoPathsAndGoesOn)
{
    surround.world().fail("create PathHelper", 1);
    EXPECT_EQ(global.HoleDateiNamen("a"), "");
    EXPECT_EQ(surround.platform.shown, Texts{"File '' can not be loaded !"});
    EXPECT_EQ(surround.reports(), (Reports{{1000, "HoleDateiNamen"}}));

    surround.world().existing.insert("P:\\a");
    EXPECT_EQ(global.HoleDateiNamen("a"), "P:\\a");
}

TEST_F(HoleDateiNamen, ReportsAFailingMessage)
{
    surround.world().fail("message");
    EXPECT_EQ(global.HoleDateiNamen("a"), "");
    EXPECT_EQ(surround.reports(), (Reports{{1000, "HoleDateiNamen"}}));
}

} // namespace
