#pragma once

#include "platform/process_var_access.h"

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace servopanel::machine {

// Who writes a process variable.
enum class Writer { Library, Host, Machine };

// The process variables, held in this process. Names compare exactly. Every variable keeps the type it was declared
// with and an array its length, whatever is written. Errors name the variable and carry the source "Process variables".
class VariableStore : public platform::ProcessVarAccess {
public:
    // One write: the name and what the variable holds now. The references end with the call.
    struct Write {
        std::string_view name;
        const basic::Variant& value;
        Writer writer;
    };
    using Listener = std::function<void(const Write&)>;

    // Makes a variable, or makes an existing one anew. The value gives type and, for an array, element type, lower
    // bound and length. Listeners do not hear of it.
    void declare(std::string_view name, basic::Variant value);

    // Unknown name: error 5. What the library calls; a write by it is a write by Writer::Library.
    basic::Variant ReadValue(std::string_view name) override;
    void WriteValue(std::string_view name, const basic::Variant& value) override;

    // Converts to the declared type and stores. Error 5 for an unknown name; 13 when the value is no such thing or an
    // array of another length, 6 when a number does not fit. A failed write changes nothing.
    void write(std::string_view name, const basic::Variant& value, Writer writer);

    // nullptr when unknown. Valid until the variable is declared anew.
    const basic::Variant* find(std::string_view name) const;
    std::vector<std::string> names() const; // sorted

    // Listeners hear of every successful write, also of one that changes nothing, in the order in which they were
    // added. They may write and may add and remove listeners.
    using ListenerId = int;
    ListenerId addListener(Listener listener);
    void removeListener(ListenerId id);

private:
    void notify(const Write& write);

    std::map<std::string, basic::Variant, std::less<>> variables_;
    std::vector<std::pair<ListenerId, std::shared_ptr<Listener>>> listeners_;
    ListenerId lastListener_ = 0;
};

} // namespace servopanel::machine
