// What a value on the servo page tells of itself, and what a confirmed change came to.
#include "servo_page_test.h"

using namespace servopanel;
using namespace servopanel::testing;

namespace {

class ValueStatesTest : public ServoPageTest {
protected:
    using ServoPageTest::ServoPageTest;
};

// The digits of a view, without what its state draws around them.
QRect inkOf(const QImage& image, const QRect& part)
{
    QRect found;
    for (int y = part.top(); y <= part.bottom(); ++y)
        for (int x = part.left(); x <= part.right(); ++x)
            if (image.pixelColor(x, y).lightness() < 150) found |= QRect{x, y, 1, 1};
    return found;
}

// Lightness of the darkest pixel where the digits stand, 0 to 255.
int darkestOfDigits(TextView& field)
{
    const QImage image =
        field.grab({field.width() / 2, 4, field.width() / 2 - 6, field.height() - 8}).toImage();
    int darkest = 255;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            darkest = std::min(darkest, image.pixelColor(x, y).lightness());
    return darkest;
}

} // namespace

TEST_F(ValueStatesTest, AChangedSetpointHasAMarkThatIsNoColourAlone)
{
    EXPECT_EQ(text("SollwertL", 1).marks(), panel::ValueMarks{});
    change("SollwertL", 1, "42.5");
    EXPECT_TRUE(text("SollwertL", 1).marks().changed);
    const QImage changed = text("SollwertL", 1).grab().toImage().convertToFormat(QImage::Format_Grayscale8);
    hands_->footerKey(11);
    EXPECT_FALSE(text("SollwertL", 1).marks().changed);
    // The triangle fills the corner, where a plain field is light.
    const QImage plain = text("SollwertL", 1).grab().toImage().convertToFormat(QImage::Format_Grayscale8);
    EXPECT_LT(changed.pixelColor(6, 4).lightness(), 140);
    EXPECT_GT(plain.pixelColor(6, 4).lightness(), 200);
}

TEST_F(ValueStatesTest, AToggledSwitchIsMarkedUntilTheMachineTellsItsState)
{
    auto& lever = panel_->shownPart()->require<panel::SchalterChild>("SchalterL", 31).lever();
    EXPECT_FALSE(lever.marks().changed);
    hands_->input("SchalterL", 31);
    EXPECT_TRUE(lever.marks().changed);
    hands_->wait(refreshMs);
    EXPECT_TRUE(lever.marks().changed);
    hands_->footerKey(11);
    EXPECT_FALSE(lever.marks().changed);
    EXPECT_TRUE(lever.state());
}

TEST_F(ValueStatesTest, AChangedDrawingNumberIsMarked)
{
    change("ZeichnungL", 43, "7");
    EXPECT_TRUE(text("ZeichnungL", 43).marks().changed);
    EXPECT_FALSE(text("ZeichnungL", 41).marks().changed);
    hands_->footerKey(10);
    EXPECT_FALSE(text("ZeichnungL", 43).marks().changed);
}

TEST_F(ValueStatesTest, OnlyWhatTheAccessLevelForbidsHasALock)
{
    EXPECT_TRUE(text("SollwertL", 2).marks().locked);
    EXPECT_FALSE(text("SollwertL", 1).marks().locked);
    // While the mask is open all inputs are off, but that is no lock.
    hands_->input("SollwertL", 1);
    EXPECT_FALSE(text("SollwertR", 11).marks().locked);
    EXPECT_TRUE(text("SollwertL", 2).marks().locked);
    hands_->cancel();
    EXPECT_FALSE(text("SollwertR", 11).marks().locked);
}

TEST_F(ValueStatesTest, AFailedReadMakesItsValuesStaleAndTheNextGoodOneFresh)
{
    const QString shown = text("SollwertL", 1).text();
    EXPECT_EQ(quality(), LinkQuality::Good);
    flaky_->unreadable.insert(setpoints);
    hands_->wait(refreshMs);
    EXPECT_TRUE(text("SollwertL", 1).marks().stale);
    EXPECT_TRUE(text("SollwertR", 11).marks().stale);
    EXPECT_EQ(text("SollwertL", 1).text(), shown);
    EXPECT_FALSE(text("SollwertL", 21).marks().stale);
    EXPECT_FALSE(text("ZeichnungL", 41).marks().stale);
    EXPECT_FALSE(panel_->shownPart()->require<panel::SchalterChild>("SchalterL", 31).lever().marks().stale);
    EXPECT_EQ(quality(), LinkQuality::Partly);

    flaky_->unreadable.clear();
    hands_->wait(refreshMs);
    EXPECT_FALSE(text("SollwertL", 1).marks().stale);
    EXPECT_EQ(quality(), LinkQuality::Good);
}

