#pragma once

#include "basic/variant.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace servopanel::monkey {

// An operation with everything that it causes, as a trace has them.
struct TraceBlock {
    std::string_view operation; // as "key 10"; empty for what comes before the first one
    std::vector<std::string_view> lines;
    bool isRefused = false; // the operator was told that this cannot be done now

    std::string_view verb() const { return operation.substr(0, operation.find(' ')); }
    bool has(std::string_view beginning) const;
    // Whether what went wrong in a line is reported right after it, as each statement that fails is.
    bool isReported(std::size_t line) const;
};

std::vector<TraceBlock> blocksOf(std::string_view trace);

// An access to a process variable.
struct Access {
    std::string_view name;
    std::optional<std::string_view> value; // nothing when the access failed
};
// kind: "read " or "write "; nothing when the line is another one.
std::optional<Access> accessOf(std::string_view line, std::string_view kind);

// As a trace writes a value; nothing when it is none.
std::optional<basic::Variant> valueOf(std::string_view text);

} // namespace servopanel::monkey
