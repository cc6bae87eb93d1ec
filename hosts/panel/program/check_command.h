#pragma once

#include "check/check.h"

#include <filesystem>

namespace servopanel::panel {

// A picture as the panel's own reader finds it.
check::PictureLook lookAtPicture(const std::filesystem::path& file);

// servo-panel --check: prints the report on the project and gives the exit status, 2 when it cannot be written. Needs a
// QGuiApplication: pictures may be drawn by instructions that use fonts.
int runCheck(const std::filesystem::path& project);

} // namespace servopanel::panel
