// What the operator may edit and confirm, seen from what the machine says meanwhile.
#include "servo_page_test.h"

#include "basic/conversions.h"
#include "mqtt/outcome.h"
#include "panel/form/fusszeile.h"
#include "panel/form/ini_eingabe.h"

#include <stdexcept>

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
    panel::TouchKey& confirmKey()
    {
        return panel_->shownPart()->require<panel::FußzeileChild>("Fußzeile").bar().key(10);
    }
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

TEST_F(EditCheckTest, WhatIsEnteredOverAnOldNumberIsAChangeEvenIfItIsTheSame)
{
    change("SollwertL", 1, "42.5");
    hands_->input("SollwertL", 21);
    hands_->cancel();
    const std::string shown = text("SollwertL", 21).text().toStdString();
    machineSets(secondSetpoints, 0, 33);
    hands_->wait(refreshMs);
    change("SollwertL", 21, shown);
    EXPECT_TRUE(child("SollwertL", 21).isChanged());
    hands_->footerKey(10);
    EXPECT_EQ(answer(), "Not written: Servo.M1.Servo3.21: changed at the machine meanwhile (33)");
    hands_->wait(readingMs);
    hands_->footerKey(10);
    EXPECT_EQ(answer(), "Written, values: 2");
    EXPECT_EQ(std::to_string(held(secondSetpoints, 0)), std::to_string(std::stod(shown)));
}

TEST_F(EditCheckTest, TheConfirmKeyShowsThatItCannotActOverABadLink)
{
    panel_->setLink({false, "The controller does not answer"});
    EXPECT_FALSE(confirmKey().isHeldBack()); // nothing waits: it leads to the diagnosis
    panel_->setLink({true, {}});
    hands_->wait(refreshMs);
    change("SollwertL", 1, "42.5");
    EXPECT_FALSE(confirmKey().isHeldBack());
    const auto corner = [&] {
        const QImage whole = confirmKey().grab().toImage().convertToFormat(QImage::Format_Grayscale8);
        const int side = whole.height() / 3;
        return whole.copy(whole.width() - side - 4, 3, side, side);
    };
    const auto darkest = [](const QImage& image) {
        int least = 255;
        for (int y = 0; y < image.height(); ++y)
            for (int x = 0; x < image.width(); ++x)
                least = std::min(least, image.pixelColor(x, y).lightness());
        return least;
    };
    EXPECT_GT(darkest(corner()), 150);
    panel_->setLink({false, "The controller does not answer"});
    EXPECT_TRUE(confirmKey().isHeldBack());
    EXPECT_LT(darkest(corner()), 80); // a sign where nothing was
    hands_->footerKey(10);
    EXPECT_EQ(answer(), "Not written: Start position: No connection");
    EXPECT_TRUE(confirmKey().isHeldBack());
    panel_->setLink({true, {}});
    EXPECT_FALSE(confirmKey().isHeldBack());
    panel_->setLink({false, "The controller does not answer"});
    hands_->footerKey(11);
    EXPECT_FALSE(confirmKey().isHeldBack());
}

