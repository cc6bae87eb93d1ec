// What lies on the servo page: mask, definition editor, answer strip and list of reports. They say what they are about,
// in the language that the operator has chosen, at once.
#include "flaky_variables.h"
#include "test_project.h"

#include "panel/form/eingabemaske.h"
#include "panel/form/fusszeile.h"
#include "panel/form/header.h"
#include "panel/form/ini_eingabe.h"
#include "panel/form/schalter.h"
#include "panel/form/vws_index.h"
#include "panel/form/vws_var.h"
#include "platform/ids.h"
#include "support/standard_project.h"

#include <gtest/gtest.h>

using namespace servopanel;
using basic::Variant;
using panel::Operator;
using panel::Panel;
using servopanel::testing::FlakyVariables;
using servopanel::testing::TestProject;

namespace {

const std::string setpoints = "Ch1.M1_T_servo_3<.mM1_servo_para_3>";
const std::string changedFlag = "Ch1.M1_T_servo_3<.mM1_servoaender_3>";
constexpr int english = 1;
constexpr int german = 2;

class DialoguesTest : public ::testing::Test {
protected:
    DialoguesTest()
    {
        std::ifstream in{project_.file("project.json")};
        std::string text{std::istreambuf_iterator<char>{in}, {}};
        const std::size_t end = text.find("],", text.find("\"languages\": ["));
        text.insert(end, R"(, {"number": 2, "code": "de", "name": "Deutsch"})");
        project_.write("project.json", text);
        project_.write("Texts/de.txt",
            "Panel.Title = Prüfanlage\nServo.M1.Servo3.1 = Anfang;Grad\nServo.M1.Servo3.21 = Zug;N\n"
            "Servo.M1.Servo3.25 = Bremse\nServo.M1.Servo3.35 = Zeichnung\n");
        panel::PanelSettings settings = project_.settings();
        settings.level = 5;
        settings.wrapVariables = [this](std::shared_ptr<platform::ProcessVarAccess> inner) {
            flaky_ = std::make_shared<FlakyVariables>(std::move(inner));
            return flaky_;
        };
        panel_ = std::make_unique<Panel>(settings);
        reader_ = std::make_unique<servopanel::testing::MessageReader>(*panel_);
        panel_->window().show();
        EXPECT_TRUE(QTest::qWaitForWindowExposed(&panel_->window()));
        panel_->openServo();
        hands_ = std::make_unique<Operator>(*panel_);
        hands_->menuKey(1);
    }

    template <class C>
    C& control(std::string_view name, std::int16_t index = platform::ChildId::noIndex)
    {
        return panel_->shownPart()->require<C>(name, index);
    }
    panel::InputMask& mask() { return control<panel::EingabemaskeChild>("Eingabemaske").mask(); }
    panel::DefinitionEditor& editor() { return control<panel::IniEingabeChild>("IniEingabe").editor(); }
    panel::TextView& field(std::string_view name, std::int16_t index)
    {
        return static_cast<panel::TextView&>(control<panel::Child>(name, index).view());
    }
    panel::HeaderBar& header() { return panel_->servo()->require<panel::HeaderChild>("Header").bar(); }
    void change(std::string_view name, std::int16_t index, const std::string& number)
    {
        hands_->input(name, index);
        hands_->type(number);
        hands_->ok();
    }
    std::string answer() { return panel_->answers().text().toStdString(); }
    bool isReported(const std::string& line)
    {
        for (const panel::ErrorEntry& entry : panel_->errors().entries())
            if (entry.text.toStdString() == line) return true;
        return false;
    }

    TestProject project_{servopanel::testing::standardProject};
    std::shared_ptr<FlakyVariables> flaky_;
    std::unique_ptr<Panel> panel_;
    std::unique_ptr<servopanel::testing::MessageReader> reader_;
    std::unique_ptr<Operator> hands_;
};

} // namespace

