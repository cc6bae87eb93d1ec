// The panel with the real library on a small project.
#include "event_turns.h"
#include "panel/form/header.h"
#include "panel/form/vws_index.h"
#include "panel/form/vws_var.h"
#include "panel/window/other_screen.h"
#include "platform/ids.h"
#include "portable/temporary_folder.h"
#include "support/standard_project.h"
#include "test_project.h"

#include <gtest/gtest.h>

#include <QProcess>

using namespace servopanel;
using basic::Variant;
using panel::Operator;
using panel::Panel;
using servopanel::testing::letEventsPass;
using servopanel::testing::TestProject;

namespace {

class PanelTest : public ::testing::Test {
protected:
    void open()
    {
        panel_ = std::make_unique<Panel>(project_.settings());
        reader_ = std::make_unique<servopanel::testing::MessageReader>(*panel_);
        panel_->window().show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&panel_->window()));
        panel_->openServo();
        hands_ = std::make_unique<Operator>(*panel_);
    }
    void openFirstServo()
    {
        open();
        hands_->menuKey(1);
        ASSERT_NE(panel_->shownPart(), nullptr);
        ASSERT_EQ(panel_->shownPart()->className(), "ServoMain");
    }
    std::string newestReport()
    {
        const auto& entries = panel_->errors().entries();
        return entries.empty() ? std::string{} : entries.front().text.toStdString();
    }
    bool isReported(const std::string& part)
    {
        for (const auto& entry : panel_->errors().entries())
            if (entry.text.contains(QString::fromStdString(part))) return true;
        return false;
    }
    Variant variable(std::string_view name) { return *panel_->variables().find(name); }
    panel::Child& input(std::string_view name, std::int16_t index)
    {
        return panel_->shownPart()->require<panel::Child>(name, index);
    }

    TestProject project_{servopanel::testing::standardProject};
    std::unique_ptr<Panel> panel_;
    std::unique_ptr<servopanel::testing::MessageReader> reader_;
    std::unique_ptr<Operator> hands_;
};

constexpr std::string_view setpoints = "Ch1.M1_T_servo_3<.mM1_servo_para_3>";

} // namespace

TEST_F(PanelTest, OpensTheMenuWithNothingToReport)
{
    open();
    ASSERT_NE(panel_->shownPart(), nullptr);
    EXPECT_EQ(panel_->shownPart()->className(), "ServoMenu");
    for (const std::string& text : reader_->texts())
        ADD_FAILURE() << text;
}

TEST_F(PanelTest, ChangesASetpointThroughTheMask)
{
    openFirstServo();
    hands_->input("SollwertL", 1);
    hands_->type("42.5");
    hands_->ok();
    EXPECT_EQ(
        input("SollwertL", 1).get(platform::ids::VWSVarIn::Vordergrund, {}), Variant{std::int32_t{0x008000}});
    EXPECT_EQ(basic::element(variable(setpoints), 0), Variant{1.5});
    hands_->footerKey(10);
    EXPECT_EQ(basic::element(variable(setpoints), 0), Variant{42.5});
    EXPECT_EQ(variable("Ch1.M1_T_servo_3<.mM1_servoaender_3>"), Variant{std::int16_t{1}});
}

TEST_F(PanelTest, DiscardsAChange)
{
    openFirstServo();
    hands_->input("SollwertL", 1);
    hands_->type("42.5");
    hands_->ok();
    hands_->footerKey(11);
    EXPECT_EQ(input("SollwertL", 1).get(platform::ids::VWSVarIn::Wert, {}), Variant{1.5});
    EXPECT_EQ(panel_->shownPart()->className(), "ServoMain");
}

TEST_F(PanelTest, TheTimerBringsNewValuesOfTheMachine)
{
    openFirstServo();
    Variant values = variable(setpoints);
    basic::setElement(values, 0, 77.0);
    panel_->variables().write(setpoints, values, machine::Writer::Machine);
    EXPECT_TRUE(QTest::qWaitFor(
        [&] { return input("SollwertL", 1).get(platform::ids::VWSVarIn::Wert, {}) == Variant{77.0}; }));
}

