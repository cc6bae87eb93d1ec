#pragma once

#include "panel/tour/operator.h"

#include <string>

namespace servopanel::monkey {

// Does with the operator's hands what a command of a scenario says: touch, mask, ini, key, menukey, menudown, language,
// scroll, pagescroll. False: it is none of these. Raises panel::NotThere when it cannot be done now.
bool doneByHand(panel::Operator& hands, const std::string& command);

} // namespace servopanel::monkey
