#pragma once

#include "panel/runtime/refusal.h"
#include "panel/runtime/watched_variables.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace servopanel::panel {

// A variable of which a confirmed change did not reach the machine.
struct Refusal {
    std::string_view family;
    std::string variable; // empty when it was never asked for
    RefusalReason reason = RefusalReason::Other;
    std::string description; // the error's own words
    int element = -1; // of the family; -1: all that were changed
    bool mayPass = false; // what was entered may still be written later
};

// What became of a confirmed change.
struct ConfirmAnswer {
    int written = 0; // values of the machine that are others now
    std::vector<Refusal>
        refusals; // one of a family that was not written, or one of each value that was not taken
    // The machine may hold new values and does not know that it is to take them over.
    bool isUntold = false;
};

// Judges one press of the confirm key. changed: the families of the fields that waited to be written. wasUntold: of the
// confirm before, whose changes still wait. Nothing when the key did not confirm anything.
std::optional<ConfirmAnswer> judgeConfirm(
    const WatchedVariables& variables, const std::vector<std::string_view>& changed, bool wasUntold);

} // namespace servopanel::panel
