#include "one_failure/failing_seam.h"
#include "one_failure/losses.h"
#include "support/lines_of.h"
#include "support/standard_project.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <memory>
#include <numeric>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace {

namespace fs = std::filesystem;
using servopanel::recording::parseScenario;
using servopanel::recording::Replay;
using servopanel::recording::Step;
using servopanel::testing::Crossings;
using servopanel::testing::Loss;

const fs::path folder = fs::path{SERVOPANEL_TESTS_DIR} / "one_failure";

std::string contentOf(const fs::path& file)
{
    std::ifstream in{file, std::ios::binary};
    return {std::istreambuf_iterator<char>{in}, {}};
}

// A scenario behind the standard project: what leads to a state, and from the mark on what is played with failures.
class Scenario {
public:
    explicit Scenario(const std::string& text)
    {
        const std::size_t at = text.find("# fail\n");
        steps_ = parseScenario(servopanel::testing::standardProject + text.substr(0, at));
        mark_ = steps_.size();
        for (Step& step : parseScenario(text.substr(at)))
            steps_.push_back(std::move(step));
    }

    // One command behind the mark and what fails in it.
    struct Command {
        std::size_t step;
        std::vector<std::string> trace;
        std::vector<std::string> crossings;
        std::vector<std::size_t> failing; // positions in crossings
    };

    // The same crossing between the same accesses belongs to the same statement: it fails where it comes first, and not
    // at all when it comes before the mark; another scenario fails it there.
    std::vector<Command> commands() const
    {
        Run run;
        std::vector<Command> found;
        std::set<std::string> known;
        for (std::size_t step = 0; step < steps_.size(); ++step) {
            run.trace.clear();
            run.seam->listen();
            run.replay.play({steps_[step]});
            Command command{step, servopanel::testing::linesOf(run.trace), run.seam->names(), {}};
            for (const std::size_t i : ordered(command.crossings))
                if (known.insert(withNeighbours(command.crossings, i)).second) command.failing.push_back(i);
            if (step >= mark_ && !command.failing.empty()) found.push_back(std::move(command));
        }
        return found;
    }

    // The trace of the command when one crossing fails in it.
    std::vector<std::string> failed(std::size_t step, std::size_t crossing) const
    {
        Run run;
        run.replay.play({steps_.begin(), steps_.begin() + static_cast<std::ptrdiff_t>(step)});
        run.trace.clear();
        run.seam->failAt(crossing);
        run.replay.play({steps_[step]});
        return servopanel::testing::linesOf(run.trace);
    }

    // What the operator could not do although nothing failed.
    std::vector<std::string> refused() const
    {
        Run run;
        run.replay.play(steps_);
        std::vector<std::string> lines = servopanel::testing::linesOf(run.trace);
        std::erase_if(lines, [](const std::string& line) { return !line.starts_with("refused"); });
        return lines;
    }

private:
    struct Run {
        std::shared_ptr<Crossings> seam = std::make_shared<Crossings>();
        std::string trace;
        Replay replay{
            servopanel::testing::libraryBehind(seam), [this](std::string_view lines) { trace += lines; }};
    };

    // Look-ups of children and reads of properties. In which order an expression makes them is the compiler's choice.
    static bool isRead(const std::string& crossing)
    {
        return crossing.starts_with("child ") || crossing.starts_with("get ");
    }

    // All positions in their order, but reads that follow each other by their names.
    static std::vector<std::size_t> ordered(const std::vector<std::string>& crossings)
    {
        std::vector<std::size_t> positions(crossings.size());
        std::iota(positions.begin(), positions.end(), std::size_t{0});
        const auto by = [&](std::size_t left, std::size_t right) {
            return crossings[left] < crossings[right];
        };
        for (auto begin = positions.begin(); begin != positions.end();) {
            const auto end = std::find_if_not(
                begin, positions.end(), [&](std::size_t position) { return isRead(crossings[position]); });
            std::stable_sort(begin, end, by);
            begin = end == positions.end() ? end : std::next(end);
        }
        return positions;
    }

    // The crossing, which one of its name it is among the reads before it or of the lines in a row, and what stands
    // before and behind the reads.
    static std::string withNeighbours(const std::vector<std::string>& crossings, std::size_t at)
    {
        std::size_t begin = at;
        std::size_t count = 0;
        for (; begin > 0 && isRead(crossings[begin - 1]); --begin)
            if (crossings[begin - 1] == crossings[at]) ++count;
        if (crossings[at].starts_with("line "))
            for (std::size_t line = at; line > 0 && crossings[line - 1] == crossings[at]; --line)
                ++count;
        std::size_t end = at + 1;
        while (end < crossings.size() && isRead(crossings[end]))
            ++end;
        const std::string before = begin > 0 ? general(crossings[begin - 1]) : std::string{};
        const std::string behind = end < crossings.size() ? general(crossings[end]) : std::string{};
        return before + "\n" + general(crossings[at]) + " " + std::to_string(count) + "\n" + behind;
    }

