#pragma once

#include "panel/runtime/panel.h"

#include <QTimer>

#include <functional>
#include <memory>
#include <optional>

namespace servopanel::panel {

// The panel that an operator works with, made anew when its project was changed and somebody asks for it.
class Session {
public:
    // show: brings a panel's window and its first screen to the monitor. ended: told why, when no panel could be made any
    // more, neither of the changed project nor of the one before; the session has none from then on. Raises CannotStart
    // like the panel.
    Session(PanelSettings settings, std::function<void(Panel&)> show,
        std::function<void(const std::string& reason)> ended = {});

    // Not after the end.
    Panel& panel() { return *panel_; }
    bool hasEnded() const { return panel_ == nullptr; }

    // Reads the project anew: files, texts, pictures, definitions, variables. Language and servo stay, and so do the
    // values of variables whose start value is the same in both. While somebody enters values, has not confirmed them or
    // reads a message it waits. A project.json that cannot be read to its end changes nothing; the reports say why. When no
    // panel can be made of the new one, the panel comes back with the project that it had.
    void reload();
    bool isWaiting() const { return waiting_.isActive(); }

private:
    void tryToReload();
    std::optional<machine::ProjectFile> readAnew();
    // nullptr when there is no way to a panel any more.
    std::unique_ptr<Panel> makeAnew();
    // nullptr, and the reason, when it cannot be made.
    std::unique_ptr<Panel> make(std::string& reason);

    PanelSettings settings_;
    std::function<void(Panel&)> show_;
    std::function<void(const std::string&)> ended_;
    std::unique_ptr<Panel> panel_;
    QTimer waiting_;
};

} // namespace servopanel::panel
