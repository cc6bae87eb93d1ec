#pragma once

#include "platform/form_data.h"

namespace servopanel::shell {

// The children of Servo, in design twips. The header strip lies above page and menu.
platform::FormData servoForm();

} // namespace servopanel::shell
