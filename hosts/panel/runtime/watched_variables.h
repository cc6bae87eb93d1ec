#pragma once

#include "panel/form/value_source.h"
#include "platform/process_var_access.h"

#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace servopanel::panel {

// Passes every access to the process variables on and keeps what became of it: which values of a servo could be read at
// last, and what a confirmed change came to.
class WatchedVariables : public platform::ProcessVarAccess {
public:
    explicit WatchedVariables(std::shared_ptr<platform::ProcessVarAccess> inner)
        : inner_{std::move(inner)}
    {
    }

    basic::Variant ReadValue(std::string_view name) override;
    void WriteValue(std::string_view name, const basic::Variant& value) override;

    // The latest read of a variable that holds values of a servo.
    struct Read {
        std::string variable;
        basic::Variant value; // of the last good read
        std::string problem; // why it cannot be shown; empty: it can
        std::int32_t error = 0; // number of the error behind the problem
    };
    // Of a family, whichever servo was read last: it is the one that is shown. nullptr before the first read.
    const Read* latest(std::string_view family) const;
    // Whether the last read of what stands behind a value failed, or does not hold it.
    bool isStale(const ValueSource& source) const;

    // Called when a value has become stale or can be shown again.
    void setChangeHandler(std::function<void()> changed) { changed_ = std::move(changed); }

    // One attempt to write a variable of a servo.
    struct Write {
        std::string variable;
        std::string_view family;
        int changes = 0; // values that differ from what was read last
        std::string problem; // empty: written
        std::int32_t error = 0; // number of the error behind the problem
    };
    // Forgets the writes so far.
    void startWrites() { writes_.clear(); }
    const std::vector<Write>& writes() const { return writes_; }

private:
    std::shared_ptr<platform::ProcessVarAccess> inner_;
    std::map<std::string, Read, std::less<>> reads_; // by variable; there are as many as the project has
    std::map<std::string_view, std::string> latest_; // variable by family
    std::vector<Write> writes_;
    std::function<void()> changed_;
};

} // namespace servopanel::panel
