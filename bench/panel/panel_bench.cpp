// What an operator waits for, in the real panel painted into memory: the first menu and the first page, a page, a tick of
// its timer, a confirm. Each until the last pixel is painted.
#include "bench_panel.h"
#include "samples.h"
#include "support/run.h"

#include <QLabel>

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

// The first servo's page, or its diagnosis page, with nothing left to be done.
void goToPage(BenchPanel& bench, bool isDiagnosis)
{
    bench.open();
    bench.tap(bench.menuKey(1));
    if (isDiagnosis) bench.tap(bench.footerKey(diagnosisKey));
    bench.stopTicks();
    bench.tick();
}

// The floor of a tick: the variables that it reads are read and compared with what they were.
void tickFloor(benchmark::State& state)
{
    const DemoCopy copy;
    BenchPanel bench{copy, false};
    goToPage(bench, state.range(0) != 0);
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

// What an action paints, counted once.
struct Painted {
    std::int64_t pixels = 0;
    int widgets = 0;
};
template <class F>
Painted paintedBy(BenchPanel& bench, F action)
{
    bench.paintings().startAnew();
    action();
    return {bench.paintings().pixels(), bench.paintings().paintings()};
}

Painted tickOf(bool isDiagnosis)
{
    const DemoCopy copy;
    BenchPanel bench{copy, false};
    goToPage(bench, isDiagnosis);
    bench.changeEveryValue();
    return paintedBy(bench, [&] { bench.tick(); });
}

Painted opening()
{
    const DemoCopy copy;
    BenchPanel bench{copy, false};
    bench.open();
    QWidget& key = bench.menuKey(1);
    return paintedBy(bench, [&] { bench.tap(key); });
}

Painted confirming()
{
    const DemoCopy copy;
    BenchPanel bench{copy, false};
    goToPage(bench, false);
    bench.enter("301.5");
    QWidget& key = bench.footerKey(confirmKey);
    return paintedBy(bench, [&] { bench.tap(key); });
}

// The floors of what brings something new: as many pixels as it paints are filled.
void tickPaintFloor(benchmark::State& state) { fillPixels(state, tickOf(state.range(0) != 0).pixels); }
void openPageFloor(benchmark::State& state) { fillPixels(state, opening().pixels); }
void confirmFloor(benchmark::State& state) { fillPixels(state, confirming().pixels); }

// What anybody would put together for values: labels that are given texts.
class PlainPage {
public:
    explicit PlainPage(int labels)
    {
        window_.resize(1280, 1024);
        page_.setParent(&window_);
        page_.setGeometry(window_.rect());
        constexpr int rows = 30;
        for (int i = 0; i < labels; ++i) {
            auto& label = *labels_.emplace_back(std::make_unique<QLabel>(&page_));
            label.setGeometry(20 + 180 * (i / rows % 7), 100 + 30 * (i % rows), 120, 28);
            label.setAlignment(Qt::AlignRight | Qt::AlignVCenter);
            label.setFrameShape(QFrame::Box);
        }
        window_.show();
        workUntilIdle();
    }

    QWidget& page() { return page_; }
    void setValues(double added)
    {
        for (std::size_t i = 0; i < labels_.size(); ++i)
            labels_[i]->setText(QString::number(static_cast<double>(i) * 12.5 + added, 'f', 1));
    }

private:
    QWidget window_;
    QWidget page_;
    std::vector<std::unique_ptr<QLabel>> labels_;
};

void plainLabels(benchmark::State& state, int labels)
{
    PlainPage plain{labels};
    state.counters["labels"] = labels;
    double added = 0;
    for (auto _ : state) {
        if (state.range(0) != 0) added = 0.1 - added;
        timed(state, [&] {
            plain.setValues(added);
            workUntilIdle();
        });
    }
}
void plainDiagnosis(benchmark::State& state) { plainLabels(state, 40); } // as many as it has values
void plainParameters(benchmark::State& state) { plainLabels(state, tickOf(false).widgets); }

// As many labels as the panel paints widgets when a page is opened, given their texts and shown.
void plainOpening(benchmark::State& state)
{
    const int labels = opening().widgets;
    PlainPage plain{labels};
    state.counters["labels"] = labels;
    double added = 0;
    for (auto _ : state) {
        plain.page().hide();
        workUntilIdle();
        added = 0.1 - added;
        timed(state, [&] {
            plain.setValues(added);
            plain.page().show();
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
BENCHMARK(tickFloor)->ArgName("diagnosis")->Arg(0)->Arg(1)->Apply(alone);
BENCHMARK(tickPaintFloor)->ArgName("diagnosis")->Arg(0)->Arg(1)->Apply(alone);
BENCHMARK(openPageFloor)->Apply(alone);
BENCHMARK(confirmFloor)->Apply(alone);
BENCHMARK(plainDiagnosis)->ArgName("changing")->Arg(0)->Arg(1)->Apply(alone);
BENCHMARK(plainParameters)->ArgName("changing")->Arg(0)->Arg(1)->Apply(alone);
BENCHMARK(plainOpening)->Apply(alone);
BENCHMARK(confirm)->Apply(withoutAndWith);

} // namespace

} // namespace servopanel::bench
