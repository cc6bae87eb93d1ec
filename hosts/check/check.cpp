#include "check/check.h"

#include "basic/error.h"
#include "check/asked.h"
#include "check/definitions_check.h"
#include "check/designations_check.h"
#include "check/folders.h"
#include "check/ini_files.h"
#include "check/machine_type.h"
#include "check/pictures_check.h"
#include "check/places_check.h"
#include "check/problems.h"
#include "check/project.h"
#include "check/screen_check.h"
#include "check/servo_lists.h"
#include "check/simulation_check.h"
#include "check/start_values.h"
#include "check/texts_check.h"
#include "check/unasked.h"
#include "check/values_check.h"
#include "check/walk.h"
#include "portable/text_reading.h"

#include <algorithm>
#include <system_error>

namespace servopanel::check {

namespace {

namespace fs = std::filesystem;

constexpr const char* cannotStart = ": the panel cannot start\n";

std::string counted(std::size_t count, const char* what)
{
    return std::to_string(count) + ' ' + what + (count == 1 ? "" : "s");
}

CheckedProject load(const fs::path& folder, const fs::path& file, Findings& findings)
{
    std::string text;
    try {
        text = portable::readFile(file, "project.json").bytes;
    } catch (const basic::Error&) {
        // The project's own reader tells it.
    }
    CheckedProject project{
        folder, portable::PathMapping{folder}, machine::ProjectFile::load(file), JsonLines{text}, {}, {}};
    for (const machine::Problem& problem : project.file.problems) {
        const bool isPath = problem.place.substr(0, 1) == "/";
        // Nobody knows what stands in the part that was not read.
        if (isPath && !project.file.isWhole) continue;
        std::string what = isPath ? problem.place.substr(1) + ": " : std::string{};
        what += shownReason(problem.reason, file);
        // Some say already what becomes of it.
        if (what.find(';') == std::string::npos)
            what += isPath ? ": the panel goes on without it" : ": the panel goes on without what follows";
        findings.add("project.json", isPath ? project.lines.line(problem.place) : lineOf(problem), what);
    }
    project.resolutions = resolutionsOf(project);
    return project;
}

void checkScreens(const CheckedProject& project, const Asked& asked, Findings& findings)
{
    // One that was not taken may be any of those that are missed, and is told.
    if (std::any_of(project.file.problems.begin(), project.file.problems.end(),
            [](const machine::Problem& problem) { return problem.place.starts_with("/screens/"); }))
        return;
    std::set<std::int16_t> known;
    for (const auto& screen : project.file.screens)
        known.insert(screen.number);
    for (const auto& [number, view] : asked.screens)
        if (!known.contains(number))
            findings.add({"project.json", project.lines.line("/screens"),
                "screens: there is no screen " + std::to_string(number)
                    + ", to which a footer key leads: the operator sees a number instead of its title",
                {}, view});
}

// What the library reported on the way and nothing above explains. The operator meets it in the list of reports.
void checkReports(const Asked& asked, Findings& findings)
{
    for (const LibraryError& error : asked.errors)
        findings.add({"project.json", 0,
            "the panel reports \"" + error.description + "\" in " + error.procedure, {}, error.view});
    for (const auto& [file, error] : asked.fileErrors)
        if (!asked.brokenFiles.contains(file) && !findings.has(file))
            findings.add({file, 0, "the panel reports \"" + error.description + '"', {}, error.view});
}

std::string summary(const CheckedProject& project, const Asked& asked, const Findings& findings)
{
    std::vector<std::string> resolutions;
    for (const int resolution : project.resolutions)
        resolutions.push_back(std::to_string(resolution));
    const std::string looked = counted(asked.machines, "machine") + ", "
        + counted(asked.servos.size(), "servo") + ", " + counted(project.file.languages.size(), "language")
        + ", at " + listed(resolutions);
    if (findings.count() == 0) return "nothing is missing (" + looked + ")\n";
    return counted(findings.count(), "finding") + " in " + counted(findings.files(), "file") + " (" + looked
        + ")\n";
}

std::string machinesNotSeen(const Asked& asked)
{
    std::vector<std::string> numbers;
    for (const std::int16_t machine : asked.skippedMachines)
        numbers.push_back(std::to_string(machine));
    if (numbers.empty()) return {};
    return "what belongs to machine " + listed(numbers)
        + " was not looked at, because of the designation: once it is mended, more may be "
          "found\n";
}

// What a list of servos that the panel cannot use keeps from being found.
std::string servosNotSeen(const Asked& asked)
{
    if (asked.machinesWithoutServos.empty()) return {};
    std::string text = "the servos were not looked at";
    if (!asked.servos.empty()) text += " as the panel shows them";
    text += ", because " + std::string{asked.servos.empty() ? "the panel" : "it"} + " finds none of machine "
        + listed(asked.machinesWithoutServos);
    if (!asked.servos.empty()) text += "; those that variables and definitions name were looked at";
    return text + ": once it does, more may be found\n";
}

// Every text file counts as a language: nobody knows which ones the rest of the project lists.
void takeLanguagesOfFolder(CheckedProject& project)
{
    std::set<std::string> codes;
    for (const auto& language : project.file.languages)
        codes.insert(language.code);
    std::error_code code;
    for (fs::directory_iterator file{project.folder / "Texts", code}, end; !code && file != end;
         file.increment(code))
        if (const fs::path name = file->path().filename(); name.extension() == ".txt")
            codes.insert(name.stem().string());
    project.file.languages.clear();
    for (const std::string& each : codes)
        project.file.languages.push_back({0, each, each, false, {}, false});
}

// Whether a problem says already why there are no variables: it is about them or about the whole file.
bool isAboutVariables(const machine::Problem& problem)
{
    return problem.place.starts_with("/variables") || !problem.place.starts_with('/');
}

// Looks at all files that can be looked at without process variables: there are none, or the description is not whole.
// What only follows from the part that was not read is told by nobody: that it was not read is what helps.
Report withoutVariables(
    CheckedProject& project, const PictureReader& readPicture, const Computer& computer, Findings& findings)
{
    Asked asked;
    const auto& problems = project.file.problems;
    if (!project.file.isWhole)
        takeLanguagesOfFolder(project);
    else if (std::none_of(problems.begin(), problems.end(), isAboutVariables))
        findings.add("project.json", project.lines.line("/variables"),
            "variables: there is none: the panel finds no machine");
    checkFooterFile(project, machinesOfFooterFile(project), findings);
    checkEntriesAlone(project, findings);
    checkTextFiles(project, findings);
    checkDefinitions(project, asked, findings);
    checkAllPictures(project, asked, readPicture, findings);
    checkLetterCase(project, findings);
    checkPlaces(project, computer, findings);
    findings.tellFirst("project.json");
    std::string text = findings.text();
    text += "servos, pages and variables were not looked at: project.json ";
    text += project.file.isWhole ? "has no variables\n" : "cannot be read to its end\n";
    text += counted(findings.count(), "finding") + " in " + counted(findings.files(), "file") + '\n';
    return {Report::Result::Findings, std::move(text)};
}

} // namespace

Report checkProject(const fs::path& folder, const PictureReader& readPicture, const Computer& computer)
{
    std::error_code code;
    const std::string shown = "'" + folder.string() + "'";
    if (!fs::is_directory(folder, code)) {
        const char* const what = fs::exists(folder, code) ? " is no folder" : " does not exist";
        return {Report::Result::NoProject, shown + what + cannotStart};
    }
    const fs::path file = folder / "project.json";
    if (!fs::exists(fs::symlink_status(file, code))) {
        std::string what = shown + " is no project: it has no project.json";
        if (const auto other = inOtherLetters(folder, "project.json"))
            what += ", but '" + *other + "', which must be named in small letters";
        return {Report::Result::NoProject, what + cannotStart};
    }

    Findings findings;
    Asked asked;
    CheckedProject project = load(folder, file, findings);
    readIniFiles(project, findings);
    if (!project.file.isWhole || project.file.variables.empty())
        return withoutVariables(project, readPicture, computer, findings);
    setRightTypes(project);
    settleMachineType(project, findings);
    checkDesignations(project, asked, findings);
    walkThrough(project, asked, findings);
    checkServoLists(project, asked, findings);
    checkFooterFile(project, asked.machines, findings);
    checkEntries(project, asked, findings);
    checkScreens(project, asked, findings);
    checkScreenSize(project, findings);
    checkValues(project, asked, findings);
    checkSimulation(project, asked, findings);
    const Unasked unasked{project, asked};
    checkVariables(project, unasked, findings);
    checkDefinitions(project, asked, findings);
    checkTexts(project, asked, unasked, findings);
    checkPictures(project, asked, readPicture, findings);
    if (!asked.machinesWithoutServos.empty()) checkAllPictures(project, asked, readPicture, findings);
    checkLetterCase(project, findings);
    checkPlaces(project, computer, findings);
    checkReports(asked, findings);

    const bool isGood = findings.count() == 0;
    return {isGood ? Report::Result::Good : Report::Result::Findings,
        findings.text() + machinesNotSeen(asked) + servosNotSeen(asked) + summary(project, asked, findings)};
}

} // namespace servopanel::check
