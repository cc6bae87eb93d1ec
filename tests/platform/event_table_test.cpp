#include "platform/event_table.h"
#include "support/error_number.h"

#include <gtest/gtest.h>

namespace {

using namespace servopanel;
using namespace servopanel::platform;
using servopanel::testing::errorNumber;

struct Counter {
    int calls = 0;
};

const EventRow<Counter> rows[]{
    {"", "MouseDown", [](Counter& counter, std::int16_t, Args) { counter.calls += 1; }},
    {"Timer", "Timer", [](Counter& counter, std::int16_t, Args) { counter.calls += 10; }},
    {"Taste", "Click",
        [](Counter& counter, std::int16_t index, Args args) { counter.calls += index + number(args, 0); }},
};

TEST(FindEvent, FindsChildAndEventExactly)
{
    ASSERT_EQ(findEvent<Counter>(rows, "Timer", "Timer"), &rows[1]);
    ASSERT_EQ(findEvent<Counter>(rows, "", "MouseDown"), &rows[0]);
    EXPECT_EQ(findEvent<Counter>(rows, "timer", "Timer"), nullptr);
    EXPECT_EQ(findEvent<Counter>(rows, "Timer", "MouseDown"), nullptr);
    EXPECT_EQ(findEvent<Counter>({}, "Timer", "Timer"), nullptr);
}

TEST(FindEvent, PassesIndexAndArgumentsOn)
{
    Counter counter;
    const basic::Variant args[]{std::int16_t{5}};
    findEvent<Counter>(rows, "Taste", "Click")->handle(counter, 100, Args{args});
    EXPECT_EQ(counter.calls, 105);
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
