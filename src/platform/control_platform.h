#pragma once

#include "platform/form.h"
#include "platform/owner.h"
#include "platform/surface.h"

namespace servopanel::platform {

// What one control of the library is given at its creation. The host keeps all of it alive as long as the control.
struct ControlPlatform {
    Form& form;
    Surface& surface;
    Owner& owner;
};

} // namespace servopanel::platform
