#include "monkey/rules.h"

#include "basic/conversions.h"
#include "basic/error.h"
#include "servo_page/felder.h"

#include <array>
#include <sstream>
#include <vector>

namespace servopanel::monkey {

namespace {

constexpr std::array<std::string_view, 4> families{
    "_servo_para2_", "_servo_para_", "_servo_schalt_", "_servo_zeich_"};
constexpr std::array servos{3, 5, 7};

std::string variable(int servo, std::string_view family)
{
    const std::string number = std::to_string(servo);
    return "Ch1.M1_T_servo_" + number + "<.mM1" + std::string{family} + number + ">";
}

// The family of a parameter; nothing for limits, flags and what is not a servo's.
std::optional<std::string_view> familyOf(std::string_view name)
{
    for (const std::string_view family : families)
        for (const int servo : servos)
            if (name == variable(servo, family)) return family;
    return std::nullopt;
}

std::string element(std::string_view family, int number)
{
    return std::string{family} + " " + std::to_string(number);
}

// Where the value of a field or drawing item goes.
std::string elementOf(std::int16_t field)
{
    if (servo_page::istZeichnung(field))
        return element("_servo_zeich_", servo_page::istZeichnungLinks(field) ? 0 : 1);
    if (servo_page::istSchalter(field)) return element("_servo_schalt_", field - 31);
    if (field > 20) return element("_servo_para2_", field - 21);
    return element("_servo_para_", field - 1);
}

// All elements of a value as numbers; of a switch word the four bits that are switches.
std::vector<double> elementsOf(std::string_view family, const basic::Variant& value)
{
    std::vector<double> found;
    if (family == "_servo_schalt_") {
        const std::int32_t word = basic::toInt32(value);
        for (int bit = 0; bit < 4; ++bit)
            found.push_back((word >> bit) & 1);
        return found;
    }
    for (std::int32_t i = 0;; ++i)
        try {
            found.push_back(basic::toDouble(basic::element(value, i)));
        } catch (const basic::Error&) {
            return found;
        }
}

bool startsWith(std::string_view line, std::string_view start)
{
    return line.substr(0, start.size()) == start;
}

bool isFlag(std::string_view name) { return name.find("_servoaender_") != std::string_view::npos; }

} // namespace

bool isWrittenByConfirm(std::string_view name) { return isFlag(name) || familyOf(name).has_value(); }

void Rules::before()
{
    held_.clear();
    for (const int servo : servos)
        for (const std::string_view family : families)
            if (const basic::Variant* value = screen_.variable(variable(servo, family)))
                held_.emplace(variable(servo, family), *value);
}

std::optional<std::string> Rules::broken(const std::string& trace)
{
    std::istringstream lines{trace};
    std::string operation;
    for (std::string line; std::getline(lines, line);) {
        if (startsWith(line, "> ")) {
            ends(operation);
            operation = line.substr(2);
        }
        if (startsWith(line, "refused ")) operation.clear();
        if (startsWith(line, "error 51 ")) return "an internal error: " + line;
        if (!startsWith(line, "write ")) continue;
        const std::string name =
            line.substr(6, line.find(line.find(" = ") == std::string::npos ? " failed" : " = ") - 6);
        if (const auto wrong = brokenWrite(name, operation)) return wrong;
    }
    ends(operation);
    return brokenScreen();
}

// What the operation means for what may be written by the next ones.
void Rules::ends(const std::string& operation)
{
    std::istringstream words{operation};
    std::string verb;
    words >> verb;
    if (verb == "touch") {
        std::string control;
        std::int16_t field = 0;
        words >> control >> field;
        touched_.insert(elementOf(field));
    }
    if (operation == "key 10" || operation == "key 11" || verb == "terminate" || verb == "create")
        touched_.clear();
}

// What the machine is given is what it held, but for the elements that the operator touched.
std::optional<std::string> Rules::brokenWrite(std::string_view name, const std::string& operation)
{
    if (!isWrittenByConfirm(name)) return std::nullopt;
    if (operation != "key 10") return "'" + std::string{name} + "' is written by '" + operation + "'";
    if (isFlag(name)) return std::nullopt;

    const std::string_view family = *familyOf(name);
    const basic::Variant* const now = screen_.variable(name);
    const auto before = held_.find(name);
    if (now == nullptr || before == held_.end()) return "'" + std::string{name} + "' came out of nothing";
    const std::vector<double> is = elementsOf(family, *now);
    const std::vector<double> was = elementsOf(family, before->second);
    if (is.size() != was.size()) return "'" + std::string{name} + "' has another length";
    for (std::size_t i = 0; i < is.size(); ++i) {
        const std::string changed = element(family, static_cast<int>(i));
        if (is[i] != was[i] && touched_.count(changed) == 0)
            return "nobody touched element " + std::to_string(i) + " of '" + std::string{name} + "'";
    }
    return std::nullopt;
}

std::optional<std::string> Rules::brokenScreen()
{
    if (!screen_.isShown()) return std::nullopt;
    const bool page = screen_.isSeen("ServoMain");
    const bool menu = screen_.isSeen("ServoMenu");
    if (page && menu) return "page and menu are to be seen at once";
    if (!page && !menu) return "neither page nor menu is to be seen";
    if (page && screen_.isAnyMarked() && !screen_.offersConfirm())
        return "an input is marked as changed, and nothing offers to confirm it";
    return std::nullopt;
}

} // namespace servopanel::monkey
