// What the operator may edit and confirm, seen from what the machine says meanwhile.
#include "servo_page_test.h"

#include "basic/conversions.h"

namespace servopanel::testing {

namespace {

constexpr int readingMs = 1100; // what the strip says has been read

class EditCheckTest : public ServoPageTest {
protected:
    // As somebody else writes it, or the machine itself.
    void machineSets(const std::string& name, std::size_t element, double value)
    {
        Variant held = *panel_->variables().find(name);
        auto array = *held.get<basic::Array>();
        array.elements[element] = Variant{value};
        panel_->variables().write(name, Variant{array}, machine::Writer::Machine);
    }
    double held(const std::string& name, std::size_t element)
    {
        return *panel_->variables().find(name)->get<basic::Array>()->elements[element].get<double>();
    }
    bool isMaskOpen() { return dynamic_cast<panel::EingabemaskeChild&>(child("Eingabemaske")).isOpen(); }
    bool isReported(const std::string& text)
    {
        for (const panel::ErrorEntry& entry : panel_->errors().entries())
            if (entry.text.toStdString().find(text) != std::string::npos) return true;
        return false;
    }
};

} // namespace

TEST_F(EditCheckTest, NothingIsEditedOverABadLink)
{
    panel_->setLink({false, "The controller does not answer"});
    hands_->input("SollwertL", 1);
    EXPECT_FALSE(isMaskOpen());
    EXPECT_EQ(answer(), "Cannot be changed: Start position: No connection");
    hands_->input("SchalterL", 31);
    EXPECT_FALSE(child("SchalterL", 31).isChanged());

    panel_->setLink({true, {}});
    hands_->wait(refreshMs);
    hands_->input("SollwertL", 1);
    EXPECT_TRUE(isMaskOpen());
}

TEST_F(EditCheckTest, AValueThatCannotBeReadIsNotEditedAndOthersAre)
{
    flaky_->unreadable.insert(setpoints);
    hands_->wait(refreshMs);
    hands_->input("SollwertL", 1);
    EXPECT_FALSE(isMaskOpen());
    EXPECT_EQ(answer(), "Cannot be changed: Start position: cannot be read");

    hands_->input("SchalterL", 31);
    EXPECT_TRUE(child("SchalterL", 31).isChanged());
}

TEST_F(EditCheckTest, ABadLinkKeepsWhatWasEnteredUntilItCanBeConfirmed)
{
    const double before = held(setpoints, 0);
    change("SollwertL", 1, "42.5");
    panel_->setLink({false, "The controller does not answer"});
    hands_->footerKey(10);
    EXPECT_EQ(answer(), "Not written: Start position: No connection");
    EXPECT_TRUE(child("SollwertL", 1).isChanged());
    EXPECT_EQ(held(setpoints, 0), before);

    panel_->setLink({true, {}});
    hands_->footerKey(10);
    EXPECT_EQ(answer(), "Written, values: 1");
    EXPECT_EQ(held(setpoints, 0), 42.5);
}

TEST_F(EditCheckTest, WhatTheMachineChangedMeanwhileIsConfirmedInTheKnowledgeOfIt)
{
    change("SollwertL", 1, "42.5");
    machineSets(setpoints, 0, 40.25);
    hands_->footerKey(10);
    EXPECT_EQ(answer(), "Not written: Start position: changed at the machine meanwhile (40.25)");
    EXPECT_TRUE(isReported("Start position: changed at the machine meanwhile (40.25)"));
    EXPECT_TRUE(child("SollwertL", 1).isChanged());
    EXPECT_EQ(held(setpoints, 0), 40.25);

    hands_->footerKey(10); // nobody reads as fast as that
    EXPECT_EQ(held(setpoints, 0), 40.25);
    hands_->wait(readingMs);
    hands_->footerKey(10);
    EXPECT_EQ(answer(), "Written, values: 1");
    EXPECT_EQ(held(setpoints, 0), 42.5);
}

TEST_F(EditCheckTest, WhatChangedBetweenTouchAndEnterCountsToo)
{
    hands_->input("SollwertL", 1);
    machineSets(setpoints, 0, 40.25);
    hands_->wait(refreshMs);
    hands_->type("42.5");
    hands_->ok();
    hands_->footerKey(10);
    EXPECT_EQ(answer(), "Not written: Start position: changed at the machine meanwhile (40.25)");
    EXPECT_EQ(held(setpoints, 0), 40.25);
}

TEST_F(EditCheckTest, ElementsThatNobodyTouchedMayChange)
{
    change("SollwertL", 1, "42.5");
    machineSets(setpoints, 1, 77);
    hands_->footerKey(10);
    EXPECT_EQ(answer(), "Written, values: 1");
    EXPECT_EQ(held(setpoints, 0), 42.5);
    EXPECT_EQ(held(setpoints, 1), 77);
}

// The page would write it with what the field shows.
TEST_F(EditCheckTest, AFieldThatWasOnlyTouchedCountsToo)
{
    change("SollwertL", 1, "42.5");
    hands_->input("SollwertL", 21);
    hands_->cancel();
    machineSets(secondSetpoints, 0, 33); // the page has not read it yet
    hands_->footerKey(10);
    EXPECT_NE(answer().find("changed at the machine meanwhile (33)"), std::string::npos) << answer();
    EXPECT_EQ(held(secondSetpoints, 0), 33);
}

TEST_F(EditCheckTest, ASwitchThatWasTurnedMeanwhileIsToldToo)
{
    hands_->input("SchalterL", 31);
    const auto before = basic::toInt32(*panel_->variables().find(switches));
    panel_->variables().write(
        switches, Variant{static_cast<std::int16_t>(before ^ 1)}, machine::Writer::Machine);
    hands_->footerKey(10);
    EXPECT_NE(answer().find("changed at the machine meanwhile"), std::string::npos) << answer();
    EXPECT_TRUE(child("SchalterL", 31).isChanged());
}

TEST_F(EditCheckTest, EveryFieldThatStandsInTheWayIsReported)
{
    change("SollwertL", 1, "42.5");
    change("SollwertL", 21, "12");
    machineSets(setpoints, 0, 40.25);
    machineSets(secondSetpoints, 0, 11.5);
    hands_->footerKey(10);
    EXPECT_EQ(answer(), "Not written: Start position: changed at the machine meanwhile (40.25) (+1)");
    EXPECT_TRUE(isReported("(11.5)"));
    // Each is confirmed in the knowledge of it: not those that the answer has not named.
    hands_->wait(readingMs);
    hands_->footerKey(10);
    EXPECT_EQ(answer(), "Not written: Servo.M1.Servo3.21: changed at the machine meanwhile (11.5)");
    EXPECT_EQ(held(setpoints, 0), 40.25);
    hands_->wait(readingMs);
    hands_->footerKey(10);
    EXPECT_EQ(answer(), "Written, values: 2");
}

// A change between the last look and the write itself.
TEST_F(EditCheckTest, WhatChangesWhileOtherValuesAreWrittenIsNotOverwritten)
{
    change("SollwertL", 1, "42.5");
    change("SollwertL", 21, "12");
    flaky_->written = [this](std::string_view name) {
        if (name == setpoints) machineSets(secondSetpoints, 0, 33);
    };
    hands_->footerKey(10);
    EXPECT_NE(answer().find("changed at the machine meanwhile"), std::string::npos) << answer();
    EXPECT_EQ(held(setpoints, 0), 42.5);
    EXPECT_EQ(held(secondSetpoints, 0), 33);
}

TEST_F(EditCheckTest, AnUnseenPartOfADrawingNumberIsNotOverwritten)
{
    change("SollwertL", 1, "42.5");
    hands_->input("ZeichnungL", 43);
    hands_->cancel();
    machineSets(drawings, 0, 312450018);
    hands_->wait(refreshMs);
    change("ZeichnungL", 41, "313");
    hands_->footerKey(10);
    EXPECT_NE(answer().find("changed at the machine meanwhile (312450018)"), std::string::npos) << answer();
    EXPECT_EQ(held(drawings, 0), 312450018);
}

TEST_F(EditCheckTest, ABadLinkIsReportedOnce)
{
    for (const char* reason : {"no heartbeat for 1.6 s", "no heartbeat for 1.7 s", "no heartbeat for 1.8 s"})
        panel_->setLink({false, reason});
    EXPECT_TRUE(isReported("no heartbeat for 1.6 s"));
    EXPECT_FALSE(isReported("no heartbeat for 1.7 s"));
}

TEST_F(EditCheckTest, TheWayOutIsAlwaysOpen)
{
    change("SollwertL", 1, "42.5");
    panel_->setLink({false, "The controller does not answer"});
    hands_->footerKey(11);
    EXPECT_FALSE(child("SollwertL", 1).isChanged());
}

TEST_F(EditCheckTest, AnEditBeginsAnewWhenThePageDoes)
{
    hands_->input("SollwertL", 1);
    hands_->cancel();
    machineSets(setpoints, 0, 40.25);
    hands_->footerKey(6);
    hands_->footerKey(5);
    change("SollwertL", 1, "42.5");
    hands_->footerKey(10);
    EXPECT_EQ(answer(), "Written, values: 1");
    EXPECT_EQ(held(setpoints, 0), 42.5);
}

} // namespace servopanel::testing
