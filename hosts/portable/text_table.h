#pragma once

#include <string>
#include <vector>

namespace servopanel::portable {

// Cells of lines under each other, two blanks between the columns; all lines have as many cells as the first. Control
// characters are shown as \n or \x1B: a terminal would take them for orders.
std::string tableOf(std::vector<std::vector<std::string>> lines);

} // namespace servopanel::portable
