#pragma once

#include "basic/error.h"
#include "basic/function_ref.h"

#include <string_view>

namespace servopanel::basic {

// Every call from outside into the library passes through here, nested ones too: whatever escapes a procedure is
// reported under the entry's name, and nothing reaches the host's event loop.
void guardEntry(ErrorSink& sink, std::string_view entry, FunctionRef<void()> body) noexcept;

} // namespace servopanel::basic
