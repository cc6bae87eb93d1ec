#include "params/project.h"

#include "basic/error.h"
#include "jet/servo_defs/definition_list.h"
#include "line_machine/definition_levels.h"
#include "line_machine/machine_description.h"
#include "machine/designations.h"

#include <algorithm>
#include <system_error>
#include <utility>

namespace servopanel::params {

namespace {

void readTexts(Project& project, const std::filesystem::path& folder, const std::string& language)
{
    const auto& languages = project.file.languages;
    const auto chosen = std::find_if(languages.begin(), languages.end(), [&](const auto& one) {
        return language.empty() ? one.number == project.file.language : one.code == language;
    });
    if (chosen == languages.end()) {
        if (language.empty()) return;
        basic::raise(
            basic::ErrorNumber::InvalidProcedureCall, "the project has no language '" + language + "'");
    }
    machine::Texts texts = machine::Texts::load(folder / "Texts" / (chosen->code + ".txt"));
    for (const machine::Problem& problem : texts.problems())
        project.problems.push_back(problem.text());
    project.captions = Captions{std::move(texts)};
}

void readDefinitions(Project& project, const std::filesystem::path& folder)
try {
    project.definitions = jet::loadDefinitions(folder / "Servo" / "Servo.mdb").rows;
} catch (const basic::Error& error) {
    project.definitionsProblem = error.description;
}

} // namespace

Project loadProject(const std::filesystem::path& folder, const std::string& language)
{
    const std::filesystem::path file = folder / "project.json";
    if (std::error_code code; !std::filesystem::is_regular_file(file, code))
        basic::raise(basic::ErrorNumber::FileNotFound, "'" + file.string() + "': there is no such file");
    Project project;
    project.file = machine::ProjectFile::load(file);
    for (const machine::Problem& problem : project.file.problems)
        project.problems.push_back(problem.text());
    if (!project.file.isWhole)
        basic::raise(basic::ErrorNumber::TypeMismatch,
            project.problems.empty() ? "'" + file.string() + "' cannot be read" : project.problems.front());
    readTexts(project, folder, language);
    readDefinitions(project, folder);
    return project;
}

Snapshot startValues(const Project& project, const std::string& machine)
{
    const std::vector<std::string> known = machine::designations(project.file);
    if (std::find(known.begin(), known.end(), machine) == known.end()) {
        std::string text = "the project has no machine " + machine + "; its machines are";
        for (const std::string& one : known)
            text.append(one == known.front() ? " " : ", ").append(one);
        basic::raise(basic::ErrorNumber::InvalidProcedureCall, text);
    }
    Snapshot snapshot;
    snapshot.machine = machine;
    project.file.declareVariables(snapshot.values);
    snapshot.description = line_machine::describeMachine(snapshot.values, machine);
    // As the controller of the simulated machine describes it: the same project gives the same hash.
    if (project.definitions)
        snapshot.description = line_machine::withLevels(
            snapshot.description, jet::MachineDefinitions{*project.definitions, machine});
    return snapshot;
}

} // namespace servopanel::params