TEST_F(PanelTest, AMessageHoldsEverythingUpUntilItIsRead)
{
    project_.write("project.json", [&] {
        std::ifstream in{project_.file("project.json")};
        std::string text{std::istreambuf_iterator<char>{in}, {}};
        return text.replace(text.find("\"input\": -1"), 11, "\"input\": 0");
    }());
    openFirstServo();
    reader_.reset();
    const QString before = static_cast<panel::TextView&>(input("SollwertL", 1).view()).text();
    bool wasOpen = false;
    QTimer::singleShot(100, &panel_->window(), [&] {
        Variant values = variable(setpoints);
        basic::setElement(values, 0, 77.0);
        panel_->variables().write(setpoints, values, machine::Writer::Machine);
    });
    QTimer::singleShot(900, &panel_->window(), [&] {
        panel::MessageSheet* sheet = servopanel::testing::openMessage(*panel_);
        if (sheet == nullptr) return;
        wasOpen = true;
        EXPECT_EQ(sheet->text(), "No permission");
        EXPECT_TRUE(panel_->gate().isBusy());
        // The timer rested.
        EXPECT_EQ(static_cast<panel::TextView&>(input("SollwertL", 1).view()).text(), before);
        // A touch beside the message reaches nothing.
        QTest::mouseClick(panel_->window().windowHandle(), Qt::LeftButton, {}, {400, 400});
        panel_->pressKey(11);
        EXPECT_EQ(panel_->shownPart()->className(), "ServoMain");
        QTest::mouseClick(&sheet->okKey(), Qt::LeftButton);
    });
    hands_->input("SollwertL", 1);
    EXPECT_TRUE(wasOpen);
    EXPECT_FALSE(panel_->gate().isBusy());
}

TEST_F(PanelTest, AnotherScreenTakesThePlaceOfTheControlAndLeadsBack)
{
    open();
    hands_->footerKey(11);
    EXPECT_EQ(panel_->servo(), nullptr);
    EXPECT_EQ(panel_->otherScreen(), 1111);
    hands_->backFromOtherScreen();
    ASSERT_NE(panel_->servo(), nullptr);
    EXPECT_EQ(panel_->shownPart()->className(), "ServoMenu");
    EXPECT_EQ(panel_->otherScreen(), 0);
}

TEST_F(PanelTest, AScreenThatTheProjectDoesNotHaveIsNoted)
{
    openFirstServo();
    panel_->pressKey(31);
    letEventsPass();
    EXPECT_EQ(panel_->otherScreen(), 1131);
    EXPECT_TRUE(isReported("The project has no screen 1131"));
}

TEST_F(PanelTest, AControlMadeAnewFindsTheRememberedServo)
{
    openFirstServo();
    panel_->openServo();
    letEventsPass();
    EXPECT_EQ(panel_->shownPart()->className(), "ServoMain");
}

TEST_F(PanelTest, FunctionKeysOfAKeyboardAreFooterKeys)
{
    openFirstServo();
    QTest::keyClick(&panel_->window(), Qt::Key_F10);
    EXPECT_TRUE(panel_->shownPart()->require<panel::Child>("DetailBox").view().isVisible());
    QTest::keyClick(&panel_->window(), Qt::Key_F10);
    QTest::keyClick(&panel_->window(), Qt::Key_Escape);
    EXPECT_EQ(panel_->shownPart()->className(), "ServoMenu");
}

TEST_F(PanelTest, ClosingTheWindowEndsTheControl)
{
    openFirstServo();
    panel_->window().close();
    letEventsPass();
    EXPECT_EQ(panel_->servo(), nullptr);
    EXPECT_FALSE(panel_->window().isVisible());
}

