#pragma once

#include "params/definition_limits.h"
#include "params/selection.h"
#include "params/snapshot.h"

#include <cstdint>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace servopanel::params {

// How a row of a file ended, or what is to become of it.
enum class End {
    Unchanged, // the machine holds it already
    LeftOut, // by the engineer
    Open, // to be written
    Done, // written and read back
    Refused, // the machine holds what it held
    NotSent, // the machine holds what it held
    Unknown, // nobody knows what the machine holds
    Differs, // written, and the machine holds another value
};

struct PlannedRow {
    Row wanted; // with the place on the machine that it is meant for
    std::optional<double> held; // what the machine held when the engineer saw it
    End end = End::Open;
    std::string reason; // why it was not done

    void set(End how, std::string why = {})
    {
        end = how;
        reason = std::move(why);
    }
};

struct LoadWish {
    std::vector<std::pair<int, int>> servos; // of the file, and of the machine
    Selection selection;
    std::int16_t level = 0; // the user's
};

// What would become of each row. A row is refused by the definitions' limits, nullptr for none, and by the rules of the
// machine's controller as far as its description tells them, so that it does not take its neighbours with it.
std::vector<PlannedRow> planOf(const ParameterSet& wanted, const Snapshot& machine, const LoadWish& wish,
    const DefinitionLimits* limits);

// What an engineer should know before he writes: the file is of another machine or description, or has fewer elements.
std::vector<std::string> notesOn(
    const ParameterSet& wanted, const Snapshot& machine, const std::vector<std::pair<int, int>>& servos);

// With a line for each row, or only for those that differ.
std::string tableOf(const std::vector<PlannedRow>& rows, bool all);
// "12 done, 1 refused, 61 unchanged"
std::string summaryOf(const std::vector<PlannedRow>& rows);

} // namespace servopanel::params