TEST_F(EditCheckTest, WhatCannotBeReadHoldsTheRestUpOnlyOnce)
{
    const double before = held(secondSetpoints, 0);
    const double untouched = held(setpoints, 1);
    change("SollwertL", 1, "42.5");
    change("SollwertR", 11, "43");
    change("SollwertL", 21, "12");
    flaky_->unreadable.insert(setpoints);
    hands_->footerKey(10);
    EXPECT_EQ(answer(), "Not written: Start position: cannot be read (+1)");
    EXPECT_EQ(held(secondSetpoints, 0), before);
    hands_->footerKey(10); // nobody reads as fast as that
    EXPECT_EQ(held(secondSetpoints, 0), before);
    hands_->wait(readingMs);
    hands_->footerKey(10);
    EXPECT_EQ(answer(), "Only partly written: Written, values: 1. Start position: cannot be read (+1)");
    EXPECT_EQ(held(secondSetpoints, 0), 12);
    EXPECT_FALSE(child("SollwertL", 21).isChanged());

    // What was not written waits on.
    EXPECT_TRUE(child("SollwertL", 1).isChanged());
    EXPECT_TRUE(child("SollwertR", 11).isChanged());
    EXPECT_EQ(text("SollwertL", 1).text(), "42.5");
    EXPECT_FALSE(isMaskOpen());
    EXPECT_TRUE(panel_->answers().isVisible());
    flaky_->unreadable.clear();
    hands_->wait(refreshMs);
    EXPECT_EQ(text("SollwertL", 1).text(), "42.5");
    hands_->footerKey(10);
    EXPECT_EQ(answer(), "Written, values: 2");
    EXPECT_EQ(held(setpoints, 0), 42.5);
    EXPECT_EQ(held(setpoints, 10), 43);
    EXPECT_EQ(held(setpoints, 1), untouched);
    EXPECT_FALSE(child("SollwertL", 1).isChanged());
}

// What the machine changed while nobody could read it is told before it is overwritten.
TEST_F(EditCheckTest, WhatWaitsOnIsComparedWithWhatItsEditBeganFrom)
{
    change("SollwertL", 1, "42.5");
    change("SollwertL", 21, "12");
    flaky_->unreadable.insert(setpoints);
    hands_->footerKey(10);
    hands_->wait(readingMs);
    hands_->footerKey(10);
    machineSets(setpoints, 0, 40.25);
    machineSets(secondSetpoints, 0, 33); // that edit is over
    flaky_->unreadable.clear();
    hands_->wait(refreshMs);
    hands_->footerKey(10);
    EXPECT_EQ(answer(), "Not written: Start position: changed at the machine meanwhile (40.25)");
    EXPECT_EQ(held(setpoints, 0), 40.25);
}

TEST_F(EditCheckTest, EachConfirmIsHeldUpByItself)
{
    change("SollwertL", 1, "42.5");
    change("SollwertL", 21, "12");
    flaky_->unreadable.insert(setpoints);
    hands_->footerKey(10);
    hands_->wait(readingMs);
    hands_->footerKey(10);
    EXPECT_EQ(held(secondSetpoints, 0), 12);
    hands_->wait(readingMs);
    change("SollwertL", 21, "13");
    hands_->footerKey(10);
    EXPECT_EQ(answer(), "Not written: Start position: cannot be read");
    EXPECT_EQ(held(secondSetpoints, 0), 12);
}

// Over a connection that is about to be found broken there is no rest that could be written.
TEST_F(EditCheckTest, WithoutAConnectionNothingIsConfirmedHoweverOften)
{
    const double before = held(setpoints, 0);
    change("SollwertL", 1, "42.5");
    change("SollwertL", 21, "12");
    flaky_->number = static_cast<std::int32_t>(mqtt::Outcome::NoConnection);
    flaky_->unreadable.insert(secondSetpoints);
    for (int i = 0; i < 3; ++i) {
        hands_->footerKey(10);
        EXPECT_EQ(answer(), "Not written: Servo.M1.Servo3.21: No connection");
        hands_->wait(readingMs);
    }
    EXPECT_EQ(held(setpoints, 0), before);
}

TEST_F(EditCheckTest, WhatWasToldOfAnEditSaysNothingOfTheNext)
{
    change("SollwertL", 1, "42.5");
    machineSets(setpoints, 0, 40.25);
    hands_->footerKey(10);
    hands_->footerKey(11);
    machineSets(setpoints, 0, 1.5);
    hands_->wait(readingMs);
    change("SollwertL", 1, "42.5");
    machineSets(setpoints, 0, 40.25);
    hands_->footerKey(10);
    EXPECT_EQ(answer(), "Not written: Start position: changed at the machine meanwhile (40.25)");
    EXPECT_EQ(held(setpoints, 0), 40.25);
}