TEST_F(PanelTest, AMissingVariableIsReportedByNameAndThePageGoesOn)
{
    const std::string scenario = [] {
        std::string text = servopanel::testing::standardProject;
        const std::size_t line = text.find("var Ch1.M1_T_servo_3<.mM1_servo_zeich_3>");
        return text.erase(line, text.find('\n', line) - line);
    }();
    TestProject broken{scenario};
    Panel panel{broken.settings()};
    const servopanel::testing::MessageReader reader{panel};
    panel.window().show();
    panel.openServo();
    Operator hands{panel};
    hands.menuKey(1);
    EXPECT_EQ(panel.shownPart()->className(), "ServoMain");
    EXPECT_TRUE(std::any_of(panel.errors().entries().begin(), panel.errors().entries().end(),
        [](const panel::ErrorEntry& entry) { return entry.text.contains("servo_zeich_3"); }));
    EXPECT_EQ(panel.shownPart()->require<panel::Child>("SollwertL", 1).get(platform::ids::VWSVarIn::Wert, {}),
        Variant{1.5});
}

TEST_F(PanelTest, AMissingBackgroundIsAMessageAndThePanelGoesOn)
{
    project_.remove("Servo/ServoMenu_1280.bmp");
    open();
    ASSERT_FALSE(reader_->texts().empty());
    EXPECT_NE(reader_->texts().front().find("ServoMenu_1280.bmp' can not be loaded"), std::string::npos);
    EXPECT_EQ(panel_->shownPart()->className(), "ServoMenu");
}

TEST_F(PanelTest, ABrokenServoPictureDoesNotStopTheMenu)
{
    project_.write("Servo/Servo_5_1280.gif", "no picture");
    open();
    EXPECT_EQ(panel_->shownPart()->className(), "ServoMenu");
    EXPECT_TRUE(isReported("Servo_5_1280.gif"));
}

TEST_F(PanelTest, AMissingFooterPictureIsNotedOnce)
{
    open();
    int notes = 0;
    for (const auto& entry : panel_->errors().entries())
        if (entry.text.contains("F_Help_1280.gif")) ++notes;
    EXPECT_EQ(notes, 1);
}

TEST_F(PanelTest, AProjectFileThatBreaksOffKeepsThePanelUp)
{
    project_.write("project.json",
        R"({"title": "Broken", "resolution": 1280, "variables": {"parameter<.aufloesung>": 12)");
    reader_.reset();
    panel_ = std::make_unique<Panel>(project_.settings());
    reader_ = std::make_unique<servopanel::testing::MessageReader>(*panel_);
    panel_->window().show();
    panel_->openServo();
    EXPECT_TRUE(isReported("project.json"));
    EXPECT_NE(panel_->servo(), nullptr);
}

TEST_F(PanelTest, APanelWhoseMessageEndsInAnErrorHearsAgain)
{
    openFirstServo();
    panel::PanelMessages messages{
        panel_->window().stage(), panel_->gate(), [](panel::PanelText) { return QString{}; }};
    QTimer::singleShot(0, &panel_->window(), [] { throw basic::Error{5, {}, "out of the event loop"}; });
    EXPECT_THROW(messages.show("read me"), basic::Error);
    EXPECT_FALSE(panel_->gate().isClosed());
    EXPECT_EQ(servopanel::testing::openMessage(*panel_), nullptr);
    hands_->footerKey(11);
    EXPECT_EQ(panel_->shownPart()->className(), "ServoMenu");
}

TEST_F(PanelTest, AFolderThatIsNoProjectCannotBeStarted)
{
    QTemporaryDir empty;
    panel::PanelSettings settings;
    settings.project = empty.path().toStdString();
    EXPECT_THROW(Panel{settings}, panel::CannotStart);
    settings.project = "/nowhere/at/all";
    EXPECT_THROW(Panel{settings}, panel::CannotStart);
}

