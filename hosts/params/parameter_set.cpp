#include "params/parameter_set.h"

#include "jet/servo_defs/definition_list.h"

namespace servopanel::params {

std::vector<int> servosOf(const ParameterSet& set)
{
    std::vector<int> servos;
    for (const Row& row : set.rows)
        if (servos.empty() || servos.back() != row.place.servo) servos.push_back(row.place.servo);
    return servos;
}

std::string numberText(double value) { return jet::plainText(basic::Variant{value}); }

} // namespace servopanel::params
