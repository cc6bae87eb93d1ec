// Trends on the diagnosis page of a panel with the real library.
#include "flaky_variables.h"

#include "panel/form/header.h"
#include "panel/form/vws_var.h"
#include "panel/look/touch_size.h"
#include "platform/ids.h"
#include "support/standard_project.h"
#include "test_project.h"

#include <gtest/gtest.h>

#include <cmath>

#include <fstream>

using namespace servopanel;
using basic::Variant;
using panel::Operator;
using panel::Panel;
using panel::TrendSheet;
using servopanel::testing::TestProject;

namespace {

constexpr std::string_view actualValues = "Ch1.M1_T_servo_3<.mM1_servo_diag_31>";

class TrendsTest : public ::testing::Test {
protected:
    void SetUp() override { open({}); }
    void open(std::optional<int> resolution)
    {
        hands_.reset();
        reader_.reset();
        panel_.reset();
        panel::PanelSettings settings = project_.settings();
        settings.resolution = resolution;
        settings.trace = trace_;
        settings.wrapVariables = [this](std::shared_ptr<platform::ProcessVarAccess> inner) {
            flaky_ = std::make_shared<servopanel::testing::FlakyVariables>(std::move(inner));
            return flaky_;
        };
        panel_ = std::make_unique<Panel>(settings);
        reader_ = std::make_unique<servopanel::testing::MessageReader>(*panel_);
        panel_->window().show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&panel_->window()));
        panel_->openServo();
        hands_ = std::make_unique<Operator>(*panel_);
        hands_->menuKey(1);
        hands_->footerKey(10);
    }
    panel::Child& value(int number)
    {
        const std::string_view name = number <= 120 ? "IstWert" : "IstWertTab";
        return *panel_->shownPart()->find(name, static_cast<std::int16_t>(number));
    }
    void touch(int number) { hands_->tap(value(number).view()); }
    TrendSheet& sheet() { return panel_->trends().sheet(); }
    bool isOpen() { return panel_->trends().isOpen(); }
    std::vector<std::size_t> columns()
    {
        std::vector<std::size_t> found;
        for (const panel::TrendLine& line : sheet().lines())
            found.push_back(line.column);
        return found;
    }
    void writeValue(int element, double number)
    {
        Variant values = *panel_->variables().find(actualValues);
        basic::setElement(values, element, number);
        panel_->variables().write(actualValues, values, machine::Writer::Machine);
    }
    // Until the page has read its values once more.
    void awaitRead()
    {
        const int& reads = flaky_->reads[std::string{actualValues}];
        const int before = reads;
        ASSERT_TRUE(QTest::qWaitFor([&] { return reads > before; }));
    }
    QRect onStage(QWidget& widget)
    {
        return {widget.mapTo(&panel_->window().stage(), QPoint{0, 0}), widget.size()};
    }

    TestProject project_{servopanel::testing::standardProject};
    std::filesystem::path trace_;
    std::shared_ptr<servopanel::testing::FlakyVariables> flaky_;
    std::unique_ptr<Panel> panel_;
    std::unique_ptr<servopanel::testing::MessageReader> reader_;
    std::unique_ptr<Operator> hands_;
};

using Columns = std::vector<std::size_t>;

} // namespace

TEST_F(TrendsTest, ATouchOnAnActualValueOpensItsTrend)
{
    EXPECT_FALSE(isOpen());
    touch(103);
    ASSERT_TRUE(isOpen());
    EXPECT_EQ(columns(), (Columns{2}));
    panel_->trends().refresh();
    EXPECT_EQ(sheet().legend(0).value(), "3");
    writeValue(2, 8.25);
    panel_->trends().refresh();
    EXPECT_EQ(sheet().legend(0).value(), "8.25");
}

TEST_F(TrendsTest, FurtherTouchesAddUpToFourValues)
{
    for (const int number : {103, 104, 112, 120})
        touch(number);
    EXPECT_EQ(columns(), (Columns{2, 3, 11, 19}));
    touch(105);
    EXPECT_EQ(columns(), (Columns{2, 3, 11, 19}));
    touch(103); // is there already
    EXPECT_EQ(columns(), (Columns{2, 3, 11, 19}));
    hands_->tap(sheet().legend(1).removeKey());
    EXPECT_EQ(columns(), (Columns{2, 11, 19}));
    touch(105);
    EXPECT_EQ(columns(), (Columns{2, 11, 19, 4}));
}

TEST_F(TrendsTest, CellsOfTheTableHaveTrendsToo)
{
    touch(127);
    ASSERT_TRUE(isOpen());
    EXPECT_EQ(columns(), (Columns{26}));
    // The touched cell stays in sight, and so do its neighbours.
    EXPECT_FALSE(onStage(sheet()).intersects(onStage(value(127).view())));
    touch(133);
    EXPECT_EQ(columns(), (Columns{26, 32}));
    // The plot moves away from the lines above, so that they can be added.
    hands_->tap(sheet().moveKey());
    EXPECT_FALSE(onStage(sheet()).intersects(onStage(value(103).view())));
    touch(103);
    EXPECT_EQ(columns(), (Columns{26, 32, 2}));
}

