#include "panel/form/event_gate.h"

#include "event_turns.h"

#include <gtest/gtest.h>

using servopanel::panel::EventGate;
using servopanel::testing::letEventsPass;

TEST(EventGate, DoesATaskFromTheEventLoop)
{
    EventGate gate;
    bool done = false;
    gate.later([&] { done = true; });
    EXPECT_FALSE(done);
    letEventsPass();
    EXPECT_TRUE(done);
}

TEST(EventGate, WaitsUntilNoProcedureRuns)
{
    EventGate gate;
    bool done = false;
    {
        const EventGate::Entry outer{gate};
        gate.later([&] { done = true; });
        {
            // A procedure that lets events run meanwhile.
            const EventGate::Entry inner{gate};
            letEventsPass();
        }
        letEventsPass();
        EXPECT_FALSE(done);
        EXPECT_TRUE(gate.isBusy());
    }
    letEventsPass();
    EXPECT_TRUE(done);
}

TEST(EventGate, ATaskMayAskForAnother)
{
    EventGate gate;
    int count = 0;
    gate.later([&] {
        ++count;
        gate.later([&] { ++count; });
    });
    letEventsPass();
    EXPECT_EQ(count, 2);
}

TEST(EventGate, IsClosedWhileAMessageIsOpen)
{
    EventGate gate;
    gate.close();
    gate.close();
    gate.open();
    EXPECT_TRUE(gate.isClosed());
    gate.open();
    EXPECT_FALSE(gate.isClosed());
}
