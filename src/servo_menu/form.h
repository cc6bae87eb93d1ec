#pragma once

#include "platform/form_data.h"

namespace servopanel::servo_menu {

// The children of the menu, in design twips for a panel of 1280 x 1024 pixels.
platform::FormData servoMenuForm();

} // namespace servopanel::servo_menu
