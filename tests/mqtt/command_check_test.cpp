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
    EXPECT_EQ(outcome(-none, none), Outcome::OutOfRange);
    EXPECT_EQ(outcome(0, 6), Outcome::OutOfRange);
    EXPECT_EQ(outcome(0, 7), Outcome::Done);
    number.variable.most = {};
    EXPECT_EQ(outcome(unknown, 10), Outcome::OutOfRange);
    EXPECT_EQ(
        number.judged(basic::doubles({5}), basic::doubles({7}), 0).text, "element 0: its limit is not known");
}

TEST(CommandCheck, NothingIsWithinALimitThatIsNotThere)
{
    Case pair{basic::doubles({5, 5})};
    pair.variable.most = "most";
    const Variant old = basic::doubles({5, 5});
    const Variant second = basic::doubles({5, 1e6});
    const auto refusal = [&] { return pair.judged(old, second, 0); };
    EXPECT_EQ(refusal().outcome, Outcome::OutOfRange) << "no such variable";
    pair.store.declare("most", basic::doubles({10}));
    EXPECT_EQ(refusal().outcome, Outcome::OutOfRange) << "shorter than the values";
    EXPECT_EQ(refusal().text, "element 1: its limit is not known");
    EXPECT_EQ(pair.outcome(old, basic::doubles({6, 5}), 0), Outcome::Done) << "the first element has one";
    pair.store.declare("most", Variant{"ten"});
    EXPECT_EQ(pair.outcome(old, basic::doubles({6, 5}), 0), Outcome::OutOfRange) << "no number";
    pair.variable.most = {};
    EXPECT_EQ(refusal().outcome, Outcome::Done) << "without a limit nothing limits";
}

TEST(CommandCheck, NothingIsWithinLimitsThatContradictEachOther)
{
    Case number{basic::doubles({5})};
    number.variable.least = 6.0;
    number.variable.most = 0.0;
    const Verdict verdict = number.judged(basic::doubles({5}), basic::doubles({3}), 0);
    EXPECT_EQ(verdict.outcome, Outcome::OutOfRange);
    EXPECT_EQ(verdict.text, "element 0: its limits 6 and 0 contradict each other");
}

} // namespace servopanel::line_machine