TEST_F(TrendsTest, ATouchBesideAValueOnItsLineCounts)
{
    hands_->tap(panel_->shownPart()->find("Beschriftung", 104)->view());
    EXPECT_EQ(columns(), (Columns{3}));
}

TEST_F(TrendsTest, HeaderAndFooterStayFreeWhereverItLies)
{
    for (const int resolution : {1280, 1024, 800}) {
        open(resolution);
        touch(103);
        const QRect footer = onStage(panel_->shownPart()->find("Fußzeile")->view());
        const QRect header = onStage(panel_->servo()->find("Header")->view());
        for (int way = 0; way < 3; ++way) {
            const QRect place = onStage(sheet());
            EXPECT_FALSE(place.intersects(footer)) << resolution << " " << way;
            EXPECT_FALSE(place.intersects(header)) << resolution << " " << way;
            EXPECT_TRUE(panel_->window().stage().rect().contains(place)) << resolution;
            EXPECT_GT(sheet().plot().area().height(), 60) << resolution << " " << way;
            EXPECT_GT(sheet().plot().area().width(), 350) << resolution << " " << way;
            EXPECT_GE(sheet().closeKey().height(), 32) << resolution;
            hands_->tap(way == 0 ? sheet().moveKey() : sheet().enlargeKey());
        }
    }
}

TEST_F(TrendsTest, ItsWordsAreThoseOfTheLanguage)
{
    touch(103);
    EXPECT_EQ(sheet().closeKey().text(), "Close");
    EXPECT_EQ(sheet().freezeKey().text(), "Freeze");
    hands_->tap(sheet().freezeKey());
    EXPECT_EQ(sheet().freezeKey().text(), "Continue");
}

TEST_F(TrendsTest, OneTouchOrEscCloses)
{
    touch(103);
    hands_->tap(sheet().closeKey());
    EXPECT_FALSE(isOpen());
    touch(104);
    EXPECT_EQ(columns(), (Columns{3})); // starts anew
    QTest::keyClick(&panel_->window(), Qt::Key_Escape);
    EXPECT_FALSE(isOpen());
    // Esc closed the trend only.
    EXPECT_EQ(panel_->shownPart()->className(), "ServoMain");
}

TEST_F(TrendsTest, AnotherPageClosesIt)
{
    touch(103);
    hands_->footerKey(10);
    EXPECT_FALSE(isOpen());
    hands_->footerKey(10);
    touch(103);
    ASSERT_TRUE(isOpen());
    hands_->footerKey(8);
    EXPECT_FALSE(isOpen());
}

TEST_F(TrendsTest, AnotherServoScreenOrEndClosesIt)
{
    touch(103);
    panel_->closeScreen();
    EXPECT_FALSE(isOpen());
    panel_->openServo();
    hands_->footerKey(10);
    touch(103);
    EXPECT_TRUE(isOpen());
}

TEST_F(TrendsTest, NothingOpensWhileAMessageIs)
{
    panel_->gate().close();
    touch(103);
    EXPECT_FALSE(isOpen());
    panel_->gate().open();
    touch(103);
    EXPECT_TRUE(isOpen());
}

TEST_F(TrendsTest, AValueThatIsNoNumberHasNone)
{
    writeValue(2, std::nan(""));
    writeValue(3, 77.25);
    const auto& neighbour = static_cast<panel::TextView&>(value(104).view());
    ASSERT_TRUE(QTest::qWaitFor([&] { return neighbour.text() == "77.25"; }));
    touch(103);
    EXPECT_FALSE(isOpen());
    touch(104);
    EXPECT_EQ(columns(), (Columns{3}));
}

TEST_F(TrendsTest, AFailedReadIsAGap)
{
    touch(103);
    panel_->variables().declare(actualValues, Variant{"no array any more"});
    panel_->trends().refresh();
    EXPECT_EQ(sheet().legend(0).value(), "–");
    EXPECT_TRUE(isOpen());
}

TEST_F(TrendsTest, ItReadsTheMachineLikeTheLibrary)
{
    touch(103);
    flaky_->unreadable.insert(std::string{actualValues});
    panel_->trends().refresh();
    EXPECT_EQ(sheet().legend(0).value(), "–");
    // Its own reads say nothing about what the page shows.
    panel::TextView& shown = static_cast<panel::TextView&>(value(103).view());
    EXPECT_FALSE(shown.marks().stale);
    flaky_->unreadable.clear();
    panel_->trends().refresh();
    EXPECT_EQ(sheet().legend(0).value(), "3");
}

