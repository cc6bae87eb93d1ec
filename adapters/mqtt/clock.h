#pragma once

#include <cstdint>
#include <functional>

namespace servopanel::mqtt {

// Milliseconds from anywhere, never back and never jumping. All ages and deadlines are decided by it.
using Clock = std::function<std::int64_t()>;

// Goes on while the computer sleeps: what was good before is old when it wakes up.
Clock steadyClock();

} // namespace servopanel::mqtt
