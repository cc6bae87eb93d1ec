#pragma once

#include <string>
#include <vector>

namespace servopanel::bench {

// A number with so many decimals.
std::string decimal(double value, int decimals);

// The value below which this share of them is, 0 to 1. At least one value.
double percentile(std::vector<double> values, double share);

// Rows of a text histogram: doubling limits from 0.25 on, the count and a bar.
std::string histogram(const std::vector<double>& values, const std::string& unit);

// What the figures were seen on: processor, memory, kernel.
std::string describeComputer();

} // namespace servopanel::bench
