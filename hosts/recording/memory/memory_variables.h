#pragma once

#include "platform/process_var_access.h"
#include "recording/memory/failures.h"

#include <map>
#include <set>
#include <string>
#include <string_view>

namespace servopanel::recording {

// Process variables by exact name. A variable exists once it was given a value; others fail.
class MemoryVariables {
public:
    explicit MemoryVariables(Failures& failures)
        : failures_{failures}
    {
    }

    // The value that the machine holds from now on.
    void set(std::string_view name, const basic::Variant& value);
    // nullptr when there is no such variable.
    const basic::Variant* find(std::string_view name) const;

    // The library's own accesses.
    basic::Variant read(std::string_view name);
    void write(std::string_view name, const basic::Variant& value);

    // The names that the library has written to.
    const std::set<std::string>& written() const { return written_; }

private:
    Failures& failures_;
    std::map<std::string, basic::Variant, std::less<>> values_;
    std::set<std::string> written_;
};

} // namespace servopanel::recording
