#pragma once

#include "panel/form/control_host.h"

#include <QString>

#include <cstdint>
#include <string_view>

namespace servopanel::panel {

// An input of the servo page in the operator's words: its caption, or "#12" where it has none.
QString inputCaption(ControlHost& page, std::string_view name, std::int16_t index);

} // namespace servopanel::panel
