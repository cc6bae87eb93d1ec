#include "panel/runtime/overwritten.h"

#include "panel/form/input_value.h"

#include <algorithm>

namespace servopanel::panel {

namespace {

bool isChange(const ValueSource& source, const basic::Variant& before, const basic::Variant& after)
{
    const std::optional<double> was = elementValue(source, before);
    const std::optional<double> is = elementValue(source, after);
    if (!was || !is) return was.has_value() != is.has_value();
    return !isSameValue(*is, *was, before);
}

} // namespace

std::vector<Overwritten> overwrittenBeside(
    const std::vector<ValueSource>& changed, const WatchedVariables& variables)
{
    std::vector<Overwritten> result;
    for (const WatchedVariables::Write& write : variables.writes()) {
        const auto* before = write.before.get<basic::Array>();
        const auto* after = write.value.get<basic::Array>();
        // Switches have no such case: a touch on one is a change.
        if (!write.problem.empty() || before == nullptr || after == nullptr) continue;
        const std::size_t count = std::min(before->elements.size(), after->elements.size());
        for (std::size_t i = 0; i < count; ++i) {
            const ValueSource source{write.family, static_cast<int>(i) + before->lowerBound};
            const bool isWanted = std::find(changed.begin(), changed.end(), source) != changed.end();
            if (isWanted || !isChange(source, write.before, write.value)) continue;
            result.push_back({source, write.variable, before->elements[i], after->elements[i]});
        }
    }
    return result;
}

} // namespace servopanel::panel
