#pragma once

#include <string>

namespace servopanel::portable {

// The name of this computer; otherwise is what counts where it has none.
std::string computerName(const std::string& otherwise);

} // namespace servopanel::portable
