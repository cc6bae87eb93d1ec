#include "line_machine/command_check.h"

#include "mqtt/value_coding.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <limits>
#include <string>
#include <vector>

namespace servopanel::line_machine {

namespace {

using basic::Variant;
using mqtt::Outcome;

// One writable variable "x" and a command that wants it.
struct Case {
    explicit Case(const Variant& held)
    {
        store.declare("x", held);
        variable.name = "x";
        variable.type = machine::typeOf(held);
        variable.writable = true;
        if (const auto* const array = held.get<basic::Array>()) variable.length = array->elements.size();
    }
    Verdict judged(const Variant& old, const Variant& wanted, std::int16_t level)
    {
        const mqtt::Command command{"1", 1, 100, level, "x", mqtt::toJson(old), mqtt::toJson(wanted)};
        return judge(command, {mqtt::Description{{variable}}, store, 1, 0});
    }
    Outcome outcome(const Variant& old, const Variant& wanted, std::int16_t level)
    {
        return judged(old, wanted, level).outcome;
    }

    machine::VariableStore store;
    mqtt::VariableDescription variable;
};

Variant whole(std::int16_t value) { return Variant{value}; }

} // namespace

TEST(CommandCheck, ASignalIsJudgedWhateverItHeldBefore)
{
    Case signal{whole(0)};
    signal.variable.signal = true;
    signal.variable.levels = {4};
    signal.variable.most = 10.0;
    for (const auto old : {std::int16_t{0}, std::int16_t{99}}) {
        EXPECT_EQ(signal.outcome(whole(old), whole(99), 0), Outcome::LevelTooLow) << old;
        EXPECT_EQ(signal.outcome(whole(old), whole(99), 4), Outcome::OutOfRange) << old;
        EXPECT_EQ(signal.outcome(whole(old), whole(9), 4), Outcome::Done) << old;
    }
    signal.variable.levels = {0, 4};
    EXPECT_EQ(signal.outcome(whole(2), whole(2), 3), Outcome::LevelTooLow);
    EXPECT_EQ(signal.outcome(whole(2), whole(1), 3), Outcome::Done);
}

TEST(CommandCheck, NothingIsWithinALimitThatIsNotANumber)
{
    const double unknown = std::nan("");
    const double none = std::numeric_limits<double>::infinity();
    Case number{basic::doubles({5})};
    number.variable.least = "least";
    number.variable.most = "most";
    const auto outcome = [&](double least, double most) {
        number.store.declare("least", basic::doubles({least}));
        number.store.declare("most", basic::doubles({most}));
        return number.outcome(basic::doubles({5}), basic::doubles({7}), 0);
    };
    EXPECT_EQ(outcome(unknown, 10), Outcome::OutOfRange);
    EXPECT_EQ(outcome(0, unknown), Outcome::OutOfRange);
    EXPECT_EQ(outcome(unknown, unknown), Outcome::OutOfRange);
    EXPECT_EQ(outcome(-none, none), Outcome::Done);
    EXPECT_EQ(outcome(0, 6), Outcome::OutOfRange);
    EXPECT_EQ(outcome(6, 0), Outcome::Done) << "limits that contradict each other are none";
    number.variable.most = {};
    EXPECT_EQ(outcome(unknown, 10), Outcome::OutOfRange);
    EXPECT_EQ(
        number.judged(basic::doubles({5}), basic::doubles({7}), 0).text, "element 0: its limit is not known");
}

TEST(CommandCheck, NothingIsWithinALimitThatIsNotThere)
{
    Case number{basic::doubles({5, 5})};
    number.variable.most = "most";
    const auto outcome = [&] { return number.outcome(basic::doubles({5, 5}), basic::doubles({5, 7}), 0); };
    EXPECT_EQ(outcome(), Outcome::OutOfRange) << "no such variable";
    number.store.declare("most", basic::doubles({10}));
    EXPECT_EQ(outcome(), Outcome::OutOfRange) << "none for this element";
    number.store.declare("most", "10 mm");
    EXPECT_EQ(outcome(), Outcome::OutOfRange) << "no number";
    number.store.declare("most", basic::doubles({10, 10}));
    EXPECT_EQ(outcome(), Outcome::Done);
}

} // namespace servopanel::line_machine