TEST_F(ValueStatesTest, EveryFamilyHasItsOwnFields)
{
    flaky_->unreadable = {secondSetpoints, switches, drawings};
    hands_->wait(refreshMs);
    EXPECT_FALSE(text("SollwertL", 1).marks().stale);
    EXPECT_TRUE(text("SollwertL", 21).marks().stale);
    EXPECT_TRUE(panel_->shownPart()->require<panel::SchalterChild>("SchalterL", 31).lever().marks().stale);
    EXPECT_TRUE(text("ZeichnungL", 43).marks().stale);
}

TEST_F(ValueStatesTest, LimitsThatCannotBeReadDoNotMakeAValueStale)
{
    flaky_->unreadable = {"Ch1.M1_T_servo_3<.mM1_servo_para_un_3>", secondSetpoints};
    hands_->wait(refreshMs);
    EXPECT_TRUE(text("SollwertL", 21).marks().stale); // read after the limits
    EXPECT_FALSE(text("SollwertL", 1).marks().stale);
}

TEST_F(ValueStatesTest, ActualValuesTableAndFaultTextBecomeStale)
{
    hands_->footerKey(10);
    EXPECT_FALSE(text("IstWert", 103).marks().stale);
    flaky_->unreadable = {actualValues};
    hands_->wait(refreshMs);
    EXPECT_TRUE(text("IstWert", 103).marks().stale);
    EXPECT_TRUE(text("IstWertTab", 123).marks().stale);
    EXPECT_FALSE(text("Fehlertext").marks().stale);
    EXPECT_EQ(quality(), LinkQuality::Partly);
    flaky_->unreadable = {actualValues, faultText};
    hands_->wait(refreshMs);
    EXPECT_TRUE(text("Fehlertext").marks().stale);
    EXPECT_EQ(quality(), LinkQuality::Bad);
    // What is not on the screen says nothing about it.
    hands_->footerKey(10);
    EXPECT_EQ(quality(), LinkQuality::Good);
}

TEST_F(ValueStatesTest, AnArrayThatIsTooShortIsStaleFromItsEndOn)
{
    panel_->variables().declare(setpoints, basic::doubles({1, 2, 3, 4, 5, 6, 7, 8, 9, 10}));
    hands_->wait(refreshMs);
    EXPECT_FALSE(text("SollwertL", 1).marks().stale);
    EXPECT_TRUE(text("SollwertR", 11).marks().stale);
    panel_->variables().declare(setpoints, Variant{7.0});
    hands_->wait(refreshMs);
    EXPECT_TRUE(text("SollwertL", 1).marks().stale);
}

TEST_F(ValueStatesTest, AStaleValueIsFadedAndItsDigitsStayWhereTheyAre)
{
    TextView& field = text("SollwertL", 1);
    const QRect right{field.width() / 2, 4, field.width() / 2 - 6, field.height() - 8};
    const QImage fresh = field.grab().toImage();
    const QRect before = inkOf(fresh, right);
    ASSERT_FALSE(before.isNull());
    flaky_->unreadable.insert(setpoints);
    hands_->wait(refreshMs);
    const QImage stale = field.grab().toImage();
    EXPECT_NE(stale, fresh);
    const QRect after = inkOf(stale, right);
    EXPECT_NEAR(after.left(), before.left(), 1);
    EXPECT_NEAR(after.right(), before.right(), 1);
    EXPECT_NEAR(after.bottom(), before.bottom(), 1);
}

TEST_F(ValueStatesTest, ABadLinkMakesEverythingStaleUntilItIsGoodAgain)
{
    panel_->setLink({false, "The broker does not answer"});
    EXPECT_TRUE(text("SollwertL", 1).marks().stale);
    EXPECT_TRUE(text("ZeichnungL", 41).marks().stale);
    EXPECT_EQ(quality(), LinkQuality::Bad);
    EXPECT_EQ(panel_->errors().entries().front().text, "The broker does not answer");
    panel_->setLink({true, ""});
    // Nobody has asked the machine since.
    EXPECT_TRUE(text("SollwertL", 1).marks().stale);
    hands_->wait(refreshMs);
    EXPECT_FALSE(text("SollwertL", 1).marks().stale);
    EXPECT_EQ(quality(), LinkQuality::Good);
}

