#pragma once

#include "panel/runtime/panel.h"

#include <filesystem>
#include <string>
#include <vector>

namespace servopanel::panel {

// Plays an operator at the panel: real pointer events on the window, a picture of every step, and what was written to
// the machine on standard output.
class Tour {
public:
    Tour(Panel& panel, std::filesystem::path folder);
    // Exit status: 0 when every step found what it needed.
    int play();

private:
    Panel& panel_;
    std::filesystem::path folder_;
};

} // namespace servopanel::panel
