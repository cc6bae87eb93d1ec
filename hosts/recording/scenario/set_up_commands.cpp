#include "recording/memory/memory_host.h"
#include "recording/scenario/commands.h"
#include "recording/scenario/player.h"

#include <limits>
#include <string>
#include <utility>

namespace servopanel::recording {

namespace {

constexpr std::int16_t lowest16 = std::numeric_limits<std::int16_t>::min();
constexpr std::int16_t highest16 = std::numeric_limits<std::int16_t>::max();

Action library(LineReader& line)
{
    return [name = line.word("the library's name")](Player& player) { player.world().libraryName = name; };
}

Action screen(LineReader& line)
{
    const auto x = static_cast<float>(line.number("twips per pixel across"));
    const auto y = static_cast<float>(line.number("twips per pixel down"));
    return [x, y](Player& player) {
        player.world().twipsPerPixelX = x;
        player.world().twipsPerPixelY = y;
    };
}

Action environment(LineReader& line)
{
    const std::string_view pair = line.remainder();
    const std::size_t equals = pair.find('=');
    if (equals == std::string_view::npos || equals == 0) throw Malformed{"NAME=VALUE is missing"};
    return [name = std::string{pair.substr(0, equals)}, value = std::string{pair.substr(equals + 1)}](
               Player& player) { player.world().environment.insert_or_assign(name, value); };
}

Action input(LineReader& line)
{
    const std::int16_t permission = line.whole("the input permission", lowest16, highest16);
    return [permission](Player& player) { player.world().inputPermission = permission; };
}

Action variable(LineReader& line)
{
    const std::string name = line.word("the variable's name");
    line.sign('=');
    return [name, value = line.value("the variable's value")](
               Player& player) { player.world().variables.set(name, value); };
}

// The number of times at the end of a "fail" command.
std::int32_t times(LineReader& line)
{
    return line.atEnd() ? Failures::always : line.whole("the number of times", 0, highest16);
}

Action failVariable(LineReader& line, FailureKind kind)
{
    const std::string name = line.word("the variable's name");
    return [kind, name, count = times(line)](
               Player& player) { player.world().failures.arrange(kind, name, count); };
}

Action failFile(LineReader& line, FailureKind kind)
{
    const std::string name = line.word("the file's name");
    return [kind, name, count = times(line)](Player& player) {
        const std::string path = normalisedPath(player.host().project().fullName(name));
        player.world().failures.arrange(kind, path, count);
    };
}

Action failUpdate(LineReader& line)
{
    if (line.word("'update'") != "update") throw Malformed{"only 'fail db update' is known"};
    return [count = times(line)](
               Player& player) { player.world().failures.arrange(FailureKind::UpdateRow, {}, count); };
}

Action fail(LineReader& line)
{
    const std::string what = line.word("what is to fail");
    if (what == "none") return [](Player& player) { player.world().failures.clear(); };
    if (what == "read") return failVariable(line, FailureKind::ReadVariable);
    if (what == "write") return failVariable(line, FailureKind::WriteVariable);
    if (what == "load") return failFile(line, FailureKind::LoadPicture);
    if (what == "save") return failFile(line, FailureKind::SavePicture);
    if (what == "mkdir") return failFile(line, FailureKind::CreateFolder);
    if (what == "db") return failUpdate(line);
    throw Malformed{"'" + what + "' cannot be made to fail"};
}

Action text(LineReader& line)
{
    const std::string_view rest = line.remainder();
    std::string_view key;
    std::string_view shown;
    if (const std::size_t equals = rest.find(" = "); equals != std::string_view::npos) {
        key = rest.substr(0, equals);
        shown = rest.substr(equals + 3);
    } else if (rest.size() >= 2 && rest.substr(rest.size() - 2) == " =") {
        key = rest.substr(0, rest.size() - 2);
    } else {
        throw Malformed{"' = ' is missing"};
    }
    if (shown.size() >= 2 && shown.front() == '"' && shown.back() == '"')
        shown = shown.substr(1, shown.size() - 2);
    LineReader name{key};
    const std::string keyText = name.word("the text's key");
    name.end();
    return [keyText, textShown = std::string{shown}](
               Player& player) { player.world().texts.insert_or_assign(keyText, textShown); };
}

Action definitionRow(const std::string& file, std::string type, LineReader& line)
{
    DefinitionRow row;
    row.columns[DefinitionRow::Type] = std::move(type);
    row.columns[DefinitionRow::Variable] = line.word("the variable's name");
    row.columns[DefinitionRow::Element] = line.value("the element");
    row.columns[DefinitionRow::AbsMin] = line.value("the absolute lower limit");
    row.columns[DefinitionRow::AbsMax] = line.value("the absolute upper limit");
    row.columns[DefinitionRow::Min] = line.value("the lower limit");
    row.columns[DefinitionRow::Max] = line.value("the upper limit");
    row.columns[DefinitionRow::Pass] = line.value("the access level");
    return [file, row](Player& player) { player.host().memoryProject().putRow(file, row); };
}

Action database(LineReader& line)
{
    const std::string file = line.word("the database's name");
    const std::string first = line.word("a row, 'empty' or 'delete'");
    const bool isAlone = line.atEnd();
    if (first == "empty" && isAlone)
        return [file](Player& player) { player.host().memoryProject().putDatabase(file); };
    if (first != "delete") return definitionRow(file, first, line);
    const std::string name = line.word("the variable's name");
    const basic::Variant element = line.value("the element");
    return [file, name, element](Player& player) {
        if (!player.host().memoryProject().removeRow(file, name, element))
            throw Malformed{"there is no such row in " + file};
    };
}

Action picture(LineReader& line)
{
    const std::string name = line.word("the picture's name");
    const PictureSize size{line.whole("the width", 1, highest16), line.whole("the height", 1, highest16)};
    return [name, size](Player& player) { player.host().memoryProject().putPicture(name, size); };
}

Action lose(LineReader& line)
{
    return
        [name = line.word("the file's name")](Player& player) { player.host().memoryProject().lose(name); };
}

Action project(LineReader& line)
{
    return [folder = line.word("the project's folder")](Player& player) { player.useProjectFolder(folder); };
}

struct Row {
    std::string_view name;
    Action (*parse)(LineReader& line);
};
constexpr Row rows[]{
    {"library", library},
    {"screen", screen},
    {"env", environment},
    {"input", input},
    {"var", variable},
    {"fail", fail},
    {"text", text},
    {"db", database},
    {"picture", picture},
    {"lose", lose},
    {"project", project},
};

} // namespace

std::optional<Action> setUpCommand(std::string_view name, LineReader& line)
{
    for (const Row& row : rows)
        if (row.name == name) return row.parse(line);
    return std::nullopt;
}

} // namespace servopanel::recording