TEST_F(ValueStatesTest, AnotherServosGoodVariablesAreFresh)
{
    flaky_->unreadable.insert(setpoints);
    hands_->wait(refreshMs);
    EXPECT_TRUE(text("SollwertL", 1).marks().stale);
    hands_->footerKey(6);
    EXPECT_FALSE(text("SollwertL", 1).marks().stale);
    hands_->footerKey(5);
    EXPECT_TRUE(text("SollwertL", 1).marks().stale);
}

TEST_F(ValueStatesTest, ControlsMadeAnewShowTheirStatesAtOnce)
{
    hands_->wait(refreshMs);
    flaky_->unreadable.insert(setpoints);
    hands_->wait(refreshMs);
    ASSERT_TRUE(text("SollwertL", 1).marks().stale);
    panel_->variables().write("Ch-1.intern<.servo_zeiger>", Variant{std::int16_t{1}}, machine::Writer::Host);
    panel_->openServo();
    ASSERT_EQ(panel_->shownPart()->className(), "ServoMain");
    EXPECT_TRUE(text("SollwertL", 1).marks().stale);
    EXPECT_FALSE(text("SollwertL", 21).marks().stale);
    EXPECT_EQ(quality(), LinkQuality::Partly);
    // The new field has never held a value.
    EXPECT_EQ(text("SollwertL", 1).shownText(), "–");
}

TEST_F(ValueStatesTest, AFormerServosValueIsNotShownForOneThatCannotBeRead)
{
    flaky_->unreadable = {otherSetpoints, otherSwitches, otherDrawings};
    const int width = text("SollwertL", 1).width();
    hands_->footerKey(6);
    EXPECT_TRUE(text("SollwertL", 1).marks().stale);
    EXPECT_EQ(text("SollwertL", 1).shownText(), "–");
    EXPECT_EQ(text("SollwertL", 1).width(), width);
    EXPECT_LT(darkestOfDigits(text("SollwertL", 1)), 60); // a thin sign among the lines of the hatching
    EXPECT_EQ(text("ZeichnungL", 41).shownText(), "–");
    EXPECT_TRUE(panel_->shownPart()->require<panel::SchalterChild>("SchalterL", 31).lever().isUnknown());
    EXPECT_EQ(text("SollwertL", 21).shownText(), "1");

    flaky_->unreadable.clear();
    hands_->wait(refreshMs);
    EXPECT_EQ(text("SollwertL", 1).shownText(), "51");
    EXPECT_FALSE(panel_->shownPart()->require<panel::SchalterChild>("SchalterL", 31).lever().isUnknown());

    // Back again: the field now holds the second servo's value.
    flaky_->unreadable = {setpoints};
    hands_->footerKey(5);
    EXPECT_EQ(text("SollwertL", 1).shownText(), "–");
    EXPECT_FALSE(text("SollwertL", 21).isUnknown());
}

TEST_F(ValueStatesTest, AnEntryGivenUpWhileTheMachineIsSilentIsNotTakenForItsValue)
{
    EXPECT_EQ(text("SollwertL", 1).shownText(), "1.5");
    change("SollwertL", 1, "42.5");
    flaky_->unreadable.insert(setpoints);
    hands_->wait(refreshMs);
    EXPECT_EQ(text("SollwertL", 1).shownText(), "42.5");
    hands_->footerKey(11);
    EXPECT_EQ(text("SollwertL", 1).shownText(), "–");
    flaky_->unreadable.clear();
    hands_->wait(refreshMs);
    EXPECT_EQ(text("SollwertL", 1).shownText(), "1.5");
}

TEST_F(ValueStatesTest, LimitsOfAnotherServoAreToldFromItsOwn)
{
    const auto limits = [&] {
        return panel_->shownPart()
            ->beside(panel_->shownPart()->require<panel::VWSVarIn>("SollwertL", 1))
            .limits;
    };
    EXPECT_EQ(limits(), panel::ValueState::Fresh);
    flaky_->unreadable = {"Ch1.M1_T_servo_3<.mM1_servo_para_ob_3>", "Ch1.M1_T_servo_5<.mM1_servo_para_un_5>"};
    hands_->wait(refreshMs);
    EXPECT_EQ(limits(), panel::ValueState::Stale);
    hands_->footerKey(6);
    EXPECT_EQ(limits(), panel::ValueState::Unknown);
}

