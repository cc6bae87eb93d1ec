#include "panel/form/control_host.h"

#include "event_turns.h"
#include "fakes.h"
#include "support/error_number.h"

#include "panel/form/label.h"
#include "panel/form/vws_var.h"
#include "platform/facades/sollwert.h"
#include "platform/facades/textanzeige.h"
#include "servo_menu/form.h"
#include "servo_page/structure/form.h"
#include "shell/form.h"

#include <gtest/gtest.h>

#include <QTest>

#include <utility>

using namespace servopanel;
using basic::Variant;
using servopanel::testing::errorNumber;
using servopanel::testing::letEventsPass;
namespace classes = platform::classes;
namespace names = platform::names;

namespace {

constexpr platform::FirstValue box[]{{"Width", 9000.0F}, {"Height", 6000.0F}, {"Visible", true}};
constexpr platform::FirstValue small[]{{"Left", 150.0F}, {"Top", 150.0F}, {"Width", 1500.0F},
    {"Height", 300.0F}, {"Visible", true}, {"VariablenName", std::string_view{"first"}},
    {"Alignment", std::int16_t{1}}};
constexpr platform::FirstValue text[]{{"Width", 1500.0F}, {"Height", 300.0F}, {"Visible", true}};
constexpr platform::FormChild form[]{
    {{"Bereich", 1}, classes::PictureBox, {}, box},
    {{"Text", 1}, classes::VWSIndex, {"Bereich", 1}, text},
    {{"Eingabe", 1}, classes::VWSVarIn, {"Bereich", 1}, small},
    {{"Deckel"}, classes::Label, {"Bereich", 1}, text},
    {{"Quelle"}, classes::PictureBox, {}, box},
};

class ControlHostTest : public ::testing::Test {
protected:
    ControlHostTest() { around_.stage.show(); }
    QWidget& view(std::string_view name, std::int16_t index = platform::ChildId::noIndex)
    {
        return around_.child(name, index).view();
    }
    QColor pixel(std::string_view name, std::int16_t index, int x, int y)
    {
        return around_.host->require<panel::PictureChild>(name, index)
            .canvas()
            .canvas()
            .image()
            .pixelColor(x, y);
    }
    servopanel::testing::FakeForm around_{form};
};

} // namespace

TEST_F(ControlHostTest, AMissingChildIsError91AndAMissingElement340)
{
    EXPECT_EQ(errorNumber([&] { return around_.form().child({"Nichts"}), 0; }), 91);
    EXPECT_EQ(errorNumber([&] { return around_.form().child({"Eingabe", 9}), 0; }), 340);
    EXPECT_EQ(errorNumber([&] { return around_.form().child({"eingabe", 1}), 0; }), 91);
}

TEST_F(ControlHostTest, AFurtherElementIsACopyOfTheFirstButInvisibleAndWithoutAVariable)
{
    platform::Sollwert first{around_.form().child({"Eingabe", 1})};
    first.Left(777.7F);
    first.Vordergrund(0x123456);
    first.Enabled(false);
    around_.form().load({"Eingabe", 5});
    const platform::ControlRef made = around_.form().child({"Eingabe", 5});
    EXPECT_EQ(made->get(names::Left), Variant{777.7F});
    EXPECT_EQ(made->get(platform::ids::VWSVarIn::Vordergrund), Variant{std::int32_t{0x123456}});
    EXPECT_EQ(made->get(names::Enabled), Variant{false});
    EXPECT_EQ(made->get(names::Alignment), Variant{std::int16_t{1}});
    EXPECT_EQ(made->get(names::Visible), Variant{false});
    EXPECT_EQ(made->get(platform::ids::VWSVarIn::VariablenName), Variant{""});
    EXPECT_EQ(view("Eingabe", 5).parentWidget(), &view("Bereich", 1));
    EXPECT_TRUE(around_.log.empty());
}

TEST_F(ControlHostTest, LoadingWhatExistsIsError360)
{
    EXPECT_EQ(errorNumber([&] { return around_.form().load({"Eingabe", 1}), 0; }), 360);
    around_.form().load({"Eingabe", 2});
    EXPECT_EQ(errorNumber([&] { return around_.form().load({"Eingabe", 2}), 0; }), 360);
    EXPECT_EQ(errorNumber([&] { return around_.form().load({"Nichts", 2}), 0; }), 91);
}

TEST_F(ControlHostTest, AFurtherElementStandsDirectlyAboveTheHighestOfItsArray)
{
    around_.form().load({"Text", 7});
    around_.form().load({"Text", 3});
    const QObjectList& order = view("Bereich", 1).children();
    const auto place = [&](QWidget& widget) { return order.indexOf(&widget); };
    EXPECT_EQ(place(view("Text", 7)), place(view("Text", 1)) + 1);
    EXPECT_EQ(place(view("Text", 3)), place(view("Text", 7)) + 1);
    EXPECT_LT(place(view("Text", 3)), place(view("Eingabe", 1)));
    EXPECT_LT(place(view("Eingabe", 1)), place(view("Deckel")));
}

TEST_F(ControlHostTest, ALoadedElementReportsUnderItsOwnIndex)
{
    around_.form().load({"Eingabe", 4});
    around_.form().child({"Eingabe", 4})->put(names::Visible, true);
    QTest::mousePress(&view("Eingabe", 4), Qt::LeftButton, {}, {1, 1});
    EXPECT_EQ(around_.log, (std::vector<std::string>{"Eingabe(4).MouseDown 1 0 15 15"}));
}

