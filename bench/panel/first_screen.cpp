// The panel as a program of its own, which ends as soon as its first screen is painted.
//
//   first_screen menu|page SERVO-PANEL-ARGUMENT...     ends when all keys of the menu or all inputs of the page are painted
//   first_screen window                                the floor: a Qt program with an empty window
#include "paint_watch.h"
#include "panel/program/program.h"
#include "panel/widgets/canvas_view.h"
#include "panel/widgets/text_view.h"

#include <QApplication>
#include <QTimer>

#include <string>

#include <unistd.h>

namespace servopanel::bench {

namespace {

constexpr int menuKeys = 8;
constexpr int inputs = 24;

std::string wanted;

template <class Widget, class Test>
int painted(const PaintWatch& watch, Test test)
{
    int count = 0;
    for (QWidget* widget : QApplication::allWidgets())
        if (auto* view = dynamic_cast<Widget*>(widget))
            if (view->isVisible() && watch.hasPainted(*view) && test(*view)) ++count;
    return count;
}

bool isComplete(const PaintWatch& watch)
{
    if (wanted == "menu")
        return painted<panel::CanvasView>(watch, [](panel::CanvasView& view) {
            return !view.canvas().picture().isNull() && view.height() < view.window()->height() / 2;
        }) >= menuKeys;
    if (wanted == "page")
        return painted<panel::TextView>(watch, [](const panel::TextView& view) {
            bool isNumber = false;
            view.text().toDouble(&isNumber);
            return isNumber;
        }) >= inputs;
    return painted<QWidget>(watch, [](const QWidget&) { return true; }) > 0;
}

// Looked at in each turn of the event loop that has nothing else to do.
void watchFirstScreen()
{
    if (wanted.empty()) return;
    auto* const watch = new PaintWatch;
    auto* const timer = new QTimer{QCoreApplication::instance()};
    QObject::connect(timer, &QTimer::timeout, timer, [watch] {
        if (isComplete(*watch)) ::_exit(0); // what an orderly end costs is not asked for
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
