#include "support/lines_of.h"
#include "support/replay_fixture.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <optional>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

namespace {

namespace fs = std::filesystem;
using servopanel::recording::parseScenario;
using servopanel::recording::Replay;
using servopanel::recording::ScenarioError;
using servopanel::testing::linesOf;
using servopanel::testing::standardProject;

const fs::path folder = fs::path{SERVOPANEL_TESTS_DIR} / "traces";

std::optional<std::string> contentOf(const fs::path& file)
{
    std::ifstream in{file, std::ios::binary};
    if (!in) return std::nullopt;
    return std::string{std::istreambuf_iterator<char>{in}, {}};
}

// Where the trace begins and what is left out of it.
struct Scope {
    std::string before;
    std::string after;
    std::vector<std::string> without;

    explicit Scope(const std::string& scenario)
    {
        constexpr std::string_view mark = "# trace";
        bool reached = scenario.find(std::string{"\n"} + std::string{mark}) == std::string::npos;
        for (const std::string& line : linesOf(scenario)) {
            if (!reached && line.substr(0, mark.size()) == mark) {
                reached = true;
                std::istringstream words{line.substr(mark.size())};
                words >> std::ws;
                for (std::string word; words >> word;)
                    if (word != "without") without.push_back(word);
            }
            (reached ? after : before) += line + "\n";
        }
    }

    bool leavesOut(const std::string& line) const
    {
        const std::string first = line.substr(0, line.find(' '));
        const std::size_t equals = line.find(" = ");
        return std::any_of(without.begin(), without.end(), [&](const std::string& word) {
            const std::string ending = "." + word;
            const bool isPut = first == "put" && equals != std::string::npos && equals >= ending.size()
                && line.compare(equals - ending.size(), ending.size(), ending) == 0;
            return first == word || isPut;
        });
    }
};

std::string played(const std::string& scenario)
{
    const Scope scope{scenario};
    Replay replay;
    replay.run(standardProject);
    replay.run(scope.before);
    std::string trace;
    for (const std::string& line : linesOf(replay.run(scope.after)))
        if (!scope.leavesOut(line)) trace += line + "\n";
    return trace;
}

std::vector<fs::path> scenarios()
{
    std::vector<fs::path> found;
    for (const auto& entry : fs::recursive_directory_iterator{folder})
        if (entry.path().extension() == ".scenario") found.push_back(entry.path());
    std::sort(found.begin(), found.end());
    return found;
}

class Traces : public ::testing::TestWithParam<fs::path> { };

TEST_P(Traces, AreAsRecorded)
{
    const fs::path expected = fs::path{GetParam()}.replace_extension(".trace");
    std::string trace;
    try {
        trace = played(contentOf(GetParam()).value());
    } catch (const ScenarioError& error) {
        FAIL() << GetParam() << ": " << error.what();
    }
    if (std::getenv("PANEL_UPDATE_TRACES") != nullptr) {
        std::ofstream{expected, std::ios::binary} << trace;
        return;
    }
    const std::optional<std::string> recorded = contentOf(expected);
    if (recorded == trace) return;
    const fs::path actual =
        fs::path{ACTUAL_TRACES} / fs::relative(expected, folder).replace_extension(".actual");
    fs::create_directories(actual.parent_path());
    std::ofstream{actual, std::ios::binary} << trace;

    const std::vector<std::string> is = linesOf(trace);
    const std::vector<std::string> was = linesOf(recorded.value_or(""));
    const std::size_t common = std::min(is.size(), was.size());
    std::size_t line = 0;
    while (line < common && is[line] == was[line])
        ++line;
    ADD_FAILURE() << expected.string() << ":" << line + 1
                  << " differs\n  recorded: " << (line < was.size() ? was[line] : "(end)")
                  << "\n  now:      " << (line < is.size() ? is[line] : "(end)") << "\nall of it: " << actual;
}

std::string nameOf(const ::testing::TestParamInfo<fs::path>& tested)
{
    std::string name = fs::relative(tested.param, folder).replace_extension().string();
    std::replace_if(
        name.begin(), name.end(), [](unsigned char sign) { return std::isalnum(sign) == 0; }, '_');
    return name;
}

INSTANTIATE_TEST_SUITE_P(Pairs, Traces, ::testing::ValuesIn(scenarios()), nameOf);

} // namespace
