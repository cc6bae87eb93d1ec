#include "display/mglobal.h"
#include "support/fakes.h"

#include <gtest/gtest.h>

namespace {

using namespace servopanel;
using servopanel::testing::Reports;
using servopanel::testing::Surround;

TEST(HoleOCXNamen, GivesTheNameOfTheLibrary)
{
    Surround surround;
    display::MGlobal global{surround.umfeld};
    EXPECT_EQ(global.HoleOCXNamen(), "Servo");
}

TEST(HoleOCXNamen, ReportsAFailure)
{
    Surround surround;
    display::MGlobal global{surround.umfeld};
    surround.world().fail("libraryName");
    EXPECT_EQ(global.HoleOCXNamen(), "");
    EXPECT_EQ(surround.reports(), (Reports{{1000, "HoleOCXNamen"}}));
}

} // namespace