TEST_F(PanelTest, ATemporaryFolderOnADriveLeavesNothingWhereThePanelWasStarted)
{
    const servopanel::tests::TemporaryFolder started;
    const std::filesystem::path before = std::filesystem::current_path();
    std::filesystem::current_path(started.path());
    {
        const servopanel::tests::EnvironmentVariable drive{"TEMPVELM", "C:\\Temp"};
        const Panel panel{project_.settings()};
    }
    EXPECT_TRUE(std::filesystem::is_empty("."));
    std::filesystem::current_path(before);
}

TEST_F(PanelTest, TheProgramSaysWhyItCannotStartAndReturns2)
{
    QProcess program;
    program.setProcessEnvironment([] {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert("QT_QPA_PLATFORM", "offscreen");
        return environment;
    }());
    QTemporaryDir empty;
    program.start(SERVO_PANEL, {empty.path()});
    ASSERT_TRUE(program.waitForFinished());
    EXPECT_EQ(program.exitCode(), 2);
    EXPECT_TRUE(program.readAllStandardError().contains("is no project: it has no project.json"));
}

TEST_F(PanelTest, TheProgramRefusesADisplayThatListensToTheWholeNetwork)
{
    for (const char* platform : {"vnc", "vnc:port=5999", "offscreen;vnc"}) {
        QProcess program;
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert("QT_QPA_PLATFORM", platform);
        program.setProcessEnvironment(environment);
        program.start(SERVO_PANEL, {QString::fromStdString(project_.folder().string())});
        ASSERT_TRUE(program.waitForFinished());
        EXPECT_EQ(program.exitCode(), 2) << platform;
        EXPECT_TRUE(program.readAllStandardError().contains("SERVO_PANEL_DISPLAY=remote")) << platform;
    }
}

TEST_F(PanelTest, AnotherResolutionMakesAnotherStage)
{
    panel::PanelSettings settings = project_.settings();
    settings.resolution = 800;
    settings.level = std::int16_t{4};
    Panel panel{settings};
    EXPECT_EQ(panel.window().stage().size(), (QSize{800, 600}));
    EXPECT_EQ(*panel.variables().find("parameter<.aufloesung>"), Variant{std::int16_t{800}});
    EXPECT_EQ(*panel.variables().find("Ch-1.intern<.passwort>"), Variant{std::int16_t{4}});
}

TEST_F(PanelTest, ZoomedIntoASmallerWindowTouchesStillMeetTheirControls)
{
    panel::PanelSettings settings = project_.settings();
    settings.zoom = panel::PanelWindow::Zoom::ToWindow;
    Panel panel{settings};
    const servopanel::testing::MessageReader reader{panel};
    panel.window().resize(700, 500);
    panel.window().show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&panel.window()));
    panel.openServo();
    Operator hands{panel};
    hands.menuKey(1);
    ASSERT_EQ(panel.shownPart()->className(), "ServoMain");
    hands.input("SollwertL", 1);
    hands.type("7");
    hands.ok();
    EXPECT_EQ(panel.shownPart()->require<panel::Child>("SollwertL", 1).get(platform::ids::VWSVarIn::Wert, {}),
        Variant{7.0});
    hands.footerKey(11); // discards
    QTest::keyClick(&panel.window(), Qt::Key_Escape);
    EXPECT_EQ(panel.shownPart()->className(), "ServoMenu");
}

TEST_F(PanelTest, AnUnknownLanguageCannotBeStarted)
{
    panel::PanelSettings settings = project_.settings();
    settings.language = "xx";
    EXPECT_THROW(Panel{settings}, panel::CannotStart);
}

TEST_F(PanelTest, AMissingDatabaseIsReportedByItsName)
{
    project_.remove("Servo/Servo.mdb");
    open();
    hands_->menuKey(1);
    EXPECT_EQ(panel_->shownPart()->className(), "ServoMain");
    EXPECT_TRUE(isReported("Servo\\Servo.mdb': no such file"));
    EXPECT_FALSE(isReported("''"));
}
