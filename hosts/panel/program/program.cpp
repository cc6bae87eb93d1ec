#include "panel/program/program.h"

#include "basic/error.h"
#include "panel/look/fonts.h"
#include "panel/program/options.h"
#include "panel/tour/tour.h"

#include <QApplication>
#include <QGuiApplication>
#include <QScreen>
#include <QStyleFactory>

#include <algorithm>
#include <cstdio>

namespace servopanel::panel {

namespace {

constexpr int cannotStart = 2;

void say(std::FILE* where, const std::string& text) { std::fputs(text.c_str(), where); }

bool isWithoutScreen()
{
    const QString platform = QGuiApplication::platformName();
    return platform == QStringLiteral("offscreen") || platform == QStringLiteral("minimal");
}

// Qt ends the program without a word of ours where it finds no screen. A tour needs none, everything else says so.
bool findScreen(const Options& options)
{
    const bool any = qEnvironmentVariableIsSet("DISPLAY") || qEnvironmentVariableIsSet("WAYLAND_DISPLAY")
        || qEnvironmentVariableIsSet("QT_QPA_PLATFORM");
    if (any || options.tour.empty()) return any;
    return qputenv("QT_QPA_PLATFORM", "offscreen");
}

// The scale has to be known before the application is made, and only an application knows the monitor's size.
void scaleToMonitor(int& argc, char** argv, const Options& options)
{
    QSize monitor;
    {
        const QGuiApplication probe{argc, argv};
        if (const QScreen* screen = QGuiApplication::primaryScreen()) monitor = screen->size();
    }
    const int width = options.settings.resolution.value_or(1280);
    const int height = width == 800 ? 600 : width == 1024 ? 768 : 1024;
    if (monitor.isEmpty()) return;
    const double scale = std::min(double(monitor.width()) / width, double(monitor.height()) / height);
    qputenv("QT_SCALE_FACTOR", QByteArray::number(scale, 'f', 4));
}

void show(PanelWindow& window, const Options& options)
{
    const QScreen* screen = QGuiApplication::primaryScreen();
    const bool fills = screen != nullptr && screen->size() == window.stage().size();
    if ((fills || options.zoomToFit) && !isWithoutScreen())
        window.showFullScreen();
    else
        window.show();
}

int run(const Options& options)
{
    Panel panel{options.settings};
    show(panel.window(), options);
    panel.openServo();
    if (options.tour.empty()) return QApplication::exec();
    return Tour{panel, options.tour}.play();
}

} // namespace

int runProgram(int argc, char** argv)
{
    const Options options = parseOptions({argv + 1, argv + argc});
    if (options.help) {
        say(stdout, helpText());
        return 0;
    }
    if (!options.problem.empty()) {
        say(stderr, "servo-panel: " + options.problem + "\n\n" + helpText());
        return cannotStart;
    }
    if (!findScreen(options)) {
        say(stderr,
            "servo-panel: there is no screen (DISPLAY and WAYLAND_DISPLAY are not set). "
            "QT_QPA_PLATFORM=linuxfb draws on "
            "a bare frame buffer, vnc for a remote viewer, offscreen nowhere.\n");
        return cannotStart;
    }
    if (options.zoomToFit) scaleToMonitor(argc, argv, options);
    const QApplication application{argc, argv};
    QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
    QApplication::setFont(panelFont(14));
    try {
        return run(options);
    } catch (const CannotStart& failure) {
        say(stderr, "servo-panel: " + failure.reason + "\n");
    } catch (const basic::Error& error) {
        say(stderr, "servo-panel: " + error.description + "\n");
    }
    return cannotStart;
}

} // namespace servopanel::panel
