#pragma once

namespace servopanel::machine {

// Access levels go from 0, the operator, to this one, the service.
inline constexpr int highestAccessLevel = 5;

} // namespace servopanel::machine
