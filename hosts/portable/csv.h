#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace servopanel::portable {

// A cell of a CSV file. An empty one without quotes is no value at all, "" is an empty text.
using CsvCell = std::optional<std::string>;

struct CsvLine {
    std::size_t number = 0; // line of the file on which it starts, from 1
    std::vector<CsvCell> cells;
};

// Splits UTF-8 text into lines and cells; commas or semicolons, whichever comes first in the first line. Empty lines are
// passed over, a byte order mark is dropped. Raises TypeMismatch with the number of the line for quotes that make no
// sense and for what is not UTF-8; whoever knows the file puts its name in front.
std::vector<CsvLine> parseCsv(std::string_view text);

// A line with its line feed; cells are quoted where they have to be.
std::string csvLine(const std::vector<CsvCell>& cells);

// Spreadsheets run a text that begins like a formula. An apostrophe keeps them from it and is taken off again when the
// file is read; so is one of several that the text has by itself, so that every text comes back.
std::string withoutFormula(std::string_view text);
std::string withFormula(std::string_view text);

// For a terminal, which would take control characters for orders: they become \n, \t or \x1B.
std::string shownText(std::string_view text);

} // namespace servopanel::portable
