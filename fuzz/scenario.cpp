// A scenario: read, and played on the whole library in memory. This is the library under any order of touches, keys,
// values, failures and files.
#include "fuzz/fuzz.h"
#include "recording/replay.h"
#include "support/standard_project.h"

namespace servopanel::fuzz {

void feed(std::string_view bytes)
{
    // Folders of the computer are not for a fuzzer.
    if (bytes.find("project") != std::string_view::npos) return;
    constexpr std::size_t most = 200;
    try {
        std::vector<recording::Step> steps = recording::parseScenario(bytes);
        if (steps.size() > most) steps.resize(most);
        recording::Replay replay;
        replay.run(testing::standardProject);
        replay.play(steps);
    } catch (const recording::ScenarioError&) {
    }
}

} // namespace servopanel::fuzz
