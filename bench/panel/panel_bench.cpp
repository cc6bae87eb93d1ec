// What an operator waits for, in the real panel painted into memory: the first menu and the first page, a page, a tick of
// its timer, a confirm. Each until the last pixel is painted.
#include "bench_panel.h"
#include "samples.h"
#include "support/run.h"

#include <QLabel>

#include <algorithm>
#include <ctime>
#include <stdexcept>

namespace servopanel::bench {

namespace {

constexpr int leaveKey = 11;
constexpr int diagnosisKey = 10; // while nothing waits to be confirmed
constexpr int confirmKey = 10;

void require(bool isSo, const char* what)
{
    if (!isSo) throw std::runtime_error{what};
}

bool isTraced(const benchmark::State& state) { return state.range(0) != 0; }

// Samples are kept of what an operator has, without a trace.
const char* sampleOf(const benchmark::State& state, const char* name) { return isTraced(state) ? "" : name; }

void processToScreen(benchmark::State& state, const char* screen, const DemoCopy& copy)
{
    const tests::EnvironmentVariable temporary{"TEMPVELM", copy.temporary().c_str()};
    // The scaled pictures are made before.
    run({FIRST_SCREEN, screen, copy.project()});
    for (auto _ : state)
        timed(state, [&] { run({FIRST_SCREEN, screen, copy.project()}); });
}

void processToMenu(benchmark::State& state) { processToScreen(state, "menu", DemoCopy{}); }
void processToPage(benchmark::State& state)
{
    processToScreen(state, "page", DemoCopy{DemoCopy::Begins::OnPage});
}
void processToEmptyWindow(benchmark::State& state) { processToScreen(state, "window", DemoCopy{}); }

void startToMenu(benchmark::State& state)
{
    const DemoCopy copy;
    BenchPanel{copy, false}.open();
    for (auto _ : state) {
        std::unique_ptr<BenchPanel> bench;
        timed(state, [&] {
            bench = std::make_unique<BenchPanel>(copy, isTraced(state));
            bench->open();
        });
        require(bench->showsMenu(), "the menu was not painted");
    }
}

void startToPage(benchmark::State& state)
{
    const DemoCopy copy{DemoCopy::Begins::OnPage};
    for (auto _ : state) {
        std::unique_ptr<BenchPanel> bench;
        timed(state, [&] {
            bench = std::make_unique<BenchPanel>(copy, isTraced(state));
            bench->open();
        });
        require(bench->showsPage(), "the page was not painted");
    }
}

// From the touch of a key of the menu. firstTime: of this page, whose pictures have to be loaded.
void openPage(benchmark::State& state, bool isFirstTime)
{
    const DemoCopy copy;
    std::unique_ptr<BenchPanel> bench;
    for (auto _ : state) {
        if (!bench || isFirstTime) {
            bench.reset();
            bench = std::make_unique<BenchPanel>(copy, isTraced(state));
            bench->open();
            bench->stopTicks();
        }
        QWidget& key = bench->menuKey(1);
        bench->paintings().startAnew();
        timed(
            state, [&] { bench->tap(key); },
            sampleOf(state, isFirstTime ? "openPageFirst" : "openPageAgain"));
        require(bench->showsPage(), "the page was not painted");
        if (!isFirstTime) bench->tap(bench->footerKey(leaveKey));
    }
}
void openPageFirst(benchmark::State& state) { openPage(state, true); }
void openPageAgain(benchmark::State& state) { openPage(state, false); }

enum class Values { Same, Changing };

void tick(benchmark::State& state, Values values)
{
    const DemoCopy copy;
    BenchPanel bench{copy, isTraced(state)};
    bench.open();
    bench.tap(bench.menuKey(1));
    if (state.range(1) != 0) bench.tap(bench.footerKey(diagnosisKey));
    bench.stopTicks();
    require(bench.showsPage(), "there is no page");
    // Once, so that everything has its place.
    bench.tick();
    bench.tick();
    bench.takeReads();
    bench.paintings().startAnew();
    const char* const sample =
        state.range(1) == 0 ? "" : sampleOf(state, values == Values::Same ? "tickUnchanged" : "tickChanging");
    std::clock_t worked = 0; // by all threads
    for (auto _ : state) {
        if (values == Values::Changing) bench.changeEveryValue();
        worked -= std::clock();
        timed(
            state, [&] { bench.tick(); }, sample);
        worked += std::clock();
    }
    const auto perTick = [&](auto count) {
        return static_cast<double>(count) / static_cast<double>(state.iterations());
    };
    state.counters["core_seconds"] = perTick(worked) / CLOCKS_PER_SEC;
    state.counters["reads"] = perTick(bench.takeReads().size());
    state.counters["paintings"] = perTick(bench.paintings().paintings());
    state.counters["pixels"] = perTick(bench.paintings().pixels());
    const bool hasPainted = bench.paintings().paintings() > 0;
    require(hasPainted == (values == Values::Changing),
        hasPainted ? "an unchanged page was painted" : "changed values were not painted");
}
void tickUnchanged(benchmark::State& state) { tick(state, Values::Same); }
void tickChanging(benchmark::State& state) { tick(state, Values::Changing); }

void confirm(benchmark::State& state)
{
    const DemoCopy copy;
    BenchPanel bench{copy, isTraced(state)};
    bench.open();
    bench.tap(bench.menuKey(1));
    bench.stopTicks();
    int written = 0;
    bench.panel().setWrittenHandler([&](std::string_view name, const basic::Variant&) {
        if (name.find("servo_para_") != std::string_view::npos) ++written;
    });
    bool isOther = false;
    for (auto _ : state) {
        bench.enter((isOther = !isOther) ? "301.5" : "302.5");
        QWidget& key = bench.footerKey(confirmKey);
        const int before = written;
        timed(
            state, [&] { bench.tap(key); }, sampleOf(state, "confirm"));
        require(written == before + 1, "nothing was confirmed");
        bench.stopTicks();
    }
}

// The floor of a tick: the variables that it reads are read and compared with what they were.
void tickFloor(benchmark::State& state)
{
    const DemoCopy copy;
    BenchPanel bench{copy, false};
    bench.open();
    bench.tap(bench.menuKey(1));
    bench.tap(bench.footerKey(diagnosisKey));
    bench.stopTicks();
    bench.takeReads();
    bench.tick();
    const std::vector<std::string> names = bench.takeReads();
    std::vector<basic::Variant> before;
    for (const std::string& name : names)
        before.push_back(bench.panel().variables().ReadValue(name));
    for (auto _ : state)
        timed(state, [&] {
            for (std::size_t i = 0; i < names.size(); ++i)
                if (bench.panel().variables().ReadValue(names[i]) != before[i])
                    throw std::runtime_error{"a value has changed"};
        });
}

// The floor of a tick that brings everything anew: as many pixels as it paints are filled.
void paintFloor(benchmark::State& state)
{
    const DemoCopy copy;
    BenchPanel bench{copy, false};
    bench.open();
    bench.tap(bench.menuKey(1));
    bench.tap(bench.footerKey(diagnosisKey));
    bench.stopTicks();
    bench.tick();
    bench.paintings().startAnew();
    bench.changeEveryValue();
    bench.tick();
    std::vector<std::uint32_t> pixels(static_cast<std::size_t>(bench.paintings().pixels()));
    std::uint32_t colour = 0;
    for (auto _ : state)
        timed(state, [&] {
            std::fill(pixels.begin(), pixels.end(), ++colour);
            benchmark::ClobberMemory();
        });
}

// What anybody would put together for forty values: labels that are given texts.
void plainLabels(benchmark::State& state)
{
    constexpr int labels = 40;
    QWidget window;
    window.resize(1280, 1024);
    std::vector<std::unique_ptr<QLabel>> values;
    for (int i = 0; i < labels; ++i) {
        auto& label = *values.emplace_back(std::make_unique<QLabel>(&window));
        label.setGeometry(300 + 500 * (i % 2), 200 + 30 * (i / 2), 120, 28);
        label.setAlignment(Qt::AlignRight | Qt::AlignVCenter);
        label.setFrameShape(QFrame::Box);
    }
    window.show();
    workUntilIdle();
    double added = 0;
    for (auto _ : state) {
        if (state.range(0) != 0) added = 0.1 - added;
        timed(state, [&] {
            for (int i = 0; i < labels; ++i)
                values[static_cast<std::size_t>(i)]->setText(QString::number(i * 12.5 + added, 'f', 1));
            workUntilIdle();
        });
    }
}

void withoutAndWith(benchmark::internal::Benchmark* bench)
{
    bench->ArgName("trace")->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond)->UseManualTime();
}
void ticks(benchmark::internal::Benchmark* bench)
{
    bench->ArgNames({"trace", "diagnosis"})
        ->ArgsProduct({{0, 1}, {0, 1}})
        ->Unit(benchmark::kMillisecond)
        ->UseManualTime();
}
void alone(benchmark::internal::Benchmark* bench) { bench->Unit(benchmark::kMillisecond)->UseManualTime(); }

BENCHMARK(processToMenu)->Apply(alone);
BENCHMARK(processToPage)->Apply(alone);
BENCHMARK(processToEmptyWindow)->Apply(alone);
BENCHMARK(startToMenu)->Apply(withoutAndWith);
BENCHMARK(startToPage)->Apply(withoutAndWith);
BENCHMARK(openPageFirst)->Apply(withoutAndWith);
BENCHMARK(openPageAgain)->Apply(withoutAndWith);
BENCHMARK(tickUnchanged)->Apply(ticks);
BENCHMARK(tickChanging)->Apply(ticks);
BENCHMARK(tickFloor)->Apply(alone);
BENCHMARK(paintFloor)->Apply(alone);
BENCHMARK(plainLabels)->ArgName("changing")->Arg(0)->Arg(1)->Apply(alone);
BENCHMARK(confirm)->Apply(withoutAndWith);

} // namespace

} // namespace servopanel::bench
