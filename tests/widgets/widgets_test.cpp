// The three controls in windows of somebody else.
#include "machine/split_variables.h"
#include "panel/event_turns.h"
#include "panel/runtime/panel.h"
#include "panel/test_project.h"
#include "panel/tour/operator.h"
#include "platform/ids.h"
#include "support/standard_project.h"
#include "widgets/servo_main_widget.h"
#include "widgets/servo_menu_widget.h"
#include "widgets/servo_widget.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QBoxLayout>
#include <QPointer>
#include <QSignalSpy>

using namespace servopanel;
using basic::Variant;
using panel::Operator;
using servopanel::testing::TestProject;

namespace {

constexpr std::string_view setpoints = "Ch1.M1_T_servo_3<.mM1_servo_para_3>";

class WidgetsTest : public ::testing::Test {
protected:
    WidgetsTest()
    {
        qputenv("TEMPVELM", project_.file("temporary").string().c_str());
        window_.resize(900, 700);
        layout_.setContentsMargins({});
    }
    ~WidgetsTest() override { qunsetenv("TEMPVELM"); }

    template <class Widget>
    Widget& add()
    {
        auto* widget = new Widget{&window_};
        layout_.addWidget(widget);
        widget->setProject(QString::fromStdString(project_.folder().string()));
        return *widget;
    }
    void show()
    {
        window_.show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&window_));
        servopanel::testing::letEventsPass(); // the controls start from the event loop
    }
    static std::string shown(ControlWidget& widget)
    {
        panel::ControlHost* part = widget.panel()->shownPart();
        return part == nullptr ? std::string{} : std::string{part->className()};
    }

    TestProject project_{servopanel::testing::standardProject};
    QWidget window_;
    QVBoxLayout layout_{&window_};
};

} // namespace

TEST_F(WidgetsTest, ServoIsOperatedInsideAnotherWindow)
{
    auto& servo = add<ServoWidget>();
    show();
    ASSERT_NE(servo.panel(), nullptr);
    EXPECT_EQ(shown(servo), "ServoMenu");
    const servopanel::testing::MessageReader reader{*servo.panel()};
    Operator hands{*servo.panel()};
    hands.menuKey(1);
    EXPECT_EQ(shown(servo), "ServoMain");
    hands.input("SollwertL", 1);
    hands.type("42.5");
    hands.ok();
    hands.footerKey(10);
    EXPECT_EQ(basic::element(*servo.panel()->variables().find(setpoints), 0), Variant{42.5});
}

TEST_F(WidgetsTest, FillsItsPlaceInTheShapeOfTheDesign)
{
    auto& servo = add<ServoWidget>();
    show();
    window_.resize(500, 800);
    servopanel::testing::letEventsPass();
    EXPECT_EQ(servo.panel()->window().size(), servo.size());
    panel::PanelWindow& window = servo.panel()->window();
    const QPoint topLeft = window.toWindow(window.stage(), {0, 0});
    const QPoint bottomRight = window.toWindow(window.stage(), {1280, 1024});
    EXPECT_NEAR((bottomRight - topLeft).x(), 500, 1);
    EXPECT_NEAR((bottomRight - topLeft).y(), 400, 1);
}

TEST_F(WidgetsTest, WithoutAProjectSaysSo)
{
    auto& servo = add<ServoWidget>();
    servo.setProject({});
    show();
    EXPECT_EQ(servo.panel(), nullptr);
    EXPECT_EQ(servo.problem(), "No project is set");
}

TEST_F(WidgetsTest, AFolderThatIsNoProjectIsReportedAndCanBeReplaced)
{
    auto& servo = add<ServoWidget>();
    QSignalSpy reports{&servo, &ControlWidget::reported};
    const QString good = servo.project();
    servo.setProject("/nowhere/at/all");
    show();
    EXPECT_EQ(servo.panel(), nullptr);
    ASSERT_TRUE(QTest::qWaitFor([&] { return reports.count() == 1; }));
    EXPECT_TRUE(reports.front().front().toString().contains("/nowhere/at/all"));
    servo.setProject(good);
    ASSERT_TRUE(QTest::qWaitFor([&] { return servo.panel() != nullptr; }));
    EXPECT_EQ(shown(servo), "ServoMenu");
    EXPECT_EQ(servo.problem(), "");
}

