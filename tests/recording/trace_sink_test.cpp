#include "recording/trace/trace_sink.h"

#include <gtest/gtest.h>

#include <optional>
#include <string>

namespace {

using servopanel::recording::TraceSink;

struct TraceSinkTest : ::testing::Test {
    std::string written;
    TraceSink sink{[this](std::string_view lines) { written += lines; }};
};

TEST_F(TraceSinkTest, HandsALineOnAtOnce)
{
    sink.line("pump");
    EXPECT_EQ(written, "pump\n");
}

TEST_F(TraceSinkTest, KeepsTheLinesBehindAnOpenOneBack)
{
    {
        TraceSink::Slot slot = sink.open("read A failed");
        sink.line("pump");
        EXPECT_EQ(written, "");
        slot.complete("read A = 1");
        EXPECT_EQ(written, "");
    }
    EXPECT_EQ(written, "read A = 1\npump\n");
}

TEST_F(TraceSinkTest, LeavesTheUnfinishedTextWhereNothingCompletedIt)
{
    try {
        TraceSink::Slot slot = sink.open("read A failed");
        throw 1;
    } catch (int) {
        sink.line("error");
    }
    EXPECT_EQ(written, "read A failed\nerror\n");
}

TEST_F(TraceSinkTest, OrdersNestedAccessesByTheirBeginning)
{
    {
        TraceSink::Slot outer = sink.open("outer failed");
        {
            TraceSink::Slot inner = sink.open("inner failed");
            sink.line("innermost");
            inner.complete("inner");
        }
        EXPECT_EQ(written, "");
        outer.complete("outer");
    }
    EXPECT_EQ(written, "outer\ninner\ninnermost\n");
}

TEST_F(TraceSinkTest, HandsOnWhatStandsBeforeAnOpenLine)
{
    sink.line("first");
    TraceSink::Slot slot = sink.open("second");
    sink.line("third");
    EXPECT_EQ(written, "first\n");
}

TEST_F(TraceSinkTest, FindsItsPlaceAgainAfterEarlierLinesWereHandedOn)
{
    for (int i = 0; i < 3; ++i) {
        std::optional<TraceSink::Slot> slot;
        slot.emplace(sink, "failed");
        sink.line("inside");
        slot->complete("done");
        slot.reset();
    }
    EXPECT_EQ(written, "done\ninside\ndone\ninside\ndone\ninside\n");
}

} // namespace
