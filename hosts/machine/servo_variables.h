#pragma once

#include "machine/problem.h"
#include "machine/variable_store.h"

#include <string>
#include <string_view>
#include <vector>

namespace servopanel::machine {

// The process variables of one servo, as its controller uses them. Every trouble with a variable is told once.
class ServoVariables {
public:
    ServoVariables(VariableStore& store, std::string_view machine, int servo, std::vector<Problem>& problems);

    // The setpoints of a family ("servo_para"); empty when there is no such array.
    std::vector<double> setpoints(const std::string& family);
    // Brings the setpoints of a family into the limits that the machine has for it, and writes them back when one was
    // outside. Families without limits stay as they are.
    void limitSetpoints(const std::string& family);

    int switches();
    // Whether the panel has announced changed parameters.
    bool changeAnnounced();
    void acknowledgeChange();

    // The elements of a diagnosis page, 1 or 2; empty when there is no such array.
    std::vector<double> diagnosis(int page);
    void writeDiagnosis(int page, const std::vector<double>& values);
    // Shows a fault text on both pages, "" for none.
    void writeFault(const std::string& text);

private:
    std::string name(std::string_view family, std::string_view suffix = {}) const;
    std::vector<double> numbers(const std::string& name);
    double number(const std::string& name);
    void write(const std::string& name, const basic::Variant& value);
    void problem(const std::string& name, const std::string& reason);

    VariableStore& store_;
    std::string machine_;
    std::string servo_;
    std::vector<Problem>& problems_;
    std::vector<std::string> troubled_;
};

} // namespace servopanel::machine
