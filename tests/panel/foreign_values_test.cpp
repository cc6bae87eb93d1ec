// Nothing that belongs to another servo, or that the machine no longer holds, is taken for the value of a field.
#include "servo_page_test.h"

#include "basic/conversions.h"
#include "panel/form/ini_eingabe.h"
#include "portable/temporary_folder.h"

#include <limits>

using namespace servopanel;
using namespace servopanel::testing;

namespace {

class ForeignValuesTest : public ServoPageTest {
protected:
    explicit ForeignValuesTest(const std::function<void(panel::PanelSettings&)>& adjust = {})
        : ServoPageTest{1280, adjust}
    {
    }

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

// A machine that keeps its drawing numbers as numbers with a point.
class AnyDrawingNumberTest : public ForeignValuesTest {
protected:
    AnyDrawingNumberTest()
        : ForeignValuesTest{[this](panel::PanelSettings&) {
            std::string file = tests::contentOf(project_.file("project.json"));
            const std::string whole = "[123456789, 7000012]";
            file.replace(file.find(whole), whole.size(), "[123456789.5, 7000012.5]");
            project_.write("project.json", file);
        }}
    {
    }
};

// An engineer, who may change definitions.
class ForeignDefinitionsTest : public ForeignValuesTest {
protected:
    ForeignDefinitionsTest()
        : ForeignValuesTest{[](panel::PanelSettings& settings) { settings.level = 5; }}
    {
    }
};

// A machine whose switches are a number that is too large for bits.
class SwitchWithoutBitsTest : public ForeignValuesTest {
protected:
    SwitchWithoutBitsTest()
        : ForeignValuesTest{[this](panel::PanelSettings&) {
            project_.replaceInFile("project.json", switches + R"(": 5)", switches + R"(": 5e12)");
        }}
    {
    }
};

} // namespace

TEST_F(ForeignValuesTest, AFieldWithoutANumberOfItsServoTakesNoTouchAndTheOthersDo)
{
    comeBackUnread(setpoints);
    const Variant before = element(setpoints, 0);
    change("SollwertL", 21, "12");
    hands_->input("SollwertL", 1);
    EXPECT_FALSE(mask().isVisible());
    EXPECT_EQ(answer(), "Cannot be changed: Start position: cannot be read");
    flaky_->unreadable.clear();
    hands_->wait(refreshMs);
    EXPECT_EQ(text("SollwertL", 1).shownText(), "1.5");
    hands_->footerKey(10);
    EXPECT_EQ(answer(), "Written, values: 1");
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

TEST_F(ForeignValuesTest, ASwitchThatNobodyCanSeeIsNotTurnedAndSaysWhy)
{
    const std::string reason = "Cannot be changed: Synchronous: cannot be read";
    comeBackUnread(switches);
    EXPECT_TRUE(lever().isUnknown());
    EXPECT_FALSE(lever().marks().locked); // no access level forbids it
    hands_->tap(lever());
    EXPECT_EQ(answer(), reason);
    panel_->answers().showWritten({});
    hands_->input("BeschriftungL", 31); // stands for the switch
    EXPECT_EQ(answer(), reason);
    EXPECT_FALSE(lever().marks().changed);
    EXPECT_TRUE(lever().isUnknown());
}

// It is read, and the page can make no state of it.
TEST_F(SwitchWithoutBitsTest, IsNotTurnedAndSaysWhy)
{
    EXPECT_TRUE(lever().isUnknown());
    hands_->tap(lever());
    EXPECT_EQ(answer(), "Cannot be changed: Synchronous: cannot be read");
    EXPECT_FALSE(lever().marks().changed);
}

TEST_F(ForeignDefinitionsTest, TheDefinitionOfASwitchIsEditedThoughNobodyCanSeeTheSwitch)
{
    comeBackUnread(switches);
    hands_->footerKey(4);
    ASSERT_TRUE(lever().isUnknown());
    hands_->tap(lever());
    EXPECT_TRUE(panel_->shownPart()->require<panel::IniEingabeChild>("IniEingabe").isOpen());
    EXPECT_FALSE(lever().marks().changed);
}

// Else a changed project would wait for ever for the end of the input.
TEST_F(ForeignValuesTest, ASwitchDoesNotWaitAnyMoreOnceItWasDiscarded)
{
    hands_->input("SchalterL", 31);
    ASSERT_TRUE(lever().marks().changed);
    flaky_->unreadable = {switches};
    hands_->footerKey(11);
    EXPECT_FALSE(lever().marks().changed);
    EXPECT_TRUE(lever().marks().stale);
    EXPECT_TRUE(lever().isUnknown()); // the machine never said so
    EXPECT_FALSE(panel_->hasUnfinishedInput());
}

TEST_F(ForeignValuesTest, ADrawingNumberOfTheServoBeforeIsNotShownAndItsPartIsNotEdited)
{
    comeBackUnread(drawings);
    EXPECT_EQ(text("ZeichnungL", 41).shownText(), "–");
    hands_->input("ZeichnungL", 43);
    EXPECT_FALSE(mask().isVisible());
    EXPECT_EQ(answer(), "Cannot be changed: Servo.M1.Servo3.35: cannot be read");
}

// The machine may hold any number there; its parts are shown by the page's own rules.
TEST_F(AnyDrawingNumberTest, IsFreshOnceItWasRead)
{
    for (const double number : {12.6, -1.0, 1234567890123.0, 0.0}) {
        machineSets(drawings, 0, number);
        hands_->wait(refreshMs);
        for (const std::int16_t part : std::initializer_list<std::int16_t>{41, 43, 45})
            EXPECT_FALSE(text("ZeichnungL", part).marks().stale) << number << ", " << part;
    }
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

TEST_F(ForeignValuesTest, ALimitThatIsNothingIsNotTakenForTheFormerOne)
{
    const std::string upper = "Ch1.M1_T_servo_3<.mM1_servo_para_ob_3>";
    basic::Array limits = *panel_->variables().find(upper)->get<basic::Array>();
    limits.elementType = basic::VariantType::Variant;
    limits.elements[0] = Variant{basic::Null{}};
    panel_->variables().declare(upper, Variant{limits});
    hands_->wait(refreshMs);
    hands_->input("SollwertL", 1);
    EXPECT_TRUE(mask().limitsAreDoubtful());
    hands_->cancel();
    hands_->input("SollwertR", 11);
    EXPECT_FALSE(mask().limitsAreDoubtful());
    hands_->cancel();
    // Of another servo: nobody may enter a value within its limits.
    hands_->footerKey(6);
    hands_->footerKey(5);
    hands_->input("SollwertL", 1);
    hands_->type("2");
    hands_->ok();
    EXPECT_TRUE(mask().isVisible());
    EXPECT_EQ(mask().remark(), "Limits cannot be read: no input");
}

TEST_F(ForeignValuesTest, AnOpenMaskFollowsTheLimitsOfTheMachine)
{
    const Variant before = element(setpoints, 0);
    hands_->input("SollwertL", 1);
    hands_->type("80");
    machineSets("Ch1.M1_T_servo_3<.mM1_servo_para_ob_3>", 0, 50);
    hands_->wait(refreshMs);
    EXPECT_EQ(mask().limits(), "Min 0   …   Max 50");
    EXPECT_EQ(mask().shown(), "80 mm");
    hands_->ok();
    EXPECT_TRUE(mask().isVisible());
    EXPECT_EQ(mask().remark(), "Too large: at most 50");

    machineSets("Ch1.M1_T_servo_3<.mM1_servo_para_ob_3>", 0, 90);
    hands_->wait(refreshMs);
    EXPECT_FALSE(mask().refusing());
    hands_->ok();
    EXPECT_FALSE(mask().isVisible());
    EXPECT_EQ(element(setpoints, 0), before);
    hands_->footerKey(10);
    EXPECT_EQ(element(setpoints, 0), Variant{80.0});
}

TEST_F(ForeignValuesTest, AnOpenMaskWhoseLimitsAreLostAcceptsNothingUntilTheyAreBack)
{
    hands_->input("SollwertL", 1);
    hands_->type("20");
    machineSets("Ch1.M1_T_servo_3<.mM1_servo_para_ob_3>", 0, std::numeric_limits<double>::quiet_NaN());
    hands_->wait(refreshMs);
    EXPECT_EQ(mask().remark(), "Limits cannot be read: no input");
    hands_->ok();
    EXPECT_TRUE(mask().isVisible());

    machineSets("Ch1.M1_T_servo_3<.mM1_servo_para_ob_3>", 0, 100);
    hands_->wait(refreshMs);
    hands_->ok();
    EXPECT_FALSE(mask().isVisible());
}

TEST_F(ForeignValuesTest, AnAnswerNamesWhatWasSetBackBesideTheChange)
{
    change("SollwertL", 1, "42.5");
    hands_->input("SollwertL", 21);
    hands_->cancel();
    const Variant shown = element(secondSetpoints, 0);
    machineSets(secondSetpoints, 0, 33);
    hands_->wait(refreshMs);
    hands_->footerKey(10); // tells it, and the second press means it
    hands_->wait(1100);
    hands_->footerKey(10);
    EXPECT_EQ(element(secondSetpoints, 0), shown);
    const std::string change = "33\u00A0→\u00A0" + basic::toText(shown);
    EXPECT_TRUE(panel_->answers().isWarning());
    EXPECT_NE(answer().find("Written, values: 2"), std::string::npos) << answer();
    EXPECT_NE(answer().find("newer value overwritten"), std::string::npos) << answer();
    EXPECT_NE(answer().find(change), std::string::npos) << answer();
    EXPECT_EQ(answer().find("42.5"), std::string::npos) << answer();
    const std::string report = panel_->errors().entries().front().text.toStdString();
    EXPECT_NE(report.find(change), std::string::npos) << report;
    EXPECT_NE(report.find(secondSetpoints), std::string::npos) << report;
}

TEST_F(ForeignValuesTest, WhatTheMachineDidNotChangeMeanwhileIsNotNamed)
{
    change("SollwertL", 1, "42.5");
    hands_->input("SollwertL", 21);
    hands_->cancel();
    machineSets(setpoints, 0, 90); // the operator wants his own there
    hands_->wait(refreshMs);
    hands_->footerKey(10); // tells it, and the second press means it
    hands_->wait(1100);
    hands_->footerKey(10);
    EXPECT_FALSE(panel_->answers().isWarning());
    EXPECT_EQ(answer(), "Written, values: 1");
}

TEST_F(ForeignValuesTest, ARefusalAndAnOverwrittenValueAreBothNamed)
{
    change("SollwertL", 1, "42.5");
    hands_->input("SollwertL", 21);
    hands_->cancel();
    machineSets(secondSetpoints, 0, 33);
    flaky_->unwritable = {setpoints};
    hands_->footerKey(10); // tells it, and the second press means it
    hands_->wait(1100);
    hands_->footerKey(10);
    EXPECT_TRUE(panel_->answers().isRefusal());
    EXPECT_NE(answer().find("Start position: refused by the controller"), std::string::npos) << answer();
    EXPECT_NE(answer().find("newer value overwritten"), std::string::npos) << answer();
}

TEST_F(ForeignValuesTest, AMaskThatBeginsWithAnOldValueSaysSo)
{
    change("SollwertL", 21, "12"); // from now on the page leaves touched fields alone
    hands_->input("SollwertL", 1);
    hands_->cancel();
    machineSets(setpoints, 0, 90);
    hands_->wait(refreshMs);
    hands_->input("SollwertL", 1);
    EXPECT_EQ(mask().remark(), "Last known value");
    EXPECT_FALSE(mask().refusing());
    hands_->type("2");
    EXPECT_EQ(mask().remark(), "");
    hands_->ok();
    // What he has entered himself is not old.
    hands_->input("SollwertL", 1);
    EXPECT_EQ(mask().remark(), "");
    hands_->cancel();
    hands_->input("SollwertL", 21);
    EXPECT_EQ(mask().remark(), "");
}