TEST_F(EditCheckTest, LimitsAndLevelsAreChangedWhateverIsKnownOfTheMachine)
{
    panel_->setLevel(5);
    panel_->openServo();
    hands_->footerKey(4);
    panel_->setLink({false, "The controller does not answer"});
    hands_->input("SollwertL", 1);
    EXPECT_TRUE(dynamic_cast<panel::IniEingabeChild&>(child("IniEingabe")).isOpen());
    hands_->editorCancel();
}

// What stands on the strip since then is said in the words of its own time.
TEST_F(EditCheckTest, ARefusedTouchTakesThePlaceOfAnAnswer)
{
    change("SollwertL", 1, "42.5");
    hands_->footerKey(10);
    EXPECT_EQ(answer(), "Written, values: 1");
    panel_->setLink({false, "The controller does not answer"});
    hands_->input("SollwertL", 1);
    EXPECT_EQ(answer(), "Cannot be changed: Start position: No connection");
    panel_->chooseLanguage(1);
    EXPECT_NE(answer(), "Written, values: 1");
}

TEST_F(EditCheckTest, WhereNothingElseIsLeftNothingIsConfirmed)
{
    int announced = 0;
    flaky_->written = [&](std::string_view name) { announced += name == changedFlag ? 1 : 0; };
    change("SollwertL", 21, "12");
    flaky_->unreadable.insert(secondSetpoints);
    for (int i = 0; i < 3; ++i) {
        hands_->footerKey(10);
        EXPECT_EQ(answer(), "Not written: Servo.M1.Servo3.21: cannot be read");
        hands_->wait(readingMs);
    }
    EXPECT_EQ(announced, 0);
    EXPECT_TRUE(child("SollwertL", 21).isChanged());
}

// Each is confirmed in the knowledge of it.
TEST_F(EditCheckTest, OfSeveralThatCannotBeReadEachIsTold)
{
    change("SollwertL", 1, "42.5");
    hands_->input("SchalterL", 31);
    change("ZeichnungL", 43, "7");
    const bool turned = basic::toBoolean(child("SchalterL", 31).get(platform::ids::Schalter::Zustand, {}));
    const Variant word = *panel_->variables().find(switches);
    flaky_->unreadable = {switches, drawings};
    hands_->footerKey(10);
    const std::string first = answer();
    hands_->wait(readingMs);
    hands_->footerKey(10);
    const std::string second = answer();
    EXPECT_NE(first, second);
    EXPECT_EQ(held(setpoints, 0), 1.5);
    hands_->wait(readingMs);
    hands_->footerKey(10);
    EXPECT_EQ(held(setpoints, 0), 42.5);
    EXPECT_TRUE(child("SchalterL", 31).isChanged());
    EXPECT_TRUE(child("ZeichnungL", 43).isChanged());
    EXPECT_FALSE(child("ZeichnungL", 41).isChanged());
    EXPECT_EQ(basic::toBoolean(child("SchalterL", 31).get(platform::ids::Schalter::Zustand, {})), turned);
    EXPECT_EQ(*panel_->variables().find(switches), word);
    EXPECT_EQ(text("ZeichnungL", 43).text(), "07");

    flaky_->unreadable.clear();
    hands_->wait(refreshMs);
    hands_->footerKey(10);
    EXPECT_EQ(answer(), "Written, values: 2");
    EXPECT_EQ((basic::toInt32(*panel_->variables().find(switches)) & 1) != 0, turned);
}

