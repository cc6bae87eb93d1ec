#include "basic/arithmetic.h"
#include "basic/conversions.h"
#include "basic/statement_trap.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>
#include <vector>

namespace {

using namespace servopanel::basic;

class Sink final : public ErrorSink {
public:
    void report(const Error& error, std::string_view procedure) noexcept override
    {
        lines.push_back(decimal(error.number) + " " + std::string{procedure} + ": " + error.description);
    }
    std::vector<std::string> lines;
};

using Lines = std::vector<std::string>;

TEST(StatementTrap, ReportsAFailureOnceAndGoesOn)
{
    Sink sink;
    StatementTrap trap{sink, "Rechnen"};
    std::int16_t value = 32767;
    trap([&] { value = add16(value, 1); });
    trap([&] { value = subtract16(value, 1); });
    EXPECT_EQ(value, 32766);
    EXPECT_EQ(sink.lines, Lines{"6 Rechnen: Overflow"});
}

TEST(StatementTrap, KeepsTheOldValueOfAFailedAssignment)
{
    Sink sink;
    StatementTrap trap{sink, "Rechnen"};
    std::string text = "before";
    trap([&] { text = toText(Null{}); });
    EXPECT_EQ(text, "before");
}

TEST(StatementTrap, CountsAFailedConditionAsNotMet)
{
    Sink sink;
    StatementTrap trap{sink, "Fragen"};
    EXPECT_TRUE(trap.condition([] { return true; }));
    EXPECT_FALSE(trap.condition([] { return false; }));
    EXPECT_TRUE(sink.lines.empty());
    EXPECT_FALSE(trap.condition([] { return toInt16(Variant{"no number"}) == 0; }));
    EXPECT_EQ(sink.lines, Lines{"13 Fragen: Type mismatch"});
}

TEST(StatementTrap, LeavesBothBranchesWhenADecisionFails)
{
    Sink sink;
    StatementTrap trap{sink, "Fragen"};
    EXPECT_EQ(trap.decision([] { return true; }), true);
    EXPECT_EQ(trap.decision([] { return false; }), false);
    EXPECT_EQ(trap.decision([]() -> bool { raise(ErrorNumber::ObjectNotSet); }), std::nullopt);
    EXPECT_EQ(sink.lines.size(), 1U);
}

TEST(StatementTrap, ReportsAnInnerProcedureUnderItsOwnName)
{
    Sink sink;
    StatementTrap outer{sink, "Außen"};
    outer([&] {
        StatementTrap inner{sink, "Innen"};
        inner([] { raise(ErrorNumber::SubscriptOutOfRange); });
        raise(ErrorNumber::FileNotFound, "not there");
    });
    EXPECT_EQ(sink.lines, (Lines{"9 Innen: Subscript out of range", "53 Außen: not there"}));
}

TEST(StatementTrap, LetsOurOwnMistakesThrough)
{
    Sink sink;
    StatementTrap trap{sink, "Rechnen"};
    EXPECT_THROW(trap([] { throw std::logic_error{"a mistake"}; }), std::logic_error);
    EXPECT_TRUE(sink.lines.empty());
}

} // namespace