// Nobody may enter a value within the bounds of another servo, or without any.
TEST_F(ValueStatesTest, AMaskWithoutLimitsOfItsServoAcceptsNothing)
{
    flaky_->unreadable = {"Ch1.M1_T_servo_3<.mM1_servo_para_ob_3>"};
    panel_->openServo();
    hands_->input("SollwertL", 1);
    panel::InputMask& mask = panel_->shownPart()->require<panel::EingabemaskeChild>("Eingabemaske").mask();
    EXPECT_EQ(mask.limits(), "Min –   …   Max –");
    EXPECT_EQ(mask.remark(), "Limits cannot be read: no input");
    EXPECT_FALSE(mask.okKey().isOn());
    const QString before = mask.shown();
    QTest::mouseClick(mask.pad().key("2"), Qt::LeftButton);
    QTest::mouseClick(&mask.okKey(), Qt::LeftButton);
    QTest::keyClicks(&mask, "2\r");
    EXPECT_EQ(mask.shown(), before);
    EXPECT_EQ(mask.remark(), "Limits cannot be read: no input");
    EXPECT_TRUE(mask.isVisible());
    hands_->cancel();
    EXPECT_FALSE(text("SollwertL", 1).marks().changed);
}

TEST_F(ValueStatesTest, AMaskWithOldLimitsOfItsServoSaysSo)
{
    flaky_->unreadable = {"Ch1.M1_T_servo_3<.mM1_servo_para_ob_3>"};
    hands_->wait(refreshMs);
    hands_->input("SollwertL", 1);
    panel::InputMask& mask = panel_->shownPart()->require<panel::EingabemaskeChild>("Eingabemaske").mask();
    EXPECT_TRUE(mask.limitsAreDoubtful());
    EXPECT_EQ(mask.remark(), "");
    hands_->type("2");
    hands_->ok();
    EXPECT_TRUE(text("SollwertL", 1).marks().changed);
}

TEST_F(ValueStatesTest, AFaultTextThatSaysNothingHasNoSignOfAge)
{
    panel_->variables().write(faultText, Variant{""}, machine::Writer::Machine);
    hands_->footerKey(10);
    flaky_->unreadable = {faultText};
    hands_->wait(refreshMs);
    EXPECT_FALSE(text("Fehlertext").marks().stale);
    EXPECT_EQ(text("Fehlertext").shownText(), "");
    EXPECT_EQ(quality(), LinkQuality::Partly);
    // Of the second page it was never read.
    flaky_->unreadable = {faultText, "Ch1.M1_T_servo_3<.mM1_fetext_32>"};
    hands_->footerKey(8);
    EXPECT_EQ(text("Fehlertext").shownText(), "–");
    EXPECT_TRUE(text("Fehlertext").marks().stale);
}

TEST_F(ValueStatesTest, TheHeaderReadsTheMachineLikeTheLibrary)
{
    auto& bar = panel_->servo()->require<panel::HeaderChild>("Header").bar();
    const auto shown = [&] {
        bar.refresh();
        return bar.shown();
    };
    EXPECT_EQ(shown().level, "Access level 2");
    EXPECT_EQ(shown().machine, "Machine M1");
    flaky_->unreadable = {"Ch-1.intern<.passwort>", "Ch-1.intern<.aktuelle_maschine>"};
    panel_->variables().write("Ch-1.intern<.passwort>", Variant{std::int16_t{4}}, machine::Writer::Host);
    // It keeps what it knew.
    EXPECT_EQ(shown().level, "Access level 2");
    EXPECT_EQ(shown().machine, "Machine M1");
    flaky_->unreadable.clear();
    EXPECT_EQ(shown().level, "Access level 4");
}

