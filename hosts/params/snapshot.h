#pragma once

#include "machine/variable_store.h"
#include "mqtt/description.h"
#include "params/captions.h"
#include "params/parameter_set.h"

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace servopanel::params {

// What a machine held at one moment.
struct Snapshot {
    std::string machine; // designation
    mqtt::Description description;
    machine::VariableStore values; // parameters, and the limits that the description names
    std::map<std::string, std::string> unreadable; // parameters that could not be read, and why
    std::optional<std::int64_t> epoch; // nothing for the start values of a project
};

// The servos that have parameters, in the order of their numbers.
std::vector<int> servosOf(const std::string& machine, const mqtt::Description& description);

// The variables of a servo's parameters that the description has, and of their limits.
std::vector<std::string> variablesOf(
    const std::string& machine, const mqtt::Description& description, int servo);

// Error 5 for a servo that the machine does not have; the text names those that it has.
void requireServos(
    const std::string& machine, const mqtt::Description& description, const std::vector<int>& servos);

// The parameters of these servos. A value that is no number is among the unreadable ones afterwards.
ParameterSet parametersOf(Snapshot& snapshot, const std::vector<int>& servos, const Captions& captions);

// How many elements a parameter has, of a word the bits that the page shows; 0 for what is no such variable.
int elementsOf(const Family& family, const basic::Variant& value);
// The number of an element, as Row has it. Error 13 for what is no number.
double numberAt(const Family& family, const basic::Variant& value, int element);
// Gives an element another number. Error 6 or 13 when the machine's type cannot hold exactly this one.
void setNumber(const Family& family, basic::Variant& value, int element, double number);

} // namespace servopanel::params
