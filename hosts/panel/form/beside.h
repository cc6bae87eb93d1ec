#pragma once

#include "platform/control.h"

#include <QString>

#include <functional>

namespace servopanel::panel {

// What stands beside an input on the form.
struct Beside {
    QString caption;
    QString unit;
};
using FindBeside = std::function<Beside(const platform::Control& input)>;

} // namespace servopanel::panel
