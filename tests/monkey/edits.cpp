#include "monkey/edits.h"

#include "basic/conversions.h"
#include "servo_page/felder.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdlib>
#include <utility>

namespace servopanel::monkey {

namespace {

constexpr std::string_view confirm = "key 10";
constexpr std::string_view maskOpens = "put ServoMain.Eingabemaske.0x68030000 = true";

bool isOneOf(std::string_view text, std::initializer_list<std::string_view> others)
{
    return std::find(others.begin(), others.end(), text) != others.end();
}

// Whether the operation may lead to another servo.
bool leadsOn(const TraceBlock& block)
{
    return isOneOf(block.operation, {"key 5", "key 6", "key! 5", "key! 6"})
        || isOneOf(block.verb(), {"create", "show", "menuup", "up", "menukey", "menukey!"});
}

// Whether the operation leaves alone what was entered before it. The mask and the confirm key have rules of their own.
bool leavesEdits(const TraceBlock& block)
{
    return isOneOf(block.verb(),
               {"", "touch", "mask", "timer", "language", "scroll", "pagescroll", "get", "vars", "poke"})
        || isOneOf(block.operation, {"key 1", "key 2", "key 3", "key 4", confirm, "key! 10"});
}

std::string itemText(std::int16_t item) { return std::to_string(item); }

} // namespace

std::int16_t itemOf(std::string_view operation)
{
    const std::size_t blank = operation.find_last_of(' ');
    if (blank == std::string_view::npos) return 0;
    return static_cast<std::int16_t>(std::atoi(std::string{operation.substr(blank + 1)}.c_str()));
}

std::optional<std::string> Edits::begin(const TraceBlock& block, bool isOperators, bool areAllNew)
{
    isOperators_ = isOperators;
    isConfirm_ = false;
    if (block.isRefused) return std::nullopt;
    if (block.verb() == "create") *this = {};
    if (!leavesEdits(block)) discard();
    if (block.operation == confirm || block.operation == "key! 10") {
        isConfirm_ = isWaiting();
        if (!isConfirm_) discard();
    }
    if (block.verb() == "mask") return mask(block, areAllNew || !isOperators);
    return std::nullopt;
}

std::optional<std::string> Edits::line(const TraceBlock& block, std::string_view line)
{
    if (block.isRefused) return std::nullopt;
    if (block.verb() == "touch") return touch(block, line);
    if (line.starts_with("read ")) return read(block, line);
    // Another servo, or the same one anew: until they are read the inputs show nothing of it.
    if (line.starts_with("write Ch-1.intern<.servo_zeiger>")) own_.clear();
    // With this the confirm is over; what is read from here on is shown everywhere.
    if (isConfirm_ && line.starts_with("write Ch1.") && line.find("_servoaender_") != std::string_view::npos)
        discard();
    return std::nullopt;
}

void Edits::end()
{
    if (isConfirm_) discard();
    isConfirm_ = false;
}

void Edits::discard()
{
    touched_.clear();
    changed_.clear();
    coloured_.clear();
    inMask_ = 0;
}

// A mask is left with a number or without; where nothing waits then, all is read anew.
std::optional<std::string> Edits::mask(const TraceBlock& block, bool areAllNew)
{
    const std::int16_t item = std::exchange(inMask_, std::int16_t{0});
    const std::string text{block.operation.substr(std::min<std::size_t>(5, block.operation.size()))};
    if (text != "cancel") {
        if (item == 0) return "'" + std::string{block.operation} + "' is taken, and no input was touched";
        const std::optional<basic::Variant> value = valueOf(text);
        const double number = value ? basic::toDouble(*value) : 0;
        const auto low = lowest_.find(item);
        const auto high = highest_.find(item);
        if ((low != lowest_.end() && number < low->second)
            || (high != highest_.end() && number > high->second))
            return "'" + std::string{block.operation} + "' is taken for input " + itemText(item)
                + ", and lies outside its limits";
        const auto shown = shown_.find(item);
        // An input that never showed a value is as good as 0 to the mask.
        // What the panel enters again after a failed confirm waits, also where the machine holds it by now.
        if (areAllNew || number != (shown == shown_.end() ? 0 : shown->second)) {
            shown_[item] = servo_page::istZeichnung(item) ? std::round(number) : number;
            own_.insert(item);
            changed_.insert(fieldOf(item));
            coloured_.insert(item);
        }
    }
    if (!isWaiting()) discard();
    return std::nullopt;
}

// The page takes a touch by opening the mask or by turning the switch; a touch that does neither has no effect.
std::optional<std::string> Edits::touch(const TraceBlock& block, std::string_view line)
{
    const std::int16_t item = itemOf(block.operation);
    if (servo_page::istSchalter(item)) {
        std::string state = "put ServoMain.";
        state.append(servo_page::schalterName(item)).append("(").append(std::to_string(item));
        state.append(").0x68030000 = ");
        if (!line.starts_with(state)) return std::nullopt;
        return turn(item, line.substr(state.size()));
    }
    if (line != maskOpens) return std::nullopt;
    inMask_ = item;
    touched_.insert(fieldOf(item));
    return std::nullopt;
}

std::optional<std::string> Edits::turn(std::int16_t field, std::string_view state)
{
    const double on = state == "true" ? 1 : 0;
    const auto shown = shown_.find(field);
    if (isOperators_ && own_.count(field) > 0 && shown != shown_.end() && shown->second == on)
        return "a touch leaves switch " + itemText(field) + " as it was";
    shown_[field] = on;
    touched_.insert(field);
    changed_.insert(field);
    return std::nullopt;
}

std::optional<std::string> Edits::read(const TraceBlock& block, std::string_view line)
{
    const std::optional<Access> access = accessOf(line, "read ");
    const std::optional<ServoName> name = access ? servoNameOf(access->name) : std::nullopt;
    if (!name || name->family == "_servopassiv_") return std::nullopt;
    if (name->servo != servo_) {
        if (servo_ != 0 && !leadsOn(block))
            return "'" + std::string{block.operation} + "' on the page of servo " + std::to_string(servo_)
                + " reads '" + std::string{access->name} + "'";
        servo_ = name->servo;
        own_.clear();
        lowest_.clear();
        highest_.clear();
    }
    if (!access->value) return std::nullopt;
    const auto isFamily = [&](std::string_view family) { return name->family == family; };
    const bool isLow =
        isFamily(servo_page::familien::SollwertUnten) || isFamily(servo_page::familien::Sollwert2Unten);
    const bool isHigh =
        isFamily(servo_page::familien::SollwertOben) || isFamily(servo_page::familien::Sollwert2Oben);
    if (name->written == nullptr && !isLow && !isHigh) return std::nullopt;
    const std::optional<basic::Variant> value = valueOf(*access->value);
    if (!value) return std::nullopt;
    const std::int16_t first = name->family.find("para2") != std::string_view::npos ? 21 : 1;
    if (name->written != nullptr) show(*name->written, elementsOf(*name->written, *value));
    if (isLow) limit(lowest_, first, elementsOf(*value));
    if (isHigh) limit(highest_, first, elementsOf(*value));
    return std::nullopt;
}

// Inputs that the operator has touched keep what they show.
void Edits::show(const Family& family, const Elements& values)
{
    const auto put = [&](std::int16_t item, const std::optional<double>& number) {
        if (!number) return;
        shown_[item] = *number;
        own_.insert(item);
    };
    for (std::size_t i = 0; i < values.size(); ++i) {
        const auto field = static_cast<std::int16_t>(family.firstField + static_cast<int>(i));
        if (touched_.count(field) > 0) continue;
        if (!servo_page::istZeichnung(field)) {
            put(field, values[i]);
            continue;
        }
        if (field > 42 || !values[i]) continue;
        const std::vector<double> parts = drawingParts(*values[i]);
        for (std::size_t part = 0; part < parts.size(); ++part)
            put(servo_page::zeichnungsItems(field)[part], parts[part]);
    }
}

void Edits::limit(std::map<std::int16_t, double>& limits, std::int16_t first, const Elements& values)
{
    for (std::size_t i = 0; i < values.size(); ++i) {
        const auto field = static_cast<std::int16_t>(first + static_cast<int>(i));
        if (values[i])
            limits[field] = *values[i];
        else
            limits.erase(field);
    }
}

std::optional<double> Edits::expected(std::int16_t field) const
{
    const auto own = [&](std::int16_t item) -> std::optional<double> {
        if (own_.count(item) == 0) return std::nullopt;
        return shown_.at(item);
    };
    if (touched_.count(field) == 0) return std::nullopt;
    if (!servo_page::istZeichnung(field)) return own(field);
    const std::array<std::int16_t, 3> items = servo_page::zeichnungsItems(field);
    const auto major = own(items[0]);
    const auto middle = own(items[1]);
    const auto minor = own(items[2]);
    if (!major || !middle || !minor) return std::nullopt;
    return drawingNumber(*major, *middle, *minor);
}

} // namespace servopanel::monkey
