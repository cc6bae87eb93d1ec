#include "check/simulation_check.h"

#include "machine/simulated_machine.h"
#include "machine/variable_store.h"

#include <algorithm>
#include <string_view>

namespace servopanel::check {

namespace {

class SimulationCheck {
public:
    SimulationCheck(const CheckedProject& project, const Asked& asked, Findings& findings)
        : project_{project}
        , asked_{asked}
        , findings_{findings}
    {
    }

    void run()
    {
        for (const machine::ServoRule& rule : project_.file.machine->servos)
            if (!hasVariables(rule))
                add(rule.place,
                    "no variable belongs to servo " + std::to_string(rule.servo) + " of machine "
                        + rule.machine + ": nothing of it is simulated");
        machine::VariableStore store;
        project_.file.declareVariables(store);
        machine::SimulatedMachine machine{*project_.file.machine, store};
        machine.step(machine.periodSeconds());
        for (const machine::Problem& problem : machine.problems())
            tell(problem);
    }

private:
    void add(const std::string& place, const std::string& what)
    {
        findings_.add("project.json", project_.lines.line(place), "machine: " + what);
    }

    static std::string beginningOf(const machine::ServoRule& rule)
    {
        return "Ch1." + rule.machine + "_T_servo_" + std::to_string(rule.servo) + '<';
    }

    const basic::Variant* find(const std::string& name) const
    {
        for (const auto& variable : project_.file.variables)
            if (variable.name == name) return &variable.value;
        return nullptr;
    }

    bool hasVariables(const machine::ServoRule& rule) const
    {
        const std::string beginning = beginningOf(rule);
        return std::any_of(project_.file.variables.begin(), project_.file.variables.end(),
            [&](const auto& variable) { return variable.name.starts_with(beginning); });
    }

    void tell(const machine::Problem& problem)
    {
        if (asked_.troubled.contains(problem.place)) return;
        const auto& servos = project_.file.machine->servos;
        const auto rule = std::find_if(servos.begin(), servos.end(), [&](const machine::ServoRule& each) {
            return each.machine == problem.place || problem.place.starts_with(beginningOf(each));
        });
        if (rule == servos.end() || !hasVariables(*rule)) return; // nothing of it is simulated, which is told
        if (rule->machine == problem.place)
            add(rule->place, "there is no line of machine " + rule->machine + ": its servos stand still");
        else if (find(problem.place) == nullptr)
            add(rule->place, "variable \"" + problem.place + "\" is missing: its value stands still");
        else
            findings_.add("project.json", project_.lineOfVariable(problem.place),
                "variable \"" + problem.place + "\" cannot be simulated: " + withoutName(problem.reason));
    }

    // Without what names the variable: "Process variable '...': it has 3 elements, not 40".
    static std::string withoutName(const std::string& reason)
    {
        constexpr std::string_view end = "': ";
        const std::size_t at = reason.find(end);
        return at == std::string::npos ? reason : reason.substr(at + end.size());
    }

    const CheckedProject& project_;
    const Asked& asked_;
    Findings& findings_;
};

} // namespace

void checkSimulation(const CheckedProject& project, const Asked& asked, Findings& findings)
{
    if (project.file.machine) SimulationCheck{project, asked, findings}.run();
}

} // namespace servopanel::check
