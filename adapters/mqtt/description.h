#pragma once

#include "basic/variant.h"
#include "machine/type_names.h"

#include <cstddef>
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace servopanel::mqtt {

// None, a number for all elements, or the name of a variable of the same machine with one limit for each element.
using Limit = std::variant<std::monostate, double, std::string>;

// One variable of a machine. Fixed for an epoch.
struct VariableDescription {
    std::string name;
    machine::VariableType type;
    std::int32_t first = 0; // index of an array's first element
    std::size_t length = 0; // elements of an array
    std::string unit; // for people, may be empty
    bool writable = false;
    bool signal =
        false; // a writer's word to the machine, who takes it back: nobody compares what it held before
    Limit least;
    Limit most;
    // Needed to write: none, one for all elements, or one for each; of a whole number one for each bit, the last one for
    // all bits from there on.
    std::vector<std::int16_t> levels;

    // A value of this type and length, of zeros or empty texts.
    basic::Variant blank() const;
    std::int16_t levelOf(std::size_t element) const;
    bool hasBits() const; // one whole number, whose bits may have levels of their own

    friend bool operator==(const VariableDescription&, const VariableDescription&) = default;
};

// All variables of a machine, in the order in which its heartbeat counts them.
class Description {
public:
    Description() = default;
    // Of two variables with one name the first counts.
    explicit Description(std::vector<VariableDescription> variables);

    const std::vector<VariableDescription>& variables() const { return variables_; }
    std::optional<std::size_t> indexOf(std::string_view name) const;

    // Differs when anything of the description differs. 16 hexadecimal digits.
    std::string hash() const;

private:
    std::vector<VariableDescription> variables_;
    std::map<std::string, std::size_t, std::less<>> indices_;
};

} // namespace servopanel::mqtt
