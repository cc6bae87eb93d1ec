#include "panel/program/session.h"

#include <utility>

namespace servopanel::panel {

namespace {
constexpr int retryMilliseconds = 500;
}

Session::Session(PanelSettings settings, std::function<void(Panel&)> show)
    : settings_{std::move(settings)}
    , show_{std::move(show)}
    , panel_{std::make_unique<Panel>(settings_)}
{
    // Chosen for the start; later the operator's choice counts.
    settings_.language.clear();
    waiting_.setInterval(retryMilliseconds);
    QObject::connect(&waiting_, &QTimer::timeout, &waiting_, [this] { tryToReload(); });
    show_(*panel_);
}

void Session::reload()
{
    if (isWaiting()) return;
    if (panel_->hasUnfinishedInput()) panel_->note("The project is read anew once all inputs are finished");
    waiting_.start();
    // From the event loop, because the request may come out of the panel itself.
    QTimer::singleShot(0, &waiting_, [this] { tryToReload(); });
}

void Session::tryToReload()
{
    if (!isWaiting() || panel_->hasUnfinishedInput()) return;
    waiting_.stop();
    if (!canBeRead()) return;
    settings_.before = panel_->hold();
    // One after the other: what Qt knows of fonts and directions is one for the whole program.
    panel_.reset();
    panel_ = std::make_unique<Panel>(settings_);
    settings_.before.reset();
    show_(*panel_);
}

bool Session::canBeRead()
{
    try {
        const machine::ProjectFile file = Panel::loadProject(settings_.project);
        if (file.isWhole) return true;
        for (const machine::Problem& problem : file.problems)
            panel_->note(problem.text());
    } catch (const CannotStart& failure) {
        panel_->note(failure.reason);
    }
    panel_->note("The project was not read anew");
    return false;
}

} // namespace servopanel::panel
