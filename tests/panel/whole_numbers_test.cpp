// Where the machine holds whole numbers, nothing that is entered is rounded unseen.
#include "servo_page_test.h"

#include "panel/form/input_value.h"

using namespace servopanel;
using namespace servopanel::testing;

namespace {

class WholeNumbers : public ServoPageTest {
protected:
    panel::InputMask& mask()
    {
        return panel_->shownPart()->require<panel::EingabemaskeChild>("Eingabemaske").mask();
    }
    bool takesPoint() { return mask().pad().key(".")->isOn(); }
};

} // namespace

TEST_F(WholeNumbers, ASetpointThatIsNoneTakesAPoint)
{
    hands_->input("SollwertL", 1);
    EXPECT_TRUE(takesPoint());
}

TEST_F(WholeNumbers, APartOfADrawingNumberTakesNone)
{
    hands_->input("ZeichnungL", 43);
    EXPECT_FALSE(takesPoint());
    QTest::keyClicks(&mask(), "4.");
    EXPECT_EQ(mask().remark(), "Whole numbers only");
    EXPECT_EQ(mask().shown(), "4");
}

TEST_F(WholeNumbers, ASetpointOfAVariableOfWholeNumbersTakesNone)
{
    basic::Array whole = *panel_->variables().find(setpoints)->get<basic::Array>();
    whole.elementType = basic::VariantType::Int16;
    for (Variant& each : whole.elements)
        each = Variant{std::int16_t{7}};
    panel_->variables().declare(setpoints, Variant{whole});
    hands_->wait(refreshMs);
    hands_->input("SollwertL", 1);
    EXPECT_FALSE(takesPoint());
    hands_->cancel();
    hands_->input("SollwertL", 21); // another variable
    EXPECT_TRUE(takesPoint());
}

// Such as currency, which has four decimals.
TEST_F(WholeNumbers, OtherTypesTakeAPoint)
{
    const auto whole = [](basic::VariantType type, Variant value) {
        basic::Array array{type, 0, {std::move(value)}};
        return panel::holdsWholeNumbers(Variant{array});
    };
    EXPECT_TRUE(whole(basic::VariantType::Int16, Variant{std::int16_t{1}}));
    EXPECT_TRUE(whole(basic::VariantType::Int32, Variant{std::int32_t{1}}));
    EXPECT_FALSE(whole(basic::VariantType::Double, Variant{1.0}));
    EXPECT_FALSE(whole(basic::VariantType::Text, Variant{"1"}));
    EXPECT_FALSE(whole(basic::VariantType::Variant, Variant{std::int16_t{1}}));
}
