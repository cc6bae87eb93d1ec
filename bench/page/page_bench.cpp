// What the library itself costs on a host in memory: from nothing to the first picture, a page opened, a tick of its timer, a
// confirm, each without and with a trace.
#include "basic/conversions.h"
#include "recording/replay.h"
#include "support/standard_project.h"

#include <benchmark/benchmark.h>

#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace servopanel::recording {

namespace {

constexpr std::string_view page = "var Ch-1.intern<.servo_zeiger> = 1\n";

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
    const auto steps = parseScenario("create\nshow");
    for (auto _ : state) {
        Bench bench{state};
        bench.play(steps);
    }
}

void startToPageAlone(benchmark::State& state)
{
    const auto steps = parseScenario(std::string{page} + "create\nshow");
    for (auto _ : state) {
        Bench bench{state};
        bench.play(steps);
    }
}

// From the menu to a servo's page, and back.
void openPage(benchmark::State& state)
{
    Bench bench{state};
    bench.run("create\nshow");
    const auto steps = parseScenario("menudown BildIm 1 100 100\nmenuup BildIm 1 100 100\nkey 11");
    for (auto _ : state)
        bench.play(steps);
}

void tick(benchmark::State& state)
{
    Bench bench{state};
    bench.run(std::string{page} + "create\nshow");
    if (state.range(1) != 0) bench.run("key 10");
    const auto steps = parseScenario("timer");
    for (auto _ : state)
        bench.play(steps);
}

void confirmAlone(benchmark::State& state)
{
    Bench bench{state};
    bench.run(std::string{page} + "create\nshow");
    const auto one = parseScenario("touch SollwertL 1\nmask 12.5\nkey 10");
    const auto other = parseScenario("touch SollwertL 1\nmask 13.5\nkey 10");
    bool isOdd = false;
    for (auto _ : state)
        bench.play((isOdd = !isOdd) ? one : other);
    const basic::Variant* flag = bench.host().world().variables.find("Ch1.M1_T_servo_3<.mM1_servoaender_3>");
    if (flag == nullptr || basic::toInt32(*flag) != 1) throw std::runtime_error{"nothing was confirmed"};
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

} // namespace

} // namespace servopanel::recording