TEST_F(DialoguesTest, TheDefinitionEditorSaysWhatItEdits)
{
    hands_->footerKey(4);
    EXPECT_FALSE(field("SollwertL", 1).isBeingEdited());
    hands_->input("SollwertL", 1);
    EXPECT_EQ(editor().title(), "Start position");
    EXPECT_TRUE(editor().rowKey(panel::DefinitionEditor::Least).value().endsWith(" mm"));
    EXPECT_FALSE(editor().rowKey(panel::DefinitionEditor::Level).value().endsWith(" mm"));
    EXPECT_TRUE(field("SollwertL", 1).isBeingEdited());
    EXPECT_FALSE(field("SollwertL", 2).isBeingEdited());
    hands_->language(german);
    EXPECT_EQ(editor().title(), "Anfang");
    EXPECT_TRUE(editor().rowKey(panel::DefinitionEditor::Most).value().endsWith(" Grad"));
    hands_->editorCancel();
    EXPECT_FALSE(field("SollwertL", 1).isBeingEdited());
}

TEST_F(DialoguesTest, TheMaskFramesThePartOfADrawingNumberThatItEdits)
{
    const auto part = [this](std::int16_t item) -> panel::TextView& {
        return dynamic_cast<panel::TextView&>(control<panel::VWSIndex>("ZeichnungL", item).view());
    };
    hands_->input("ZeichnungL", 43);
    EXPECT_TRUE(part(43).isBeingEdited());
    EXPECT_FALSE(part(41).isBeingEdited());
    hands_->cancel();
    EXPECT_FALSE(part(43).isBeingEdited());
    // Limits are those of the whole number.
    hands_->footerKey(4);
    hands_->input("ZeichnungL", 43);
    EXPECT_TRUE(part(41).isBeingEdited() && part(43).isBeingEdited() && part(45).isBeingEdited());
    hands_->editorCancel();
    EXPECT_FALSE(part(41).isBeingEdited() || part(43).isBeingEdited() || part(45).isBeingEdited());
}

TEST_F(DialoguesTest, TheHeaderSaysThatATouchChangesLimits)
{
    const auto mode = [this] {
        panel::HeaderBar& bar = panel_->servo()->require<panel::HeaderChild>("Header").bar();
        bar.refresh();
        return bar.shown().mode;
    };
    EXPECT_EQ(mode(), "");
    hands_->footerKey(4);
    EXPECT_EQ(mode(), "Changing limits");
    hands_->language(german);
    EXPECT_EQ(mode(), "Grenzen ändern");
    hands_->footerKey(4);
    EXPECT_EQ(mode(), "");
}

TEST_F(DialoguesTest, TheDefinitionEditorSaysWhichSwitchOrDrawingNumberItEdits)
{
    hands_->language(german);
    hands_->footerKey(4);
    hands_->input("SchalterL", 31);
    EXPECT_EQ(editor().title(), "Bremse");
    EXPECT_TRUE(control<panel::SchalterChild>("SchalterL", 31).lever().isBeingEdited());
    const QImage lit = control<panel::SchalterChild>("SchalterL", 31).lever().grab().toImage();
    hands_->editorCancel();
    EXPECT_NE(control<panel::SchalterChild>("SchalterL", 31).lever().grab().toImage(), lit);
    hands_->input("ZeichnungL", 43);
    EXPECT_EQ(editor().title(), "Zeichnung");
}

TEST_F(DialoguesTest, AnOpenMaskFollowsTheLanguage)
{
    hands_->input("SollwertL", 1);
    EXPECT_EQ(mask().title(), "Start position");
    EXPECT_EQ(mask().shown(), "1.5 mm");
    hands_->type("2");
    hands_->language(german);
    EXPECT_EQ(mask().title(), "Anfang");
    EXPECT_EQ(mask().shown(), "2 Grad");
    EXPECT_EQ(mask().cancelKey().text(), "Abbruch");
}

TEST_F(DialoguesTest, TheMaskWritesTheValueAsThePageDoesInEveryLanguage)
{
    hands_->language(german);
    hands_->input("SollwertL", 1);
    EXPECT_TRUE(mask().shown().startsWith(field("SollwertL", 1).text()));
    EXPECT_EQ(mask().pad().key(".")->text(), ".");
}