TEST_F(WidgetsTest, ReportsReachTheProgram)
{
    auto& servo = add<ServoWidget>();
    QSignalSpy reports{&servo, &ControlWidget::reported};
    show();
    servo.panel()->note("something is missing");
    EXPECT_TRUE(QTest::qWaitFor(
        [&] { return !reports.isEmpty() && reports.back().front().toString() == "something is missing"; }));
}

TEST_F(WidgetsTest, AnotherScreenIsTheProgramsBusiness)
{
    auto& servo = add<ServoWidget>();
    QSignalSpy screens{&servo, &ControlWidget::screenWanted};
    QObject::connect(&servo, &ControlWidget::screenWanted, &servo, &QWidget::hide);
    show();
    Operator{*servo.panel()}.footerKey(11);
    ASSERT_TRUE(QTest::qWaitFor([&] { return screens.count() == 1; }));
    EXPECT_EQ(screens.front().front().toInt(), 1111);
    EXPECT_EQ(servo.panel()->servo(), nullptr);
    servo.show();
    ASSERT_TRUE(QTest::qWaitFor([&] { return servo.panel()->servo() != nullptr; }));
    EXPECT_EQ(shown(servo), "ServoMenu");
}

TEST_F(WidgetsTest, ComesBackWhenNobodyShowsAnotherScreen)
{
    auto& servo = add<ServoWidget>();
    show();
    Operator{*servo.panel()}.footerKey(11);
    EXPECT_TRUE(QTest::qWaitFor([&] { return servo.panel()->servo() != nullptr; }));
}

TEST_F(WidgetsTest, TheMenuTellsWhichServoWasChosenAndStays)
{
    auto& menu = add<ServoMenuWidget>();
    QSignalSpy chosen{&menu, &ServoMenuWidget::servoChosen};
    show();
    EXPECT_EQ(shown(menu), "ServoMenu");
    Operator hands{*menu.panel()};
    hands.menuKey(2);
    ASSERT_TRUE(QTest::qWaitFor([&] { return chosen.count() == 1; }));
    EXPECT_EQ(chosen.front().front().toInt(), 2);
    EXPECT_EQ(shown(menu), "ServoMenu");
    hands.menuKey(1);
    ASSERT_TRUE(QTest::qWaitFor([&] { return chosen.count() == 2; }));
    EXPECT_EQ(chosen.back().front().toInt(), 1);
}

TEST_F(WidgetsTest, ThePageShowsTheServoItIsTold)
{
    auto& page = add<ServoMainWidget>();
    page.setServo(2);
    show();
    EXPECT_EQ(shown(page), "ServoMain");
    const auto place = [&] { return *page.panel()->variables().find("Ch-1.intern<.servo_zeiger>"); };
    EXPECT_EQ(place(), Variant{std::int16_t{2}});
    page.setServo(1);
    EXPECT_TRUE(QTest::qWaitFor([&] { return place() == Variant{std::int16_t{1}}; }));
    EXPECT_EQ(shown(page), "ServoMain");
}

TEST_F(WidgetsTest, LeavingThePageIsTold)
{
    auto& page = add<ServoMainWidget>();
    QSignalSpy left{&page, &ServoMainWidget::left};
    show();
    Operator hands{*page.panel()};
    hands.footerKey(11);
    ASSERT_TRUE(QTest::qWaitFor([&] { return left.count() == 1; }));
    page.setServo(2);
    EXPECT_TRUE(QTest::qWaitFor([&] {
        return *page.panel()->variables().find("Ch-1.intern<.servo_zeiger>") == Variant{std::int16_t{2}};
    }));
    EXPECT_EQ(shown(page), "ServoMain");
}

TEST_F(WidgetsTest, MenuAndPageAreShownWithoutTheHeader)
{
    auto& menu = add<ServoMenuWidget>();
    show();
    const panel::PanelWindow& window = menu.panel()->window();
    auto& header = menu.panel()->servo()->require<panel::Child>("Header");
    const QPoint belowHeader = window.toWindow(header.view(), {0, header.view().height()});
    EXPECT_NEAR(belowHeader.y(),
        window.toWindow(menu.panel()->window().stage(), {0, 0}).y() + header.view().height() * 900 / 1280, 3);
    EXPECT_LE(window.toWindow(header.view(), {0, 0}).y(), 0);
}

