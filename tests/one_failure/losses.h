#pragma once

#include <string>
#include <vector>

namespace servopanel::testing {

// What came of one crossing that failed.
struct Loss {
    std::string crossing; // as Crossings names it
    std::vector<std::string> reports; // the procedures that reported it
    // What the trace lacks, has in addition, and tells with other values or elsewhere; without the failure's own report.
    std::vector<std::string> missing;
    std::vector<std::string> added;
    std::vector<std::string> changed;

    // Just the statement: the crossing's own line or, where it leaves none, one line that needed it.
    bool isPlain() const;
};

// Compares the trace of a run in which the crossing failed with that of the run without.
Loss compared(const std::string& crossing, const std::vector<std::string>& whole,
    const std::vector<std::string>& failed);

// All losses of a scenario as a table by procedure, in the order in which they came first. What differs in the elements
// of a control array alone is folded, "SollwertL(1..10)".
std::string table(const std::vector<Loss>& losses);

} // namespace servopanel::testing
