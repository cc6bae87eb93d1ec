#pragma once

#include "jet/definition_row.h"

#include <optional>
#include <string>
#include <vector>

namespace servopanel::jet {

// What two lists of definitions do not have in common. A row is found again by its machine type, variable and element;
// of several such rows the first belongs to the first, and so on.
struct Difference {
    enum class Kind {
        OnlyLeft,
        OnlyRight,
        Value, // of one column of a row that both have
    };
    Kind kind = Kind::Value;
    std::optional<std::size_t> left; // positions in the lists
    std::optional<std::size_t> right;
    std::size_t column = 0; // in csvColumns
};

std::vector<Difference> differences(
    const std::vector<DefinitionRow>& left, const std::vector<DefinitionRow>& right);

// One line for each: "- M1, ..." only left, "+ M1, ..." only right, "M1, ...: Max 800 -> 900".
std::string describe(const std::vector<Difference>& found, const std::vector<DefinitionRow>& left,
    const std::vector<DefinitionRow>& right);

} // namespace servopanel::jet