    // Whichever servo it is: names of variables, texts and files without the numbers in them.
    static std::string general(std::string crossing)
    {
        for (const std::string_view named : {"read ", "write ", "text ", "path ", "picture ", "profile "})
            if (crossing.starts_with(named))
                std::erase_if(crossing, [](char sign) { return sign >= '0' && sign <= '9'; });
        return crossing;
    }

    std::vector<Step> steps_;
    std::size_t mark_ = 0;
};

std::vector<fs::path> scenarios()
{
    std::vector<fs::path> found;
    for (const auto& entry : fs::directory_iterator{folder})
        if (entry.path().extension() == ".scenario") found.push_back(entry.path());
    std::sort(found.begin(), found.end());
    return found;
}

class OneFailure : public ::testing::TestWithParam<fs::path> { };

TEST_P(OneFailure, CostsJustItsStatement)
{
    const Scenario scenario{contentOf(GetParam())};
    const std::vector<Scenario::Command> commands = scenario.commands();
    ASSERT_FALSE(commands.empty());
    EXPECT_EQ(scenario.refused(), std::vector<std::string>{});

    std::vector<Loss> losses;
    for (const Scenario::Command& command : commands) {
        for (const std::size_t i : command.failing) {
            const std::string& crossing = command.crossings[i];
            losses.push_back(
                servopanel::testing::compared(crossing, command.trace, scenario.failed(command.step, i)));
            EXPECT_LE(losses.back().reports.size(), 1U) << crossing;
        }
    }
    RecordProperty("failures", static_cast<int>(losses.size()));
    const std::string table = servopanel::testing::table(losses);

    const fs::path expected = fs::path{GetParam()}.replace_extension(".losses");
    if (std::getenv("PANEL_UPDATE_LOSSES") != nullptr) {
        std::ofstream{expected, std::ios::binary} << table;
        return;
    }
    const std::string recorded = contentOf(expected);
    if (recorded == table) return;
    const fs::path actual = fs::path{ACTUAL_LOSSES} / expected.filename().replace_extension(".actual");
    std::ofstream{actual, std::ios::binary} << table;
    const auto differs = std::mismatch(recorded.begin(), recorded.end(), table.begin(), table.end());
    const auto line = std::count(recorded.begin(), differs.first, '\n') + 1;
    ADD_FAILURE() << expected.string() << ":" << line << " differs, all of it: " << actual;
}

std::string nameOf(const ::testing::TestParamInfo<fs::path>& tested) { return tested.param.stem().string(); }

INSTANTIATE_TEST_SUITE_P(Scenarios, OneFailure, ::testing::ValuesIn(scenarios()), nameOf);

// The definition of setpoint 2 has lost its row; its values reach no other one, and that row stays as it was.
TEST(DefinitionWithoutABookmark, IsWrittenToNoRow)
{
    const std::string page = std::string{servopanel::testing::standardProject} + R"(
var Ch-1.intern<.servo_zeiger> = 1
var Ch-1.intern<.passwort> = 5
db Servo\Servo.mdb empty
create
show
db Servo\Servo.mdb M1 Ch1.M1_T_servo_5<.mM1_servo_para_5> 0 0 1000 10 20 1
db Servo\Servo.mdb M1 Ch1.M1_T_servo_5<.mM1_servo_para_5> 1 0 1000 30 40 2
)";
    const auto seam = std::make_shared<Crossings>();
    Replay whole{servopanel::testing::libraryBehind(seam)};
    whole.run(page);
    seam->listen();
    whole.run("key 6\n");
    const std::vector<std::string>& names = seam->names();
    const auto first = std::find(names.begin(), names.end(), "db row");
    ASSERT_NE(first, names.end());
    const auto second = std::find(std::next(first), names.end(), "db row");
    ASSERT_NE(second, names.end());
    const auto failing = static_cast<std::size_t>(second - names.begin());

    Replay replay{servopanel::testing::libraryBehind(seam)};
    replay.run(page);
    seam->failAt(failing);
    replay.run("key 6\nkey 4\ntouch SollwertL 1\nini 11 21 3\n");
    EXPECT_EQ(replay.lines({"db update"}), "db update Ch1.M1_T_servo_5<.mM1_servo_para_5> 0\n");

    // Read anew, the editor shows what the rows hold: access level, largest and smallest value.
    const auto shown = [&](const std::string& commands) {
        replay.run(commands);
        return replay.lines({"put ServoMain.IniEingabe.0x68030004", "put ServoMain.IniEingabe.0x68030005",
            "put ServoMain.IniEingabe.0x68030006"});
    };
    EXPECT_EQ(shown("key 4\nkey 5\nkey 6\nkey 4\ntouch SollwertL 1\n"),
        "put ServoMain.IniEingabe.0x68030004 = 3\n"
        "put ServoMain.IniEingabe.0x68030005 = 21\n"
        "put ServoMain.IniEingabe.0x68030006 = 11\n");
    EXPECT_EQ(shown("ini cancel\ntouch SollwertL 2\n"),
        "put ServoMain.IniEingabe.0x68030004 = 2\n"
        "put ServoMain.IniEingabe.0x68030005 = 40\n"
        "put ServoMain.IniEingabe.0x68030006 = 30\n");
}

} // namespace