TEST_F(ControlHostTest, LinesAndBoxesAreKeptInPixels)
{
    around_.surface().line({"Bereich", 1}, 0, 15, 150, 15, 0xFFFFFF, platform::Surface::lineFlags);
    EXPECT_EQ(pixel("Bereich", 1, 9, 1), QColor(255, 255, 255));
    EXPECT_EQ(pixel("Bereich", 1, 10, 1), QColor(0xC0, 0xC0, 0xC0));
    around_.surface().line({"Bereich", 1}, 0, 300, 9000, 600, 0x0000FF, platform::Surface::filledBoxFlags);
    EXPECT_EQ(pixel("Bereich", 1, 0, 20), QColor(255, 0, 0));
    EXPECT_EQ(pixel("Bereich", 1, 599, 40), QColor(255, 0, 0));
    EXPECT_EQ(pixel("Bereich", 1, 0, 41), QColor(0xC0, 0xC0, 0xC0));
    EXPECT_EQ(errorNumber([&] { return around_.surface().clear({"Deckel"}), 0; }), 438);
}

TEST_F(ControlHostTest, CopiesWorkOnBoxesThatAreNotVisible)
{
    around_.form().child({"Quelle"})->put(names::Visible, false);
    around_.surface().line({"Quelle"}, 0, 0, 9000, 6000, 0x00FF00, platform::Surface::filledBoxFlags);
    around_.surface().bitBlt({"Quelle"}, {"Bereich", 1}, 10, 10, 20, 20);
    EXPECT_EQ(pixel("Bereich", 1, 10, 10), QColor(0, 255, 0));
    EXPECT_EQ(pixel("Bereich", 1, 29, 29), QColor(0, 255, 0));
    EXPECT_EQ(pixel("Bereich", 1, 30, 30), QColor(0xC0, 0xC0, 0xC0));
}

TEST_F(ControlHostTest, NothingEntersWhileAMessageIsOpen)
{
    around_.gate.close();
    QTest::mouseClick(&view("Eingabe", 1), Qt::LeftButton);
    EXPECT_TRUE(around_.log.empty());
    around_.gate.open();
    QTest::mousePress(&view("Eingabe", 1), Qt::LeftButton);
    EXPECT_EQ(around_.log.size(), 1U);
}

TEST_F(ControlHostTest, WhatTheOperatorDoesWithinARunningProcedureDoesNotEnter)
{
    bool isFirst = true;
    around_.hosted->during = [&] {
        if (!std::exchange(isFirst, false)) return;
        QTest::mousePress(&view("Eingabe", 1), Qt::LeftButton, {}, {1, 1});
        EXPECT_FALSE(around_.host->deliver({"Text", 1}, "MouseDown", {}));
        // Scrolling on and the page's own timer may.
        EXPECT_TRUE(around_.host->deliver({"Text", 1}, "NeuePos", {}));
        EXPECT_TRUE(around_.host->deliver({"Text", 1}, "Timer", {}));
    };
    around_.host->deliver({"Text", 1}, "Click", {});
    EXPECT_EQ(around_.log, (std::vector<std::string>{"Text(1).Click", "Text(1).NeuePos", "Text(1).Timer"}));
    letEventsPass();
    EXPECT_EQ(around_.log.size(), 3U);
    // Afterwards the panel answers again.
    EXPECT_TRUE(around_.host->deliver({"Text", 1}, "Click", {}));
}

TEST_F(ControlHostTest, SettingPropertiesWithinAProcedureRaisesNothingFurther)
{
    around_.hosted->during = [&] {
        platform::Sollwert{around_.form().child({"Eingabe", 1})}.Wert(5.0);
        platform::Textanzeige{around_.form().child({"Text", 1})}.Text("x");
    };
    QTest::mousePress(&view("Eingabe", 1), Qt::LeftButton);
    EXPECT_EQ(around_.log.size(), 1U);
}

TEST_F(ControlHostTest, AControlThatIsDestroyedWithinItsProcedureGoesAfterIt)
{
    bool wasAlive = false;
    around_.hosted->during = [&] {
        around_.gate.later([&] { around_.host.reset(); });
        letEventsPass(); // events run meanwhile
        wasAlive = around_.host != nullptr;
    };
    QTest::mousePress(&view("Eingabe", 1), Qt::LeftButton);
    EXPECT_TRUE(wasAlive);
    letEventsPass();
    EXPECT_EQ(around_.host, nullptr);
    EXPECT_EQ(around_.log.back(), "terminate");
}

TEST_F(ControlHostTest, TheControlsOwnSizeIsARequestToItsContainer)
{
    around_.surface().put(names::Height, 6000.5F);
    EXPECT_EQ(around_.surface().get(names::Height), Variant{6000.5F});
    EXPECT_EQ(around_.host->view().height(), 400);
}

TEST_F(ControlHostTest, PropertiesThatNoContainerHasBelongToTheLibrarysControl)
{
    platform::Control& seen = *around_.host;
    seen.put(names::BildInit, {}, Variant{std::int16_t{-1}});
    EXPECT_EQ(seen.get(names::BildInit, {}), Variant{std::int16_t{-1}});
    EXPECT_EQ(errorNumber([&] { return seen.get(platform::named("Nichts"), {}); }), 438);
}

TEST_F(ControlHostTest, EventsOfTheControlReachItsOwner)
{
    std::string told;
    around_.host->setOwner([&](std::string_view event, platform::Args) { told = event; });
    around_.hosted->platform.owner.raise("JetztAnzeigen", {});
    EXPECT_EQ(told, "JetztAnzeigen");
}

TEST(Forms, EveryChildOfTheLibrarysFormsCanBeMadeWithItsFirstValues)
{
    for (const platform::FormData data : {servo_page::servoMainForm(), servo_menu::servoMenuForm()}) {
        servopanel::testing::FakeForm around{data};
        for (const platform::FormChild& row : data)
            EXPECT_NE(around.host->find(row.id.name, row.id.index), nullptr) << row.id.name;
    }
}
