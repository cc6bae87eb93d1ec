// The panel fitted into windows of other sizes: sharp, and every touch where the operator sees it. CMake runs these
// tests again on screens of other scale factors.
#include "look/picture_compare.h"
#include "look/screen.h"

#include <gtest/gtest.h>

#include <QMouseEvent>
#include <QTest>
#include <QWindow>

#include <algorithm>
#include <array>
#include <cmath>
#include <vector>

using namespace servopanel::look;
using servopanel::panel::Panel;
using servopanel::panel::PanelWindow;

namespace {

constexpr std::array windowSizes{QSize{1920, 1080}, QSize{1366, 768}, QSize{1280, 800}, QSize{1024, 768},
    QSize{768, 1366}, QSize{1280, 1024}, QSize{1283, 1031}, QSize{2560, 1440}, QSize{640, 480}};
constexpr QSize stageSize{1280, 1024};

// Says where it was touched last.
class Probe : public QWidget {
public:
    using QWidget::QWidget;
    static inline const QWidget* touched = nullptr;
    static inline QPointF at;

protected:
    void mousePressEvent(QMouseEvent* event) override
    {
        touched = this;
        at = event->position();
    }
    void mouseReleaseEvent(QMouseEvent*) override { }
};

std::string windowName(const ::testing::TestParamInfo<QSize>& info)
{
    return std::to_string(info.param.width()) + "x" + std::to_string(info.param.height());
}

class TouchMapping : public ::testing::TestWithParam<QSize> {
protected:
    TouchMapping()
    {
        window_.resize(GetParam());
        // At the edges, in the middle, small, and one inside another.
        for (const QRect& place : {QRect{0, 0, 40, 36}, QRect{1240, 0, 40, 36}, QRect{0, 988, 40, 36},
                 QRect{1240, 988, 40, 36}, QRect{601, 403, 170, 36}, QRect{97, 700, 400, 300}}) {
            probes_.push_back(new Probe{&window_.stage()});
            probes_.back()->setGeometry(place);
        }
        auto* inner = new Probe{probes_.back()};
        inner->setGeometry(33, 71, 51, 43);
        probes_.push_back(inner);
        for (Probe* probe : probes_)
            probe->show();
        window_.show();
        EXPECT_TRUE(QTest::qWaitForWindowExposed(&window_));
    }
    double zoom() const
    {
        const QSize window = window_.size();
        return std::min(
            double(window.width()) / stageSize.width(), double(window.height()) / stageSize.height());
    }
    // By arithmetic of its own, not the window's.
    QPointF onWindow(const QPointF& onStage) const
    {
        const QSizeF shown = QSizeF{stageSize} * zoom();
        return {(window_.width() - shown.width()) / 2 + onStage.x() * zoom(),
            (window_.height() - shown.height()) / 2 + onStage.y() * zoom()};
    }
    const QWidget* touch(const QPoint& at)
    {
        Probe::touched = nullptr;
        QTest::mouseClick(window_.windowHandle(), Qt::LeftButton, {}, at);
        return Probe::touched;
    }

    PanelWindow window_{stageSize, PanelWindow::Zoom::ToWindow};
    std::vector<Probe*> probes_;
};

} // namespace

TEST_P(TouchMapping, MeetsEveryCornerOfEveryChild)
{
    for (const Probe* probe : probes_) {
        const QRectF place{probe->mapTo(&window_.stage(), QPoint{}), probe->size()};
        const QPointF first = onWindow(place.topLeft());
        const QPointF last = onWindow(place.bottomRight());
        // The outermost pixels that lie wholly within the child, one for the rounding of the window's middle.
        const int left = static_cast<int>(std::ceil(first.x())) + 1;
        const int top = static_cast<int>(std::ceil(first.y())) + 1;
        const int right = static_cast<int>(std::floor(last.x())) - 2;
        const int bottom = static_cast<int>(std::floor(last.y())) - 2;
        for (const QPoint& corner :
            {QPoint{left, top}, QPoint{right, top}, QPoint{left, bottom}, QPoint{right, bottom}}) {
            ASSERT_EQ(touch(corner), probe) << corner.x() << ',' << corner.y();
            const QPointF expected = (QPointF{corner} - first) / zoom();
            const double tolerance = std::max(1.0, 1 / zoom());
            EXPECT_NEAR(Probe::at.x(), expected.x(), tolerance);
            EXPECT_NEAR(Probe::at.y(), expected.y(), tolerance);
        }
        for (const QPoint& beside : {QPoint{left - 4, top}, QPoint{right + 4, bottom}})
            EXPECT_TRUE(!window_.rect().contains(beside) || touch(beside) != probe);
    }
}