// Menu and page of one program share the machine.
TEST_F(WidgetsTest, TwoControlsCanShareTheirVariables)
{
    auto shared = std::make_shared<machine::VariableStore>();
    machine::ProjectFile::load(project_.file("project.json")).declareVariables(*shared);
    auto& first = add<ServoMainWidget>();
    auto& second = add<ServoMainWidget>();
    for (ServoMainWidget* each : {&first, &second})
        each->setVariables(
            [shared](const auto& own) { return std::make_shared<machine::SplitVariables>(own, shared); });
    show();
    Operator hands{*first.panel()};
    hands.input("SollwertL", 1);
    hands.type("42.5");
    hands.ok();
    hands.footerKey(10);
    EXPECT_EQ(basic::element(*shared->find(setpoints), 0), Variant{42.5});
    EXPECT_NE(basic::element(*second.panel()->variables().find(setpoints), 0), Variant{42.5});
}

// Nothing of the program's theme reaches the panel.
TEST_F(WidgetsTest, LooksTheSameInEveryProgram)
{
    const auto picture = [&] {
        auto& servo = add<ServoWidget>();
        show();
        Operator{*servo.panel()}.menuKey(1);
        const QImage image = servo.panel()->shownPart()->view().grab().toImage();
        delete &servo;
        window_.hide();
        return image;
    };
    const QImage usual = picture();
    const QPalette palette = QApplication::palette();
    const QFont font = QApplication::font();
    QPalette dark{QColor{20, 20, 20}};
    dark.setColor(QPalette::WindowText, Qt::yellow);
    dark.setColor(QPalette::Text, Qt::yellow);
    QApplication::setPalette(dark);
    QApplication::setFont(QFont{"DejaVu Serif", 30});
    const QImage themed = picture();
    QApplication::setPalette(palette);
    QApplication::setFont(font);
    EXPECT_EQ(usual, themed);
}

TEST_F(WidgetsTest, LanguageAndLevelAreProperties)
{
    auto& servo = add<ServoWidget>();
    servo.setProject(QString::fromUtf8(DEMO_PROJECT));
    servo.setProperty("language", "zh");
    servo.setProperty("accessLevel", 0);
    servo.setProperty("resolution", 800);
    show();
    EXPECT_EQ(servo.panel()->language(), 4);
    EXPECT_EQ(*servo.panel()->variables().find("Ch-1.intern<.passwort>"), Variant{std::int16_t{0}});
    EXPECT_EQ(servo.panel()->window().stage().size(), QSize(800, 600));
    servo.setLanguage("2");
    EXPECT_EQ(servo.panel()->language(), 2);
    EXPECT_EQ(servo.language(), "2");
}

TEST_F(WidgetsTest, StartsAnewOutOfItsOwnSignals)
{
    const TestProject other{servopanel::testing::standardProject};
    auto& menu = add<ServoMenuWidget>();
    const QString wanted = QString::fromStdString(other.folder().string());
    QObject::connect(&menu, &ServoMenuWidget::servoChosen, &menu, [&] { menu.setProject(wanted); });
    show();
    const QPointer<QWidget> before = &menu.panel()->window();
    Operator{*menu.panel()}.menuKey(2);
    ASSERT_TRUE(QTest::qWaitFor([&] { return !before && menu.panel() != nullptr; }));
    EXPECT_EQ(shown(menu), "ServoMenu");
}

TEST_F(WidgetsTest, IsDeletedOutOfItsOwnSignals)
{
    const QPointer<ServoMenuWidget> menu = &add<ServoMenuWidget>();
    QObject::connect(menu, &ServoMenuWidget::servoChosen, &window_, [&] { delete menu; });
    show();
    const QPointer<QWidget> inside = &menu->panel()->window();
    // What the operator's hands do ends inside the widget; only the event loop may take it away.
    Operator{*menu->panel()}.menuKey(2);
    EXPECT_TRUE(QTest::qWaitFor([&] { return !menu && !inside; }));
}

TEST_F(WidgetsTest, StartsAnewOnceTheMessageWasRead)
{
    project_.remove("Servo/ServoMenu_1280.bmp"); // of which there is a message
    const TestProject other{servopanel::testing::standardProject};
    auto& servo = add<ServoWidget>();
    QPointer<QWidget> before;
    bool hasStayed = false;
    QTimer::singleShot(300, &servo, [&] {
        before = &servo.panel()->window();
        servo.setProject(QString::fromStdString(other.folder().string()));
    });
    QTimer::singleShot(800, &servo, [&] {
        hasStayed = before != nullptr;
        servo.panel()->endMessage();
    });
    window_.show();
    ASSERT_TRUE(QTest::qWaitFor([&] { return hasStayed; }));
    ASSERT_TRUE(QTest::qWaitFor([&] { return !before && servo.panel() != nullptr; }));
    EXPECT_EQ(shown(servo), "ServoMenu");
}

