#pragma once

#include "basic/variant.h"

#include <string_view>

namespace servopanel::platform {

// The process variables of the machine controllers and of the panel. Implemented by hosts. Failures (unknown name, no
// connection, refused value) raise basic::Error whose description names the variable.
class ProcessVarAccess {
public:
    virtual ~ProcessVarAccess() = default;
    virtual basic::Variant ReadValue(std::string_view name) = 0;
    virtual void WriteValue(std::string_view name, const basic::Variant& value) = 0;
};

} // namespace servopanel::platform
