#pragma once

#include "jet/definition_row.h"

#include <cstdint>
#include <limits>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace servopanel::jet {

// The access level of a parameter whose own cannot be read: nobody has it.
inline constexpr std::int16_t lockedLevel = std::numeric_limits<std::int16_t>::max();

// What one row says of an element of a variable, or of a bit of a switch word.
struct MachineDefinition {
    std::optional<double> absMin; // nothing: it limits nothing
    std::optional<double> absMax;
    std::optional<double> min;
    std::optional<double> max;
    std::int16_t level = lockedLevel; // 0 or more
};

// The definitions of one machine, as its pages take them from the rows: whatever types the columns have, numbers are
// converted; names are found without regard to case; of several rows for one element the last counts, and one without
// an element is of element 0. Rows that the page has no room for are here too, so that their levels hold.
class MachineDefinitions {
public:
    MachineDefinitions(const std::vector<DefinitionRow>& rows, std::string_view machine);

    // nullptr where there is none.
    const MachineDefinition* find(std::string_view variable, int element) const;

    // What could not be taken as it was meant, one line for each kind with the names of the definitions.
    const std::vector<std::string>& notes() const { return notes_; }

private:
    std::map<std::pair<std::string, int>, MachineDefinition>
        definitions_; // by variable in capitals, and element
    std::vector<std::string> notes_;
};

} // namespace servopanel::jet
