#pragma once

#include "journal/entry.h"
#include "machine/problem.h"

#include <filesystem>
#include <vector>

namespace servopanel::journal {

struct Journal {
    std::vector<Entry> entries; // in the order in which they were written, none of them open
    std::vector<machine::Problem> problems; // lines that were passed over
    bool isWhole = true; // false when a file could not be read to its end
};

// The present file and those put aside with the numbers 1 to 99. An entry whose end is missing is unknown. A panel may write
// meanwhile. Error 53 when the folder has no journal.
Journal readJournal(const std::filesystem::path& folder);

} // namespace servopanel::journal
