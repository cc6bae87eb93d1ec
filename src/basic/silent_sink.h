#pragma once

#include "basic/error.h"

namespace servopanel::basic {

// Takes errors that nobody is told of, for procedures that run to their end in silence. It only remembers that there
// was one.
class SilentSink final : public ErrorSink {
public:
    void report(const Error&, std::string_view) noexcept override { failed_ = true; }
    bool failed() const { return failed_; }

private:
    bool failed_ = false;
};

} // namespace servopanel::basic
