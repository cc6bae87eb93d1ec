#pragma once

#include "panel/runtime/watched_variables.h"

#include <optional>
#include <set>
#include <string>
#include <string_view>

namespace servopanel::panel {

// What became of a confirmed change.
struct ConfirmAnswer {
    int written = 0; // values of the machine that are others now
    // Why something of it did not reach the machine: variable and reason; empty when all did.
    std::string refused;
    int furtherRefusals = 0;
};

// Judges one press of the confirm key. changed: the families of the fields that waited to be written. Nothing when the
// key did not confirm anything.
std::optional<ConfirmAnswer> judgeConfirm(
    const WatchedVariables& variables, const std::set<std::string_view>& changed);

} // namespace servopanel::panel
