#include "monkey/rules.h"

#include "basic/conversions.h"
#include "basic/error.h"
#include "platform/ids.h"
#include "servo_page/felder.h"

#include <array>
#include <sstream>
#include <vector>

namespace servopanel::monkey {

namespace {

namespace ids = platform::ids;
using platform::ChildId;

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

} // namespace

void Rules::before()
{
    held_.clear();
    for (const int servo : servos)
        for (const std::string_view family : families)
            if (const basic::Variant* value = replay_.host().world().variables.find(variable(servo, family)))
                held_.emplace(variable(servo, family), *value);
}

std::optional<std::string> Rules::broken(const std::string& command, const std::string& trace)
{
    std::istringstream words{command};
    std::string verb;
    words >> verb;
    if (verb == "touch" && trace.find("refused") == std::string::npos) {
        std::string control;
        std::int16_t field = 0;
        words >> control >> field;
        touched_.insert(elementOf(field));
    }

    std::istringstream lines{trace};
    for (std::string line; std::getline(lines, line);) {
        if (startsWith(line, "error 51 ")) return "an internal error: " + line;
        if (!startsWith(line, "write ")) continue;
        const std::string name =
            line.substr(6, line.find(line.find(" = ") == std::string::npos ? " failed" : " = ") - 6);
        if (const auto wrong = brokenWrite(name, command)) return wrong;
    }
    const bool isRefused = trace.find("\nrefused") != std::string::npos;
    if ((command == "key 10" || command == "key 11") && !isRefused) touched_.clear();

    if (verb == "terminate" || verb == "create") {
        shown_ = false;
        touched_.clear();
    }
    if (verb == "show" && replay_.host().servo() != nullptr) shown_ = true;
    return brokenScreen();
}

// What the machine is given is what it held, but for the elements that the operator touched.
std::optional<std::string> Rules::brokenWrite(std::string_view name, const std::string& command)
{
    const bool isFlag = name.find("_servoaender_") != std::string_view::npos;
    const auto family = familyOf(name);
    if (!family && !isFlag) return std::nullopt;
    if (command != "key 10") return "'" + std::string{name} + "' is written by '" + command + "'";
    if (isFlag) return std::nullopt;

    const basic::Variant* const now = replay_.host().world().variables.find(name);
    const auto before = held_.find(name);
    if (now == nullptr || before == held_.end()) return "'" + std::string{name} + "' came out of nothing";
    const std::vector<double> is = elementsOf(*family, *now);
    const std::vector<double> was = elementsOf(*family, before->second);
    if (is.size() != was.size()) return "'" + std::string{name} + "' has another length";
    for (std::size_t i = 0; i < is.size(); ++i) {
        const std::string changed = element(*family, static_cast<int>(i));
        if (is[i] != was[i] && touched_.count(changed) == 0)
            return "nobody touched element " + std::to_string(i) + " of '" + std::string{name} + "'";
    }
    return std::nullopt;
}

std::optional<std::string> Rules::brokenScreen()
{
    if (replay_.host().servo() == nullptr || !shown_) return std::nullopt;
    const bool page = isSeen("ServoMain");
    const bool menu = isSeen("ServoMenu");
    if (page && menu) return "page and menu are to be seen at once";
    if (!page && !menu) return "neither page nor menu is to be seen";
    if (page && isAnyMarked()) {
        replay_.run("get ServoMain.Fußzeile.0x68030007(10)");
        if (replay_.lines("state").find("OK.wmf") == std::string::npos)
            return "an input is marked as changed, and nothing offers to confirm it";
    }
    return std::nullopt;
}

bool Rules::isSeen(std::string_view part) const
{
    const auto control = replay_.host().servo()->form().find(ChildId{part});
    return control && control->isShown();
}

bool Rules::isAnyMarked() const
{
    bool found = false;
    auto* const page = replay_.host().servo()->inner("ServoMain");
    if (page == nullptr) return false;
    page->form().forEach([&](const ChildId& id, recording::MemoryControl& control) {
        const bool isSetpoint = id.name == "SollwertL" || id.name == "SollwertR";
        const bool isDrawing = id.name == "ZeichnungL" || id.name == "ZeichnungR";
        if (!isSetpoint && !isDrawing) return;
        const basic::Variant colour =
            control.get(isSetpoint ? ids::VWSVarIn::Vordergrund : ids::VWSIndex::Farbe);
        if (colour.get<std::int32_t>() && *colour.get<std::int32_t>() == servo_page::farben::Grün)
            found = true;
    });
    return found;
}

} // namespace servopanel::monkey
