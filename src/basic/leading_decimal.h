#pragma once

#include <cstddef>
#include <string_view>

namespace servopanel::basic {

// The decimal number at the start of a text: its value and how many characters it takes, 0 when there is none.
// Numbers too large are error 6, numbers too small are 0.
struct LeadingDecimal {
    double value = 0;
    std::size_t length = 0;
};
LeadingDecimal leadingDecimal(std::string_view text);

} // namespace servopanel::basic
