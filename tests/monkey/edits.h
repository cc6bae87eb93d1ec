#pragma once

#include "monkey/parameters.h"
#include "monkey/trace_block.h"

#include <map>
#include <optional>
#include <set>
#include <string>

namespace servopanel::monkey {

// What the operator sees and has entered on the page of a servo, told by nothing but what was operated and what was read
// of the machine: what an input shows, which inputs wait for a confirm, and with which number. Items are numbered like the
// page's inputs: 1 to 24 setpoints, 31 to 34 switches, 41 to 46 the parts of drawing numbers.
class Edits {
public:
    // What an operation means for all that follows in its block; what is wrong with it, in words. isOperators: not one
    // that the panel makes in the operator's stead.
    // areAllNew: every number that the mask takes in it is a change, also the one that the input shows.
    std::optional<std::string> begin(const TraceBlock& block, bool isOperators, bool areAllNew);
    // A line of the block.
    std::optional<std::string> line(const TraceBlock& block, std::string_view line);
    // After the last one.
    void end();

    // The servo whose page it is; 0 before the first one.
    int servo() const { return servo_; }
    // Whether something was entered that waits for a confirm; a touched input alone does not.
    bool isWaiting() const { return !changed_.empty(); }
    // The items that show by their colour that they wait, of a drawing number the parts that were entered; switches have no
    // colour.
    const std::set<std::int16_t>& coloured() const { return coloured_; }
    const std::set<std::int16_t>& changed() const { return changed_; }
    // Whether this block began as a confirm of something.
    bool isConfirm() const { return isConfirm_; }
    // What a confirm has to write as the value of a field; nothing when it is to stay as the machine holds it.
    std::optional<double> expected(std::int16_t field) const;
    bool isTouched(std::int16_t field) const { return touched_.count(field) > 0; }

private:
    std::optional<std::string> mask(const TraceBlock& block, bool areAllNew);
    std::optional<std::string> touch(const TraceBlock& block, std::string_view line);
    std::optional<std::string> turn(std::int16_t field, std::string_view state);
    std::optional<std::string> read(const TraceBlock& block, std::string_view line);
    void show(const Family& family, const Elements& values);
    void limit(std::map<std::int16_t, double>& limits, std::int16_t first, const Elements& values);
    void discard();

    int servo_ = 0;
    std::map<std::int16_t, double> shown_; // by item; a failed read leaves it standing
    std::set<std::int16_t> own_; // items that show a value of this servo
    std::map<std::int16_t, double> lowest_; // of setpoints, as read of this servo
    std::map<std::int16_t, double> highest_;
    std::set<std::int16_t> touched_; // fields, since the values were last read or written as a whole
    std::set<std::int16_t> changed_; // fields with a number of the operator's
    std::set<std::int16_t> coloured_; // items of them that show it by their colour
    std::int16_t inMask_ = 0; // the item that the mask edits
    bool isConfirm_ = false;
    bool isOperators_ = true;
};

// The number of an item in an operation like "touch SollwertL 5"; 0 when there is none.
std::int16_t itemOf(std::string_view operation);

} // namespace servopanel::monkey
