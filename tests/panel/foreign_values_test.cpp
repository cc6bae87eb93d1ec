// Nothing that belongs to another servo, or that the machine no longer holds, is taken for the value of a field.
#include "servo_page_test.h"

#include <limits>

using namespace servopanel;
using namespace servopanel::testing;

namespace {

class ForeignValuesTest : public ServoPageTest {
protected:
    // The page of servo 3 as it comes after that of servo 5, when a family of servo 3 cannot be read.
    void comeBackUnread(const std::string& variable)
    {
        hands_->footerKey(6);
        flaky_->unreadable = {variable};
        hands_->footerKey(5);
    }
    panel::InputMask& mask()
    {
        return panel_->shownPart()->require<panel::EingabemaskeChild>("Eingabemaske").mask();
    }
    panel::SwitchView& lever()
    {
        return panel_->shownPart()->require<panel::SchalterChild>("SchalterL", 31).lever();
    }
    Variant element(const std::string& variable, int index)
    {
        return basic::element(*panel_->variables().find(variable), index);
    }
    void machineSets(const std::string& variable, int index, double number)
    {
        Variant values = *panel_->variables().find(variable);
        basic::setElement(values, index, number);
        panel_->variables().write(variable, values, machine::Writer::Machine);
    }
};

} // namespace

TEST_F(ForeignValuesTest, ATouchedFieldDoesNotTakeTheNumberOfTheServoBefore)
{
    comeBackUnread(setpoints);
    const Variant before = element(setpoints, 0);
    change("SollwertL", 21, "12");
    hands_->input("SollwertL", 1);
    hands_->cancel();
    flaky_->unreadable.clear();
    hands_->wait(refreshMs);
    EXPECT_EQ(text("SollwertL", 1).shownText(), "–");
    hands_->input("SollwertL", 1);
    EXPECT_EQ(mask().shown().trimmed(), "mm");
    hands_->cancel();
    hands_->footerKey(10);
    EXPECT_EQ(element(setpoints, 0), before);
}

TEST_F(ForeignValuesTest, ATouchedFieldIsOldWhenTheMachineChangesItsValue)
{
    change("SollwertL", 1, "42.5");
    hands_->input("SollwertL", 21);
    hands_->cancel();
    hands_->wait(refreshMs);
    EXPECT_FALSE(text("SollwertL", 21).marks().stale);
    machineSets(secondSetpoints, 0, 33);
    hands_->wait(refreshMs);
    EXPECT_TRUE(text("SollwertL", 21).marks().stale);
}

TEST_F(ForeignValuesTest, AFieldIsOldWhenTheMachineChangesItsValueBehindTheMask)
{
    hands_->input("SollwertL", 1);
    machineSets(setpoints, 0, 90);
    hands_->wait(refreshMs);
    EXPECT_TRUE(text("SollwertL", 1).marks().stale);
}

TEST_F(ForeignValuesTest, OldValuesOverABadLinkAreOfTheServoThatIsShown)
{
    panel_->setLink({false, "The broker does not answer"});
    hands_->footerKey(6);
    EXPECT_NE(text("SollwertL", 1).shownText(), "–");
    EXPECT_TRUE(text("SollwertL", 1).marks().stale);
    flaky_->unreadable = {setpoints};
    hands_->footerKey(5);
    EXPECT_EQ(text("SollwertL", 1).shownText(), "–");
}

TEST_F(ForeignValuesTest, AWrittenFieldIsFreshAtOnce)
{
    change("SollwertL", 1, "42.5");
    change("ZeichnungL", 43, "7");
    for (const std::int16_t part : std::initializer_list<std::int16_t>{41, 43, 45})
        EXPECT_FALSE(text("ZeichnungL", part).marks().stale) << part;
    hands_->input("SchalterL", 31);
    hands_->footerKey(10);
    EXPECT_FALSE(text("SollwertL", 1).marks().stale);
    EXPECT_FALSE(text("ZeichnungL", 43).marks().stale);
    EXPECT_FALSE(lever().marks().stale);
    EXPECT_TRUE(answer().find("Written") != std::string::npos) << answer();
}

TEST_F(ForeignValuesTest, ASwitchThatNobodyCanSeeTakesNoTouch)
{
    comeBackUnread(switches);
    EXPECT_TRUE(lever().isUnknown());
    hands_->tap(lever());
    EXPECT_FALSE(lever().marks().changed);
    EXPECT_TRUE(lever().isUnknown());
}

// Else a changed project would wait for ever for the end of the input.
TEST_F(ForeignValuesTest, ASwitchDoesNotWaitAnyMoreOnceItWasRefusedOrDiscarded)
{
    for (const int key : {10, 11}) {
        flaky_->unreadable.clear();
        hands_->wait(refreshMs);
        hands_->input("SchalterL", 31);
        ASSERT_TRUE(lever().marks().changed);
        flaky_->unreadable = {switches};
        hands_->footerKey(key);
        EXPECT_FALSE(lever().marks().changed) << key;
        EXPECT_TRUE(lever().marks().stale) << key;
        EXPECT_TRUE(lever().isUnknown()) << key; // the machine never said so
        EXPECT_FALSE(panel_->hasUnfinishedInput()) << key;
    }
}

TEST_F(ForeignValuesTest, ADrawingNumberOfTheServoBeforeIsNotShownAndItsPartIsNotWritten)
{
    comeBackUnread(drawings);
    const Variant before = *panel_->variables().find(drawings);
    EXPECT_EQ(text("ZeichnungL", 41).shownText(), "–");
    change("ZeichnungL", 43, "77");
    flaky_->unreadable.clear();
    hands_->wait(refreshMs);
    EXPECT_EQ(text("ZeichnungL", 41).shownText(), "–");
    hands_->footerKey(10);
    EXPECT_EQ(*panel_->variables().find(drawings), before);
    EXPECT_NE(answer().find("Not written"), std::string::npos) << answer();
}

TEST_F(ForeignValuesTest, OverABadLinkNothingIsWritten)
{
    const Variant before = element(setpoints, 0);
    change("SollwertL", 1, "42.5");
    panel_->setLink({false, "The broker does not answer"});
    hands_->footerKey(10);
    EXPECT_EQ(element(setpoints, 0), before);
    EXPECT_NE(answer().find("No connection"), std::string::npos) << answer();
}

TEST_F(ForeignValuesTest, ALimitThatIsNoNumberAcceptsNothing)
{
    machineSets("Ch1.M1_T_servo_3<.mM1_servo_para_ob_3>", 0, std::numeric_limits<double>::quiet_NaN());
    hands_->wait(refreshMs);
    hands_->input("SollwertL", 1);
    hands_->type("2");
    hands_->ok();
    EXPECT_TRUE(mask().isVisible());
    EXPECT_EQ(mask().remark(), "Limits cannot be read: no input");
}
