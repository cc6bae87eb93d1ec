#include "jet/servo_defs/differences.h"

#include "basic/conversions.h"
#include "basic/error.h"
#include "jet/same_value.h"
#include "jet/servo_defs/definition_list.h"

#include <deque>
#include <map>

namespace servopanel::jet {

namespace {

constexpr std::size_t firstNumber = 2; // position in csvColumns behind the two names

// Whether the second value is the first one when it is stored in its column.
bool sameInColumn(const basic::Variant& left, const basic::Variant& right)
{
    if (left.type() == right.type() || left.holds<basic::Null>() || right.holds<basic::Null>())
        return sameValue(left, right);
    try {
        return sameValue(left, basic::convert(right, left.type()));
    } catch (const basic::Error&) {
        return false;
    }
}

} // namespace

std::vector<Difference> differences(
    const std::vector<DefinitionRow>& left, const std::vector<DefinitionRow>& right)
{
    std::map<DefinitionKey, std::deque<std::size_t>> waiting;
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
            if (!sameInColumn(valueOf(left[i], column), valueOf(right[other], column)))
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
        return value.holds<basic::Null>() ? std::string{"(none)"} : shownText(value);
    };
    std::string text;
    for (const Difference& difference : found) {
        switch (difference.kind) {
        case Difference::Kind::OnlyLeft: text += "- " + nameOf(left[*difference.left]) + '\n'; break;
        case Difference::Kind::OnlyRight: text += "+ " + nameOf(right[*difference.right]) + '\n'; break;
        case Difference::Kind::Value:
            text += nameOf(left[*difference.left]) + ": " + std::string{csvColumns[difference.column]} + ' '
                + shown(valueOf(left[*difference.left], difference.column)) + " -> "
                + shown(valueOf(right[*difference.right], difference.column)) + '\n';
        }
    }
    return text;
}

} // namespace servopanel::jet
