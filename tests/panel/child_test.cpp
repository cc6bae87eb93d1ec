#include "panel/form/child.h"

#include "fakes.h"
#include "support/error_number.h"

#include "platform/facades/textanzeige.h"
#include "platform/ids.h"

#include <gtest/gtest.h>

using namespace servopanel;
using basic::Variant;
using servopanel::testing::errorNumber;
namespace names = platform::names;
namespace ids = platform::ids;

namespace {

constexpr platform::FirstValue text[]{
    {"Left", 100.0F}, {"Top", 200.0F}, {"Width", 3000.0F}, {"Height", 300.0F}};
constexpr platform::FormChild form[]{
    {{"Text"}, platform::classes::VWSIndex, {}, text},
    {{"Schalter"}, platform::classes::Schalter, {}, text},
};

class ChildTest : public ::testing::Test {
protected:
    platform::ControlRef text() { return around_.form().child({"Text"}); }
    servopanel::testing::FakeForm around_{form};
};

} // namespace

TEST_F(ChildTest, LengthsComeBackExactlyAsTheyWerePut)
{
    for (const float twips : {0.1F, 7.49F, 100.0F / 3.0F, -1234.5678F, 0.0F}) {
        text()->put(ids::Extender::Left, twips);
        EXPECT_EQ(text()->get(names::Left), Variant{twips});
        text()->put(names::Height, twips);
        EXPECT_EQ(text()->get(ids::Extender::Height), Variant{twips});
    }
}

TEST_F(ChildTest, TheWidgetStandsOnWholePixels)
{
    text()->put(names::Left, 150.0F);
    text()->put(names::Top, 37.0F);
    text()->put(names::Width, 1000.0F);
    EXPECT_EQ(around_.child("Text").view().geometry(), (QRect{10, 2, 67, 20}));
}

TEST_F(ChildTest, NamesCountWithoutRegardToCase)
{
    text()->put(platform::named("LEFT"), 15.0F);
    EXPECT_EQ(text()->get(platform::named("left")), Variant{15.0F});
    text()->put(platform::named("font.size"), std::int16_t{14});
    EXPECT_EQ(text()->get(names::FontSize), Variant{14.0F});
}

TEST_F(ChildTest, AnUnknownMemberIsError438)
{
    EXPECT_EQ(errorNumber([&] { return text()->get(platform::named("Colour")); }), 438);
    EXPECT_EQ(errorNumber([&] { return text()->put(platform::property(4711, "x"), true), 0; }), 438);
    EXPECT_EQ(errorNumber([&] { return text()->call(ids::VWSIndex::Text, {}); }), 438);
    const Variant arg[]{std::int16_t{1}};
    EXPECT_EQ(errorNumber([&] { return text()->get(ids::VWSIndex::Text, arg); }), 438);
    EXPECT_EQ(errorNumber([&] { return text()->putRef(ids::VWSIndex::Text, {}, text()), 0; }), 438);
}

TEST_F(ChildTest, AValueThatDoesNotConvertIsError13AndTheOldOneStays)
{
    EXPECT_EQ(errorNumber([&] { return text()->put(names::Left, "wide"), 0; }), 13);
    EXPECT_EQ(text()->get(names::Left), Variant{100.0F});
}

TEST_F(ChildTest, IdsOfOneClassMeanNothingToAnother)
{
    EXPECT_EQ(errorNumber([&] { return around_.form().child({"Schalter"})->get(ids::VWSIndex::Text); }), 438);
    EXPECT_EQ(around_.form().child({"Schalter"})->get(ids::Schalter::Zustand), Variant{false});
}

TEST_F(ChildTest, BoldAndWeightAreTwoViewsOfTheSame)
{
    text()->put(names::FontBold, true);
    EXPECT_EQ(text()->get(names::FontWeight), Variant{std::int16_t{700}});
    text()->put(names::FontWeight, std::int16_t{400});
    EXPECT_EQ(text()->get(names::FontBold), Variant{false});
}

TEST_F(ChildTest, AfterTheEndEveryCallIsError91)
{
    const platform::ControlRef kept = text();
    around_.host->terminate();
    EXPECT_EQ(errorNumber([&] { return kept->get(names::Left); }), 91);
    EXPECT_EQ(errorNumber([&] { return kept->put(names::Left, 1.0F), 0; }), 91);
    EXPECT_EQ(errorNumber([&] { return kept->call(ids::VWSIndex::Text, {}); }), 91);
    EXPECT_EQ(errorNumber([&] { return around_.form().child({"Text"}), 0; }), 91);
    EXPECT_EQ(errorNumber([&] { return around_.surface().get(names::Width); }), 91);
    EXPECT_EQ(errorNumber([&] { return around_.surface().clear({}), 0; }), 91);
}
