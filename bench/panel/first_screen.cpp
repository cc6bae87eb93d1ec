// The panel as a program of its own, which ends as soon as its first screen is painted, or the page after a first touch.
//
//   first_screen menu|page SERVO-PANEL-ARGUMENT...     ends when all keys of the menu or all inputs of the page are painted
//   first_screen touch SERVO-PANEL-ARGUMENT...         touches the first key of the painted menu, and prints the
//                                                      milliseconds from there to the painted page
//   first_screen window                                the floor: a Qt program with an empty window
#include "paint_watch.h"
#include "panel/program/program.h"
#include "panel/widgets/canvas_view.h"
#include "panel/widgets/text_view.h"

#include <QApplication>
#include <QTest>
#include <QTimer>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <string>
#include <vector>

#include <unistd.h>

namespace servopanel::bench {

namespace {

constexpr std::size_t menuKeys = 8;
constexpr std::size_t inputs = 24;

std::string wanted;

template <class Widget, class Test>
std::vector<QWidget*> painted(const PaintWatch& watch, Test test)
{
    std::vector<QWidget*> found;
    for (QWidget* widget : QApplication::allWidgets())
        if (auto* view = dynamic_cast<Widget*>(widget))
            if (view->isVisible() && watch.hasPainted(*view) && test(*view)) found.push_back(view);
    return found;
}

std::vector<QWidget*> menuKeysOf(const PaintWatch& watch)
{
    return painted<panel::CanvasView>(watch, [](panel::CanvasView& view) {
        return !view.canvas().picture().isNull() && view.height() < view.window()->height() / 2;
    });
}

bool isPage(const PaintWatch& watch)
{
    const std::vector<QWidget*> numbers = painted<panel::TextView>(watch, [](const panel::TextView& view) {
        bool isNumber = false;
        view.text().toDouble(&isNumber);
        return isNumber;
    });
    return numbers.size() >= inputs;
}

bool isComplete(const PaintWatch& watch)
{
    if (wanted == "page") return isPage(watch);
    if (wanted == "window") return !painted<QWidget>(watch, [](const QWidget&) { return true; }).empty();
    return menuKeysOf(watch).size() >= menuKeys;
}

// As soon as the program has nothing left to do, finger down and up, until it has nothing left to do again.
void touchFirstKey(PaintWatch& watch)
{
    workUntilIdle();
    const std::vector<QWidget*> keys = menuKeysOf(watch);
    QWidget& key = **std::min_element(keys.begin(), keys.end(), [](const QWidget* one, const QWidget* other) {
        return one->mapTo(one->window(), QPoint{}).manhattanLength()
            < other->mapTo(other->window(), QPoint{}).manhattanLength();
    });
    QWindow* const window = key.window()->windowHandle();
    const QPoint at = key.mapTo(key.window(), key.rect().center());
    watch.startAnew();
    const auto begin = std::chrono::steady_clock::now();
    QTest::mousePress(window, Qt::LeftButton, {}, at);
    QTest::mouseRelease(window, Qt::LeftButton, {}, at);
    workUntilIdle();
    const std::chrono::duration<double, std::milli> taken = std::chrono::steady_clock::now() - begin;
    if (!isPage(watch)) {
        std::fputs("first_screen: the touch has not led to the page\n", stderr);
        ::_exit(1);
    }
    std::printf("%.6f\n", taken.count());
    std::fflush(stdout);
}

// Looked at in each turn of the event loop that has nothing else to do.
void watchFirstScreen()
{
    if (wanted.empty()) return;
    auto* const watch = new PaintWatch;
    auto* const timer = new QTimer{QCoreApplication::instance()};
    QObject::connect(timer, &QTimer::timeout, timer, [watch, timer] {
        if (!isComplete(*watch)) return;
        timer->stop();
        if (wanted == "touch") touchFirstKey(*watch);
        ::_exit(0); // what an orderly end costs is not asked for
    });
    timer->start(0);
}
Q_COREAPP_STARTUP_FUNCTION(watchFirstScreen)

int showEmptyWindow(int argc, char** argv)
{
    const QApplication application{argc, argv};
    QWidget window;
    window.resize(1280, 1024);
    window.show();
    return QApplication::exec();
}

} // namespace

} // namespace servopanel::bench

int main(int argc, char** argv)
{
    if (argc < 2) return 2;
    servopanel::bench::wanted = argv[1];
    argv[1] = argv[0];
    if (servopanel::bench::wanted == "window") return servopanel::bench::showEmptyWindow(argc - 1, argv + 1);
    return servopanel::panel::runProgram(argc - 1, argv + 1);
}
