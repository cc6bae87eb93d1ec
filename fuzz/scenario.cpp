// A scenario: read, and played on the whole library in memory. This is the library under any order of touches, keys,
// values, failures and files.
#include "basic/lines.h"
#include "fuzz/fuzz.h"
#include "recording/replay.h"
#include "support/standard_project.h"

#include <optional>
#include <string>

namespace servopanel::fuzz {

namespace {

// Whether a line is the command "project", also one that waits for the pump.
bool opensProject(std::string_view text)
{
    try {
        recording::LineReader line{text};
        std::string name = line.word("a command");
        while (name == "on") {
            line.word("'pump'");
            name = line.word("a command");
        }
        return name == "project";
    } catch (const recording::Malformed&) {
        return false;
    }
}

// Folders of the computer are not for a fuzzer.
std::string withoutProjects(std::string_view bytes)
{
    std::string scenario;
    basic::Lines lines{bytes};
    while (const std::optional<std::string_view> line = lines.next())
        if (!opensProject(*line)) scenario.append(*line).append("\n");
    return scenario;
}

} // namespace

void feed(std::string_view bytes)
{
    constexpr std::size_t most = 200;
    try {
        std::vector<recording::Step> steps = recording::parseScenario(withoutProjects(bytes));
        if (steps.size() > most) steps.resize(most);
        recording::Replay replay;
        replay.run(testing::standardProject);
        replay.play(steps);
    } catch (const recording::ScenarioError&) {
    }
}

} // namespace servopanel::fuzz
