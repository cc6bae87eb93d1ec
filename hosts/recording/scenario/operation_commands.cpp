#include "recording/scenario/commands.h"
#include "recording/scenario/player.h"

#include <algorithm>
#include <iterator>
#include <limits>
#include <string>

namespace servopanel::recording {

namespace {

constexpr std::int16_t lowest16 = std::numeric_limits<std::int16_t>::min();
constexpr std::int16_t highest16 = std::numeric_limits<std::int16_t>::max();

constexpr std::string_view page = "ServoMain";
constexpr std::string_view menu = "ServoMenu";
constexpr std::string_view inputs[]{
    "SollwertL", "SollwertR", "SchalterL", "SchalterR", "ZeichnungL", "ZeichnungR"};
constexpr std::string_view keyParts[]{"Beschriftung", "BildIm"};

template <std::size_t Count>
std::string oneOf(const std::string_view (&names)[Count], std::string name)
{
    if (std::find(std::begin(names), std::end(names), name) == std::end(names))
        throw Malformed{"'" + name + "' cannot be touched here"};
    return name;
}

Action touch(LineReader& line)
{
    const std::string control = oneOf(inputs, line.word("the input's name"));
    const std::int16_t index = line.whole("the input's index", lowest16, highest16);
    return [control, index](Player& player) { player.touch(control, index); };
}

Action mask(LineReader& line)
{
    if (line.peek() == "cancel") {
        line.word({});
        return [](Player& player) { player.cancelMask(); };
    }
    return [value = line.value("the value")](Player& player) { player.acceptMask(value); };
}

Action ini(LineReader& line)
{
    if (line.peek() == "cancel") {
        line.word({});
        return [](Player& player) { player.cancelEditor(); };
    }
    const double low = line.number("the lower limit");
    const double high = line.number("the upper limit");
    const std::int16_t pass = line.whole("the access level", lowest16, highest16);
    return [low, high, pass](Player& player) { player.confirmEditor(low, high, pass); };
}

Action key(LineReader& line, std::string_view owner, bool evenWhenOff)
{
    const std::int16_t number = line.whole("the key's number", lowest16, highest16);
    return [=](Player& player) { player.key(owner, number, evenWhenOff); };
}

Action pointer(LineReader& line, std::string_view event)
{
    const auto x = static_cast<float>(line.number("X"));
    const auto y = static_cast<float>(line.number("Y"));
    return [=](Player& player) { player.pointer({}, platform::ChildId::noIndex, event, x, y); };
}

Action keyPointer(LineReader& line, std::string_view event)
{
    const std::string control = oneOf(keyParts, line.word("the name of a caption or picture"));
    const std::int16_t index = line.whole("its index", lowest16, highest16);
    const auto x = static_cast<float>(line.number("X"));
    const auto y = static_cast<float>(line.number("Y"));
    return [=](Player& player) { player.pointer(control, index, event, x, y); };
}

Action scroll(LineReader& line, std::string_view owner)
{
    const std::int16_t position = line.whole("the position", 1, highest16);
    return [=](Player& player) { player.scroll(owner, position); };
}

Action poke(LineReader& line)
{
    if (line.word("'modified'") != "modified") throw Malformed{"only 'modified' can be poked"};
    const std::int16_t number = line.whole("the number", lowest16, highest16);
    return [number](Player& player) { player.pokeModified(number); };
}

Action language(LineReader& line)
{
    const std::int16_t number = line.whole("the language", lowest16, highest16);
    return [number](Player& player) { player.language(number); };
}

Action state(LineReader& line)
{
    const std::string what = line.word("OBJECT.ID");
    if (what.find('.') == std::string::npos) throw Malformed{"'" + what + "' is not OBJECT.ID"};
    return [what](Player& player) { player.tellState(what); };
}

struct Row {
    std::string_view name;
    Action (*parse)(LineReader& line);
};
constexpr Row rows[]{
    {"create", [](LineReader&) -> Action { return [](Player& player) { player.create(); }; }},
    {"show", [](LineReader&) -> Action { return [](Player& player) { player.show(); }; }},
    {"terminate", [](LineReader&) -> Action { return [](Player& player) { player.terminate(); }; }},
    {"touch", touch},
    {"mask", mask},
    {"ini", ini},
    {"key", [](LineReader& line) { return key(line, page, false); }},
    {"menukey", [](LineReader& line) { return key(line, menu, false); }},
    {"key!", [](LineReader& line) { return key(line, page, true); }},
    {"menukey!", [](LineReader& line) { return key(line, menu, true); }},
    {"down", [](LineReader& line) { return pointer(line, "MouseDown"); }},
    {"move", [](LineReader& line) { return pointer(line, "MouseMove"); }},
    {"up", [](LineReader& line) { return pointer(line, "MouseUp"); }},
    {"menudown", [](LineReader& line) { return keyPointer(line, "MouseDown"); }},
    {"menumove", [](LineReader& line) { return keyPointer(line, "MouseMove"); }},
    {"menuup", [](LineReader& line) { return keyPointer(line, "MouseUp"); }},
    {"scroll", [](LineReader& line) { return scroll(line, menu); }},
    {"pagescroll", [](LineReader& line) { return scroll(line, page); }},
    {"timer", [](LineReader&) -> Action { return [](Player& player) { player.timer(); }; }},
    {"language", language},
    {"poke", poke},
    {"get", state},
    {"vars", [](LineReader&) -> Action { return [](Player& player) { player.tellVariables(); }; }},
};

} // namespace

std::optional<Action> operationCommand(std::string_view name, LineReader& line)
{
    for (const Row& row : rows)
        if (row.name == name) return row.parse(line);
    return std::nullopt;
}

} // namespace servopanel::recording
