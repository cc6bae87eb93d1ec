#include "params/parameter_set.h"

#include "jet/servo_defs/definition_list.h"

#include <algorithm>

namespace servopanel::params {

std::vector<int> servosOf(const ParameterSet& set)
{
    std::vector<int> servos;
    for (const Row& row : set.rows)
        if (servos.empty() || servos.back() != row.place.servo) servos.push_back(row.place.servo);
    return servos;
}

const Row* rowAt(const ParameterSet& set, const Place& place)
{
    const auto found = std::lower_bound(set.rows.begin(), set.rows.end(), place,
        [](const Row& row, const Place& sought) { return row.place < sought; });
    return found != set.rows.end() && found->place == place ? &*found : nullptr;
}

std::string numberText(double value) { return jet::plainText(basic::Variant{value}); }

} // namespace servopanel::params
