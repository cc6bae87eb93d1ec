#pragma once

#include "basic/variant.h"

namespace servopanel::jet {

// Whether two values have the same type and the same bits: -0 is not 0, and what is no number is the same as itself.
bool sameValue(const basic::Variant& left, const basic::Variant& right);

} // namespace servopanel::jet
