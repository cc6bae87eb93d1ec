#include "panel/program/display.h"

#include <QGuiApplication>
#include <QScreen>
#include <QTimer>
#include <QWidget>
#include <QWindow>

#include <cstdio>
#include <cstdlib>

namespace servopanel::panel {

namespace {

constexpr int cannotStart = 2;

bool isRunning = false;
QtMessageHandler before = nullptr;

void sayGone()
{
    if (isRunning) std::fputs("servo-panel: the display has gone away, the panel ends\n", stderr);
}

void passMessage(QtMsgType type, const QMessageLogContext& context, const QString& text)
{
    if (type == QtFatalMsg) {
        std::fprintf(stderr, "servo-panel: the display cannot be used: %s\n", text.toUtf8().constData());
        std::fflush(stderr);
        std::_Exit(cannotStart);
    }
    if (before != nullptr)
        before(type, context, text);
    else
        std::fprintf(stderr, "%s\n", text.toUtf8().constData());
}

} // namespace

DisplayWatch::DisplayWatch()
{
    before = qInstallMessageHandler(passMessage);
    isRunning = true;
    // Qt leaves through exit() when the connection breaks.
    std::atexit(sayGone);
}

DisplayWatch::~DisplayWatch()
{
    isRunning = false;
    qInstallMessageHandler(before);
}

QRect placeOnScreen(const QRect& window, const QRect& screen, bool fills)
{
    if (screen.isEmpty()) return window;
    if (fills) return screen;
    if (screen.contains(window.center())) return window;
    QRect moved = window;
    moved.moveCenter(screen.center());
    // The upper left corner is what must be seen where not all can.
    moved.moveTopLeft({std::max(moved.left(), screen.left()), std::max(moved.top(), screen.top())});
    return moved;
}

void keepOnScreen(QWidget& window)
{
    const auto adapt = [&window] {
        QScreen* screen = window.screen();
        if (screen == nullptr || !QGuiApplication::screens().contains(screen))
            screen = QGuiApplication::primaryScreen();
        if (screen == nullptr || !window.isVisible()) return;
        const QRect place = placeOnScreen(window.geometry(), screen->geometry(), window.isFullScreen());
        if (place != window.geometry()) window.setGeometry(place);
    };
    const auto watch = [&window, adapt](QScreen* screen) {
        QObject::connect(screen, &QScreen::geometryChanged, &window, adapt);
    };
    auto* application = static_cast<QGuiApplication*>(QCoreApplication::instance());
    for (QScreen* screen : QGuiApplication::screens())
        watch(screen);
    QObject::connect(application, &QGuiApplication::screenAdded, &window, [adapt, watch](QScreen* screen) {
        watch(screen);
        adapt();
    });
    // Nobody makes a window fill the screen where no window manager runs, as on many panels.
    QTimer::singleShot(0, &window, adapt);
    // Qt moves windows of a screen that has gone by itself; afterwards they are put in their place.
    QObject::connect(application, &QGuiApplication::screenRemoved, &window, adapt, Qt::QueuedConnection);
    QObject::connect(
        application, &QGuiApplication::primaryScreenChanged, &window, adapt, Qt::QueuedConnection);
}

} // namespace servopanel::panel
