#include "monkey/rules.h"

#include "basic/conversions.h"
#include "basic/error.h"
#include "monkey/project.h"
#include "servo_page/felder.h"

#include <algorithm>
#include <array>
#include <utility>

namespace servopanel::monkey {

namespace {

using servo_page::familien::Geaendert;

// Of the servo that is shown, among the servos.
constexpr std::string_view placeVariable = "Ch-1.intern<.servo_zeiger>";

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

// How many places in the list of servos the operation goes on.
int stepOf(const TraceBlock& block)
{
    if (isOneOf(block.operation, {"key 5", "key! 5"})) return -1;
    return isOneOf(block.operation, {"key 6", "key! 6"}) ? 1 : 0;
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
    if (write.name != placeVariable || isConfirmKey(block)) return wrong;
    if (!value) return std::nullopt;
    const int told = basic::toInt32(*value);
    const bool leaves = isOneOf(block.operation, {"key 9", "key 11", "key 31", "menukey 11", "menukey 31"});
    // At its start the panel takes over whatever place is remembered.
    if (told > static_cast<int>(std::size(servos)) || (leaves && told != 0))
        return wrong + " as " + std::to_string(told);
    return std::nullopt;
}

// Whether the family could not be read when the confirm was about to write it. The page reads it before that as well, to
// show what the machine holds, and afterwards anew.
bool isUnreadable(const TraceBlock& block, std::string_view name, std::string_view flag)
{
    bool isFailed = false;
    for (const std::string_view line : block.lines) {
        if (line.starts_with(flag)) break;
        if (const auto read = accessOf(line, "read "); read && read->name == name) isFailed = !read->value;
    }
    return isFailed;
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
    wasInputOpen_ = screen_.isShown() && screen_.isSeen("ServoMain") && screen_.isInputOpen();
    takesEveryNumber_ = wasInputOpen_ && screen_.takesEveryNumber();
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
    written_.clear();
    confirmed_ = edits_.changed();
    const int servo = edits_.servo();
    if (const auto wrong = edits_.begin(block, isOperators, takesEveryNumber_)) return wrong;
    const bool isConfirm = edits_.isConfirm();
    for (std::size_t i = 0; i < block.lines.size(); ++i) {
        const std::string_view line = block.lines[i];
        if (line.starts_with("error 51 ")) return "an internal error: " + std::string{line};
        const auto write = accessOf(line, "write ");
        const auto access = write ? write : accessOf(line, "read ");
        if (access && !access->value && !block.isReported(i))
            return inQuotes(access->name) + " cannot be " + (write ? "written" : "read")
                + ", and nobody is told";
        if (write)
            if (const auto wrong = brokenWrite(*write, block)) return wrong;
        if (const auto wrong = edits_.line(block, line)) return wrong;
    }
    if (const auto wrong = brokenServo(block)) return wrong;
    if (isOperators)
        if (const auto wrong = unanswered(block)) return wrong;
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
    if (!name) {
        if (const auto wrong = brokenOther(write, block)) return wrong;
        return write.name == placeVariable ? brokenPlace(write, block) : std::nullopt;
    }
    if (name->written == nullptr && name->family != Geaendert)
        return inQuotes(write.name) + " is written by " + inQuotes(block.operation)
            + ", and nothing writes it";
    if (!isConfirmKey(block)) return inQuotes(write.name) + " is written by " + inQuotes(block.operation);
    if (!edits_.isConfirm())
        return inQuotes(write.name) + " is written by " + inQuotes(block.operation)
            + ", and nothing was entered";
    if (name->servo != edits_.servo())
        return inQuotes(write.name) + " is written on the page of servo " + std::to_string(edits_.servo());
    if (const auto wrong = brokenOrder(write)) return wrong;
    if (!write.value) {
        tally_.add(Tally::failedWrites);
        return std::nullopt;
    }
    return name->written == nullptr ? brokenFlag(write) : brokenParameters(write, *name);
}

// The machine takes the parameters over when it is told of them: what comes later it would get at another time.
std::optional<std::string> Rules::brokenOrder(const Access& write)
{
    const std::string flag = servoVariable(edits_.servo(), Geaendert);
    if (written_.count(flag) > 0) return inQuotes(write.name) + " is written after the confirm is over";
    if (!written_.emplace(write.name).second)
        return inQuotes(write.name) + " is written twice by one confirm";
    return std::nullopt;
}

// At the place that the panel tells the machine stands the servo whose parameters it reads. Without its list of servos,
// which can get lost, it reads none of them.
std::optional<std::string> Rules::brokenServo(const TraceBlock& block) const
{
    if (!place_ || *place_ < 1 || !block.has("write " + std::string{placeVariable})) return std::nullopt;
    const int servo = servos[*place_ - 1];
    const bool isListed = std::find(std::begin(servos), std::end(servos), edits_.servo()) != std::end(servos);
    if (edits_.servo() == servo || !isListed) return std::nullopt;
    return inQuotes(block.operation) + " leads to servo " + std::to_string(servo) + " and reads servo "
        + std::to_string(edits_.servo());
}

// A key that leads to the next servo leads to the one beside the one that was shown. Whoever leaves the page has the place
// forgotten, and the page keeps it for itself.
std::optional<std::string> Rules::brokenPlace(const Access& write, const TraceBlock& block)
{
    const std::optional<basic::Variant> value = write.value ? valueOf(*write.value) : std::nullopt;
    const std::optional<int> told =
        value ? std::optional{static_cast<int>(basic::toInt32(*value))} : std::nullopt;
    const int step = stepOf(block);
    if (step == 0 && told == 0) return std::nullopt;
    const std::optional<int> before = std::exchange(place_, told);
    if (step == 0 || !before || !told || *told == *before + step) return std::nullopt;
    return inQuotes(block.operation) + " leads from place " + std::to_string(*before) + " to place "
        + std::to_string(*told);
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
std::optional<std::string> Rules::unwritten(const TraceBlock& block)
{
    const int servo = edits_.servo();
    const std::string flag = "write " + servoVariable(servo, Geaendert);
    if (!block.has(flag))
        return inQuotes(block.operation) + " confirms, and does not tell servo " + std::to_string(servo);
    for (const std::int16_t field : confirmed_) {
        const Family& family = familyOf(field);
        const std::string name = servoVariable(servo, family.name);
        if (block.has("write " + name)) continue;
        if (isUnreadable(block, name, flag)) {
            tally_.add(Tally::unread);
            continue;
        }
        const auto before = held_.find(name);
        const Elements was = before == held_.end() ? Elements{} : elementsOf(family, before->second);
        if (static_cast<std::size_t>(field - family.firstField) < was.size())
            return inQuotes(name) + " was changed and confirmed, and is not written";
    }
    return std::nullopt;
}

// What the operator touches does something: the mask or the editor opens, the switch turns, or he is told why not. Where
// one of the two is open already, the page goes on with that.
std::optional<std::string> Rules::unanswered(const TraceBlock& block) const
{
    if (block.verb() != "touch" || block.isRefused || wasInputOpen_) return std::nullopt;
    for (const std::string_view answer : {"put ServoMain.Eingabemaske.0x68030000 = true",
             "put ServoMain.IniEingabe.0x68030009 = true", "put ServoMain.Schalter", "message "})
        if (block.has(answer)) return std::nullopt;
    return inQuotes(block.operation) + " does nothing";
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