TEST_F(WidgetsTest, IsDeletedWhileAMessageIsOpen)
{
    project_.remove("Servo/ServoMenu_1280.bmp");
    const QPointer<ServoWidget> servo = &add<ServoWidget>();
    QPointer<QWidget> inside;
    bool wasOpen = false;
    QTimer::singleShot(500, &window_, [&] {
        wasOpen = servopanel::testing::openMessage(*servo->panel()) != nullptr;
        inside = &servo->panel()->window();
        delete servo;
    });
    window_.show();
    ASSERT_TRUE(QTest::qWaitFor([&] { return !servo; }));
    EXPECT_TRUE(QTest::qWaitFor([&] { return !inside; }));
    EXPECT_TRUE(wasOpen);
}

TEST_F(WidgetsTest, ALanguageThatIsNotThereIsReportedAndCanBeReplaced)
{
    auto& servo = add<ServoWidget>();
    servo.setProject(QString::fromUtf8(DEMO_PROJECT));
    servo.setLanguage("xx");
    QSignalSpy reports{&servo, &ControlWidget::reported};
    show();
    EXPECT_EQ(servo.panel(), nullptr);
    EXPECT_TRUE(QTest::qWaitFor([&] { return reports.count() == 1; }));
    servo.setLanguage("en");
    ASSERT_TRUE(QTest::qWaitFor([&] { return servo.panel() != nullptr; }));
    EXPECT_EQ(servo.language(), "2");
    servo.setLanguage("yy");
    EXPECT_TRUE(QTest::qWaitFor([&] { return reports.back().front().toString().contains("'yy'"); }));
    EXPECT_EQ(servo.language(), "2");
}

TEST_F(WidgetsTest, AProjectThatIsSetBecauseOfAReportIsShown)
{
    const TestProject other{servopanel::testing::standardProject};
    project_.write("project.json", "{\"title\": \"Broken\", \"nonsense\": 1}");
    auto& servo = add<ServoWidget>();
    QObject::connect(&servo, &ControlWidget::reported, &servo,
        [&] { servo.setProject(QString::fromStdString(other.folder().string())); });
    QTimer reader;
    QObject::connect(&reader, &QTimer::timeout, &servo, [&] {
        if (servo.panel() != nullptr) servo.panel()->endMessage();
    });
    reader.start(20);
    show();
    EXPECT_TRUE(QTest::qWaitFor([&] { return servo.panel() && servo.panel()->project().title == "Test"; }));
}

TEST_F(WidgetsTest, PropertiesOutOfRangeAreReportedAndChangeNothing)
{
    auto& servo = add<ServoWidget>();
    QSignalSpy reports{&servo, &ControlWidget::reported};
    servo.setResolution(1000);
    servo.setAccessLevel(6);
    servo.setAccessLevel(-2);
    EXPECT_EQ(servo.resolution(), 0);
    EXPECT_EQ(servo.accessLevel(), -1);
    ASSERT_TRUE(QTest::qWaitFor([&] { return reports.count() == 3; }));
    EXPECT_TRUE(reports[0].front().toString().contains("1000"));
    EXPECT_TRUE(reports[1].front().toString().contains('6'));
}

TEST_F(WidgetsTest, AnotherLevelLeavesInputsAlone)
{
    auto& servo = add<ServoWidget>();
    show();
    const servopanel::testing::MessageReader reader{*servo.panel()};
    Operator hands{*servo.panel()};
    hands.menuKey(1);
    hands.input("SollwertL", 1);
    hands.type("42.5");
    hands.ok();
    const panel::Panel* const before = servo.panel();
    servo.setAccessLevel(3);
    servopanel::testing::letEventsPass();
    ASSERT_EQ(servo.panel(), before);
    EXPECT_TRUE(servo.panel()->hasUnfinishedInput());
    EXPECT_EQ(*servo.panel()->variables().find("Ch-1.intern<.passwort>"), Variant{std::int16_t{3}});
    hands.footerKey(10);
    EXPECT_EQ(basic::element(*servo.panel()->variables().find(setpoints), 0), Variant{42.5});
}
