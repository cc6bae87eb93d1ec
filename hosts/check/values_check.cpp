#include "check/values_check.h"

#include "basic/conversions.h"
#include "basic/error.h"
#include "machine/servo_families.h"

#include <cmath>
#include <map>
#include <optional>
#include <string_view>
#include <utility>

namespace servopanel::check {

namespace {

using basic::Variant;
namespace families = machine::families;

constexpr std::string_view passiveFamily = "_servopassiv_";
constexpr std::string_view servoPart = "_T_servo_";
constexpr std::string_view machineVariable = "Ch-1.intern<.aktuelle_maschine>";
constexpr std::string_view servoVariable = "Ch-1.intern<.servo_zeiger>";
constexpr std::string_view designation = "parameter<.maschinenbez_";

std::optional<double> numberOf(const Variant* value)
{
    try {
        if (value != nullptr) return basic::toDouble(*value);
    } catch (const basic::Error&) {
    }
    return std::nullopt;
}

// What compares equal to true or false.
bool isFlag(const Variant& value)
{
    const std::optional<double> number = numberOf(&value);
    return value.holds<bool>() || (number && (*number == 0 || *number == -1));
}

class ValuesCheck {
public:
    ValuesCheck(const CheckedProject& project, Asked& asked, Findings& findings)
        : project_{project}
        , asked_{asked}
        , findings_{findings}
    {
    }

    void run()
    {
        for (const auto& variable : project_.file.variables) {
            if (!asked_.variableNames.contains(variable.name)) continue;
            if (const auto mistake = project_.wrongStarts.find(variable.name);
                mistake != project_.wrongStarts.end())
                add(variable.name, mistake->second);
            drawings(variable.name, variable.value);
            switchWord(variable.name, variable.value);
            if (variable.name.find(passiveFamily) != std::string::npos)
                passive(variable.name, variable.value);
        }
        for (const auto& [machine, servos] : servos_)
            if (servos.active == 0)
                add(servos.first,
                    "is among those of machine " + machine
                        + ", of which all servos are passive: the menu is empty");
        shownMachine();
    }

private:
    // Of a machine, by what its flags say.
    struct Servos {
        int active = 0;
        std::string first; // name of its first flag
    };

    void add(const std::string& name, const std::string& what)
    {
        asked_.troubled.insert(name);
        findings_.add("project.json", project_.lineOfVariable(name), "variable \"" + name + "\" " + what);
    }

    const Variant* valueOf(std::string_view name) const
    {
        for (const auto& variable : project_.file.variables)
            if (variable.name == name) return &variable.value;
        return nullptr;
    }

    // Nine digits, as the page shows them.
    void drawings(const std::string& name, const Variant& value)
    {
        const auto* const array = value.get<basic::Array>();
        if (machine::familyOf(name) != families::drawings || array == nullptr) return;
        for (const Variant& element : array->elements) {
            constexpr double most = 999'999'999;
            const std::optional<double> number = numberOf(&element);
            if (number && (*number < 0 || *number > most || *number != std::floor(*number)))
                add(name,
                    "has " + basic::decimal(*number)
                        + ", which is no drawing number of up to nine digits: the operator sees another one");
        }
    }

    void switchWord(const std::string& name, const Variant& value)
    {
        if (machine::familyOf(name) != families::switches) return;
        const std::optional<double> number = numberOf(&value);
        constexpr double most = 15;
        if (number && (*number < 0 || *number > most))
            add(name,
                "is " + basic::decimal(*number)
                    + ", of which only the lowest four bits are switches: the others are 0 after the first "
                      "change");
    }

    void passive(const std::string& name, const Variant& value)
    {
        const std::size_t end = name.find(servoPart);
        const std::size_t start = name.find('.') + 1;
        const std::optional<double> number = numberOf(&value);
        if (!isFlag(value)) add(name, "is neither true nor false: the servo is not shown");
        if (end == std::string::npos || start >= end) return;
        Servos& servos = servos_[name.substr(start, end - start)];
        if (servos.first.empty()) servos.first = name;
        if (isFlag(value) && number == 0) ++servos.active;
    }

    // What the panel begins with. Nothing is said of a variable that there is not: whoever misses it says so.
    void shownMachine()
    {
        const std::optional<double> machine = numberOf(valueOf(machineVariable));
        if (!machine) return;
        if (*machine < 1 || *machine > static_cast<double>(asked_.machines)) {
            add(std::string{machineVariable},
                "must be from 1 to " + std::to_string(asked_.machines)
                    + ", the number of the machine that is shown: the panel finds no servos");
            return;
        }
        std::string bez{designation};
        bez.append(basic::decimal(basic::roundToInt32(*machine))).append(">");
        const Variant* const name = valueOf(bez);
        const std::optional<double> servo = numberOf(valueOf(servoVariable));
        if (!servo || name == nullptr || name->holds<basic::Array>()) return;
        int count = 0;
        for (const jet::ServoName& each : asked_.servos)
            if (each.machine == basic::toText(*name)) ++count;
        if (count > 0 && (*servo < 0 || *servo > count))
            add(std::string{servoVariable},
                "must be 0 for the menu or from 1 to " + std::to_string(count)
                    + ", the place of a servo: the panel begins with a servo that there is not");
    }

    const CheckedProject& project_;
    Asked& asked_;
    Findings& findings_;
    std::map<std::string, Servos> servos_; // by designation of the machine
};

} // namespace

void checkValues(const CheckedProject& project, Asked& asked, Findings& findings)
{
    ValuesCheck{project, asked, findings}.run();
}

} // namespace servopanel::check
