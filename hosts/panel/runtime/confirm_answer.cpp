#include "panel/runtime/confirm_answer.h"

#include <algorithm>

namespace servopanel::panel {

namespace {

void refuse(ConfirmAnswer& answer, const std::string& variable, const std::string& reason)
{
    if (!answer.refused.empty()) {
        ++answer.furtherRefusals;
        return;
    }
    // Most reasons name the variable themselves.
    const bool namesIt = reason.find(variable) != std::string::npos;
    answer.refused = namesIt || variable.empty() ? reason : variable + ": " + reason;
}

} // namespace

std::optional<ConfirmAnswer> judgeConfirm(
    const WatchedVariables& variables, const std::set<std::string_view>& changed)
{
    const std::vector<WatchedVariables::Write>& writes = variables.writes();
    // The library tells the machine of every confirmed change, and of nothing else.
    const auto told = std::find_if(writes.begin(), writes.end(),
        [](const auto& write) { return write.family == families::changedFlag; });
    if (told == writes.end()) return {};

    ConfirmAnswer answer;
    for (const WatchedVariables::Write& write : writes)
        if (write.problem.empty()) answer.written += write.changes;
    for (const std::string_view family : changed) {
        const auto write = std::find_if(
            writes.begin(), writes.end(), [&](const auto& each) { return each.family == family; });
        if (write != writes.end()) {
            if (!write->problem.empty()) refuse(answer, write->variable, write->problem);
            continue;
        }
        // What could not be read is not written either, so that nothing is overwritten unseen.
        const WatchedVariables::Read* const read = variables.latest(family);
        refuse(answer, read == nullptr ? std::string{} : read->variable,
            read == nullptr ? std::string{family} : read->problem);
    }
    if (!told->problem.empty()) refuse(answer, told->variable, told->problem);
    return answer;
}

} // namespace servopanel::panel
