#pragma once

#include "jet/jet_error.h"

#include <string>
#include <string_view>

namespace servopanel::jet {

// The system's reason for what has just failed, from errno.
std::string lastReason();

// What has just failed and why. DiskFull or ReadOnly when that is the reason, else number.
[[noreturn]] void raiseLast(JetError number, std::string_view what);

} // namespace servopanel::jet
