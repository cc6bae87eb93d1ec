#include "params/comparison.h"

#include "basic/error.h"
#include "portable/text_table.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <set>

namespace servopanel::params {

namespace {

bool has(const std::vector<int>& servos, int servo)
{
    return std::find(servos.begin(), servos.end(), servo) != servos.end();
}

void requireServo(const std::vector<int>& servos, int servo)
{
    if (has(servos, servo)) return;
    basic::raise(basic::ErrorNumber::InvalidProcedureCall,
        "one side is of servo " + std::to_string(servo)
            + " only, and the other has several, but not this one");
}

bool same(const Row& left, const Row& right)
{
    return left.value == right.value || (std::isnan(left.value) && std::isnan(right.value));
}

// Family and element of a place.
using Within = std::pair<std::size_t, int>;

void take(std::map<Within, Difference>& rows, const ParameterSet& set, int servo,
    std::optional<Row> Difference::*side)
{
    for (const Row& row : set.rows)
        if (row.place.servo == servo) rows[{row.place.family, row.place.element}].*side = row;
}

std::string valueText(const std::optional<Row>& row) { return row ? numberText(row->value) : "-"; }

// Both where they differ: another servo calls its values otherwise.
std::string text(const Difference& difference, std::string Row::*member)
{
    const std::string left = difference.left ? (*difference.left).*member : "";
    const std::string right = difference.right ? (*difference.right).*member : "";
    if (left.empty() || right.empty() || left == right) return left.empty() ? right : left;
    return std::string{left}.append(" / ").append(right);
}

std::string servoText(const Difference& difference)
{
    const std::string left = difference.left ? std::to_string(difference.left->place.servo) : "";
    const std::string right = difference.right ? std::to_string(difference.right->place.servo) : "";
    if (left.empty() || right.empty() || left == right) return left.empty() ? right : left;
    return std::string{left}.append(" / ").append(right);
}

} // namespace

std::vector<std::pair<int, int>> servoPairs(const ParameterSet& left, const ParameterSet& right)
{
    const std::vector<int> lefts = servosOf(left);
    const std::vector<int> rights = servosOf(right);
    if (lefts.size() == 1 && rights.size() == 1) return {{lefts.front(), rights.front()}};
    if (lefts.size() == 1) requireServo(rights, lefts.front());
    if (rights.size() == 1) requireServo(lefts, rights.front());
    std::set<int> numbers;
    if (lefts.size() != 1) numbers.insert(rights.begin(), rights.end());
    if (rights.size() != 1) numbers.insert(lefts.begin(), lefts.end());
    std::vector<std::pair<int, int>> pairs;
    for (const int number : numbers)
        if ((lefts.size() != 1 || has(lefts, number)) && (rights.size() != 1 || has(rights, number)))
            pairs.emplace_back(number, number);
    return pairs;
}

std::vector<Difference> differencesOf(
    const ParameterSet& left, const ParameterSet& right, const std::vector<std::pair<int, int>>& servos)
{
    std::vector<Difference> found;
    for (const auto& [leftServo, rightServo] : servos) {
        std::map<Within, Difference> rows;
        take(rows, left, leftServo, &Difference::left);
        take(rows, right, rightServo, &Difference::right);
        for (const auto& [place, row] : rows)
            if (!row.left || !row.right || !same(*row.left, *row.right)) found.push_back(row);
    }
    return found;
}

std::string tableOf(
    const std::vector<Difference>& differences, const std::string& leftName, const std::string& rightName)
{
    std::vector<std::vector<std::string>> lines{
        {"servo", "family", "element", "name", "unit", leftName, rightName}};
    for (const Difference& one : differences) {
        const Place& place = one.any().place;
        lines.push_back({servoText(one), std::string{place.of().name}, std::to_string(place.element),
            text(one, &Row::name), text(one, &Row::unit), valueText(one.left), valueText(one.right)});
    }
    return portable::tableOf(std::move(lines));
}

std::string counted(std::size_t count, const char* one, const char* several)
{
    return std::to_string(count).append(" ").append(count == 1 ? one : several);
}

} // namespace servopanel::params