TEST_F(TrendsTest, ABadLinkIsAGap)
{
    touch(103);
    panel_->setLink({false, "The broker does not answer"});
    panel_->trends().refresh();
    EXPECT_EQ(sheet().legend(0).value(), "–");
    hands_->wait(600); // the page's own read does not fill it
    EXPECT_EQ(sheet().legend(0).value(), "–");
    panel_->setLink({true, ""});
    panel_->trends().refresh();
    EXPECT_EQ(sheet().legend(0).value(), "3");
    const panel::History& history = panel_->trends().sampler().history();
    EXPECT_TRUE(std::isnan(history.value(history.rows() - 2, 2)));
}

// A place of the page that the servo does not use shows 0, and says nothing of what.
TEST_F(TrendsTest, ValuesWithoutATextHaveNone)
{
    std::ofstream{project_.file("Texts/en.txt"), std::ios::app} << "Servo.M1.Servo3.45 =\n"
                                                                << "Servo.M1.Servo3.31 =\n"
                                                                << "Servo.M1.Servo3.32 =\n";
    open({});
    touch(105);
    EXPECT_FALSE(isOpen());
    touch(123);
    EXPECT_FALSE(isOpen());
    touch(103);
    EXPECT_TRUE(isOpen());
}

TEST_F(TrendsTest, HeadsOfTheTableHaveNone)
{
    awaitRead();
    for (const int number : {121, 126, 131, 136}) {
        touch(number);
        EXPECT_FALSE(isOpen()) << number;
        for (QWidget* mark : value(number).view().findChildren<QWidget*>())
            EXPECT_FALSE(mark->isVisible()) << number;
    }
    touch(122);
    EXPECT_TRUE(isOpen());
}

TEST_F(TrendsTest, CellsAreNamedByTheHeadOfTheirColumnAndTheirRow)
{
    touch(128);
    touch(122);
    EXPECT_EQ(sheet().lines()[0].caption, "26 / 2");
    EXPECT_EQ(sheet().lines()[1].caption, "21 / 1");
}

// Lines stand closer than a finger is wide on the smaller screens.
TEST_F(TrendsTest, ATouchWithinAFingersWidthOfAValueDoesNotMiss)
{
    for (const int resolution : {1280, 1024, 800}) {
        open(resolution);
        const int finger = panel::leastTouch(panel_->window().stage());
        for (const int number : {103, 120, 122, 125, 140}) {
            QWidget& view = value(number).view();
            QWidget& box = *view.parentWidget();
            const QPoint middle = view.geometry().center();
            for (const int away : {-finger / 2 + 1, finger / 2 - 1}) {
                hands_->press(box, middle + QPoint{0, away});
                hands_->release(box, middle + QPoint{0, away});
                EXPECT_TRUE(isOpen()) << resolution << " " << number << " " << away;
                panel_->trends().close();
            }
        }
    }
}

TEST_F(TrendsTest, TheSignOfAStaleValueStandsAlone)
{
    awaitRead();
    auto& view = static_cast<panel::TextView&>(value(103).view());
    auto* mark = view.findChild<QWidget*>();
    ASSERT_TRUE(mark->isVisible());
    flaky_->unreadable.insert(std::string{actualValues});
    panel_->setLink({false, "The broker does not answer"});
    const QImage both = view.grab().toImage();
    mark->hide();
    EXPECT_EQ(view.grab().toImage(), both);
}

TEST_F(TrendsTest, TheLibrarySeesNothingOfIt)
{
    trace_ = project_.file("touched.trace");
    open({});
    // What entered the library, but for the page's timer, which goes on.
    const auto entries = [&] {
        std::ifstream file{trace_};
        std::vector<std::string> found;
        for (std::string line; std::getline(file, line);)
            if (line.rfind("> ", 0) == 0 && line != "> timer") found.push_back(line);
        return found;
    };
    const std::vector<std::string> before = entries();
    ASSERT_FALSE(before.empty());
    touch(103);
    hands_->tap(panel_->shownPart()->find("Beschriftung", 104)->view());
    ASSERT_EQ(columns(), (Columns{2, 3}));
    hands_->tap(sheet().freezeKey());
    hands_->tap(sheet().plot());
    panel_->trends().refresh();
    hands_->tap(sheet().closeKey());
    EXPECT_EQ(entries(), before);
    const Variant values = *panel_->variables().find(actualValues);
    EXPECT_EQ(basic::element(values, 2), Variant{3.0});
}

TEST_F(TrendsTest, ValuesShowThatTheyCanBeTouched)
{
    awaitRead();
    EXPECT_NE(value(103).view().findChild<QWidget*>(), nullptr);
    EXPECT_TRUE(value(103).view().findChild<QWidget*>()->isVisible());
    // What the library put is as it was.
    EXPECT_EQ(value(103).get(platform::ids::VWSVarOut::Wert, {}), Variant{3.0});
}
