#pragma once

#include "params/parameter_set.h"

#include <filesystem>
#include <string>
#include <string_view>

namespace servopanel::params {

// A parameter set as a CSV file: lines "what,text" that say where it is from, then one line for each element.
std::string toText(const ParameterSet& set);

// Whether a text begins like such a file.
bool isParameterSet(std::string_view text);

// Error 13 with the line: a column is missing, a variable is no parameter, an element no whole number, a value no finite
// number, a place is there twice. Columns in any order; the names of the rows do not matter.
ParameterSet fromText(std::string_view text);

// Errors name the file, and the line in it.
ParameterSet loadSet(const std::filesystem::path& file);

} // namespace servopanel::params
