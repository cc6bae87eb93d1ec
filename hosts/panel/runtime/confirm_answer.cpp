#include "panel/runtime/confirm_answer.h"

#include <algorithm>

namespace servopanel::panel {

std::optional<ConfirmAnswer> judgeConfirm(
    const WatchedVariables& variables, const std::vector<std::string_view>& changed, bool wasUntold)
{
    const std::vector<WatchedVariables::Write>& writes = variables.writes();
    const auto writeOf = [&](std::string_view family) {
        return std::find_if(
            writes.begin(), writes.end(), [&](const auto& write) { return write.family == family; });
    };
    // The library tells the machine of every confirmed change, and of nothing else.
    const auto told = writeOf(families::changedFlag);
    if (told == writes.end()) return {};

    ConfirmAnswer answer;
    const auto refuse = [&](const WatchedVariables::Write& write) {
        if (write.problem.empty()) return;
        const RefusalReason reason = reasonOf(write.error, false);
        answer.refusals.push_back({write.family, write.variable, reason, write.problem, -1, mayPass(reason)});
    };
    for (const WatchedVariables::Write& write : writes)
        if (write.problem.empty()) answer.written += write.changes;
    for (const std::string_view family : changed) {
        if (const auto write = writeOf(family); write != writes.end()) {
            refuse(*write);
            continue;
        }
        // What could not be read is not written either, so that nothing is overwritten unseen.
        const WatchedVariables::Read* const read = variables.latest(family);
        answer.refusals.push_back(read == nullptr
                ? Refusal{family, {}, RefusalReason::NotReadable, {}, -1, true}
                : Refusal{family, read->variable, reasonOf(read->error, true), read->problem, -1, true});
    }
    // Where nothing can have been written there was nothing to tell.
    const bool mayBeWritten = wasUntold || answer.written > 0 || answer.refusals.empty()
        || std::any_of(answer.refusals.begin(), answer.refusals.end(), [](const Refusal& refusal) {
               return refusal.reason == RefusalReason::NoAnswer
                   || refusal.reason == RefusalReason::NoAnswerButWritten;
           });
    answer.isUntold = mayBeWritten && !told->problem.empty();
    if (answer.isUntold) refuse(*told);
    return answer;
}

} // namespace servopanel::panel
