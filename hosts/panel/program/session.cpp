#include "panel/program/session.h"

#include "basic/error.h"

#include <exception>
#include <utility>

namespace servopanel::panel {

namespace {
constexpr int retryMilliseconds = 500;
} // namespace

Session::Session(
    PanelSettings settings, std::function<void(Panel&)> show, std::function<void(const std::string&)> ended)
    : settings_{std::move(settings)}
    , show_{std::move(show)}
    , ended_{std::move(ended)}
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
    if (hasEnded() || isWaiting()) return;
    if (panel_->hasUnfinishedInput()) panel_->note(PanelText::ReadAnewLater);
    waiting_.start();
    // From the event loop, because the request may come out of the panel itself.
    QTimer::singleShot(0, &waiting_, [this] { tryToReload(); });
}

void Session::tryToReload()
{
    if (!isWaiting() || panel_->hasUnfinishedInput()) return;
    waiting_.stop();
    settings_.file = readAnew();
    if (!settings_.file) return;
    settings_.before = panel_->hold();
    // One after the other: what Qt knows of fonts and directions is one for the whole program.
    panel_.reset();
    panel_ = makeAnew();
    settings_.before.reset();
    settings_.file.reset();
    if (panel_) show_(*panel_);
}

// The old panel is gone by now, and nobody above could do anything about a failure: the operator gets it back.
std::unique_ptr<Panel> Session::makeAnew()
{
    std::string reason;
    if (auto panel = make(reason)) return panel;
    settings_.file = settings_.before->file;
    std::string again;
    if (auto panel = make(again)) {
        panel->note(reason);
        panel->note(PanelText::NotReadAnew);
        return panel;
    }
    if (ended_) ended_(again);
    return {};
}

std::unique_ptr<Panel> Session::make(std::string& reason)
{
    try {
        return std::make_unique<Panel>(settings_);
    } catch (const CannotStart& failure) {
        reason = failure.reason;
    } catch (const basic::Error& error) {
        reason = error.description;
    } catch (const std::exception& failure) {
        reason = failure.what(); // the folder may change while it is read
    }
    return {};
}

// What is read here is what the new panel gets: the file may be gone a moment later.
std::optional<machine::ProjectFile> Session::readAnew()
{
    try {
        machine::ProjectFile file = Panel::loadProject(settings_.project);
        if (file.isWhole) return file;
        for (const machine::Problem& problem : file.problems)
            panel_->note(problem.text());
    } catch (const CannotStart& failure) {
        panel_->note(failure.reason);
    }
    panel_->note(PanelText::NotReadAnew);
    return {};
}

} // namespace servopanel::panel
