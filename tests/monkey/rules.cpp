#include "monkey/rules.h"

#include "basic/conversions.h"
#include "basic/error.h"
#include "monkey/project.h"
#include "servo_page/felder.h"

#include <algorithm>
#include <array>

namespace servopanel::monkey {

namespace {

using servo_page::familien::Geaendert;

// What only a write may change, of each servo.
constexpr std::array<std::string_view, 9> kept{"_servo_para_", "_servo_para_un_", "_servo_para_ob_",
    "_servo_para2_", "_servo_para2_un_", "_servo_para2_ob_", "_servo_schalt_", "_servo_zeich_", Geaendert};

const std::array<std::array<std::string, kept.size()>, std::size(servos)>& keptNames()
{
    static const auto names = [] {
        std::array<std::array<std::string, kept.size()>, std::size(servos)> all;
        for (std::size_t servo = 0; servo < all.size(); ++servo)
            for (std::size_t family = 0; family < kept.size(); ++family)
                all[servo][family] = servoVariable(servos[servo], kept[family]);
        return all;
    }();
    return names;
}

std::string inQuotes(std::string_view text)
{
    std::string made{"'"};
    return made.append(text).append("'");
}

std::string numberText(const std::optional<double>& number)
{
    return number ? basic::toText(*number) : "nothing";
}

bool isOneOf(std::string_view text, std::initializer_list<std::string_view> others)
{
    return std::find(others.begin(), others.end(), text) != others.end();
}

// What is neither an input nor a change of the page.
bool staysOnPage(const TraceBlock& block)
{
    return isOneOf(block.verb(), {"touch", "mask", "ini", "timer", "language", "scroll", "pagescroll"})
        || isOneOf(block.operation, {"key 1", "key 2", "key 3", "key 4"});
}

bool isConfirmKey(const TraceBlock& block) { return isOneOf(block.operation, {"key 10", "key! 10"}); }

// What panel and machine tell each other, apart from parameters: where it may come from, and what it may be.
std::optional<std::string> brokenOther(const Access& write, const TraceBlock& block)
{
    const std::string wrong = inQuotes(write.name) + " is written by " + inQuotes(block.operation);
    if (staysOnPage(block)) return wrong;
    const std::optional<basic::Variant> value = write.value ? valueOf(*write.value) : std::nullopt;
    if (write.value && !value) return wrong + ", and it is no value";
    if (write.name == "Ch-1.intern<.ocxname>") {
        if (value && *value != basic::Variant{"Servo"}) return wrong + " with another name";
        return std::nullopt;
    }
    if (write.name == "Ch-1.intern<.navi_password_countdown>")
        return block.verb() == "create" ? std::nullopt : std::optional{wrong};
    if (write.name != "Ch-1.intern<.servo_zeiger>" || isConfirmKey(block)) return wrong;
    if (!value) return std::nullopt;
    const int place = basic::toInt32(*value);
    const bool leaves = isOneOf(block.operation, {"key 9", "key 11", "key 31", "menukey 11", "menukey 31"});
    // At its start the panel takes over whatever place is remembered.
    if (place > static_cast<int>(std::size(servos)) || (leaves && place != 0))
        return wrong + " as " + std::to_string(place);
    return std::nullopt;
}

} // namespace

Rules::Rules(Screen& screen)
    : screen_{screen}
{
    // What is shared by all rules is made now, so that memory that is counted later on does not seem to grow.
    keptNames();
}

void Rules::before()
{
    for (const auto& names : keptNames())
        for (const std::string& name : names) {
            const basic::Variant* const value = screen_.variable(name);
            if (value == nullptr)
                held_.erase(name);
            else
                held_.insert_or_assign(name, *value);
        }
}

std::optional<std::string> Rules::broken(std::string_view trace)
{
    bool isFirst = true;
    bool wasOperated = false;
    for (const TraceBlock& block : blocksOf(trace)) {
        if (block.operation.empty() && block.lines.empty()) continue;
        if (const auto wrong = brokenBlock(block, isFirst)) return wrong;
        if (!block.operation.empty()) isFirst = false;
        wasOperated = wasOperated || !block.operation.empty();
    }
    if (wasOperated)
        if (const auto wrong = changedAlone(trace)) return wrong;
    return brokenScreen();
}

std::optional<std::string> Rules::brokenBlock(const TraceBlock& block, bool isOperators)
{
    hasTold_ = false;
    confirmed_ = edits_.changed();
    const int servo = edits_.servo();
    if (const auto wrong = edits_.begin(block, isOperators)) return wrong;
    const bool isConfirm = edits_.isConfirm();
    for (const std::string_view line : block.lines) {
        if (line.starts_with("error 51 ")) return "an internal error: " + std::string{line};
        if (const auto write = accessOf(line, "write "))
            if (const auto wrong = brokenWrite(*write, block)) return wrong;
        if (const auto wrong = edits_.line(block, line)) return wrong;
    }
    if (isConfirm) {
        if (const auto wrong = unwritten(block)) return wrong;
        tally_.add(Tally::confirms, std::to_string(servo));
    }
    edits_.end();
    count(block);
    return std::nullopt;
}

std::optional<std::string> Rules::brokenWrite(const Access& write, const TraceBlock& block)
{
    if (block.isRefused)
        return inQuotes(write.name) + " is written by " + inQuotes(block.operation) + ", which was refused";
    const std::optional<ServoName> name = servoNameOf(write.name);
    if (!name) return brokenOther(write, block);
    if (name->written == nullptr && name->family != Geaendert)
        return inQuotes(write.name) + " is written by " + inQuotes(block.operation)
            + ", and nothing writes it";
    if (!isConfirmKey(block)) return inQuotes(write.name) + " is written by " + inQuotes(block.operation);
    if (!edits_.isConfirm()) {
        if (hasTold_) return inQuotes(write.name) + " is written after the confirm is over";
        return inQuotes(write.name) + " is written by " + inQuotes(block.operation)
            + ", and nothing was entered";
    }
    if (name->servo != edits_.servo())
        return inQuotes(write.name) + " is written on the page of servo " + std::to_string(edits_.servo());
    if (!write.value) {
        tally_.add(Tally::failedWrites);
        return block.has("error ")
            ? std::nullopt
            : std::optional{inQuotes(write.name) + " cannot be written, and nobody is told"};
    }
    if (name->written == nullptr) {
        hasTold_ = true;
        return brokenFlag(write);
    }
    return brokenParameters(write, *name);
}

std::optional<std::string> Rules::brokenFlag(const Access& write) const
{
    const std::optional<basic::Variant> value = valueOf(*write.value);
    if (!value || basic::toInt32(*value) != 1) return inQuotes(write.name) + " is written, and not as 1";
    return std::nullopt;
}

// What the machine is given is what it held, but for the fields that the operator touched; those get what he entered.
std::optional<std::string> Rules::brokenParameters(const Access& write, const ServoName& name)
{
    const std::optional<basic::Variant> value = valueOf(*write.value);
    const auto before = held_.find(write.name);
    const basic::Variant* const now = screen_.variable(write.name);
    if (!value || now == nullptr || before == held_.end())
        return inQuotes(write.name) + " came out of nothing";
    const Elements is = elementsOf(*name.written, *value);
    if (is != elementsOf(*name.written, *now))
        return inQuotes(write.name) + " is held otherwise than it was written";
    const Elements was = elementsOf(*name.written, before->second);
    if (is.size() != was.size()) return inQuotes(write.name) + " has another length";
    if (const auto wrong = brokenElements(write, *name.written, is, was)) return wrong;
    for (std::size_t i = 0; i < is.size(); ++i) {
        const auto field = static_cast<std::int16_t>(name.written->firstField + static_cast<int>(i));
        if (confirmed_.count(field) > 0) tally_.add(Tally::values, name.written->inWords);
    }
    return std::nullopt;
}

std::optional<std::string> Rules::brokenElements(
    const Access& write, const Family& family, const Elements& is, const Elements& was) const
{
    for (std::size_t i = 0; i < is.size(); ++i) {
        const auto field = static_cast<std::int16_t>(family.firstField + static_cast<int>(i));
        const std::string place = "element " + std::to_string(i) + " of " + inQuotes(write.name);
        if (!edits_.isTouched(field)) {
            if (is[i] != was[i]) return "nobody touched " + place;
            continue;
        }
        const std::optional<double> expected = edits_.expected(field);
        if (is[i] != (expected ? expected : was[i]))
            return place + " is written as " + numberText(is[i]) + ", and the operator meant "
                + numberText(expected ? expected : was[i]);
    }
    return std::nullopt;
}

// Everything that was entered is written, unless the machine does not answer or holds nothing that it could go into.
std::optional<std::string> Rules::unwritten(const TraceBlock& block) const
{
    const int servo = edits_.servo();
    const std::string flag = "write " + servoVariable(servo, Geaendert);
    if (!block.has(flag))
        return inQuotes(block.operation) + " confirms, and does not tell servo " + std::to_string(servo);
    for (const std::int16_t field : confirmed_) {
        const Family& family = familyOf(field);
        const std::string name = servoVariable(servo, family.name);
        if (block.has("write " + name) || block.has("read " + name + " failed")) continue;
        const auto before = held_.find(name);
        const Elements was = before == held_.end() ? Elements{} : elementsOf(family, before->second);
        if (static_cast<std::size_t>(field - family.firstField) < was.size())
            return inQuotes(name) + " was changed and confirmed, and is not written";
    }
    return std::nullopt;
}

std::optional<std::string> Rules::changedAlone(std::string_view trace) const
{
    for (const auto& [name, before] : held_) {
        const basic::Variant* const now = screen_.variable(name);
        if (now != nullptr && *now == before) continue;
        std::string line = "\nwrite ";
        line.append(name).append(" = ");
        if (trace.find(line) == std::string_view::npos)
            return inQuotes(name) + " has changed, and nothing wrote it";
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
    if (!page) return std::nullopt;
    if (const auto wrong = brokenMarks()) return wrong;
    const bool isOffered = screen_.offersConfirm();
    if (isOffered && !edits_.isWaiting()) return "a confirm is offered, and nothing was entered";
    if (edits_.isWaiting() && !isOffered) return "something was entered, and nothing offers to confirm it";
    if (isOffered && !screen_.isInputOpen() && !screen_.isConfirmOn())
        return "a confirm is offered, and its key is off";
    return std::nullopt;
}

// An operator confirms what he sees marked: a mark too many has him look for a change that is none, one too few hides one.
std::optional<std::string> Rules::brokenMarks()
{
    const std::set<std::int16_t> marked = screen_.marked();
    for (const std::int16_t item : marked)
        if (edits_.coloured().count(item) == 0)
            return "input " + std::to_string(item) + " is marked as changed, and nothing was entered there";
    for (const std::int16_t item : edits_.coloured())
        if (marked.count(item) == 0)
            return "a number was entered in input " + std::to_string(item) + ", and it is not marked";
    return std::nullopt;
}

void Rules::count(const TraceBlock& block)
{
    if (block.isRefused) {
        tally_.add(Tally::refused);
        return;
    }
    if (block.verb() == "ini" && block.operation != "ini cancel") tally_.add(Tally::editors);
    if (block.verb() == "pagescroll" || block.verb() == "scroll") tally_.add(Tally::scrolls);
    if (isOneOf(block.operation, {"key 7", "key 8"})) tally_.add(Tally::diagnosis);
    if (block.operation == "key 11" && !confirmed_.empty()) tally_.add(Tally::discards);
}

} // namespace servopanel::monkey
