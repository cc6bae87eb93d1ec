#pragma once

#include "recording/replay.h"

#include <cstddef>
#include <initializer_list>
#include <map>
#include <set>
#include <string>
#include <string_view>

namespace servopanel::servo_page::tests {

// A variable of a servo of machine M1, such as family "_servo_para_"; page: number of a diagnosis page.
std::string variable(std::string_view family, std::string_view page = {}, std::string_view servo = "3");

// The page of servo 3, the first of two, on a 1280 panel with access level 2. more: set-up commands that come after
// those of the page and so replace or add to them.
class Page {
public:
    explicit Page(std::string_view more = {});

    // The trace of commands that are delivered now.
    std::string run(std::string_view commands) { return replay_.run(std::string{commands}); }
    // The trace of creating and showing.
    const std::string& start() const { return start_; }
    // What the host answers from, for values that scenarios cannot write.
    recording::MemoryWorld& world() { return replay_.host().world(); }
    // The answer to `get OBJECT.ID`.
    std::string state(std::string_view object);

private:
    recording::Replay replay_;
    std::string start_;
};

// Access level 5, at which the second input mode can be switched on.
std::string levelFive();
// Definitions of all fields of servo 3 that ask for this level and have the limits 1 and 99, row by row.
std::string definitions(int level);
std::string definition(std::string_view family, int element, int level);

// Lines of a trace, each with its \n: those that begin with one of these texts, those that do not, those that hold one.
std::string beginning(std::string_view trace, std::initializer_list<std::string_view> starts);
std::string without(std::string_view trace, std::initializer_list<std::string_view> starts);
std::string holding(std::string_view trace, std::string_view text);
std::size_t count(std::string_view trace, std::string_view text);

// Fields by number; drawing numbers by field (41, 42) or item (41 to 46).
using Fields = std::set<int>;

// What WerteLesen shows of one family of the values that Page sets up; fields in marked keep what they show.
std::string familyLines(std::string_view family, const Fields& marked = {});
// All families of the parameter page, so the lines of WerteLesen(True) there. instead: lines of single families.
std::string refresh(const Fields& marked = {}, const std::map<std::string, std::string>& instead = {});
// What remains of a family that cannot be read: one report for the read, one for each statement that depends on it.
std::string unreadable(std::string_view family, int dependents);
// Reports of a procedure, each with its \n.
std::string mismatches(std::string_view procedure, int times);

// The lines of EingabeDarstellen. green: inputs that are green and stay it.
std::string inputs(const Fields& locked = {}, const Fields& green = {});

// The lines of FußzeileFreigabe on the parameter page of the first servo: True, and False.
std::string released();
std::string withdrawn();
// Keys 10, 11 and 31 as between two edits, and as confirm and cancel.
std::string normalKeys();
std::string confirmKeys();

} // namespace servopanel::servo_page::tests
