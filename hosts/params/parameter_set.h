#pragma once

#include "params/parameter.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace servopanel::params {

struct Row {
    Place place;
    std::string name; // caption on the page, may be empty
    std::string unit; // may be empty
    double value = 0; // of a single the shortest decimal number that gives it; of a switch 0 or 1
    std::size_t line = 0; // of the file that it was read from, from 1 on; 0: none
};

// The parameters of a machine, or of some of its servos.
struct ParameterSet {
    std::string project; // its title, may be empty
    std::string machine; // designation
    std::string source; // for people
    std::string time; // of reading, may be empty
    std::optional<std::int64_t> epoch; // of the controller, when one was asked
    std::string description; // hash of the machine's description
    std::vector<Row> rows; // in the order of their places, each place once
};

std::vector<int> servosOf(const ParameterSet& set);

// "320", "0.35": the shortest text that reads back as the same number.
std::string numberText(double value);

} // namespace servopanel::params