TEST_F(DialoguesTest, TheAnswerFollowsTheLanguage)
{
    change("SollwertL", 1, "42.5");
    flaky_->unwritable.insert(setpoints);
    hands_->footerKey(10);
    EXPECT_EQ(answer(), "Not written: Start position: refused by the controller");
    hands_->language(german);
    EXPECT_EQ(answer(), "Nicht geschrieben: Anfang: von der Steuerung abgelehnt");
}

// The answer before a refusal must not come back in its place.
TEST_F(DialoguesTest, AnotherLanguageEndsARefusalThatConfirmedNothing)
{
    change("SollwertL", 1, "42.5");
    hands_->footerKey(10);
    ASSERT_EQ(answer(), "Written, values: 1");
    change("SollwertL", 1, "43.5");
    panel_->setLink({false, "The controller does not answer"});
    hands_->footerKey(10);
    ASSERT_EQ(answer(), "Not written: Start position: No connection");
    hands_->language(german);
    EXPECT_FALSE(panel_->answers().isDue());
}

TEST_F(DialoguesTest, LimitsAreEditedWithoutAConnectionToo)
{
    hands_->footerKey(4);
    panel_->setLink({false, "The controller does not answer"});
    hands_->input("SollwertL", 1);
    EXPECT_EQ(editor().title(), "Start position");
}

TEST_F(DialoguesTest, TheListOfReportsFollowsTheLanguage)
{
    panel_->note("something");
    hands_->tap(panel_->errors().badge());
    EXPECT_EQ(panel_->errors().closeKey().text(), "Close");
    EXPECT_TRUE(panel_->errors().sheet().title().startsWith("Reports"));
    hands_->language(german);
    EXPECT_TRUE(panel_->errors().isOpen());
    EXPECT_EQ(panel_->errors().closeKey().text(), "Schließen");
    EXPECT_EQ(panel_->errors().clearKey().text(), "Liste leeren");
    EXPECT_TRUE(panel_->errors().sheet().title().startsWith("Meldungen"));
}

TEST_F(DialoguesTest, ThePanelsOwnReportsAreInTheOperatorsLanguage)
{
    const auto newest = [this] { return panel_->errors().entries().front().text; };
    panel_->note(panel::PanelText::NotReadAnew);
    EXPECT_EQ(newest(), "The project was not read anew");
    hands_->language(german);
    panel_->note(panel::PanelText::NotReadAnew);
    EXPECT_EQ(newest(), "Das Projekt wurde nicht neu gelesen");
    EXPECT_TRUE(panel_->picture("Servo\\NoSuch.gif").isNull());
    EXPECT_EQ(newest(), "'Servo\\NoSuch.gif': Datei fehlt");
}

TEST_F(DialoguesTest, TheListOfReportsLeavesTheHeaderInSight)
{
    panel_->note("something");
    hands_->tap(panel_->errors().badge());
    EXPECT_GT(panel_->errors().sheet().geometry().top(), header().geometry().bottom());
}

TEST_F(DialoguesTest, TheAnswerGoesWithTheNextFooterKey)
{
    change("SollwertL", 1, "42.5");
    flaky_->unwritable.insert(setpoints);
    hands_->footerKey(10);
    EXPECT_TRUE(panel_->answers().isVisible());
    hands_->footerKey(6);
    EXPECT_FALSE(panel_->answers().isVisible());
    hands_->footerKey(5);
    EXPECT_FALSE(panel_->answers().isVisible());
}

TEST_F(DialoguesTest, ARefusalNamesTheFieldAndTheReportTheVariable)
{
    change("SollwertL", 1, "42.5");
    change("SollwertR", 11, "3");
    change("SollwertL", 21, "7");
    flaky_->unwritable.insert(setpoints);
    hands_->language(german);
    hands_->footerKey(10);
    EXPECT_EQ(answer(),
        "Nur zum Teil geschrieben: Geschrieben, Werte: 1. Anfang: von der Steuerung abgelehnt (+1)");
    EXPECT_TRUE(isReported("Anfang, Servo.M1.Servo3.11: von der Steuerung abgelehnt – '" + setpoints
        + "': refused by the controller"));
    EXPECT_TRUE(isReported("Geschrieben, Werte: 1"));
}

