#include "display/mglobal.h"
#include "support/fakes.h"

#include <gtest/gtest.h>

namespace {

using namespace servopanel;
using servopanel::platform::EnvironmentValue;
using servopanel::testing::Reports;
using servopanel::testing::Surround;

struct GetDOSEnvironmentVariable : ::testing::Test {
    Surround surround;
    display::MGlobal global{surround.umfeld};
};

TEST_F(GetDOSEnvironmentVariable, GivesTheValue)
{
    surround.world().environment["TEMPVELM"] = {EnvironmentValue::State::Present, "D:\\Scratch"};
    EXPECT_EQ(global.GetDOSEnvironmentVariable("TEMPVELM"), "D:\\Scratch");
}

TEST_F(GetDOSEnvironmentVariable, IsEmptyWhenThereIsNone)
{
    EXPECT_EQ(global.GetDOSEnvironmentVariable("TEMPVELM"), "");
    EXPECT_TRUE(surround.reports().empty());
}

TEST_F(GetDOSEnvironmentVariable, IsBlankWhenTheValueIsTooLong)
{
    surround.world().environment["TEMPVELM"] = {EnvironmentValue::State::TooLong, {}};
    EXPECT_EQ(global.GetDOSEnvironmentVariable("TEMPVELM"), std::string(4096, ' '));
}

TEST_F(GetDOSEnvironmentVariable, ReportsAFailure)
{
    surround.world().fail("environment TEMPVELM");
    EXPECT_EQ(global.GetDOSEnvironmentVariable("TEMPVELM"), "");
    EXPECT_EQ(surround.reports(), (Reports{{1000, "GetDOSEnvironmentVariable"}}));
}

} // namespace
