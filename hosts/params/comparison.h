#pragma once

#include "params/parameter_set.h"

#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace servopanel::params {

// The servos of two sets that are held against each other: one and one whatever their numbers, otherwise those of the same
// number. A set of one servo is compared with that servo of the other set only. Error 5 when the other has no such servo.
std::vector<std::pair<int, int>> servoPairs(const ParameterSet& left, const ParameterSet& right);

// An element that differs, or that one side lacks.
struct Difference {
    std::optional<Row> left;
    std::optional<Row> right;

    const Row& any() const { return left ? *left : *right; }
};

// In the order of the servo pairs, then of families and elements. Numbers are the same when they are exactly equal.
std::vector<Difference> differencesOf(
    const ParameterSet& left, const ParameterSet& right, const std::vector<std::pair<int, int>>& servos);

std::string tableOf(
    const std::vector<Difference>& differences, const std::string& leftName, const std::string& rightName);

// "7 rows differ"
std::string counted(std::size_t count, const char* one, const char* several);

} // namespace servopanel::params