TEST_F(EditCheckTest, WhatCanBeReadAgainIsHeldUpAnewWhenItFailsOnceMore)
{
    change("SollwertL", 1, "42.5");
    change("SollwertL", 21, "12");
    change("ZeichnungL", 43, "7");
    flaky_->unreadable = {setpoints, drawings};
    hands_->footerKey(10);
    EXPECT_EQ(answer(), "Not written: Start position: cannot be read (+1)");
    hands_->wait(readingMs);
    hands_->footerKey(10);
    EXPECT_EQ(answer(), "Not written: Servo.M1.Servo3.35: cannot be read");
    flaky_->unreadable = {drawings};
    hands_->footerKey(10); // looks once more
    flaky_->unreadable = {setpoints, drawings};
    hands_->wait(readingMs);
    hands_->footerKey(10);
    EXPECT_EQ(answer(), "Not written: Start position: cannot be read");
    EXPECT_EQ(held(secondSetpoints, 0), 21);
}

TEST_F(EditCheckTest, AChangeThatWasNotAnnouncedWaitsOn)
{
    change("SollwertL", 1, "42.5");
    flaky_->unwritable.insert(changedFlag);
    hands_->footerKey(10);
    EXPECT_EQ(answer(), "Not written: Change not announced: refused by the controller. Written, values: 1");
    EXPECT_TRUE(child("SollwertL", 1).isChanged());
    flaky_->unwritable.clear();
    bool isAnnounced = false;
    flaky_->written = [&](std::string_view name) { isAnnounced = isAnnounced || name == changedFlag; };
    hands_->footerKey(10);
    EXPECT_TRUE(isAnnounced);
    EXPECT_FALSE(child("SollwertL", 1).isChanged());
}

TEST_F(EditCheckTest, AnUnannouncedChangeIsNotForgottenByARefusal)
{
    change("SollwertL", 1, "42.5");
    flaky_->unwritable.insert(changedFlag);
    hands_->footerKey(10);
    flaky_->unwritable.insert(setpoints);
    hands_->footerKey(10);
    EXPECT_EQ(answer(), "Not written: Start position: refused by the controller. Change not announced");
    EXPECT_TRUE(child("SollwertL", 1).isChanged());
    hands_->footerKey(11); // discarded
    change("SollwertL", 21, "12");
    flaky_->unwritable.insert(secondSetpoints);
    hands_->footerKey(10);
    EXPECT_EQ(answer(), "Not written: Servo.M1.Servo3.21: refused by the controller");
}

TEST_F(EditCheckTest, ARefusalBehindTheMaskIsSeenAfterwards)
{
    panel_->answers().setLeastTime(100);
    hands_->input("SollwertL", 1);
    ASSERT_TRUE(isMaskOpen());
    panel_->setLink({false, "The controller does not answer"});
    hands_->input("SchalterL", 31);
    EXPECT_FALSE(panel_->answers().isVisible());
    hands_->wait(200);
    hands_->cancel();
    EXPECT_TRUE(panel_->answers().isVisible());
    EXPECT_NE(answer().find("Cannot be changed"), std::string::npos) << answer();
    hands_->wait(200);
    hands_->input("BeschriftungL", 2); // a touch that means nothing
    EXPECT_FALSE(panel_->answers().isVisible());
}

TEST(WatchedVariablesTest, WhatCouldNotBeReadAtLastIsNotWritten)
{
    auto store = std::make_shared<machine::VariableStore>();
    store->declare(setpoints, basic::doubles({1, 2}));
    const auto flaky = std::make_shared<FlakyVariables>(store);
    panel::WatchedVariables watched{flaky};
    watched.ReadValue(setpoints);
    flaky->unreadable.insert(setpoints);
    EXPECT_THROW(watched.ReadValue(setpoints), basic::Error);
    flaky->unreadable.clear();
    EXPECT_THROW(watched.WriteValue(setpoints, basic::doubles({3, 2})), basic::Error);
    EXPECT_EQ(*store->find(setpoints), basic::doubles({1, 2}));
    ASSERT_EQ(watched.writes().size(), 1U);
    EXPECT_EQ(panel::reasonOf(watched.writes().front().error, false), panel::RefusalReason::NotReadable);
    watched.ReadValue(setpoints);
    watched.WriteValue(setpoints, basic::doubles({3, 2}));
    EXPECT_EQ(*store->find(setpoints), basic::doubles({3, 2}));
}

