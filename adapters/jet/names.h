#pragma once

#include "basic/text.h"

#include <string_view>

namespace servopanel::jet {

// Names of tables and columns do not differ by case.
inline bool sameName(std::string_view left, std::string_view right)
{
    if (left.size() != right.size()) return false;
    return left == right || basic::upperCase(left) == basic::upperCase(right);
}

} // namespace servopanel::jet
