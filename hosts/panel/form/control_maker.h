#pragma once

#include "panel/form/event_gate.h"
#include "panel/form/header.h"
#include "panel/form/services.h"
#include "platform/control_platform.h"
#include "platform/hosted_control.h"

#include <functional>
#include <memory>
#include <string_view>

namespace servopanel::panel {

// A control of the library together with whatever its platform was wrapped in, which has to live as long.
struct MadeControl {
    std::shared_ptr<void> wrapping;
    std::unique_ptr<platform::HostedControl> control;
};

// What all forms of one panel share.
struct FormSurroundings {
    Services& services;
    EventGate& gate;
    HeaderSource& header;
    // Makes a control of the library by its class name.
    std::function<MadeControl(std::string_view className, const platform::ControlPlatform&)> make;
};

} // namespace servopanel::panel
