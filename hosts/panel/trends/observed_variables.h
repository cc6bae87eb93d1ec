#pragma once

#include "platform/process_var_access.h"

#include <functional>
#include <memory>
#include <utility>

namespace servopanel::panel {

// The process variables as the library has them, with somebody looking on at what is read.
class ObservedVariables : public platform::ProcessVarAccess {
public:
    // value: nullptr when the variable could not be read. The references end with the call.
    using Observer = std::function<void(std::string_view name, const basic::Variant* value)>;
    ObservedVariables(std::shared_ptr<platform::ProcessVarAccess> variables, Observer observer)
        : variables_{std::move(variables)}
        , observer_{std::move(observer)}
    {
    }

    basic::Variant ReadValue(std::string_view name) override;
    void WriteValue(std::string_view name, const basic::Variant& value) override
    {
        variables_->WriteValue(name, value);
    }

private:
    std::shared_ptr<platform::ProcessVarAccess> variables_;
    Observer observer_;
};

} // namespace servopanel::panel
