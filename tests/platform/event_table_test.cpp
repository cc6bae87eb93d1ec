#include "platform/event_table.h"
#include "support/error_number.h"
#include "support/fakes.h"

#include <gtest/gtest.h>

namespace {

using namespace servopanel;
using namespace servopanel::platform;
using servopanel::testing::errorNumber;

struct Counter {
    int calls = 0;
};

const EventRow<Counter> rows[]{
    {"", "MouseDown", "Down", [](Counter& counter, std::int16_t, Args) { counter.calls += 1; }},
    {"Timer", "Timer", "Timer_Timer", [](Counter& counter, std::int16_t, Args) { counter.calls += 10; }},
    {"Taste", "Click", "Taste_Click",
        [](Counter& counter, std::int16_t index, Args args) { counter.calls += index + number(args, 0); }},
};

struct DeliverEvent : ::testing::Test {
    Counter counter;
    servopanel::testing::ErrorList errors;

    bool deliver(ChildId child, std::string_view event, Args args = {})
    {
        return deliverEvent(std::span<const EventRow<Counter>>{rows}, counter, errors, child, event, args);
    }
};

TEST_F(DeliverEvent, FindsChildAndEventExactly)
{
    EXPECT_TRUE(deliver({"Timer"}, "Timer"));
    EXPECT_TRUE(deliver({}, "MouseDown"));
    EXPECT_FALSE(deliver({"timer"}, "Timer"));
    EXPECT_FALSE(deliver({"Timer"}, "MouseDown"));
    EXPECT_EQ(counter.calls, 11);
}

TEST_F(DeliverEvent, PassesIndexAndArgumentsOn)
{
    const basic::Variant args[]{std::int16_t{5}};
    EXPECT_TRUE(deliver({"Taste", 100}, "Click", args));
    EXPECT_EQ(counter.calls, 105);
}

TEST_F(DeliverEvent, ReportsAnArgumentThatIsMissingUnderTheHandlersName)
{
    EXPECT_TRUE(deliver({"Taste", 100}, "Click"));
    EXPECT_EQ(counter.calls, 0);
    EXPECT_EQ(errors.reports, (servopanel::testing::Reports{{9, "Taste_Click"}}));
}

TEST(EventArguments, ConvertAndFailLikeAnyValue)
{
    const basic::Variant args[]{2.5, "15", "far"};
    EXPECT_EQ(number(args, 0), 2);
    EXPECT_EQ(twips(args, 0), 2.5F);
    EXPECT_EQ(twips(args, 1), 15.0F);
    EXPECT_EQ(errorNumber([&] { return number(args, 2); }), 13);
    EXPECT_EQ(errorNumber([&] { return number(args, 3); }), 9);
    EXPECT_EQ(errorNumber([&] { return argument({}, 0).type(); }), 9);
}

} // namespace