TEST_P(TouchMapping, TheOperatorsHandsMeetTheSamePlaces)
{
    for (Probe* probe : probes_) {
        const QPoint middle = probe->rect().center();
        if (probe->childAt(middle) != nullptr) continue;
        EXPECT_EQ(touch(window_.toWindow(*probe, middle)), probe);
        EXPECT_LE((Probe::at - QPointF{middle}).manhattanLength(), std::max(1.5, 1.5 / zoom()));
    }
}

TEST_P(TouchMapping, AWheelMovesNothing)
{
    const QPoint before = window_.toWindow(*probes_[4], {});
    for (int turn = 0; turn < 3; ++turn) {
        const QPointF place{300, 300};
        QWheelEvent event{place, place, {}, {-120, -120}, Qt::NoButton, {}, Qt::NoScrollPhase, false};
        QCoreApplication::sendEvent(window_.windowHandle(), &event);
    }
    EXPECT_EQ(window_.toWindow(*probes_[4], {}), before);
}

INSTANTIATE_TEST_SUITE_P(Windows, TouchMapping, ::testing::ValuesIn(windowSizes), windowName);

namespace {

// How much neighbouring pixels differ where they differ most: the edges of letters and lines.
double sharpness(const QImage& image)
{
    std::array<int, 256> steps{};
    for (int y = 0; y < image.height(); ++y) {
        const auto* line = reinterpret_cast<const QRgb*>(image.constScanLine(y));
        for (int x = 1; x < image.width(); ++x)
            ++steps[static_cast<std::size_t>(std::abs(qGray(line[x]) - qGray(line[x - 1])))];
    }
    const int wanted = image.width() * image.height() / 50;
    int taken = 0;
    double sum = 0;
    for (int step = 255; step >= 0 && taken < wanted; --step) {
        const int some = std::min(wanted - taken, steps[static_cast<std::size_t>(step)]);
        taken += some;
        sum += static_cast<double>(some) * step;
    }
    return sum / wanted;
}

const State& stateOf(const std::string& name)
{
    return *std::find_if(
        states().begin(), states().end(), [&](const State& state) { return state.name == name; });
}

// What the operator sees of a page in a window of this size.
QImage picture(QSize window, PanelWindow::Zoom zoom)
{
    const DemoProject demo;
    QImage result;
    show({demo.folder(), "de", 1280, zoom, window}, stateOf("page-full"), [&](Panel& panel) {
        result = panel.window().grab().toImage().convertToFormat(QImage::Format_RGB32);
    });
    return result;
}

// Below the header, where a clock goes on.
QImage page(const QImage& picture)
{
    return picture.copy(picture.rect().adjusted(0, picture.height() / 8, 0, 0));
}

} // namespace

TEST(Zoom, AtItsOwnSizeTheStageIsShownAsItIs)
{
    const QImage plain = picture(stageSize, PanelWindow::Zoom::None);
    EXPECT_TRUE(compare(page(plain), page(picture(stageSize, PanelWindow::Zoom::ToWindow))).isSame());
}

TEST(Zoom, WhatDoesNotFillTheWindowStandsInItsMiddle)
{
    const QImage wide = picture({1920, 1024}, PanelWindow::Zoom::ToWindow);
    const QImage plain = picture(stageSize, PanelWindow::Zoom::None);
    const QPoint left = QPointF{320 * wide.width() / 1920.0, 0}.toPoint();
    EXPECT_TRUE(compare(page(plain), page(wide.copy(QRect{left, plain.size()}))).isSame());
}

TEST(Zoom, TextsAndLinesAreSharperThanAnEnlargedPicture)
{
    const QImage plain = picture(stageSize, PanelWindow::Zoom::None);
    for (const double zoom : {0.75, 1.5}) {
        const QImage zoomed = picture((QSizeF{stageSize} * zoom).toSize(), PanelWindow::Zoom::ToWindow);
        const QImage scaled = plain.scaled(zoomed.size(), Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
        EXPECT_GT(sharpness(zoomed), (zoom > 1 ? 1.25 : 1.05) * sharpness(scaled)) << zoom;
    }
}
