#pragma once

#include "platform/process_var_access.h"

#include <memory>
#include <string_view>
#include <utility>

namespace servopanel::machine {

// The panel's own variables and those of a machine behind one face. The machine's are those of its channels ("Ch1.M1_T_..."
// and so on); parameter<...> and the internal channel ("Ch-1....") describe this panel and stay with it.
class SplitVariables : public platform::ProcessVarAccess {
public:
    SplitVariables(
        std::shared_ptr<platform::ProcessVarAccess> own, std::shared_ptr<platform::ProcessVarAccess> machine)
        : own_{std::move(own)}
        , machine_{std::move(machine)}
    {
    }

    static bool isOfMachine(std::string_view name)
    {
        return name.size() > 2 && name.substr(0, 2) == "Ch" && name[2] >= '0' && name[2] <= '9';
    }

    basic::Variant ReadValue(std::string_view name) override { return side(name).ReadValue(name); }
    void WriteValue(std::string_view name, const basic::Variant& value) override
    {
        side(name).WriteValue(name, value);
    }

private:
    platform::ProcessVarAccess& side(std::string_view name) { return isOfMachine(name) ? *machine_ : *own_; }

    std::shared_ptr<platform::ProcessVarAccess> own_;
    std::shared_ptr<platform::ProcessVarAccess> machine_;
};

} // namespace servopanel::machine
