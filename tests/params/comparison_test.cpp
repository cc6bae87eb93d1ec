#include "basic/error.h"
#include "params/comparison.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>
#include <vector>

namespace servopanel::testing {

namespace {

using params::ParameterSet;
using params::Row;
using Pairs = std::vector<std::pair<int, int>>;

ParameterSet setOf(std::vector<Row> rows)
{
    ParameterSet set;
    set.machine = "M1";
    set.rows = std::move(rows);
    return set;
}

Row row(
    int servo, std::size_t family, int element, double value, const char* name = "", const char* unit = "")
{
    return {{servo, family, element}, name, unit, value, 0};
}

std::string tableOf(const ParameterSet& left, const ParameterSet& right)
{
    const auto differences = params::differencesOf(left, right, params::servoPairs(left, right));
    return differences.empty() ? std::string{} : params::tableOf(differences, "A", "B");
}

} // namespace

TEST(Comparison, FindsWhatDiffers)
{
    const ParameterSet left =
        setOf({row(3, 0, 0, 20), row(3, 0, 1, 0.1, "Draw", "%"), row(3, 2, 0, 1), row(5, 0, 0, 1)});
    const ParameterSet right = setOf(
        {row(3, 0, 0, 20), row(3, 0, 1, 0.1000000000000001, "Draw", "%"), row(3, 3, 0, 7), row(5, 0, 0, 1)});
    EXPECT_EQ(tableOf(left, left), "");
    EXPECT_EQ(tableOf(left, right),
        "servo  family        element  name  unit  A    B\n"
        "3      servo_para    1        Draw  %     0.1  0.1000000000000001\n"
        "3      servo_schalt  0                    1    -\n"
        "3      servo_zeich   0                    -    7\n");
}

TEST(Comparison, ComparesOneServoWithAnother)
{
    EXPECT_EQ(tableOf(setOf({row(3, 0, 0, 1, "Draw", "%"), row(3, 0, 1, 2)}),
                  setOf({row(5, 0, 0, 4, "Tension", "N"), row(5, 0, 1, 2)})),
        "servo  family      element  name            unit   A  B\n"
        "3 / 5  servo_para  0        Draw / Tension  % / N  1  4\n");
}

TEST(Comparison, ChoosesTheServos)
{
    const ParameterSet one = setOf({row(3, 0, 0, 1)});
    const ParameterSet other = setOf({row(5, 0, 0, 1)});
    const ParameterSet two = setOf({row(3, 0, 0, 1), row(4, 0, 0, 1)});
    const ParameterSet three = setOf({row(1, 0, 0, 1), row(3, 0, 0, 1), row(4, 0, 0, 1)});
    EXPECT_EQ(params::servoPairs(one, other), (Pairs{{3, 5}}));
    EXPECT_EQ(params::servoPairs(one, two), (Pairs{{3, 3}}));
    EXPECT_EQ(params::servoPairs(two, one), (Pairs{{3, 3}}));
    EXPECT_EQ(params::servoPairs(two, three), (Pairs{{1, 1}, {3, 3}, {4, 4}}));
    EXPECT_THROW(params::servoPairs(other, two), basic::Error);
    EXPECT_EQ(params::servoPairs(setOf({}), two), (Pairs{{3, 3}, {4, 4}}));
}

TEST(Comparison, TakesWhatIsNoNumberForTheSame)
{
    const double none = std::numeric_limits<double>::quiet_NaN();
    EXPECT_EQ(tableOf(setOf({row(3, 0, 0, none)}), setOf({row(3, 0, 0, none)})), "");
    EXPECT_NE(tableOf(setOf({row(3, 0, 0, none)}), setOf({row(3, 0, 0, 1)})), "");
}

} // namespace servopanel::testing
