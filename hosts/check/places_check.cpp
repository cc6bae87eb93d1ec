#include "check/places_check.h"

#include "basic/text.h"

#include <cctype>
#include <map>
#include <set>
#include <system_error>

namespace servopanel::check {

namespace {

namespace fs = std::filesystem;

constexpr const char* temporaryVariable = "TEMPVELM";
constexpr const char* noDefinitions = ": changed definitions cannot be saved";
constexpr const char* noPictures = ": the keys of the menu have no pictures";
constexpr std::uintmax_t leastRoom =
    10'000'000; // bytes; a database and its successor, or the pictures of a menu

void checkRoom(const fs::path& folder, const std::string& name, const Computer& computer, const char* means,
    Findings& findings)
{
    const std::optional<std::uintmax_t> left = computer.freeBytes(folder);
    if (left && *left < leastRoom)
        findings.add(
            name, 0, "little room is left on its disk, " + std::to_string(*left / 1000) + " kB" + means);
}

// The next folder above that is there: the panel makes what is missing below it.
fs::path existing(fs::path folder)
{
    std::error_code code;
    while (folder.has_relative_path() && !fs::exists(folder, code))
        folder = folder.parent_path();
    return folder;
}

bool isDriveName(const std::string& name)
{
    return name.size() > 1 && std::isalpha(static_cast<unsigned char>(name[0])) != 0 && name[1] == ':';
}

void checkTemporaryFolder(const Computer& computer, Findings& findings)
{
    std::error_code code;
    const std::optional<std::string> set = computer.environment(temporaryVariable);
    fs::path folder = fs::temp_directory_path(code);
    std::string name = folder.string();
    // A drive leads to the system's own.
    if (set && !set->empty() && !isDriveName(*set)) {
        folder = *set;
        name = temporaryVariable;
        std::string what = "the environment variable's '" + *set + "' ";
        if (!folder.is_absolute()) {
            findings.add(name, 0, what + "is no full name of a folder" + noPictures);
            return;
        }
        folder = existing(folder);
        if (!fs::is_directory(folder, code)) {
            findings.add(name, 0, what + "is no folder and cannot be made" + noPictures);
            return;
        }
    }
    if (folder.empty()) return;
    const std::string mistake = computer.writeMistake(folder);
    if (!mistake.empty()) findings.add(name, 0, "'" + folder.string() + "' " + mistake + noPictures);
    checkRoom(folder, name, computer, noPictures, findings);
}

} // namespace

void checkPlaces(const CheckedProject& project, const Computer& computer, Findings& findings)
{
    checkTemporaryFolder(computer, findings);
    constexpr const char* definitionFolder = "Servo";
    std::error_code code;
    const std::optional<fs::path> folder = project.mapping.find(definitionFolder);
    if (!folder || !fs::is_directory(*folder, code)) return; // what is missing in it is told
    const std::string mistake = computer.writeMistake(*folder);
    if (!mistake.empty()) findings.add(definitionFolder, 0, mistake + noDefinitions);
    checkRoom(*folder, definitionFolder, computer, noDefinitions, findings);
    constexpr const char* lockFile = "Servo/Servo.ldb";
    if (const std::optional<fs::path> lock = project.mapping.find(lockFile))
        findings.add(definitionFolder + ('/' + lock->filename().string()), 0,
            std::string{"is the lock file of a program that has the definitions open, or was left by one"}
                + noDefinitions);
}

namespace {

// Folders that are there twice in other letters, and one for the texts that must be written as it is.
void checkFolders(const CheckedProject& project, Findings& findings)
{
    std::error_code code;
    std::map<std::string, std::set<std::string>> names; // by their capitals
    for (fs::directory_iterator file{project.folder, code}, end; !code && file != end; file.increment(code))
        if (std::error_code none; file->is_directory(none)) {
            const std::string name = file->path().filename().string();
            names[basic::upperCase(name)].insert(name);
        }
    for (const std::string folder : {"Parameter", "Servo", "Standard", "Texts"}) {
        const std::set<std::string>& same = names[basic::upperCase(folder)];
        if (folder == "Texts" && !same.empty() && !same.contains(folder))
            findings.add(
                *same.begin(), 0, "must be named Texts, in these letters: the panel does not find it");
        if (same.size() > 1)
            findings.add(*same.rbegin(), 0,
                "differs from " + *same.begin()
                    + " in capital and small letters only: what is in one of them is not read");
    }
}

} // namespace

void checkLetterCase(const CheckedProject& project, Findings& findings)
{
    std::set<std::string> texts;
    for (const auto& language : project.file.languages)
        texts.insert(language.code + ".txt");
    checkFolders(project, findings);
    for (const char* const folder : {"Parameter", "Servo", "Standard", "Texts"}) {
        std::error_code code;
        std::map<std::string, std::set<std::string>> names; // by their capitals
        for (fs::directory_iterator file{project.folder / folder, code}, end; !code && file != end;
             file.increment(code)) {
            const std::string name = file->path().filename().string();
            names[basic::upperCase(name)].insert(name);
        }
        const std::string place = std::string{folder} + '/';
        for (const auto& [capitals, same] : names)
            for (auto name = same.begin(); name != same.end(); ++name)
                if (name != same.begin())
                    findings.add(place + *name, 0,
                        "differs from " + place + *same.begin()
                            + " in capital and small letters only: one of them is not read");
        if (std::string_view{folder} != "Texts") continue;
        for (const std::string& text : texts) {
            const auto found = names.find(basic::upperCase(text));
            if (found != names.end() && !found->second.contains(text))
                findings.add(place + *found->second.begin(), 0,
                    "must be named " + text + ", in these letters: the panel does not find it");
        }
    }
}

} // namespace servopanel::check
