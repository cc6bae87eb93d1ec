#pragma once

#include "panel/runtime/watched_variables.h"

#include <string>
#include <vector>

namespace servopanel::panel {

// A value that the machine had changed meanwhile and that a confirm set back, though the operator asked for nothing of
// the kind: he had only touched its field, and what is touched is written as it was shown.
struct Overwritten {
    ValueSource source;
    std::string variable;
    basic::Variant before; // of the machine
    basic::Variant after;
};

// Of the writes since the last key. changed: the fields that waited to be written.
std::vector<Overwritten> overwrittenBeside(
    const std::vector<ValueSource>& changed, const WatchedVariables& variables);

} // namespace servopanel::panel
