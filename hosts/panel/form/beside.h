#pragma once

#include "panel/look/value_state.h"
#include "platform/control.h"

#include <QString>

#include <functional>

namespace servopanel::panel {

// What an input stands for on the form.
struct Beside {
    QString caption;
    QString unit;
    ValueState value = ValueState::Fresh; // of what it shows; what the operator has entered is fresh
    bool isWhole = false; // the machine holds whole numbers there
    ValueState limits = ValueState::Fresh; // of its limits, the worse of the two
};
using FindBeside = std::function<Beside(const platform::Control& input)>;

} // namespace servopanel::panel
