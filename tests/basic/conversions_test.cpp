#include "basic/conversions.h"
#include "basic/object.h"
#include "support/error_number.h"

#include <gtest/gtest.h>

#include <limits>
#include <memory>
#include <ostream>
#include <vector>

namespace servopanel::basic {

// So that a failing row shows its values.
void PrintTo(const Variant& value, std::ostream* out)
{
    *out << "type " << static_cast<int>(value.type());
    const std::int32_t failure = testing::errorNumber([&] { return toText(value); });
    if (failure == 0) *out << " \"" << toText(value) << "\"";
}

} // namespace servopanel::basic

namespace {

using namespace servopanel::basic;
using servopanel::testing::errorNumber;

const Variant anObject{std::make_shared<Object>()};
const Variant anArray{Array{VariantType::Double, 0, {Variant{1.0}}}};

// One conversion: the value that it gives, or the number of its error.
struct Row {
    const char* name;
    Variant from;
    VariantType type;
    Variant to;
    std::int32_t error = 0;
};

void PrintTo(const Row& row, std::ostream* out) { *out << row.name; }

class Convert : public testing::TestWithParam<Row> { };

TEST_P(Convert, GivesTheClassicResult)
{
    const Row& row = GetParam();
    Variant result;
    EXPECT_EQ(errorNumber([&] { return result = convert(row.from, row.type); }), row.error);
    EXPECT_EQ(result, row.to);
}

std::int16_t i16(int value) { return static_cast<std::int16_t>(value); }
std::uint8_t byte(int value) { return static_cast<std::uint8_t>(value); }

const Row rows[]{
    {"EmptyToInt16", Variant{}, VariantType::Int16, i16(0)},
    {"EmptyToText", Variant{}, VariantType::Text, ""},
    {"EmptyToBoolean", Variant{}, VariantType::Boolean, false},
    {"EmptyToDouble", Variant{}, VariantType::Double, 0.0},
    {"NullToInt16", Null{}, VariantType::Int16, {}, 94},
    {"NullToText", Null{}, VariantType::Text, {}, 94},
    {"NullToBoolean", Null{}, VariantType::Boolean, {}, 94},
    {"MissingToInt16", Missing{}, VariantType::Int16, {}, 13},
    {"ErrorCodeToDouble", ErrorCode{448}, VariantType::Double, {}, 13},
    {"ObjectToInt16", anObject, VariantType::Int16, {}, 13},
    {"ObjectToText", anObject, VariantType::Text, {}, 13},
    {"ArrayToDouble", anArray, VariantType::Double, {}, 13},
    {"ArrayToText", anArray, VariantType::Text, {}, 13},

    {"TrueToInt16", true, VariantType::Int16, i16(-1)},
    {"TrueToByte", true, VariantType::Byte, {}, 6},
    {"TrueToDouble", true, VariantType::Double, -1.0},
    {"TrueToText", true, VariantType::Text, "True"},
    {"FalseToText", false, VariantType::Text, "False"},
    {"OneToBoolean", i16(1), VariantType::Boolean, true},
    {"TwoToBoolean", i16(2), VariantType::Boolean, true},
    {"ZeroToBoolean", 0.0, VariantType::Boolean, false},
    {"FractionToBoolean", 0.25, VariantType::Boolean, true},
    {"TextTrueToBoolean", "true", VariantType::Boolean, true},
    {"TextFalseToBoolean", " FALSE ", VariantType::Boolean, false},
    {"TextNumberToBoolean", "-3", VariantType::Boolean, true},
    {"TextYesToBoolean", "yes", VariantType::Boolean, {}, 13},
    {"EmptyTextToBoolean", "", VariantType::Boolean, {}, 13},

    {"HalfDownToEven", 2.5, VariantType::Int16, i16(2)},
    {"HalfUpToEven", 3.5, VariantType::Int16, i16(4)},
    {"SingleHalfToEven", -0.5F, VariantType::Int16, i16(0)},
    {"DoubleTooLarge", 32767.5, VariantType::Int16, {}, 6},
    {"Int32TooLarge", std::int32_t{40000}, VariantType::Int16, {}, 6},
    {"Int32Fits", std::int32_t{-32768}, VariantType::Int16, i16(-32768)},
    {"ByteTooLarge", i16(256), VariantType::Byte, {}, 6},
    {"ByteNegative", i16(-1), VariantType::Byte, {}, 6},
    {"ByteLargest", 255.5, VariantType::Byte, {}, 6},
    {"ByteFits", 254.5, VariantType::Byte, byte(254)},
    {"CurrencyHalf", Currency{25000}, VariantType::Int16, i16(2)},
    {"CurrencyToDouble", Currency{12345}, VariantType::Double, 1.2345},
    {"DateToDouble", Date{2.75}, VariantType::Double, 2.75},
    {"DoubleToDate", 2.75, VariantType::Date, Date{2.75}},
    {"DoubleToCurrency", 1.00004, VariantType::Currency, Currency{10000}},
    {"CurrencyTooLarge", 1e15, VariantType::Currency, {}, 6},
    {"CurrencyJustTooLarge", 922337203685477.625, VariantType::Currency, {}, 6},
    {"CurrencyLargest", 922337203685477.5, VariantType::Currency, Currency{9'223'372'036'854'774'784}},
    {"CurrencySmallest", -922337203685477.625, VariantType::Currency,
        Currency{std::numeric_limits<std::int64_t>::min()}},
    {"CurrencyJustTooSmall", -922337203685477.75, VariantType::Currency, {}, 6},
    {"DoubleToSingleTooLarge", 1e39, VariantType::Single, {}, 6},
    {"DoubleToSingle", 0.1, VariantType::Single, 0.1F},
    {"InfinityToSingle", std::numeric_limits<double>::infinity(), VariantType::Single,
        std::numeric_limits<float>::infinity()},

    {"TextToInt16", "12", VariantType::Int16, i16(12)},
    {"TextWithBlanks", "  -12.5 ", VariantType::Int16, i16(-12)},
    {"TextWithExponent", "1.5E2", VariantType::Int32, std::int32_t{150}},
    {"TextTooLarge", "40000", VariantType::Int16, {}, 6},
    {"TextNoNumber", "12a", VariantType::Int16, {}, 13},
    {"TextWithComma", "1,5", VariantType::Double, {}, 13},
    {"EmptyText", "", VariantType::Int16, {}, 13},
    {"TextToText", " a ", VariantType::Text, " a "},
    {"NumberToText", -12.5, VariantType::Text, "-12.5"},
    {"AnythingToVariant", "x", VariantType::Variant, "x"},
    {"NothingToObject", Variant{}, VariantType::Object, {}, 13},
    {"NothingToNull", Variant{}, VariantType::Null, {}, 13},
};

INSTANTIATE_TEST_SUITE_P(
    Rows, Convert, testing::ValuesIn(rows), [](const auto& row) { return std::string{row.param.name}; });

TEST(EqualsBoolean, ComparesByNumber)
{
    EXPECT_TRUE(equalsBoolean(true, true));
    EXPECT_TRUE(equalsBoolean(i16(-1), true));
    EXPECT_TRUE(equalsBoolean(-1.0, true));
    EXPECT_TRUE(equalsBoolean(false, false));
    EXPECT_TRUE(equalsBoolean(0.0, false));
    EXPECT_FALSE(equalsBoolean(i16(1), true));
    EXPECT_FALSE(equalsBoolean(i16(1), false));
    EXPECT_FALSE(equalsBoolean(byte(255), true));
}

TEST(EqualsBoolean, FindsTextsAndNullEqualToNeither)
{
    for (const Variant& value :
        {Variant{"True"}, Variant{"-1"}, Variant{"0"}, Variant{""}, Variant{Null{}}}) {
        EXPECT_FALSE(equalsBoolean(value, true));
        EXPECT_FALSE(equalsBoolean(value, false));
    }
}

TEST(EqualsBoolean, FindsEmptyEqualToFalse)
{
    EXPECT_TRUE(equalsBoolean(Variant{}, false));
    EXPECT_FALSE(equalsBoolean(Variant{}, true));
}

TEST(EqualsBoolean, CannotCompareArraysAndObjects)
{
    EXPECT_EQ(errorNumber([] { return equalsBoolean(anArray, false); }), 13);
    EXPECT_EQ(errorNumber([] { return equalsBoolean(anObject, false); }), 13);
}

} // namespace
