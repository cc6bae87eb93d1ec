#include "panel/form/event_gate.h"

#include <gtest/gtest.h>

#include <QTest>

using servopanel::panel::EventGate;

TEST(EventGate, DoesATaskFromTheEventLoop)
{
    EventGate gate;
    bool done = false;
    gate.later([&] { done = true; });
    EXPECT_FALSE(done);
    QTest::qWait(10);
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
            QTest::qWait(10);
        }
        QTest::qWait(10);
        EXPECT_FALSE(done);
        EXPECT_TRUE(gate.isBusy());
    }
    QTest::qWait(10);
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
    QTest::qWait(20);
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
