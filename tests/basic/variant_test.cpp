#include "basic/variant.h"
#include "support/error_number.h"

#include <gtest/gtest.h>

#include <memory>
#include <type_traits>

namespace {

using namespace servopanel::basic;
using servopanel::testing::errorNumber;

TEST(Variant, KnowsTheClassicTypeNumbers)
{
    EXPECT_EQ(Variant{}.type(), VariantType::Empty);
    EXPECT_EQ(Variant{Null{}}.type(), VariantType::Null);
    EXPECT_EQ(Variant{Missing{}}.type(), VariantType::Error);
    EXPECT_EQ(Variant{true}.type(), VariantType::Boolean);
    EXPECT_EQ(Variant{std::uint8_t{1}}.type(), VariantType::Byte);
    EXPECT_EQ(Variant{std::int16_t{1}}.type(), VariantType::Int16);
    EXPECT_EQ(Variant{std::int32_t{1}}.type(), VariantType::Int32);
    EXPECT_EQ(Variant{1.0F}.type(), VariantType::Single);
    EXPECT_EQ(Variant{1.0}.type(), VariantType::Double);
    EXPECT_EQ(Variant{Currency{1}}.type(), VariantType::Currency);
    EXPECT_EQ(Variant{Date{1}}.type(), VariantType::Date);
    EXPECT_EQ(Variant{"text"}.type(), VariantType::Text);
    EXPECT_EQ(Variant{ErrorCode{1}}.type(), VariantType::Error);
    EXPECT_EQ(Variant{std::make_shared<Object>()}.type(), VariantType::Object);
    EXPECT_EQ(Variant{ObjectRef{}}.type(), VariantType::Object);
    EXPECT_EQ(Variant{Array{}}.type(), VariantType::Array);
    EXPECT_EQ(static_cast<int>(VariantType::Boolean), 11);
    EXPECT_EQ(static_cast<int>(VariantType::Array), 8192);
}

TEST(Variant, TakesNoOtherTypesByItself)
{
    EXPECT_FALSE((std::is_convertible_v<std::int64_t, Variant>));
    EXPECT_FALSE((std::is_convertible_v<unsigned, Variant>));
    EXPECT_FALSE((std::is_convertible_v<char, Variant>));
    EXPECT_FALSE((std::is_convertible_v<int*, Variant>));
    EXPECT_TRUE(Variant{"text"}.holds<std::string>());
}

TEST(Variant, ComparesTypeAndValue)
{
    EXPECT_EQ(Variant{1.0}, Variant{1.0});
    EXPECT_NE(Variant{1.0}, Variant{std::int16_t{1}});
    EXPECT_NE(Variant{}, Variant{Null{}});
    const auto object = std::make_shared<Object>();
    EXPECT_EQ(Variant{object}, Variant{object});
    EXPECT_NE(Variant{object}, Variant{std::make_shared<Object>()});
}

TEST(Variant, ComparesArraysWithTheirElementTypeAndLowerBound)
{
    const Variant array{Array{VariantType::Int16, 1, {std::int16_t{7}}}};
    EXPECT_EQ(array, (Variant{Array{VariantType::Int16, 1, {std::int16_t{7}}}}));
    EXPECT_NE(array, (Variant{Array{VariantType::Variant, 1, {std::int16_t{7}}}}));
    EXPECT_NE(array, (Variant{Array{VariantType::Int16, 0, {std::int16_t{7}}}}));
    EXPECT_NE(array, (Variant{Array{VariantType::Int16, 1, {std::int16_t{8}}}}));
}

TEST(Element, CountsFromTheArraysLowerBound)
{
    const Variant fromOne{Array{VariantType::Variant, 1, {"a", "b"}}};
    EXPECT_EQ(element(fromOne, 1), Variant{"a"});
    EXPECT_EQ(element(fromOne, 2), Variant{"b"});
    EXPECT_EQ(errorNumber([&] { return element(fromOne, 0); }), 9);
    EXPECT_EQ(errorNumber([&] { return element(fromOne, 3); }), 9);
    EXPECT_EQ(errorNumber([] { return element(doubles({}), 0); }), 9);
    EXPECT_EQ(errorNumber([] { return element(doubles({1}), -2147483647 - 1); }), 9);
}

TEST(Element, FailsForWhatIsNoArray)
{
    EXPECT_EQ(errorNumber([] { return element(Variant{}, 0); }), 13);
    EXPECT_EQ(errorNumber([] { return element("text", 0); }), 13);
}

TEST(SetElement, ConvertsToTheElementType)
{
    Variant values = doubles({1, 2});
    setElement(values, 1, std::int16_t{5});
    EXPECT_EQ(element(values, 1), Variant{5.0});
    setElement(values, 0, "2.5");
    EXPECT_EQ(element(values, 0), Variant{2.5});
}

TEST(SetElement, LeavesTheArrayWhenTheValueDoesNotFit)
{
    Variant bytes{Array{VariantType::Byte, 0, {std::uint8_t{1}}}};
    EXPECT_EQ(errorNumber([&] { return setElement(bytes, 0, std::int16_t{256}), 0; }), 6);
    EXPECT_EQ(errorNumber([&] { return setElement(bytes, 0, "x"), 0; }), 13);
    EXPECT_EQ(errorNumber([&] { return setElement(bytes, 1, std::int16_t{1}), 0; }), 9);
    EXPECT_EQ(element(bytes, 0), Variant{std::uint8_t{1}});
    Variant none;
    EXPECT_EQ(errorNumber([&] { return setElement(none, 0, 1.0), 0; }), 13);
}

TEST(SetElement, KeepsTheTypeInArraysOfAnything)
{
    Variant values{Array{VariantType::Variant, 0, {1.0}}};
    setElement(values, 0, "text");
    EXPECT_EQ(element(values, 0), Variant{"text"});
}

TEST(Doubles, MakesAFamilyOfSetpoints)
{
    const Variant values = doubles({1.5, -2});
    EXPECT_EQ(values.get<Array>()->elementType, VariantType::Double);
    EXPECT_EQ(values.get<Array>()->lowerBound, 0);
    EXPECT_EQ(element(values, 1), Variant{-2.0});
}

// Hosts make values, and errors, that they give no number.
TEST(SeamTypes, AreZeroWithoutANumber)
{
    EXPECT_EQ(Currency{}, Currency{0});
    EXPECT_EQ(Date{}, Date{0});
    EXPECT_EQ(ErrorCode{}, ErrorCode{0});
    EXPECT_EQ(Error{}.number, 0);
}

} // namespace