TEST_F(DialoguesTest, EveryReasonHasItsWords)
{
    const auto reasonFor = [&](std::int32_t error) {
        change("SollwertL", 1, "42.5");
        flaky_->number = error;
        flaky_->unwritable.insert(setpoints);
        hands_->footerKey(10);
        return answer();
    };
    EXPECT_EQ(reasonFor(6), "Not written: Start position: out of range");
    EXPECT_EQ(reasonFor(13), "Not written: Start position: wrong type of data");
    EXPECT_EQ(reasonFor(70), "Not written: Start position: read-only");
    EXPECT_EQ(reasonFor(462), "Not written: Start position: No connection");
    EXPECT_EQ(reasonFor(2101), "Not written: Start position: access level too low");
    EXPECT_EQ(reasonFor(2104), "Not written: Start position: controller is busy");
    EXPECT_EQ(reasonFor(2112),
        "Unclear whether written: Start position: no answer, the machine does not have the new value");
    EXPECT_EQ(reasonFor(5), "Not written: Start position: refused by the controller");
}

TEST_F(DialoguesTest, WhatCannotBeReadIsNotWrittenForThatReason)
{
    change("SollwertL", 1, "42.5");
    flaky_->unreadable.insert(setpoints);
    hands_->footerKey(10);
    EXPECT_EQ(answer(), "Not written: Start position: cannot be read");
    EXPECT_TRUE(isReported("Start position: cannot be read – '" + setpoints + "': no answer"));
}

TEST_F(DialoguesTest, AMachineThatWasNotToldIsSaidSo)
{
    change("SollwertL", 1, "42.5");
    flaky_->unwritable.insert(changedFlag);
    hands_->footerKey(10);
    EXPECT_EQ(answer(), "Not written: Change not announced: refused by the controller. Written, values: 1");
}

TEST_F(DialoguesTest, TheProjectsTitleIsATextOfTheProject)
{
    header().refresh();
    EXPECT_EQ(header().shown().title, "Test");
    EXPECT_EQ(panel_->window().windowTitle(), "Test");
    hands_->language(german);
    header().refresh();
    EXPECT_EQ(header().shown().title, "Prüfanlage");
    EXPECT_EQ(panel_->window().windowTitle(), "Prüfanlage");
    hands_->language(english);
    EXPECT_EQ(panel_->window().windowTitle(), "Test");
}

TEST_F(DialoguesTest, EscOnTheScreenClosesTheTrendLikeEscOnTheKeyboard)
{
    hands_->footerKey(10);
    hands_->actualValue(103);
    ASSERT_TRUE(panel_->trends().isOpen());
    hands_->footerKey(11);
    EXPECT_FALSE(panel_->trends().isOpen());
    EXPECT_EQ(panel_->shownPart()->className(), "ServoMain");
    hands_->footerKey(11);
    EXPECT_EQ(panel_->shownPart()->className(), "ServoMenu");
}

TEST_F(DialoguesTest, KeysWithNothingBehindThemOnlyShowSomething)
{
    const auto key = [&](int number) -> panel::TouchKey& {
        return control<panel::FußzeileChild>("Fußzeile").bar().key(number);
    };
    const auto isOn = [&](int number) { return key(number).isOn(); };
    panel_->variables().declare("parameter<.maschinenanzahl>", Variant{std::int16_t{2}});
    panel_->openServo(); // comes back to the page
    for (const int number : {1, 2, 3})
        EXPECT_FALSE(isOn(number)) << number;
    EXPECT_TRUE(isOn(9));
    EXPECT_TRUE(isOn(10));
    EXPECT_TRUE(key(3).isSign());
    EXPECT_FALSE(key(7).isSign()); // off
    hands_->footerKey(11);
    for (const int number : {1, 2, 3, 9})
        EXPECT_FALSE(isOn(number)) << number;
    EXPECT_TRUE(isOn(11));
}
