#include "panel/widgets/number_entry.h"

#include "basic/conversions.h"

#include <gtest/gtest.h>

using servopanel::panel::NumberEntry;
using Verdict = NumberEntry::Verdict;

namespace {

NumberEntry started(double value, std::optional<double> lower = {}, std::optional<double> upper = {})
{
    NumberEntry entry;
    entry.start(servopanel::basic::decimal(value));
    entry.setLimits(lower, upper);
    return entry;
}

void type(NumberEntry& entry, const std::string& keys)
{
    for (const char key : keys) {
        if (key == '.')
            entry.point();
        else if (key == '-')
            entry.sign();
        else
            entry.digit(key - '0');
    }
}

} // namespace

TEST(NumberEntry, ShowsTheValueUntilTheFirstDigitReplacesIt)
{
    NumberEntry entry = started(12.5);
    EXPECT_EQ(entry.text(), "12.5");
    entry.digit(7);
    EXPECT_EQ(entry.text(), "7");
    EXPECT_EQ(entry.value(), 7.0);
}

TEST(NumberEntry, BackWorksOnTheValueThatIsThere)
{
    NumberEntry entry = started(12.5);
    entry.back();
    EXPECT_EQ(entry.text(), "12.");
    entry.digit(8);
    EXPECT_EQ(entry.value(), 12.8);
}

TEST(NumberEntry, ANumberWithAnExponentIsReplacedAndNeverShortened)
{
    NumberEntry entry = started(0.00001);
    ASSERT_EQ(entry.text(), "1E-05");
    entry.back();
    EXPECT_EQ(entry.text(), "");
    EXPECT_EQ(entry.verdict(), Verdict::NoNumber);
    type(entry, "3");
    EXPECT_EQ(entry.value(), 3.0);

    entry = started(0.00001);
    entry.step(1);
    EXPECT_EQ(entry.text(), "2E-05"); // one up in its last place
    entry.digit(7);
    EXPECT_EQ(entry.value(), 7.0);
}

TEST(NumberEntry, TakesOnePointAndPutsAZeroBeforeIt)
{
    NumberEntry entry = started(3);
    type(entry, ".5.2");
    EXPECT_EQ(entry.text(), "0.52");
}

TEST(NumberEntry, LeadingZerosDoNotPileUp)
{
    NumberEntry entry = started(3);
    type(entry, "007");
    EXPECT_EQ(entry.text(), "7");
}

TEST(NumberEntry, HasASignOnlyWhereValuesBelowZeroAreAllowed)
{
    NumberEntry positive = started(5, 0.0, 10.0);
    EXPECT_FALSE(positive.signAllowed());
    EXPECT_EQ(positive.sign(), Verdict::NoSign);
    EXPECT_EQ(positive.text(), "5");

    NumberEntry both = started(5, -10.0, 10.0);
    EXPECT_EQ(both.sign(), Verdict::Fine);
    EXPECT_EQ(both.value(), -5.0);
    both.sign();
    EXPECT_EQ(both.value(), 5.0);
    EXPECT_TRUE(started(5).signAllowed());
}

TEST(NumberEntry, RefusesWhatLiesOutsideTheLimitsAndTakesTheLimitsThemselves)
{
    NumberEntry entry = started(5, 2.0, 10.0);
    type(entry, "10");
    EXPECT_EQ(entry.verdict(), Verdict::Fine);
    type(entry, ".1");
    EXPECT_EQ(entry.verdict(), Verdict::TooLarge);
    entry.clear();
    type(entry, "2");
    EXPECT_EQ(entry.verdict(), Verdict::Fine);
    entry.clear();
    type(entry, "1.99");
    EXPECT_EQ(entry.verdict(), Verdict::TooSmall);
}

TEST(NumberEntry, NothingAndALoneSignAreNoNumbers)
{
    NumberEntry entry = started(5, -10.0, 10.0);
    entry.clear();
    EXPECT_EQ(entry.verdict(), Verdict::NoNumber);
    entry.sign();
    EXPECT_EQ(entry.text(), "-");
    EXPECT_EQ(entry.verdict(), Verdict::NoNumber);
    EXPECT_FALSE(entry.changed());
}

