#pragma once

#include "basic/error.h"
#include "platform/process_var_access.h"

#include <functional>
#include <map>
#include <memory>
#include <set>
#include <string>

namespace servopanel::testing {

// Process variables of which some cannot be read or written, as a test wishes.
class FlakyVariables : public platform::ProcessVarAccess {
public:
    explicit FlakyVariables(std::shared_ptr<platform::ProcessVarAccess> inner)
        : inner_{std::move(inner)}
    {
    }
    basic::Variant ReadValue(std::string_view name) override
    {
        ++reads[std::string{name}];
        if (unreadable.count(std::string{name}) > 0) fail(name, "no answer");
        return inner_->ReadValue(name);
    }
    void WriteValue(std::string_view name, const basic::Variant& value) override
    {
        if (unwritable.count(std::string{name}) > 0) {
            if (refused) refused(name);
            fail(name, "refused by the controller");
        }
        inner_->WriteValue(name, value);
        if (written) written(name);
    }

    std::map<std::string, int> reads; // also those that failed
    std::set<std::string> unreadable;
    std::set<std::string> unwritable;
    std::int32_t number = 5; // of the errors
    std::function<void(std::string_view name)> written; // told of every write that came through
    std::function<void(std::string_view name)> refused; // and of every one that did not

private:
    [[noreturn]] void fail(std::string_view name, const std::string& reason) const
    {
        throw basic::Error{number, "Test", "'" + std::string{name} + "': " + reason};
    }

    std::shared_ptr<platform::ProcessVarAccess> inner_;
};

} // namespace servopanel::testing
