#include "jet/servo_defs/differences.h"

#include "jet/servo_defs/definition_list.h"

#include <deque>
#include <map>

namespace servopanel::jet {

namespace {

constexpr std::size_t firstNumber = 2; // position in csvColumns behind the two names

} // namespace

std::vector<Difference> differences(
    const std::vector<DefinitionRow>& left, const std::vector<DefinitionRow>& right)
{
    std::map<std::string, std::deque<std::size_t>> waiting;
    for (std::size_t i = 0; i < right.size(); ++i)
        waiting[keyOf(right[i])].push_back(i);

    std::vector<Difference> found;
    std::vector<bool> met(right.size());
    for (std::size_t i = 0; i < left.size(); ++i) {
        std::deque<std::size_t>& candidates = waiting[keyOf(left[i])];
        if (candidates.empty()) {
            found.push_back({Difference::Kind::OnlyLeft, i, std::nullopt, 0});
            continue;
        }
        const std::size_t other = candidates.front();
        candidates.pop_front();
        met[other] = true;
        // The names are the same, but for no text and an empty one, which spreadsheets do not tell apart.
        for (std::size_t column = firstNumber; column < csvColumns.size(); ++column)
            if (!sameValue(valueOf(left[i], column), valueOf(right[other], column)))
                found.push_back({Difference::Kind::Value, i, other, column});
    }
    for (std::size_t i = 0; i < right.size(); ++i)
        if (!met[i]) found.push_back({Difference::Kind::OnlyRight, std::nullopt, i, 0});
    return found;
}

std::string describe(const std::vector<Difference>& found, const std::vector<DefinitionRow>& left,
    const std::vector<DefinitionRow>& right)
{
    const auto shown = [](const basic::Variant& value) {
        return value.holds<basic::Null>() ? std::string{"(none)"} : plainText(value);
    };
    std::string text;
    for (const Difference& difference : found) {
        switch (difference.kind) {
        case Difference::Kind::OnlyLeft: text += "- " + keyOf(left[*difference.left]) + '\n'; break;
        case Difference::Kind::OnlyRight: text += "+ " + keyOf(right[*difference.right]) + '\n'; break;
        case Difference::Kind::Value:
            text += keyOf(left[*difference.left]) + ": " + std::string{csvColumns[difference.column]} + ' '
                + shown(valueOf(left[*difference.left], difference.column)) + " -> "
                + shown(valueOf(right[*difference.right], difference.column)) + '\n';
        }
    }
    return text;
}

} // namespace servopanel::jet
