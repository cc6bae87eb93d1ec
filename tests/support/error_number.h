#pragma once

#include "basic/error.h"

#include <cstdint>
#include <utility>

namespace servopanel::testing {

// The number of the error that an expression raises, 0 when it succeeds.
template <class F>
std::int32_t errorNumber(F&& expression)
{
    try {
        (void)std::forward<F>(expression)();
        return 0;
    } catch (const basic::Error& error) {
        return error.number;
    }
}

} // namespace servopanel::testing