TEST(WatchedVariablesTest, AWriteIsRecordedOnceAndAsWhatItWas)
{
    auto store = std::make_shared<machine::VariableStore>();
    store->declare(setpoints, basic::doubles({1, 2}));
    const auto flaky = std::make_shared<FlakyVariables>(store);
    panel::WatchedVariables watched{flaky};
    watched.ReadValue(setpoints);
    // Whoever is told of a write fails after it.
    watched.setWrittenHandler([](std::string_view, const Variant&) {
        throw basic::Error{5, {}, "nobody listens"};
    });
    EXPECT_THROW(watched.WriteValue(setpoints, basic::doubles({3, 2})), basic::Error);
    ASSERT_EQ(watched.writes().size(), 1U);
    EXPECT_EQ(watched.writes()[0].variable, setpoints);
    EXPECT_EQ(watched.writes()[0].problem, "");
    EXPECT_EQ(watched.writes()[0].changes, 1);
    // What is no error of the variables' is one of the write's all the same.
    watched.setWrittenHandler({});
    flaky->written = [](std::string_view) { throw std::runtime_error{"out of memory"}; };
    EXPECT_THROW(watched.WriteValue(setpoints, basic::doubles({4, 2})), std::runtime_error);
    ASSERT_EQ(watched.writes().size(), 2U);
    EXPECT_EQ(watched.writes()[1].problem, "'" + setpoints + "': out of memory");
    EXPECT_NE(watched.writes()[1].error, 0);
}

TEST(WatchedVariablesTest, SaysWhyItDoesNotLook)
{
    auto store = std::make_shared<machine::VariableStore>();
    store->declare(setpoints, basic::doubles({1, 2}));
    panel::WatchedVariables watched{store};
    watched.setLink(false);
    try {
        watched.look(setpoints);
        ADD_FAILURE() << "an old value";
    } catch (const basic::Error& error) {
        EXPECT_EQ(error.description, "'" + setpoints + "': no connection, not read");
        EXPECT_EQ(panel::reasonOf(error.number, true), panel::RefusalReason::NoLink);
    }
}

TEST(LockedPanelTest, TheSystemsOwnMessageComesWhateverIsKnownOfTheMachine)
{
    TestProject project{standardProject};
    std::string file;
    {
        std::ifstream in{project.file("project.json")};
        file.assign(std::istreambuf_iterator<char>{in}, {});
    }
    const std::string permission = R"("input": -1)";
    ASSERT_NE(file.find(permission), std::string::npos);
    project.write("project.json", file.replace(file.find(permission), permission.size(), R"("input": 0)"));
    panel::PanelSettings settings = project.settings();
    settings.wrapVariables = [](std::shared_ptr<platform::ProcessVarAccess> inner) {
        auto flaky = std::make_shared<FlakyVariables>(std::move(inner));
        flaky->unreadable = {switches};
        return flaky;
    };
    Panel panel{settings};
    panel.window().show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&panel.window()));
    panel.openServo();
    Operator hands{panel};
    {
        const MessageReader reader{panel};
        hands.menuKey(1);
        hands.wait(refreshMs);
    }
    panel.setLink({false, "The controller does not answer"});
    const MessageReader reader{panel};
    hands.input("SollwertL", 1);
    ASSERT_TRUE(panel.shownPart()->require<panel::SchalterChild>("SchalterL", 31).lever().isUnknown());
    hands.input("SchalterL", 31);
    ASSERT_EQ(reader.texts().size(), 2U);
    EXPECT_EQ(reader.texts()[0], panel.text("Standard.15000"));
    EXPECT_EQ(panel.answers().text(), "");
    EXPECT_FALSE(panel.shownPart()->require<panel::Child>("SchalterL", 31).isChanged());
}

} // namespace servopanel::testing
