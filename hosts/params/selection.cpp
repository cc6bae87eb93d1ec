#include "params/selection.h"

#include "basic/text.h"

#include <algorithm>
#include <utility>

namespace servopanel::params {

namespace {

bool meets(const std::string& choice, const Row& row)
{
    if (choice == row.place.of().name || choice == placeText(row.place)) return true;
    return !row.name.empty() && basic::upperCase(choice) == basic::upperCase(row.name);
}

bool meetsAny(const std::vector<std::string>& choices, const Row& row)
{
    return std::any_of(
        choices.begin(), choices.end(), [&](const std::string& choice) { return meets(choice, row); });
}

} // namespace

Selection::Selection(std::vector<std::string> only, std::vector<std::string> except)
    : only_{std::move(only)}
    , except_{std::move(except)}
{
}

bool Selection::admits(const Row& row) const
{
    return (only_.empty() || meetsAny(only_, row)) && !meetsAny(except_, row);
}

std::vector<std::string> Selection::withoutRow(const std::vector<Row>& rows) const
{
    std::vector<std::string> lost;
    for (const auto* const choices : {&only_, &except_})
        for (const std::string& choice : *choices)
            if (std::none_of(rows.begin(), rows.end(), [&](const Row& row) { return meets(choice, row); }))
                lost.push_back(choice);
    return lost;
}

std::string placeText(const Place& place)
{
    return std::string{place.of().name}.append(":").append(std::to_string(place.element));
}

} // namespace servopanel::params
