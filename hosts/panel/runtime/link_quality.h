#pragma once

#include "panel/form/control_host.h"
#include "panel/runtime/watched_variables.h"
#include "panel/widgets/header_bar.h"

namespace servopanel::panel {

// How well the values that are on the screen follow the machine. part: the shown control, nullptr when there is none.
LinkQuality linkQuality(const WatchedVariables& variables, ControlHost* part);

} // namespace servopanel::panel
