#include "machine/servo_variables.h"

#include "basic/conversions.h"
#include "basic/error.h"

#include <algorithm>
#include <cstdint>

namespace servopanel::machine {

using basic::Variant;

ServoVariables::ServoVariables(
    VariableStore& store, std::string_view machine, int servo, std::vector<Problem>& problems)
    : store_{store}
    , machine_{machine}
    , servo_{std::to_string(servo)}
    , problems_{problems}
{
}

std::vector<double> ServoVariables::setpoints(const std::string& family) { return numbers(name(family)); }

void ServoVariables::limitSetpoints(const std::string& family)
{
    if (!store_.find(name(family + "_un")) || !store_.find(name(family + "_ob"))) return;
    std::vector<double> values = setpoints(family);
    const std::vector<double> least = numbers(name(family + "_un"));
    const std::vector<double> most = numbers(name(family + "_ob"));
    bool changed = false;
    for (std::size_t i = 0; i < std::min({values.size(), least.size(), most.size()}); ++i) {
        if (!(least[i] <= most[i]) || (values[i] >= least[i] && values[i] <= most[i])) continue;
        values[i] = values[i] > most[i] ? most[i] : least[i];
        changed = true;
    }
    if (changed) write(name(family), basic::doubles(values));
}

int ServoVariables::switches()
{
    const std::string word = name("servo_schalt");
    try {
        // As the page takes the word: a project may have any number there.
        return basic::toInt32(number(word));
    } catch (const basic::Error& error) {
        problem(word, error.description);
        return 0;
    }
}

bool ServoVariables::changeAnnounced() { return number(name("servoaender")) == 1.0; }

void ServoVariables::acknowledgeChange() { write(name("servoaender"), std::int16_t{0}); }

std::vector<double> ServoVariables::diagnosis(int page)
{
    return numbers(name("servo_diag", std::to_string(page)));
}

void ServoVariables::writeDiagnosis(int page, const std::vector<double>& values)
{
    write(name("servo_diag", std::to_string(page)), basic::doubles(values));
}

void ServoVariables::writeFault(const std::string& text)
{
    write(name("fetext", "1"), text);
    write(name("fetext", "2"), text);
}

// The page of a diagnosis follows the servo's number without anything between.
std::string ServoVariables::name(std::string_view family, std::string_view suffix) const
{
    std::string name = "Ch1." + machine_ + "_T_servo_" + servo_ + "<.m" + machine_ + "_";
    name += family;
    name += "_" + servo_;
    name += suffix;
    return name + ">";
}

std::vector<double> ServoVariables::numbers(const std::string& name)
{
    const Variant* const value = store_.find(name);
    const basic::Array* const array = value ? value->get<basic::Array>() : nullptr;
    if (!array) {
        problem(name, value ? "is no array" : "is missing");
        return {};
    }
    std::vector<double> numbers;
    numbers.reserve(array->elements.size());
    try {
        for (const Variant& element : array->elements)
            numbers.push_back(basic::toDouble(element));
    } catch (const basic::Error& error) {
        problem(name, error.description);
        return {};
    }
    return numbers;
}

double ServoVariables::number(const std::string& name)
{
    const Variant* const value = store_.find(name);
    try {
        if (value) return basic::toDouble(*value);
        problem(name, "is missing");
    } catch (const basic::Error& error) {
        problem(name, error.description);
    }
    return 0;
}

void ServoVariables::write(const std::string& name, const Variant& value)
{
    const Variant* const old = store_.find(name);
    if (old && *old == value) return;
    try {
        store_.write(name, value, Writer::Machine);
    } catch (const basic::Error& error) {
        problem(name, error.description);
    }
}

void ServoVariables::problem(const std::string& name, const std::string& reason)
{
    if (std::find(troubled_.begin(), troubled_.end(), name) != troubled_.end()) return;
    troubled_.push_back(name);
    problems_.push_back({"Simulated machine", name, reason});
}

} // namespace servopanel::machine
