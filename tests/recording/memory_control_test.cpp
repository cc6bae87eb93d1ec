#include "recording/memory/sibling_controls.h"

#include "platform/ids.h"
#include "recording/memory/project.h"
#include "support/error_number.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <memory>

namespace {

using namespace servopanel;
using namespace servopanel::recording;
using servopanel::testing::errorNumber;
namespace classes = platform::classes;
namespace ids = platform::ids;
namespace names = platform::names;

struct MemoryControlTest : ::testing::Test {
    MemoryWorld world;
    std::shared_ptr<MemoryControl> make(std::string_view className)
    {
        return makeControl(className, std::string{className}, world);
    }
};

TEST_F(MemoryControlTest, KnowsThePlaceByNameAndById)
{
    const auto control = make(classes::Label);
    control->put(names::Left, 105.5F);
    EXPECT_EQ(control->get(ids::Extender::Left), basic::Variant{105.5F});
    control->put(ids::Extender::Visible, std::int16_t{-1});
    EXPECT_EQ(control->get(platform::named("VISIBLE")), basic::Variant{true});
}

TEST_F(MemoryControlTest, StartsInvisibleEnabledAndEmpty)
{
    const auto control = make(classes::VWSVarIn);
    EXPECT_EQ(control->get(names::Visible), basic::Variant{false});
    EXPECT_EQ(control->get(names::Enabled), basic::Variant{true});
    EXPECT_EQ(control->get(names::Height), basic::Variant{0.0F});
    EXPECT_EQ(control->get(ids::VWSVarIn::Obergrenze), basic::Variant{""});
    EXPECT_EQ(control->get(ids::VWSVarIn::Vordergrund), basic::Variant{std::int32_t{0}});
}

TEST_F(MemoryControlTest, ConvertsWhatIsPutToTheTypeOfTheProperty)
{
    const auto control = make(classes::VWSIndex);
    control->put(names::Top, std::int16_t{30});
    EXPECT_EQ(control->get(names::Top), basic::Variant{30.0F});
    control->put(ids::VWSIndex::Text, std::int16_t{7});
    EXPECT_EQ(control->get(ids::VWSIndex::Text), basic::Variant{"7"});
    EXPECT_EQ(errorNumber([&] { return control->put(names::Top, basic::Variant{"x"}), 0; }), 13);
    EXPECT_EQ(control->get(names::Top), basic::Variant{30.0F});
}

TEST_F(MemoryControlTest, KeepsAnyValueOfAVariable)
{
    const auto control = make(classes::VWSVarOut);
    for (const basic::Variant& value : {basic::Variant{"x"}, basic::Variant{true}, basic::Variant{}}) {
        control->put(ids::VWSVarOut::Wert, value);
        EXPECT_EQ(control->get(ids::VWSVarOut::Wert), value);
    }
}

TEST_F(MemoryControlTest, RefusesMembersThatItsClassDoesNotHave)
{
    const auto control = make(classes::Label);
    EXPECT_EQ(errorNumber([&] { return control->get(names::FontClass); }), 438);
    EXPECT_EQ(errorNumber([&] { return control->get(ids::VWSVarOut::Wert); }), 438);
    EXPECT_EQ(errorNumber([&] { return control->put(names::Picture, basic::ObjectRef{}), 0; }), 438);
    EXPECT_EQ(errorNumber([&] { return control->call(ids::VWSLanguage::Text, {}); }), 438);
}

TEST_F(MemoryControlTest, RefusesAnOperationAsPropertyAndTheOtherWay)
{
    const auto footer = make(classes::Fußzeile);
    EXPECT_EQ(errorNumber([&] { return footer->get(ids::Fußzeile::Bild); }), 438);
    EXPECT_EQ(errorNumber([&] { return footer->call(platform::property(0x68030008, "x"), {}); }), 438);
    const auto mask = make(classes::Eingabemaske);
    EXPECT_EQ(errorNumber([&] { return mask->put(ids::Eingabemaske::Ziel, basic::ObjectRef{}), 0; }), 438);
    EXPECT_EQ(errorNumber([&] { return mask->putRef(ids::Eingabemaske::Offen, {}, true), 0; }), 438);
}

TEST_F(MemoryControlTest, TellsTheSameIdOfTwoClassesApart)
{
    const auto mask = make(classes::Eingabemaske);
    const auto bar = make(classes::ScrollBar);
    mask->put(ids::Eingabemaske::Offen, true);
    EXPECT_EQ(mask->get(ids::Eingabemaske::Offen), basic::Variant{true});
    EXPECT_EQ(bar->get(ids::ScrollBar::Position), basic::Variant{std::int16_t{1}});
}

TEST_F(MemoryControlTest, KeepsTheTargetOfTheMask)
{
    const auto mask = make(classes::Eingabemaske);
    const auto target = make(classes::VWSVarIn);
    mask->putRef(ids::Eingabemaske::Ziel, {}, target);
    EXPECT_EQ(mask->get(ids::Eingabemaske::Ziel), basic::Variant{target});
    EXPECT_EQ(errorNumber([&] { return mask->putRef(ids::Eingabemaske::Ziel, {}, true), 0; }), 13);
}

TEST_F(MemoryControlTest, MirrorsAnInputsValueIntoItsEditVariable)
{
    const auto input = make(classes::VWSVarIn);
    input->put(ids::VWSVarIn::Wert, 1.5);
    input->put(ids::VWSVarIn::VariablenName, "Ch-1.intern_v<.l2_07>");
    EXPECT_EQ(world.variables.find("Ch-1.intern_v<.l2_07>"), nullptr);
    input->put(ids::VWSVarIn::Wert, 2.5);
    ASSERT_NE(world.variables.find("Ch-1.intern_v<.l2_07>"), nullptr);
    EXPECT_EQ(*world.variables.find("Ch-1.intern_v<.l2_07>"), basic::Variant{2.5});
    EXPECT_TRUE(world.variables.written().empty());
}

TEST_F(MemoryControlTest, MakesAnAutosizeLabelAsWideAsItsCaption)
{
    const auto label = make(classes::Label);
    label->put(names::Width, 900.0F);
    label->put(names::Caption, "Länge");
    EXPECT_EQ(label->get(names::Width), basic::Variant{900.0F});
    label->setFirstValue({"AutoSize", true});
    EXPECT_EQ(label->get(names::Width), basic::Variant{5 * 7 * 15.0F});
    label->put(names::Caption, "");
    EXPECT_EQ(label->get(names::Width), basic::Variant{0.0F});
}

TEST_F(MemoryControlTest, MakesAnAutosizeBoxAsLargeAsItsPicture)
{
    world.twipsPerPixelX = 12;
    const auto box = make(classes::PictureBox);
    const auto picture = std::make_shared<MemoryPicture>("C:\\A.gif", PictureSize{400, 140});
    box->put(names::Picture, picture);
    EXPECT_EQ(box->get(names::Width), basic::Variant{0.0F});
    box->setFirstValue({"AutoSize", true});
    box->put(names::Picture, picture);
    EXPECT_EQ(box->get(names::Width), basic::Variant{4800.0F});
    EXPECT_EQ(box->get(names::Height), basic::Variant{2100.0F});
    box->put(names::Picture, basic::ObjectRef{});
    EXPECT_EQ(box->get(names::Width), basic::Variant{4800.0F});
}

TEST_F(MemoryControlTest, LooksLanguageTextsUp)
{
    const auto language = make(classes::VWSLanguage);
    world.texts["Standard.15000"] = "No permission";
    const basic::Variant known[]{basic::Variant{"Standard.15000"}};
    const basic::Variant unknown[]{basic::Variant{"Standard.1"}};
    EXPECT_EQ(language->call(ids::VWSLanguage::Text, known), basic::Variant{"No permission"});
    EXPECT_EQ(language->call(ids::VWSLanguage::Text, unknown), basic::Variant{""});
    EXPECT_EQ(language->get(names::FontName), basic::Variant{"Arial"});
}

TEST_F(MemoryControlTest, SwitchesFooterKeys)
{
    const auto footer = std::dynamic_pointer_cast<MemoryFooter>(make(classes::Fußzeile));
    for (std::int16_t key = 0; key <= 30; ++key)
        EXPECT_FALSE(footer->isKeyOn(key));
    EXPECT_TRUE(footer->isKeyOn(31));
    const basic::Variant on[]{std::uint8_t{5}, true};
    const basic::Variant green[]{std::uint8_t{5}, std::int32_t{65280}};
    const basic::Variant key[]{std::uint8_t{5}};
    EXPECT_EQ(footer->call(ids::Fußzeile::Einstellung, key), basic::Variant{std::int32_t{0xC0C0C0}});
    footer->call(ids::Fußzeile::Freigabe, on);
    footer->call(ids::Fußzeile::Farbe, green);
    EXPECT_TRUE(footer->isKeyOn(5));
    EXPECT_EQ(footer->call(ids::Fußzeile::Einstellung, key), basic::Variant{std::int32_t{65280}});
    EXPECT_EQ(errorNumber([&] { return footer->call(ids::Fußzeile::Freigabe, key); }), 438);
}

TEST_F(MemoryControlTest, ReleasesASwitchUnlessToldOtherwise)
{
    const auto control = make(classes::Schalter);
    EXPECT_TRUE(control->isEnabled());
    control->put(ids::Schalter::Freigabe, false);
    EXPECT_FALSE(control->isEnabled());
    control->put(ids::Schalter::Freigabe, true);
    control->put(ids::Extender::Enabled, false);
    EXPECT_FALSE(control->isEnabled());
}

struct Limits : MemoryControlTest {
    bool accepts(const char* low, const char* high, double number)
    {
        const auto input = std::dynamic_pointer_cast<MemoryVarIn>(make(classes::VWSVarIn));
        input->put(ids::VWSVarIn::Untergrenze, low);
        input->put(ids::VWSVarIn::Obergrenze, high);
        return input->accepts(number);
    }
};

TEST_F(Limits, AreInclusive)
{
    EXPECT_TRUE(accepts("0", "100", 0));
    EXPECT_TRUE(accepts("0", "100", 100));
    EXPECT_FALSE(accepts("0", "100", -0.01));
    EXPECT_FALSE(accepts("0", "100", 100.01));
}

TEST_F(Limits, TakeBothPoints)
{
    EXPECT_FALSE(accepts("-1,5", "2.5", -1.6));
    EXPECT_TRUE(accepts("-1,5", "2.5", 2.5));
}

TEST_F(Limits, DoNotLimitWhenTheyAreNoNumbers)
{
    EXPECT_TRUE(accepts("", "", 1e9));
    EXPECT_TRUE(accepts("x", "100", -1e9));
}

} // namespace
