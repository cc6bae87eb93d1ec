#include "machine/project_file.h"

#include "basic/conversions.h"
#include "basic/error.h"
#include "machine/access_level.h"
#include "machine/json_object.h"
#include "machine/machine_settings_reader.h"
#include "machine/screen_rows.h"
#include "machine/variable_store.h"
#include "machine/variable_value.h"
#include "portable/text_reading.h"
#include "portable/trimming.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <array>
#include <charconv>
#include <limits>
#include <utility>

namespace servopanel::machine {

namespace {

using Need = JsonObject::Need;

constexpr std::int64_t least16 = std::numeric_limits<std::int16_t>::min();
constexpr std::int64_t largest16 = std::numeric_limits<std::int16_t>::max();
constexpr double leastInches = 4; // no panel for fingers is smaller
constexpr double mostInches = 100;

void take(std::int16_t& field, std::optional<std::int64_t> value)
{
    if (value) field = static_cast<std::int16_t>(*value);
}

void readScreen(JsonObject& object, ProjectFile& project, const std::string& file)
{
    const Json* const json = object.object("screen", Need::Optional);
    if (!json) return;
    JsonObject screen{*json, file, object.pathOf("screen"), project.problems};
    if (const auto inches = screen.number("diagonal_inches", Need::Optional)) {
        if (*inches >= leastInches && *inches <= mostInches)
            project.diagonalInches = *inches;
        else
            screen.problem("diagonal_inches", "a panel's screen has 4 to 100 inches");
    }
    screen.finish();
}

// The control reads the width from a variable, the panel from the project: there is one number for both.
void settleResolution(JsonObject& object, ProjectFile& project, bool isStated)
{
    const auto found = std::find_if(project.variables.begin(), project.variables.end(),
        [](const ProjectFile::Variable& variable) { return variable.name == resolutionVariable; });
    if (found == project.variables.end()) return;
    std::int32_t width = 0;
    try {
        width = basic::toInt32(found->value);
    } catch (const basic::Error&) {
        // A list or a text is no width.
    }
    if (!isStated && isResolution(width)) project.resolution = width;
    if (width == project.resolution) return;
    object.problem("variables/" + found->name,
        "differs from resolution, which is " + std::to_string(project.resolution) + "; resolution counts");
    found->value = basic::Variant{static_cast<std::int16_t>(project.resolution)};
}

void readSettings(JsonObject& object, ProjectFile& project)
{
    project.title = object.text("title", Need::Optional).value_or("");
    if (const auto width = object.whole("resolution", Need::Optional, 800, 1280)) {
        if (isResolution(*width))
            project.resolution = static_cast<int>(*width);
        else
            object.problem("resolution", "must be 800, 1024 or 1280");
    }
    take(project.level, object.whole("level", Need::Optional, 0, highestAccessLevel));
    take(project.input, object.whole("input", Need::Optional, least16, largest16));
}

// Languages that are written from right to left, by their code without country ("ar" of "ar-EG").
bool isRightToLeftCode(std::string_view code)
{
    constexpr std::array<std::string_view, 4> codes{"ar", "fa", "he", "ur"};
    return std::find(codes.begin(), codes.end(), code.substr(0, code.find_first_of("-_"))) != codes.end();
}

// One of two words; nothing when the member is missing, or something else stands there and was reported.
std::optional<bool> choice(
    JsonObject& entry, const char* member, const std::string& no, const std::string& yes)
{
    const std::optional<std::string> word = entry.text(member, Need::Optional);
    if (!word) return {};
    if (*word != no && *word != yes) {
        entry.problem(member, "must be \"" + no + "\" or \"" + yes + '"');
        return {};
    }
    return *word == yes;
}

// What a language looks like; a mistake here costs the look only, not the language.
void readLook(JsonObject& entry, ProjectFile::Language& language)
{
    language.rightToLeft =
        choice(entry, "direction", "ltr", "rtl").value_or(isRightToLeftCode(language.code));
    language.font = entry.text("font", Need::Optional).value_or("");
    language.arabicIndicDigits = choice(entry, "digits", "latin", "arabic-indic").value_or(false);
}

// The code is part of a file name.
bool isFileName(std::string_view code)
{
    return !code.empty() && code.find_first_of("/\\:") == std::string_view::npos && code.front() != '.';
}

// Whether another language has the same number, code or whatever the member is.
template <class Value>
bool isTaken(
    const ProjectFile& project, const ProjectFile::Language& language, Value ProjectFile::Language::*member)
{
    return std::any_of(project.languages.begin(), project.languages.end(),
        [&](const ProjectFile::Language& other) { return other.*member == language.*member; });
}

void readLanguages(JsonObject& object, ProjectFile& project, const std::string& file)
{
    if (const Json* const languages = object.array("languages", Need::Optional)) {
        std::size_t number = 0;
        for (const Json& json : *languages) {
            const std::string path = object.pathOf("languages") + "/" + std::to_string(number++);
            JsonObject entry{json, file, path, project.problems};
            ProjectFile::Language language;
            take(language.number, entry.whole("number", Need::Required, least16, largest16));
            language.code = entry.text("code", Need::Required).value_or("");
            language.name = entry.text("name", Need::Optional).value_or(language.code);
            if (!entry.failed() && !isFileName(language.code))
                entry.problem("code", "must be the name of a file in Texts, without folder and extension");
            if (!entry.failed() && isTaken(project, language, &ProjectFile::Language::number))
                entry.problem("number", "is that of another language");
            if (!entry.failed() && isTaken(project, language, &ProjectFile::Language::code))
                entry.problem("code", "is that of another language");
            const bool failed = entry.failed();
            if (!failed && portable::trimBlanks(language.name).empty()) {
                entry.problem("name", "is empty; the operator sees the code");
                language.name = language.code;
            }
            readLook(entry, language);
            entry.finish();
            if (!failed) project.languages.push_back(std::move(language));
        }
    }
    if (project.languages.empty()) {
        take(project.language, object.whole("language", Need::Optional, least16, largest16));
        return;
    }
    project.language = project.languages.front().number;
    const auto wanted = object.whole("language", Need::Optional, least16, largest16);
    if (!wanted) return;
    const bool listed = std::any_of(project.languages.begin(), project.languages.end(),
        [&](const ProjectFile::Language& language) { return language.number == *wanted; });
    if (listed)
        project.language = static_cast<std::int16_t>(*wanted);
    else
        object.problem("language", "is not among the languages");
}

void readVariables(JsonObject& object, ProjectFile& project)
{
    const Json* const variables = object.object("variables", Need::Required);
    if (!variables) return;
    for (const auto& member : variables->items()) {
        std::variant<basic::Variant, std::string> value = variableValue(member.value());
        if (auto* const good = std::get_if<basic::Variant>(&value))
            project.variables.push_back({member.key(), std::move(*good)});
        else
            object.problem("variables/" + member.key(), std::get<std::string>(value));
    }
}

void readScreens(JsonObject& object, ProjectFile& project)
{
    const Json* const screens = object.object("screens", Need::Optional);
    if (!screens) return;
    for (const auto& member : screens->items()) {
        const std::string& key = member.key();
        ProjectFile::Screen screen;
        const auto [end, error] = std::from_chars(key.data(), key.data() + key.size(), screen.number);
        if (error != std::errc{} || end != key.data() + key.size())
            object.problem("screens/" + key, "the number of a screen has 16 bits");
        else if (!member.value().is_string())
            object.problem("screens/" + key, "must be the name of the screen, a text in quotes");
        else {
            screen.name = member.value().get<std::string>();
            project.screens.push_back(std::move(screen));
        }
    }
}

} // namespace

ProjectFile ProjectFile::load(const std::filesystem::path& file)
{
    const std::string name = file.filename().string();
    try {
        const portable::FileBytes content = portable::readFile(file, file.string());
        ProjectFile project = parse(content.bytes, name);
        if (content.failure) {
            project.problems.push_back({name, "", content.failure->description});
            project.isWhole = false;
        }
        return project;
    } catch (const basic::Error& error) {
        ProjectFile project;
        project.problems.push_back({name, "", error.description});
        return project;
    }
}

ProjectFile ProjectFile::parse(std::string_view text, const std::string& file)
{
    ProjectFile project;
    const Json json = readJson(text, file, project.problems);
    project.isWhole = Json::accept(text);
    if (json.is_null()) return project;
    JsonObject object{json, file, "", project.problems};
    readSettings(object, project);
    readScreen(object, project, file);
    readLanguages(object, project, file);
    readVariables(object, project);
    settleResolution(object, project, json.is_object() && json.contains("resolution"));
    readScreens(object, project);
    if (const Json* const machine = object.object("machine", Need::Optional))
        project.machine = readMachineSettings(*machine, file, object.pathOf("machine"), project.problems);
    object.finish();
    return project;
}

void ProjectFile::declareVariables(VariableStore& store) const
{
    for (const Variable& variable : variables)
        store.declare(variable.name, variable.value);
    if (store.find(resolutionVariable) == nullptr)
        store.declare(resolutionVariable, basic::Variant{static_cast<std::int16_t>(resolution)});
}

} // namespace servopanel::machine