TEST(ValueSources, TheFamilyOfAVariableIsWhatStandsBeforeTheNumberOfItsServo)
{
    using namespace panel::families;
    using panel::familyOf;
    EXPECT_EQ(familyOf(::setpoints), panel::families::setpoints);
    EXPECT_EQ(familyOf(::secondSetpoints), panel::families::secondSetpoints);
    EXPECT_EQ(familyOf("Ch1.M1_T_servo_3<.mM1_servo_para_un_3>"), lowerLimits);
    EXPECT_EQ(familyOf("Ch1.M1_T_servo_3<.mM1_servo_para_ob_3>"), upperLimits);
    EXPECT_EQ(familyOf("Ch1.M1_T_servo_3<.mM1_servo_para2_un_3>"), secondLowerLimits);
    EXPECT_EQ(familyOf("Ch1.M1_T_servo_3<.mM1_servo_para2_ob_3>"), secondUpperLimits);
    EXPECT_EQ(familyOf(::switches), panel::families::switches);
    EXPECT_EQ(familyOf(::drawings), panel::families::drawings);
    EXPECT_EQ(familyOf(::actualValues), panel::families::actualValues);
    EXPECT_EQ(familyOf(::faultText), panel::families::faultText);
    EXPECT_EQ(familyOf(::changedFlag), panel::families::changedFlag);
    for (const char* other : {"", "Ch-1.intern_v<.l2_07>", "Ch1.M1_T_servo_3<.mM1_servopassiv_3>",
             "Ch1.M1_T_servo_3<.mM1_servo_para_3", "Ch1.M1_T_servo_3<.mM1_servo_para_>",
             "Ch1.M1_servo_para_3<.name>", "Ch1.M1_T_servo_3<.mM1_servo_para_3x>"})
        EXPECT_EQ(familyOf(other), "") << other;
}

TEST_F(ValueStatesTest, AConfirmedChangeIsAnsweredWithTheNumberOfValues)
{
    change("SollwertL", 1, "42.5");
    change("SollwertL", 21, "7");
    hands_->input("SchalterL", 31);
    EXPECT_FALSE(panel_->answers().isVisible());
    hands_->footerKey(10);
    EXPECT_TRUE(panel_->answers().isVisible());
    EXPECT_FALSE(panel_->answers().isRefusal());
    EXPECT_EQ(answer(), "Written, values: 3");
}

TEST_F(ValueStatesTest, ADrawingNumberCountsAsOneValue)
{
    change("ZeichnungL", 41, "7");
    change("ZeichnungL", 45, "8");
    hands_->footerKey(10);
    EXPECT_EQ(answer(), "Written, values: 1");
}

TEST_F(ValueStatesTest, OtherKeysAreNotAnswered)
{
    hands_->footerKey(10);
    hands_->footerKey(10);
    change("SollwertL", 1, "42.5");
    hands_->footerKey(11);
    EXPECT_FALSE(panel_->answers().isVisible());
}

TEST_F(ValueStatesTest, ARefusedWriteIsAnsweredWithFieldAndReason)
{
    change("SollwertL", 1, "42.5");
    change("SollwertL", 21, "7");
    flaky_->unwritable.insert(setpoints);
    hands_->footerKey(10);
    ASSERT_TRUE(panel_->answers().isVisible());
    EXPECT_TRUE(panel_->answers().isRefusal());
    EXPECT_EQ(answer(), "Only partly written: Written, values: 1. Start position: refused by the controller");
    EXPECT_EQ(basic::element(*panel_->variables().find(setpoints), 0), Variant{1.5});
    EXPECT_EQ(basic::element(*panel_->variables().find(secondSetpoints), 0), Variant{7.0});
}

TEST_F(ValueStatesTest, AChangeThatIsLostBecauseItsVariableCannotBeReadIsRefused)
{
    change("SollwertL", 1, "42.5");
    flaky_->unreadable.insert(setpoints);
    hands_->footerKey(10);
    ASSERT_TRUE(panel_->answers().isRefusal());
    EXPECT_EQ(answer(), "Not written: Start position: cannot be read");
}

TEST_F(ValueStatesTest, AVariableThatNobodyChangedMayBeBroken)
{
    flaky_->unreadable.insert(drawings);
    change("SollwertL", 1, "42.5");
    hands_->footerKey(10);
    EXPECT_EQ(answer(), "Written, values: 1");
}

TEST_F(ValueStatesTest, AMachineThatIsNotToldOfTheChangeIsARefusal)
{
    change("SollwertL", 1, "42.5");
    flaky_->unwritable.insert(changedFlag);
    hands_->footerKey(10);
    EXPECT_TRUE(panel_->answers().isRefusal());
    EXPECT_NE(answer().find("Change not announced"), std::string::npos);
}

namespace {

class AnswerPlaceTest : public ValueStatesTest, public ::testing::WithParamInterface<int> {
protected:
    AnswerPlaceTest()
        : ValueStatesTest{GetParam()}
    {
    }
};

} // namespace