TEST(NumberEntry, StepsInTheLastPlaceWithoutDrifting)
{
    NumberEntry entry = started(0.1);
    entry.step(1);
    entry.step(1);
    EXPECT_EQ(entry.value(), 0.3);
    NumberEntry whole = started(12);
    whole.step(-1);
    EXPECT_EQ(whole.value(), 11.0);
}

TEST(NumberEntry, StepsInTheSmallestPlaceOfValueAndLimits)
{
    NumberEntry entry = started(2, 0.5, 5.0);
    entry.step(1);
    EXPECT_EQ(entry.value(), 2.1);
    NumberEntry fine = started(2.35, 0.0, 5.0);
    fine.step(10);
    EXPECT_EQ(fine.value(), 2.45);
    // What is typed may be finer still.
    entry.clear();
    type(entry, "1.125");
    entry.step(-1);
    EXPECT_EQ(entry.value(), 1.124);
}

TEST(NumberEntry, ASignBeforeTheFirstDigitBelongsToTheNewNumber)
{
    NumberEntry entry = started(320, -500.0, 500.0);
    type(entry, "-5");
    EXPECT_EQ(entry.value(), -5.0);
    NumberEntry kept = started(320, -500.0, 500.0);
    kept.sign();
    EXPECT_EQ(kept.value(), -320.0);
    NumberEntry negative = started(-4.5, -500.0, 500.0);
    type(negative, "-6");
    EXPECT_EQ(negative.value(), 6.0);
    NumberEntry replaced = started(-4.5, -500.0, 500.0);
    type(replaced, "6");
    EXPECT_EQ(replaced.value(), 6.0);
}

TEST(NumberEntry, StepsStopAtTheLimits)
{
    NumberEntry entry = started(9, 0.0, 10.0);
    entry.step(1);
    entry.step(1);
    EXPECT_EQ(entry.value(), 10.0);
    NumberEntry below = started(-50, 0.0, 10.0);
    below.step(1);
    EXPECT_EQ(below.value(), 0.0);
}

TEST(NumberEntry, IsChangedOnlyWhenTheNumberIsAnother)
{
    NumberEntry entry = started(12.5);
    EXPECT_FALSE(entry.changed());
    type(entry, "12.50");
    EXPECT_FALSE(entry.changed());
    entry.back();
    entry.digit(1);
    EXPECT_TRUE(entry.changed());
}

TEST(NumberEntry, TakesNoMoreThanItsDisplayHolds)
{
    NumberEntry entry = started(0);
    type(entry, "12345678901234567890");
    EXPECT_EQ(entry.text().size(), 12U);
}

TEST(NumberEntry, AWholeNumberTakesNoPointAndSaysSo)
{
    NumberEntry entry = started(12);
    entry.setWhole(true);
    entry.digit(4);
    EXPECT_EQ(entry.point(), Verdict::NoFraction);
    entry.digit(5);
    EXPECT_EQ(entry.text(), "45");
    EXPECT_EQ(entry.verdict(), Verdict::Fine);
}

TEST(NumberEntry, AWholeNumberStepsInWholeOnesWithinItsLimits)
{
    NumberEntry entry = started(2, 0.5, 3.5);
    entry.setWhole(true);
    entry.step(1);
    EXPECT_EQ(entry.text(), "3");
    entry.step(1);
    EXPECT_EQ(entry.text(), "3");
    entry.step(-5);
    EXPECT_EQ(entry.text(), "1");
}

TEST(NumberEntry, AFractionThatWasThereIsNotTakenWhereNumbersAreWhole)
{
    NumberEntry entry = started(2.5);
    entry.setWhole(true);
    EXPECT_EQ(entry.verdict(), Verdict::NoFraction);
}

TEST(NumberEntry, ACharacterThatDoesNotFitSaysSo)
{
    NumberEntry entry = started(0);
    type(entry, "123456789012");
    EXPECT_EQ(entry.digit(3), Verdict::TooLong);
    EXPECT_EQ(entry.point(), Verdict::TooLong);
    EXPECT_EQ(entry.sign(), Verdict::TooLong);
    EXPECT_EQ(entry.text(), "123456789012");
}
