// What the strip says of a confirm of which not all was written, and the list of reports behind it.
#include "servo_page_test.h"

#include "mqtt/outcome.h"
#include "panel/look/text_fit.h"

#include <QPainter>

using namespace servopanel;
using namespace servopanel::testing;

namespace {

constexpr int readingMs = 1100; // until the answer to the first press can have been read

class ConfirmAnswersTest : public ServoPageTest {
protected:
    void refuse(const std::string& variable, mqtt::Outcome outcome)
    {
        flaky_->unwritable.insert(variable);
        flaky_->number = static_cast<std::int32_t>(outcome);
    }
    bool isReported(const std::string& line)
    {
        for (const panel::ErrorEntry& entry : panel_->errors().entries())
            if (entry.text.toStdString() == line) return true;
        return false;
    }
    void touchStrip()
    {
        panel::AnswerStrip& strip = panel_->answers();
        hands_->press(strip, strip.rect().center());
        hands_->release(strip, strip.rect().center());
    }
};

} // namespace

TEST_F(ConfirmAnswersTest, TheNumberWrittenStandsBeforeTheNames)
{
    change("SollwertL", 1, "42.5");
    change("SollwertL", 21, "12");
    refuse(setpoints, mqtt::Outcome::Busy);
    hands_->footerKey(10);
    EXPECT_EQ(answer(), "Only partly written: Written, values: 1. Start position: controller is busy");
    EXPECT_TRUE(isReported("Written, values: 1"));
}

TEST_F(ConfirmAnswersTest, AReasonOfOneValueNamesAllThatItMayBeOf)
{
    change("SollwertL", 1, "42.5");
    change("SollwertR", 11, "43");
    refuse(setpoints, mqtt::Outcome::OutOfRange);
    hands_->footerKey(10);
    EXPECT_EQ(answer(), "Not written: Start position / Servo.M1.Servo3.11: out of range");
}

TEST_F(ConfirmAnswersTest, AReasonOfAllValuesNamesTheFirstAndCountsTheOthers)
{
    change("SollwertL", 1, "42.5");
    change("SollwertR", 11, "43");
    refuse(setpoints, mqtt::Outcome::TooLate);
    hands_->footerKey(10);
    EXPECT_EQ(answer(), "Not written: Start position: arrived too late (+1)");
}

TEST_F(ConfirmAnswersTest, EveryNamedFieldHasItsOwnReasonAndTheClearOnesComeFirst)
{
    change("SollwertL", 1, "42.5");
    change("SollwertR", 11, "43");
    change("SollwertL", 21, "12");
    flaky_->unreadable.insert(secondSetpoints);
    refuse(setpoints, mqtt::Outcome::OutOfRange);
    hands_->footerKey(10);
    hands_->wait(readingMs);
    hands_->footerKey(10);
    EXPECT_EQ(answer(),
        "Not written: Servo.M1.Servo3.21: out of range. Start position / Servo.M1.Servo3.11: out of range");
}

TEST_F(ConfirmAnswersTest, OfAChangedVariableTheChangedValueIsNamed)
{
    change("SollwertL", 1, "42.5");
    change("SollwertR", 11, "43");
    refuse(setpoints, mqtt::Outcome::ChangedMeanwhile);
    flaky_->refused = [&](std::string_view) {
        Variant values = *panel_->variables().find(setpoints);
        basic::setElement(values, 10, Variant{33.0});
        panel_->variables().write(setpoints, values, machine::Writer::Machine);
    };
    hands_->footerKey(10);
    EXPECT_EQ(answer(),
        "Not written: Servo.M1.Servo3.11: changed at the machine meanwhile. Start position: not taken over");
}

TEST_F(ConfirmAnswersTest, ATouchOnTheStripOpensTheListInsteadOfSendingTheAnswerAway)
{
    panel_->answers().setLeastTime(100);
    change("SollwertL", 1, "42.5");
    refuse(setpoints, mqtt::Outcome::Busy);
    hands_->footerKey(10);
    hands_->wait(200);
    touchStrip();
    EXPECT_TRUE(panel_->errors().isOpen());
    EXPECT_TRUE(panel_->answers().isVisible());
    hands_->tap(panel_->errors().closeKey());
    EXPECT_FALSE(panel_->answers().isVisible());
}

TEST_F(ConfirmAnswersTest, WhatIsInNoReportComesIntoTheListWhenItIsAskedFor)
{
    panel_->setLink({false, "The controller does not answer"});
    hands_->input("SollwertL", 1);
    const std::string line = "Cannot be changed: Start position: No connection";
    ASSERT_EQ(answer(), line);
    EXPECT_FALSE(isReported(line));
    touchStrip();
    EXPECT_TRUE(isReported(line));
    EXPECT_TRUE(panel_->errors().isOpen());
}

TEST_F(ConfirmAnswersTest, ATouchOnWordsOfSuccessOpensNothing)
{
    change("SollwertL", 1, "42.5");
    hands_->footerKey(10);
    ASSERT_EQ(answer(), "Written, values: 1");
    touchStrip();
    EXPECT_FALSE(panel_->errors().isOpen());
}

TEST_F(ConfirmAnswersTest, ALockedFieldSaysWhy)
{
    ASSERT_FALSE(hands_->isFree("SollwertL", 2));
    const int reports = panel_->errors().count();
    hands_->tap(child("SollwertL", 2).view());
    EXPECT_TRUE(panel_->answers().isRefusal());
    EXPECT_TRUE(answer().starts_with("Cannot be changed: ")) << answer();
    EXPECT_TRUE(answer().ends_with(": access level too low")) << answer();
    // Nothing is wrong with the panel.
    EXPECT_EQ(panel_->errors().count(), reports);
}

TEST_F(ConfirmAnswersTest, ALockedFieldLeavesARefusalThatNobodyCanHaveReadYet)
{
    change("SollwertL", 1, "42.5");
    refuse(setpoints, mqtt::Outcome::OutOfRange);
    hands_->footerKey(10);
    const std::string refusal = answer();
    ASSERT_TRUE(panel_->answers().isRefusal());
    ASSERT_FALSE(hands_->isFree("SollwertL", 2));
    hands_->tap(child("SollwertL", 2).view());
    EXPECT_EQ(answer(), refusal);
}
