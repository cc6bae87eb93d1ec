#include "basic/conversions.h"
#include "basic/error.h"
#include "recording/memory/sibling_controls.h"
#include "recording/scenario/player.h"
#include "recording/trace/boolean_members.h"
#include "recording/trace/value_text.h"

#include <charconv>

namespace servopanel::recording {

namespace {

using platform::ChildId;

// "SollwertL(5)" and what follows; false when the text has not that form.
struct NameAndIndex {
    std::string_view name;
    std::int16_t index = ChildId::noIndex;

    explicit NameAndIndex(std::string_view text)
        : name{text}
    {
        const std::size_t bracket = text.find('(');
        if (bracket == std::string_view::npos || text.back() != ')') return;
        const std::string_view digits = text.substr(bracket + 1, text.size() - bracket - 2);
        const auto result = std::from_chars(digits.data(), digits.data() + digits.size(), index);
        if (result.ec != std::errc{} || result.ptr != digits.data() + digits.size()) index = ChildId::noIndex;
        name = text.substr(0, bracket);
    }
};

// A property by its name, or by its dispatch id in decimal or as 0x... .
platform::Member memberOf(std::string_view text)
{
    std::string_view digits = text;
    int base = 10;
    if (digits.substr(0, 2) == "0x") {
        digits.remove_prefix(2);
        base = 16;
    }
    std::int64_t id = 0;
    const auto result = std::from_chars(digits.data(), digits.data() + digits.size(), id, base);
    if (digits.empty() || result.ec != std::errc{} || result.ptr != digits.data() + digits.size())
        return platform::named(text);
    return platform::property(static_cast<std::uint32_t>(id), text);
}

// What the footer shows on a key: the operation's id with the key in brackets.
std::optional<basic::Variant> valueOf(MemoryControl& control, std::string_view id)
{
    if (const auto* footer = dynamic_cast<const MemoryFooter*>(&control)) {
        const NameAndIndex key{id};
        if (key.index != ChildId::noIndex) return footer->setting(memberOf(key.name), key.index);
    }
    try {
        return control.get(memberOf(id), {});
    } catch (const basic::Error&) {
        return std::nullopt;
    }
}

} // namespace

std::optional<basic::Variant> Player::state(const std::string& what)
{
    if (what == "ErrorDisplay.Last") return basic::Variant{world().lastReport};
    if (host_.servo() == nullptr) return std::nullopt;

    const std::size_t point = what.find('.');
    const std::string_view first = std::string_view{what}.substr(0, point);
    const std::string_view rest = std::string_view{what}.substr(point + 1);
    if (first == "Servo") return valueOf(host_.servo()->self(), rest);

    if (ControlInstance* owner = part(first)) {
        const std::string_view object = rest.substr(0, rest.find('.'));
        const NameAndIndex child{object};
        if (const auto control = owner->form().find(ChildId{child.name, child.index});
            control && object.size() < rest.size())
            return valueOf(*control, rest.substr(object.size() + 1));
    }
    const NameAndIndex child{first};
    const auto control = host_.servo()->form().find(ChildId{child.name, child.index});
    return control ? valueOf(*control, rest) : std::nullopt;
}

void Player::tellState(const std::string& what)
{
    const std::optional<basic::Variant> value = state(what);
    const std::string id = what.substr(what.rfind('.') + 1);
    // -1 and 0 of BildInit and BildShow are Booleans here as in every other line.
    const ValueKind kind = propertyKind({}, memberOf(id));
    sink_.line("state " + what + (value ? " = " + valueText(*value, paths_, kind) : " failed"));
}

void Player::tellVariables()
{
    for (const std::string& name : world().variables.written())
        sink_.line("state var " + name + " = " + valueText(*world().variables.find(name), paths_));
}

} // namespace servopanel::recording
