#include "recording/memory/memory_form.h"

#include "platform/ids.h"
#include "recording/memory/sibling_controls.h"
#include "support/error_number.h"

#include <gtest/gtest.h>

#include <cstdint>

namespace {

using namespace servopanel;
using namespace servopanel::recording;
using servopanel::testing::errorNumber;
namespace classes = platform::classes;
namespace ids = platform::ids;
namespace names = platform::names;

constexpr platform::FirstValue frame[]{{"Visible", true}, {"Width", 9015.0F}};
constexpr platform::FirstValue input[]{{"Visible", true}, {"Height", 540.0F}, {"Font.Size", std::int16_t{12}},
    {"VariablenName", std::string_view{"Ch-1.intern_v<.l2_01>"}}, {"TabStop", true}};
constexpr platform::FormChild form[]{
    {{"MainRahmen", 1}, classes::PictureBox, {}, frame},
    {{"SollwertL", 1}, classes::VWSVarIn, {"MainRahmen", 1}, input},
    {{"VWLanguage"}, classes::VWSLanguage, {}, {}},
};

struct MemoryFormTest : ::testing::Test {
    MemoryWorld world;
    MemoryControl self{"ServoMain", "ServoMain", world};
    MemoryForm children{"ServoMain", world};
    MemorySurface surface{children, self};
    MemoryFormTest()
    {
        children.build(form, self);
        self.put(names::Visible, true);
    }
    std::int32_t childError(platform::ChildId id)
    {
        return errorNumber([&] { return children.child(id); });
    }
};

TEST_F(MemoryFormTest, GivesChildrenTheirFirstValues)
{
    const auto child = children.child({"SollwertL", 1});
    EXPECT_EQ(child->className(), "VWSVarIn");
    EXPECT_EQ(child->get(names::Height), basic::Variant{540.0F});
    EXPECT_EQ(child->get(names::FontSize), basic::Variant{12.0F});
    EXPECT_EQ(child->get(ids::VWSVarIn::VariablenName), basic::Variant{"Ch-1.intern_v<.l2_01>"});
    EXPECT_EQ(child->get(platform::named("TabStop")), basic::Variant{true});
}

TEST_F(MemoryFormTest, TellsAMissingChildFromAMissingElement)
{
    EXPECT_EQ(childError({"Other"}), 91);
    EXPECT_EQ(childError({"SollwertL", 2}), 340);
    EXPECT_EQ(childError({"sollwertl", 1}), 91);
    EXPECT_EQ(childError({"VWLanguage", 1}), 91);
    EXPECT_EQ(childError({"SollwertL"}), 91);
}

TEST_F(MemoryFormTest, LoadsAnElementAsACopyOfTheFirst)
{
    const auto first = children.child({"SollwertL", 1});
    first->put(names::Height, 405.0F);
    first->put(ids::VWSVarIn::Vordergrund, std::int32_t{255});
    children.load({"SollwertL", 7});
    const auto loaded = children.child({"SollwertL", 7});
    EXPECT_EQ(loaded->className(), "VWSVarIn");
    EXPECT_EQ(loaded->get(names::Height), basic::Variant{405.0F});
    EXPECT_EQ(loaded->get(ids::VWSVarIn::Vordergrund), basic::Variant{std::int32_t{255}});
    EXPECT_EQ(loaded->get(names::Visible), basic::Variant{false});
    EXPECT_EQ(loaded->get(ids::VWSVarIn::VariablenName), basic::Variant{""});
    loaded->put(names::Height, 300.0F);
    EXPECT_EQ(first->get(names::Height), basic::Variant{405.0F});
}

TEST_F(MemoryFormTest, LoadsEachElementOnce)
{
    EXPECT_EQ(errorNumber([&] { return children.load({"SollwertL", 1}), 0; }), 360);
    children.load({"SollwertL", 2});
    EXPECT_EQ(errorNumber([&] { return children.load({"SollwertL", 2}), 0; }), 360);
    EXPECT_EQ(errorNumber([&] { return children.load({"Other", 2}), 0; }), 91);
}

TEST_F(MemoryFormTest, MeasuresSevenPixelsForEachCharacter)
{
    EXPECT_EQ(children.textWidth({"SollwertL", 1}, "Fußzeile"), 8 * 7 * 15.0F);
    EXPECT_EQ(children.textWidth({"SollwertL", 1}, ""), 0);
    EXPECT_EQ(errorNumber([&] { return children.textWidth({"SollwertL", 9}, "x") > 0; }), 340);
}

TEST_F(MemoryFormTest, ShowsAChildOnlyWhenAllAroundItIsVisible)
{
    const auto child = children.find({"SollwertL", 1});
    EXPECT_TRUE(child->isShown());
    children.child({"MainRahmen", 1})->put(names::Visible, false);
    EXPECT_FALSE(child->isShown());
    children.child({"MainRahmen", 1})->put(names::Visible, true);
    self.put(names::Visible, false);
    EXPECT_FALSE(child->isShown());
}

TEST_F(MemoryFormTest, FailsAfterItsEnd)
{
    children.end();
    EXPECT_EQ(childError({"VWLanguage"}), 91);
    EXPECT_EQ(errorNumber([&] { return children.load({"SollwertL", 2}), 0; }), 91);
    EXPECT_EQ(errorNumber([&] { return children.textWidth({"SollwertL", 1}, "") >= 0; }), 91);
    EXPECT_NE(children.find({"VWLanguage"}), nullptr);
}

TEST_F(MemoryFormTest, SetsTheControlsOwnSizeAndPicture)
{
    surface.put(names::Height, 15360.0F);
    EXPECT_EQ(self.get(ids::Extender::Height), basic::Variant{15360.0F});
    EXPECT_EQ(surface.get(names::Height), basic::Variant{15360.0F});
    surface.put(names::Picture, basic::ObjectRef{});
}

TEST_F(MemoryFormTest, DrawsOnlyOnWhatIsThere)
{
    surface.line({}, 0, 0, 1, 1, 0, 6);
    surface.clear({"MainRahmen", 1});
    EXPECT_EQ(errorNumber([&] { return surface.clear({"MainRahmen", 2}), 0; }), 340);
    EXPECT_EQ(errorNumber([&] { return surface.bitBlt({"MainRahmen", 1}, {"X"}, 0, 0, 1, 1), 0; }), 91);
    EXPECT_EQ(errorNumber([&] { return surface.stretchBlt({"X"}, {"MainRahmen", 1}, 1, 1, 1, 1), 0; }), 91);
}

TEST_F(MemoryFormTest, DrawsNothingAfterItsEnd)
{
    surface.end();
    EXPECT_EQ(errorNumber([&] { return surface.line({}, 0, 0, 1, 1, 0, 6), 0; }), 91);
    EXPECT_EQ(errorNumber([&] { return surface.get(names::Height); }), 91);
    EXPECT_EQ(errorNumber([&] { return surface.put(names::Height, 1.0F), 0; }), 91);
    EXPECT_EQ(errorNumber([&] { return surface.refresh({}), 0; }), 91);
}

} // namespace
