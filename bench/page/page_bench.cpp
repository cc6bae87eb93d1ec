// What the library itself costs on a host in memory: from nothing to the first picture, a page opened, a tick of its timer, a
// confirm, each without and with a trace. Beside the floor: a plain loop over the variables that the same reads and writes.
#include "basic/conversions.h"
#include "recording/replay.h"
#include "support/standard_project.h"

#include <benchmark/benchmark.h>

#include <sstream>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace servopanel::recording {

namespace {

const std::string page = "var Ch-1.intern<.servo_zeiger> = 1\n";
const std::string shown = "create\nshow\n";
const std::string onPage = page + shown;
const std::string onDiagnosis = onPage + "key 10\n";
// From the menu to a servo's page, and back.
const std::string throughPage = "menudown BildIm 1 100 100\nmenuup BildIm 1 100 100\nkey 11\n";
const std::string ticking = "timer\n";
const std::string confirming = "touch SollwertL 1\nmask 12.5\nkey 10\n";
const std::string confirmingOther = "touch SollwertL 1\nmask 13.5\nkey 10\n";

// The library on a host in memory with the standard project; without a trace it works on the host's own platform.
class Bench {
public:
    explicit Bench(const benchmark::State& state)
        : traced_{state.range(0) != 0}
    {
        run(testing::standardProject);
    }
    Bench(const Bench&) = delete;
    Bench& operator=(const Bench&) = delete;
    ~Bench() { plainHost_.discardControls(); }

    void run(std::string_view scenario) { play(parseScenario(scenario)); }
    void play(const std::vector<Step>& steps)
    {
        if (traced_) {
            traceReplay_.play(steps);
            traceReplay_.run(""); // the trace must not grow for ever
        } else {
            for (const Step& step : steps)
                plainPlayer_.play(step);
        }
    }
    MemoryHost& host() { return traced_ ? traceReplay_.host() : plainHost_; }

private:
    bool traced_;
    Replay traceReplay_;
    // Without a trace: the player tells its own lines to nobody.
    PathNames paths_;
    TraceSink nowhere_{[](std::string_view) {}};
    MemoryHost plainHost_{[this] { plainPlayer_.pump(); }};
    ControlMaker plainControl_ = makeLibrary(plainHost_.platform());
    Player plainPlayer_{plainHost_, plainControl_, nowhere_, paths_};
};

void projectAlone(benchmark::State& state)
{
    for (auto _ : state)
        const Bench bench{state};
}

void startToMenuAlone(benchmark::State& state)
{
    const auto steps = parseScenario(shown);
    for (auto _ : state) {
        Bench bench{state};
        bench.play(steps);
    }
}

void startToPageAlone(benchmark::State& state)
{
    const auto steps = parseScenario(onPage);
    for (auto _ : state) {
        Bench bench{state};
        bench.play(steps);
    }
}

void openPage(benchmark::State& state)
{
    Bench bench{state};
    bench.run(shown);
    const auto steps = parseScenario(throughPage);
    for (auto _ : state)
        bench.play(steps);
}

void tick(benchmark::State& state)
{
    Bench bench{state};
    bench.run(state.range(1) != 0 ? onDiagnosis : onPage);
    const auto steps = parseScenario(ticking);
    for (auto _ : state)
        bench.play(steps);
}

void confirmAlone(benchmark::State& state)
{
    Bench bench{state};
    bench.run(onPage);
    const auto one = parseScenario(confirming);
    const auto other = parseScenario(confirmingOther);
    bool isOdd = false;
    for (auto _ : state)
        bench.play((isOdd = !isOdd) ? one : other);
    const basic::Variant* flag = bench.host().world().variables.find("Ch1.M1_T_servo_3<.mM1_servoaender_3>");
    if (flag == nullptr || basic::toInt32(*flag) != 1) throw std::runtime_error{"nothing was confirmed"};
}

// Names of the process variables in the lines of a trace that begin so: "read NAME = VALUE".
std::vector<std::string> namesIn(Replay& replay, std::string_view beginning)
{
    std::vector<std::string> names;
    std::istringstream lines{replay.lines(beginning)};
    for (std::string line; std::getline(lines, line);) {
        const std::string name = line.substr(beginning.size(), line.find(" = ") - beginning.size());
        if (replay.host().world().variables.find(name) != nullptr) names.push_back(name);
    }
    return names;
}

// The floor of an action: the variables that it reads are read and compared, those that it writes are written, each as
// often as its trace tells.
void variablesAlone(benchmark::State& state, const std::string& before, const std::string& action)
{
    Replay replay;
    replay.run(testing::standardProject);
    replay.run(before);
    replay.run(action);
    const std::vector<std::string> reads = namesIn(replay, "read ");
    const std::vector<std::string> writes = namesIn(replay, "write ");
    if (reads.empty()) throw std::runtime_error{"the trace tells of no variables"};
    MemoryVariables& variables = replay.host().world().variables;
    const auto valuesOf = [&](const std::vector<std::string>& names) {
        std::vector<basic::Variant> values;
        for (const std::string& name : names)
            values.push_back(variables.read(name));
        return values;
    };
    const std::vector<basic::Variant> values = valuesOf(reads);
    const std::vector<basic::Variant> written = valuesOf(writes);
    for (auto _ : state) {
        for (std::size_t i = 0; i < reads.size(); ++i)
            if (variables.read(reads[i]) != values[i]) throw std::runtime_error{"a value has changed"};
        for (std::size_t i = 0; i < writes.size(); ++i)
            variables.write(writes[i], written[i]);
    }
    state.counters["reads"] = static_cast<double>(reads.size());
    state.counters["writes"] = static_cast<double>(writes.size());
}

void withoutAndWith(benchmark::internal::Benchmark* bench)
{
    bench->ArgName("trace")->Arg(0)->Arg(1)->Unit(benchmark::kMicrosecond);
}

BENCHMARK(projectAlone)->Apply(withoutAndWith);
BENCHMARK(startToMenuAlone)->Apply(withoutAndWith);
BENCHMARK(startToPageAlone)->Apply(withoutAndWith);
BENCHMARK(openPage)->Apply(withoutAndWith);
BENCHMARK(tick)
    ->ArgNames({"trace", "diagnosis"})
    ->ArgsProduct({{0, 1}, {0, 1}})
    ->Unit(benchmark::kMicrosecond);
BENCHMARK(confirmAlone)->Apply(withoutAndWith);

BENCHMARK_CAPTURE(variablesAlone, startToMenuAlone, std::string{}, shown)->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(variablesAlone, startToPageAlone, page, shown)->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(variablesAlone, openPage, shown, throughPage)->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(variablesAlone, tickOfParameters, onPage + ticking, ticking)->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(variablesAlone, tickOfDiagnosis, onDiagnosis + ticking, ticking)
    ->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(variablesAlone, confirmAlone, onPage, confirming)->Unit(benchmark::kMicrosecond);

} // namespace

} // namespace servopanel::recording
