#include "servo_page/values/zeichnungsnummer.h"

#include "basic/error.h"
#include "basic/text.h"

#include <gtest/gtest.h>

#include <limits>
#include <ostream>
#include <string>

namespace {

using namespace servopanel;
using namespace servopanel::servo_page;

// As the page shows a number: 123 | 45 | 6789.
std::string shown(double number)
{
    const ZeichnungsTeile parts = zeichnungZerlegen(number);
    return basic::Format(parts[0], zeichnungsMuster(41)) + " | "
        + basic::Format(parts[1], zeichnungsMuster(43)) + " | "
        + basic::Format(parts[2], zeichnungsMuster(45));
}

struct Case {
    const char* name;
    double number;
    const char* parts;
};
void PrintTo(const Case& row, std::ostream* out) { *out << row.name; }

class ZeichnungZerlegen : public testing::TestWithParam<Case> { };

TEST_P(ZeichnungZerlegen, ShowsTheParts) { EXPECT_EQ(shown(GetParam().number), GetParam().parts); }

const Case cases[] = {
    {"zero", 0, "000 | 00 | 0000"},
    {"negative_zero", -0.0, "000 | 00 | 0000"},
    {"full", 123456789, "123 | 45 | 6789"},
    {"short_first_part", 7000012, "007 | 00 | 0012"},
    {"last_part_only", 12, "000 | 00 | 0012"},
    {"largest", 999999999, "999 | 99 | 9999"},
    {"first_part_grows", 12345678901.0, "12345 | 67 | 8901"},
    {"minus_one_splits_downwards", -1, "-001 | 99 | 9999"},
    {"negative", -123456789, "-124 | 54 | 3211"},
    {"half_rounds_up", 2.5, "000 | 00 | 0003"},
    {"fraction_does_not_carry", 9999.5, "000 | 00 | 10000"},
    {"fraction_below_half", 1000000.25, "001 | 00 | 0000"},
};
INSTANTIATE_TEST_SUITE_P(Values, ZeichnungZerlegen, testing::ValuesIn(cases),
    [](const auto& row) { return std::string{row.param.name}; });

TEST(Zeichnungsnummer, KeepsTheRestUnrounded) { EXPECT_EQ(zeichnungZerlegen(20002.25)[2], 2.25); }

TEST(Zeichnungsnummer, RefusesWhatIsNotFinite)
{
    EXPECT_THROW(zeichnungZerlegen(std::numeric_limits<double>::infinity()), basic::Error);
    EXPECT_THROW(zeichnungZerlegen(std::numeric_limits<double>::quiet_NaN()), basic::Error);
}

TEST(ZeichnungZusammensetzen, IsTheReverseOfZerlegen)
{
    for (const double number : {0.0, 1.0, 123456789.0, 7000012.0, 999999999.0, -1.0, -123456789.0, 2.5})
        EXPECT_EQ(zeichnungZusammensetzen(zeichnungZerlegen(number)), number);
}

TEST(ZeichnungZusammensetzen, TakesPartsOfAnySize)
{
    EXPECT_EQ(zeichnungZusammensetzen({12, 3, 45}), 12030045);
    EXPECT_EQ(zeichnungZusammensetzen({1, 1000, 20000}), 11020000);
}

TEST(Zeichnungsitems, HavePatternAndLimitOfTheirPart)
{
    for (const std::int16_t item : {std::int16_t{41}, std::int16_t{42}}) {
        EXPECT_EQ(zeichnungsMuster(item), "000");
        EXPECT_EQ(zeichnungsObergrenze(item), "999");
    }
    for (const std::int16_t item : {std::int16_t{43}, std::int16_t{44}}) {
        EXPECT_EQ(zeichnungsMuster(item), "00");
        EXPECT_EQ(zeichnungsObergrenze(item), "99");
    }
    for (const std::int16_t item : {std::int16_t{45}, std::int16_t{46}}) {
        EXPECT_EQ(zeichnungsMuster(item), "0000");
        EXPECT_EQ(zeichnungsObergrenze(item), "9999");
    }
}

} // namespace
