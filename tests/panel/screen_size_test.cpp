// How large things are under a finger on the screen that a project states, however much of it the panel takes.
#include "test_project.h"

#include "panel/form/control_host.h"
#include "panel/form/header.h"
#include "panel/look/touch_size.h"
#include "support/standard_project.h"

#include <gtest/gtest.h>

#include <QScreen>

#include <cmath>
#include <fstream>
#include <iterator>

using namespace servopanel;
using panel::Panel;
using panel::PanelWindow;

namespace {

constexpr double millimetresPerInch = 25.4;

class ScreenSize : public ::testing::TestWithParam<int> {
protected:
    // A panel whose project states the diagonal of its screen, inches.
    void start(double inches, int resolution, PanelWindow::Zoom zoom)
    {
        reader_.reset();
        panel_.reset();
        project_ = std::make_unique<servopanel::testing::TestProject>(servopanel::testing::standardProject);
        std::ifstream in{project_->file("project.json")};
        std::string text{std::istreambuf_iterator<char>{in}, {}};
        text.insert(1, "\"screen\": {\"diagonal_inches\": " + std::to_string(inches) + "},\n");
        project_->write("project.json", text);
        panel::PanelSettings settings = project_->settings();
        settings.resolution = resolution;
        settings.zoom = zoom;
        panel_ = std::make_unique<Panel>(settings);
        reader_ = std::make_unique<servopanel::testing::MessageReader>(*panel_);
    }
    void show(QSize window)
    {
        panel_->window().show();
        EXPECT_TRUE(QTest::qWaitForWindowExposed(&panel_->window()));
        panel_->window().resize(window);
        panel_->openServo();
    }
    // What the tests are drawn on is of another shape than every panel.
    QSize screen() { return panel_->window().screen()->size(); }
    static double zoomOf(QSize stage, QSize screen)
    {
        return std::min(double(screen.width()) / stage.width(), double(screen.height()) / stage.height());
    }
    // By arithmetic of its own: the side of a pixel of the stage on a screen of this diagonal.
    static double pixelOf(QSize screen, double inches, double zoom)
    {
        return inches * millimetresPerInch / std::hypot(screen.width(), screen.height()) * zoom;
    }
    double pixel() { return panel::millimetresPerPixel(panel_->window().stage()); }
    panel::HeaderBar& header() { return panel_->servo()->require<panel::HeaderChild>("Header").bar(); }
    std::string reported(const std::string& beginning)
    {
        for (const panel::ErrorEntry& entry : panel_->errors().entries())
            if (entry.text.toStdString().starts_with(beginning)) return entry.text.toStdString();
        return {};
    }

    std::unique_ptr<servopanel::testing::TestProject> project_;
    std::unique_ptr<Panel> panel_;
    std::unique_ptr<servopanel::testing::MessageReader> reader_;
};

} // namespace

TEST_F(ScreenSize, OnAScreenOfAnotherShapeTheStageTakesAPart)
{
    constexpr double inches = 10;
    start(inches, 1280, PanelWindow::Zoom::ToWindow);
    show(screen());
    ASSERT_NE(screen().width() * 1024, screen().height() * 1280);
    const double expected = pixelOf(screen(), inches, zoomOf({1280, 1024}, screen()));
    EXPECT_NEAR(pixel(), expected, expected / 500); // whole pixels of the window
    EXPECT_GE(header().languageKey(1)->height() * expected, 9.0);
}

TEST_F(ScreenSize, WhatIsShownLaysItselfOutAnew)
{
    start(10, 1280, PanelWindow::Zoom::ToWindow);
    show({1280, 1024});
    const int before = header().languageKey(1)->height();
    panel_->window().resize(screen());
    EXPECT_GT(header().languageKey(1)->height(), before);
    EXPECT_GE(header().languageKey(1)->height() * pixel(), 9.0);
}

TEST_F(ScreenSize, AWindowOnADeskIsAsLargeAsStated)
{
    constexpr double inches = 19;
    start(inches, 1280, PanelWindow::Zoom::ToWindow);
    show({1920, 1080});
    EXPECT_NEAR(pixel(), pixelOf({1280, 1024}, inches, 1), 1e-9);
    start(inches, 800, PanelWindow::Zoom::None);
    show({900, 700});
    EXPECT_NEAR(pixel(), pixelOf({800, 600}, inches, 1), 1e-9);
}

TEST_F(ScreenSize, RowsThatAreTooLowAreReported)
{
    start(10.4, 800, PanelWindow::Zoom::None);
    show({800, 600});
    EXPECT_EQ(reported("Rows"), "Rows are lower than 9 mm on this screen, diagonal in inches at least: 14.8");
    start(14.8, 800, PanelWindow::Zoom::None);
    show({800, 600});
    EXPECT_EQ(reported("Rows"), "");
}

TEST_F(ScreenSize, TheReportIsOfTheWholeScreen)
{
    start(12, 1280, PanelWindow::Zoom::ToWindow);
    show(screen());
    const double needed = 9 / (42 * pixelOf(screen(), 1, zoomOf({1280, 1024}, screen())));
    const std::string line = reported("Rows");
    EXPECT_NEAR(std::stod("0" + line.substr(line.rfind(' ') + 1)), needed, 0.15) << line;
}

// A window without a frame has the size of the screen only some time after the page is open.
TEST_F(ScreenSize, TheReportComesWhenTheWindowGetsItsSize)
{
    start(14.5, 1280, PanelWindow::Zoom::ToWindow);
    show({1280, 1024});
    ASSERT_EQ(reported("Rows"), "");
    panel_->window().resize(screen());
    const double row = 42 * pixelOf(screen(), 14.5, zoomOf({1280, 1024}, screen()));
    ASSERT_LT(row, 9);
    EXPECT_NE(reported("Rows"), "");
}

TEST_F(ScreenSize, WhatStandsOnTheStageFindsIt)
{
    servopanel::testing::TestProject project{servopanel::testing::standardProject}; // states no diagonal
    Panel panel{project.settings()};
    QWidget outside;
    panel.window().setParent(&outside); // as in somebody else's window
    panel.openServo();
    panel::HeaderBar& bar = panel.servo()->require<panel::HeaderChild>("Header").bar();
    EXPECT_EQ(&panel::stageOf(bar), &panel.window().stage());
    panel.window().setParent(nullptr);
}

INSTANTIATE_TEST_SUITE_P(Screens, ScreenSize, ::testing::Values(1280, 1024, 800));

TEST_P(ScreenSize, RowsAreAsFarApartAsIsReckonedWith)
{
    start(19, GetParam(), PanelWindow::Zoom::None);
    show(panel_->window().size());
    panel::Operator hands{*panel_};
    hands.menuKey(1);
    int least = panel_->window().height();
    for (std::int16_t row = 1; row < 10; ++row) {
        const auto top = [&](int index) {
            return panel_->shownPart()->find("SollwertL", static_cast<std::int16_t>(index))->view().y();
        };
        least = std::min(least, top(row + 1) - top(row));
    }
    EXPECT_EQ(least, machine::rowPixels(GetParam()));
    EXPECT_GE(machine::rowMillimetres(GetParam(), machine::leastDiagonal(GetParam())), 9.0);
    EXPECT_LT(machine::rowMillimetres(GetParam(), machine::leastDiagonal(GetParam()) - 0.1), 9.0);
}