INSTANTIATE_TEST_SUITE_P(Screens, AnswerPlaceTest, ::testing::Values(1280, 1024, 800));

TEST_P(AnswerPlaceTest, TheAnswerLiesOnNothingThatCanBeTouched)
{
    change("SollwertL", 1, "42.5");
    hands_->footerKey(10);
    ASSERT_TRUE(panel_->answers().isVisible());
    const QRect strip = panel_->answers().geometry();
    panel_->shownPart()->forEach([&](std::string_view name, std::int16_t index, panel::Child& each) {
        if (!each.view().isVisible() || name == "ServoMain") return;
        const QRect place{each.view().mapTo(&panel_->window().stage(), QPoint{}), each.view().size()};
        EXPECT_FALSE(place.intersects(strip)) << name << " " << index;
    });
    // The mask opens over its place and is seen as a whole.
    hands_->input("SollwertR", 11);
    EXPECT_FALSE(panel_->answers().isVisible());
    hands_->cancel();
    EXPECT_TRUE(panel_->answers().isVisible());
}

TEST_F(ValueStatesTest, ARefusalStaysForSomeTimeAndUntilTheNextTouch)
{
    panel_->answers().setLeastTime(300);
    change("SollwertL", 1, "42.5");
    flaky_->unwritable.insert(setpoints);
    hands_->footerKey(10);
    hands_->input("BeschriftungL", 2); // a touch that means nothing
    EXPECT_TRUE(panel_->answers().isVisible());
    hands_->wait(400);
    EXPECT_TRUE(panel_->answers().isVisible());
    hands_->input("BeschriftungL", 2);
    EXPECT_FALSE(panel_->answers().isVisible());
}

TEST_F(ValueStatesTest, AnAnswerOfSuccessGoesByItself)
{
    panel_->answers().setLeastTime(100);
    change("SollwertL", 1, "42.5");
    hands_->footerKey(10);
    EXPECT_TRUE(panel_->answers().isVisible());
    hands_->wait(200);
    EXPECT_FALSE(panel_->answers().isVisible());
}

TEST_F(ValueStatesTest, TheAnswerGoesWithItsPage)
{
    change("SollwertL", 1, "42.5");
    hands_->footerKey(10);
    hands_->footerKey(11);
    EXPECT_EQ(panel_->shownPart()->className(), "ServoMenu");
    EXPECT_FALSE(panel_->answers().isVisible());
}

TEST_F(ValueStatesTest, WhatWasReadOverABadLinkStaysOldUntilItIsReadAnew)
{
    hands_->footerKey(10);
    panel_->setLink({false, "The broker does not answer"});
    hands_->wait(refreshMs);
    panel_->setLink({true, ""});
    EXPECT_TRUE(text("IstWert", 103).marks().stale);
    EXPECT_TRUE(text("Fehlertext").marks().stale || text("Fehlertext").shownText().isEmpty());
    hands_->wait(refreshMs);
    EXPECT_FALSE(text("IstWert", 103).marks().stale);
}

// The display keeps what it had where the machine gives nothing.
TEST_F(ValueStatesTest, AnElementThatIsNothingIsOldAndOfAnotherServoUnknown)
{
    hands_->footerKey(10);
    const auto machineClears = [&](int index) {
        Variant values = *panel_->variables().find(actualValues);
        basic::setElement(values, index, Variant{basic::Null{}});
        panel_->variables().declare(actualValues, values);
    };
    const QString shown = text("IstWertTab", 123).text();
    basic::Array loose = *panel_->variables().find(actualValues)->get<basic::Array>();
    loose.elementType = basic::VariantType::Variant;
    panel_->variables().declare(actualValues, Variant{loose});
    panel_->variables().declare("Ch1.M1_T_servo_5<.mM1_servo_diag_51>", Variant{loose});
    machineClears(22);
    hands_->wait(refreshMs);
    EXPECT_EQ(text("IstWertTab", 123).text(), shown);
    EXPECT_TRUE(text("IstWertTab", 123).marks().stale);
    EXPECT_FALSE(text("IstWertTab", 124).marks().stale);
    // From the servo beside, whose value then stands in the display.
    hands_->footerKey(6);
    EXPECT_FALSE(text("IstWertTab", 123).marks().stale);
    hands_->footerKey(5);
    EXPECT_EQ(text("IstWertTab", 123).shownText(), "–");
}
