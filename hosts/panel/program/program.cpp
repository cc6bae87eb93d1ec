#include "panel/program/program.h"

#include "basic/error.h"
#include "panel/look/fonts.h"
#include "panel/program/check_command.h"
#include "panel/program/display.h"
#include "panel/program/options.h"
#include "panel/program/reload_request.h"
#include "panel/program/session.h"
#include "panel/tour/tour.h"

#include <QApplication>
#include <QCoreApplication>
#include <QGuiApplication>
#include <QScreen>
#include <QStyleFactory>

#include <algorithm>
#include <cstdio>
#include <memory>
#include <optional>
#include <string>
#include <system_error>

namespace servopanel::panel {

namespace {

constexpr int cannotStart = 2;

void say(std::FILE* where, const std::string& text) { std::fputs(text.c_str(), where); }

bool isWithoutScreen()
{
    const QString platform = QGuiApplication::platformName();
    return platform == QStringLiteral("offscreen") || platform == QStringLiteral("minimal");
}

std::string text(QSize size)
{
    return std::to_string(size.width()) + " x " + std::to_string(size.height()) + " pixels";
}

// Qt ends the program without a word of ours where it finds no screen. A tour needs none, everything else says so.
bool findScreen(const Options& options)
{
    const bool any = qEnvironmentVariableIsSet("DISPLAY") || qEnvironmentVariableIsSet("WAYLAND_DISPLAY")
        || qEnvironmentVariableIsSet("QT_QPA_PLATFORM");
    if (any || options.tour.empty()) return any;
    return qputenv("QT_QPA_PLATFORM", "offscreen");
}

// Qt's own VNC display listens on every address of this computer and knows no password.
bool asksForOpenVnc()
{
    const QStringList platforms = qEnvironmentVariable("QT_QPA_PLATFORM").split(u';');
    return std::any_of(platforms.begin(), platforms.end(), [](const QString& platform) {
        return platform.section(u':', 0, 0).compare(u"vnc", Qt::CaseInsensitive) == 0;
    });
}

void show(PanelWindow& window, PanelWindow::Zoom zoom)
{
    const QScreen* screen = QGuiApplication::primaryScreen();
    const QSize monitor = screen == nullptr ? QSize{} : screen->size();
    const bool fills = zoom == PanelWindow::Zoom::ToWindow || monitor == window.stage().size();
    if (fills && !isWithoutScreen()) {
        window.showFullScreen();
        return;
    }
    if (fills && !monitor.isEmpty()) window.resize(monitor);
    window.show();
    if (!fills && !isWithoutScreen() && monitor.boundedTo(window.size()) != window.size())
        say(stderr,
            "servo-panel: the monitor is smaller than the panel's " + text(window.size()) + ", it has "
                + text(monitor) + "; --zoom fit shows all of it\n");
}

int run(const Options& options)
{
    std::unique_ptr<Tour> tour;
    std::unique_ptr<Session> session;
    bool isWished = false;
    // First of all: a message of the first screen keeps the session from being there for as long as nobody reads it.
    std::optional<ReloadRequest> request;
    std::string noRequest;
    try {
        if (options.tour.empty())
            request.emplace([&] {
                isWished = session == nullptr;
                if (session) session->reload();
            });
    } catch (const std::system_error& failure) {
        // The operator can work all the same; who asks for a reload later should know why nothing happens.
        noRequest = std::string{"servo-panel: SIGHUP will not make it read the project anew: "}.append(
            failure.what());
        say(stderr, noRequest + "\n");
    }
    session = std::make_unique<Session>(
        options.settings,
        [&](Panel& panel) {
            show(panel.window(), options.settings.zoom);
            if (!noRequest.empty()) panel.note(noRequest);
            keepOnScreen(panel.window());
            // Before the screen opens, which may have something to say.
            if (!options.tour.empty()) tour = std::make_unique<Tour>(panel, options.tour);
            panel.openServo();
        },
        [](const std::string& reason) {
            // Whoever supervises the program starts it again; nobody could do so from a window that is gone.
            say(stderr, "servo-panel: the project could not be read anew: " + reason + "\n");
            QApplication::exit(cannotStart);
        });
    if (tour) return tour->play();
    if (isWished) session->reload();
    return QApplication::exec();
}

} // namespace

int runProgram(int argc, char** argv)
{
    ReloadRequest::ignoreSignal();
    const Options options = parseOptions({argv + 1, argv + argc});
    if (options.help) {
        say(stdout, helpText());
        return 0;
    }
    if (!options.problem.empty()) {
        say(stderr, "servo-panel: " + options.problem + "\n\n" + helpText());
        return cannotStart;
    }
    if (options.check) {
        const QCoreApplication application{argc, argv}; // it finds the readers of pictures
        return runCheck(options.settings.project);
    }
    if (writesUnseen(options))
        say(stderr,
            "servo-panel: what this panel writes to the machines is recorded nowhere; --journal FOLDER keeps "
            "it, "
            "--no-journal says that this is meant.\n");
    if (!findScreen(options)) {
        say(stderr,
            "servo-panel: there is no screen (DISPLAY and WAYLAND_DISPLAY are not set). "
            "QT_QPA_PLATFORM=linuxfb draws on "
            "a bare frame buffer, offscreen nowhere; for a remote viewer the kiosk has "
            "SERVO_PANEL_DISPLAY=remote.\n");
        return cannotStart;
    }
    if (asksForOpenVnc()) {
        say(stderr,
            "servo-panel: QT_QPA_PLATFORM=vnc lets everybody in the network operate the machine; for a "
            "remote "
            "viewer the kiosk has SERVO_PANEL_DISPLAY=remote.\n");
        return cannotStart;
    }
    const DisplayWatch watch;
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
