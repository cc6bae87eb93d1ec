#pragma once

#include "look/geometry.h"
#include "look/states.h"

#include <QTemporaryDir>

#include <filesystem>
#include <functional>
#include <memory>
#include <string>

namespace servopanel::look {

// The demonstration project of the build, copied so that nothing a test does stays.
class DemoProject {
public:
    DemoProject();
    std::filesystem::path folder() const { return folder_.path().toStdString(); }
    // Codes of its languages.
    std::vector<std::string> languages() const;

private:
    QTemporaryDir folder_;
};

// Which panel is switched on.
struct Start {
    std::filesystem::path project;
    std::string language;
    int resolution = 1280;
    panel::PanelWindow::Zoom zoom = panel::PanelWindow::Zoom::None;
    QSize window{}; // nothing: as large as the stage
};

// Brings a panel into a state and calls look there. Nothing moves by itself: no simulation, and the clock stands. A
// failure of the running test when the operator does not find the way.
void show(const Start& start, const State& state, const std::function<void(panel::Panel&)>& look);

// A panel as the checks of geometry want it.
View takeIn(panel::Panel& panel);
std::vector<Target> targets(panel::Panel& panel);
// The actual values of a diagnosis page that open a trend, each with what a touch gives to it alone.
std::vector<Target> valueTargets(panel::Panel& panel);
bool isInactive(const QWidget& widget);

} // namespace servopanel::look
