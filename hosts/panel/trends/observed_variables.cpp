#include "panel/trends/observed_variables.h"

#include "basic/error.h"

namespace servopanel::panel {

basic::Variant ObservedVariables::ReadValue(std::string_view name)
{
    try {
        const basic::Variant value = variables_->ReadValue(name);
        observer_(name, &value);
        return value;
    } catch (const basic::Error&) {
        observer_(name, nullptr);
        throw;
    }
}

} // namespace servopanel::panel
