#include "check/hidden_items.h"

#include "basic/conversions.h"
#include "basic/error.h"
#include "basic/text.h"
#include "jet/servo_defs/definition_list.h"
#include "jet/servo_defs/servo_parameter.h"
#include "machine/servo_families.h"
#include "machine/texts.h"
#include "portable/trimming.h"

#include <array>
#include <map>
#include <set>
#include <string>
#include <string_view>

namespace servopanel::check {

namespace {

namespace families = machine::families;

// The elements of a family, as items of the page.
struct Items {
    std::string_view family;
    int count;
    const char* name; // "setpoint"
    int first; // by which people count them
    int firstText; // number of the first one's language text
};

constexpr std::array groups{
    Items{families::setpoints, 20, "setpoint", 1, 1},
    Items{families::secondSetpoints, 4, "setpoint", 21, 21},
    Items{families::switches, 4, "switch", 1, 25},
    Items{families::drawings, 2, "drawing number", 1, 35},
};

using Elements = std::set<std::pair<std::string_view, int>>; // family and element

// What each servo has rows for.
std::map<jet::ServoName, Elements> definedItems(const std::vector<jet::DefinitionRow>& rows)
{
    std::map<jet::ServoName, Elements> defined;
    for (const jet::DefinitionRow& row : rows) {
        const auto parameter = jet::servoParameter(jet::plainText(row.variable));
        if (!parameter) continue;
        try {
            defined[parameter->servo].emplace(parameter->family, basic::toInt16(row.element));
        } catch (const basic::Error&) {
            // A row without its element is a finding of its own.
        }
    }
    return defined;
}

class HiddenItems {
public:
    explicit HiddenItems(const CheckedProject& project)
    {
        for (const auto& language : project.file.languages)
            texts_.push_back(machine::Texts::load(project.folder / "Texts" / (language.code + ".txt")));
    }

    // "setpoint 3", "switch 1" of a servo: named, and not among what is defined.
    std::vector<std::string> find(const jet::ServoName& servo, const Elements& defined) const
    {
        std::vector<std::string> hidden;
        const std::string keys = "Servo." + servo.machine + ".Servo" + servo.number + ".";
        for (const Items& items : groups)
            for (int element = 0; element < items.count; ++element)
                if (!defined.contains({items.family, element})
                    && isNamed(keys + std::to_string(items.firstText + element)))
                    hidden.push_back(items.name + (' ' + std::to_string(items.first + element)));
        return hidden;
    }

private:
    // Behind the ";" stands the unit.
    bool isNamed(const std::string& key) const
    {
        for (const machine::Texts& texts : texts_) {
            const std::string text = texts.text(key);
            if (!portable::trimBlanks(std::string_view{text}.substr(0, text.find(';'))).empty()) return true;
        }
        return false;
    }

    std::vector<machine::Texts> texts_;
};

} // namespace

void checkHiddenItems(const CheckedProject& project, const Asked& asked,
    const std::vector<jet::DefinitionRow>& rows, Findings& findings)
{
    const std::map<jet::ServoName, Elements> defined = definedItems(rows);
    const HiddenItems items{project};
    for (const jet::ServoName& servo : asked.servos) {
        const auto own = defined.find({basic::upperCase(servo.machine), servo.number});
        if (own == defined.end()) continue;
        const std::vector<std::string> hidden = items.find(servo, own->second);
        if (hidden.empty()) continue;
        findings.add("Servo/Servo.mdb", 0,
            "servo " + servo.number + " of machine " + servo.machine + " has names but no definitions for "
                + listed(hidden) + ": the operator does not see them");
    }
}

} // namespace servopanel::check
