// What an operator waits for, in the real panel painted into memory: the first menu and the first page, a page, a tick of
// its timer, a confirm. Each until the last pixel is painted.
#include "bench_panel.h"
#include "portable/descriptor.h"
#include "samples.h"
#include "support/run.h"

#include <QLabel>

#include <fcntl.h>
#include <unistd.h>

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

Records recordsOf(const benchmark::State& state) { return {.trace = state.range(0) != 0}; }

enum class Pictures { ScaledBefore, NotScaledYet };

// As ./run starts it, with a journal.
void processToScreen(Iterations iterations, benchmark::State& state, const char* screen, const DemoCopy& copy,
    Pictures pictures = Pictures::ScaledBefore)
{
    const tests::EnvironmentVariable temporary{"TEMPVELM", copy.temporary().c_str()};
    const auto start = [&] { run({FIRST_SCREEN, screen, copy.project(), "--journal", copy.records()}); };
    start();
    for (auto _ : state) {
        if (pictures == Pictures::NotScaledYet) copy.forgetScaledPictures();
        iterations.time(start);
    }
}

void processToMenu(benchmark::State& state)
{
    processToScreen({state, "processToMenu"}, state, "menu", DemoCopy{});
}
// As on the first start of an installation.
void processToFirstMenu(benchmark::State& state)
{
    processToScreen({state, "processToFirstMenu"}, state, "menu", DemoCopy{}, Pictures::NotScaledYet);
}
void processToPage(benchmark::State& state)
{
    processToScreen({state, "processToPage"}, state, "page", DemoCopy{DemoCopy::Begins::OnPage});
}
void processToEmptyWindow(benchmark::State& state)
{
    processToScreen({state, "processToEmptyWindow"}, state, "window", DemoCopy{});
}

// A program's very first page: it shows its menu, is touched at once and measures itself until the page is painted.
void firstTouch(benchmark::State& state)
{
    const DemoCopy copy;
    const tests::EnvironmentVariable temporary{"TEMPVELM", copy.temporary().c_str()};
    const tests::TemporaryFolder folder;
    const std::filesystem::path output = folder.path() / "milliseconds";
    const auto start = [&] {
        run({FIRST_SCREEN, "touch", copy.project(), "--journal", copy.records()}, output);
        return std::chrono::duration<double, std::milli>{std::stod(tests::contentOf(output))};
    };
    start();
    Iterations iterations{state, "firstTouch"};
    for (auto _ : state)
        iterations.take(start());
}

void startToMenu(benchmark::State& state)
{
    const DemoCopy copy;
    BenchPanel{copy}.open();
    Iterations iterations{state, "startToMenu", {"trace"}};
    for (auto _ : state) {
        std::unique_ptr<BenchPanel> bench;
        iterations.time([&] {
            bench = std::make_unique<BenchPanel>(copy, recordsOf(state));
            bench->open();
        });
        require(bench->showsMenu(), "the menu was not painted");
    }
}

void startToPage(benchmark::State& state)
{
    const DemoCopy copy{DemoCopy::Begins::OnPage};
    BenchPanel{copy}.open();
    Iterations iterations{state, "startToPage", {"trace"}};
    for (auto _ : state) {
        std::unique_ptr<BenchPanel> bench;
        iterations.time([&] {
            bench = std::make_unique<BenchPanel>(copy, recordsOf(state));
            bench->open();
        });
        require(bench->showsPage(), "the page was not painted");
    }
}

// From the touch of a key of the menu.
void touchServo(BenchPanel& bench, Iterations& iterations)
{
    QWidget& key = bench.menuKey(1);
    bench.paintings().startAnew();
    iterations.time([&] { bench.tap(key); });
    require(bench.showsPage(), "the page was not painted");
}

// A page that this panel has not shown yet: it is made, and its pictures have to be loaded. Other panels of this program
// have shown it, so that its fonts are there.
void openPageFirst(benchmark::State& state)
{
    const DemoCopy copy;
    Iterations iterations{state, "openPageFirst", {"trace"}};
    for (auto _ : state) {
        BenchPanel bench{copy, recordsOf(state)};
        bench.open();
        bench.stopTicks();
        touchServo(bench, iterations);
    }
}

void openPageAgain(benchmark::State& state)
{
    const DemoCopy copy;
    BenchPanel bench{copy, recordsOf(state)};
    bench.open();
    bench.stopTicks();
    bench.tap(bench.menuKey(1));
    Iterations iterations{state, "openPageAgain", {"trace"}};
    for (auto _ : state) {
        bench.tap(bench.footerKey(leaveKey));
        touchServo(bench, iterations);
    }
}

enum class Values { Same, Changing };

void tick(benchmark::State& state, const char* name, Values values)
{
    const DemoCopy copy;
    BenchPanel bench{copy, recordsOf(state)};
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
    Iterations iterations{state, name, {"trace", "diagnosis"}};
    std::clock_t worked = 0; // by all threads
    for (auto _ : state) {
        if (values == Values::Changing) bench.changeEveryValue();
        worked -= std::clock();
        iterations.time([&] { bench.tick(); });
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
void tickUnchanged(benchmark::State& state) { tick(state, "tickUnchanged", Values::Same); }
void tickChanging(benchmark::State& state) { tick(state, "tickChanging", Values::Changing); }

void confirm(benchmark::State& state)
{
    const DemoCopy copy;
    BenchPanel bench{copy, {.trace = state.range(0) != 0, .journal = state.range(1) != 0}};
    bench.open();
    bench.tap(bench.menuKey(1));
    bench.stopTicks();
    int written = 0;
    bench.panel().setWrittenHandler([&](std::string_view name, const basic::Variant&) {
        if (name.find("servo_para_") != std::string_view::npos) ++written;
    });
    bool isOther = false;
    Iterations iterations{state, "confirm", {"trace", "journal"}};
    for (auto _ : state) {
        bench.enter((isOther = !isOther) ? "301.5" : "302.5");
        QWidget& key = bench.footerKey(confirmKey);
        const int before = written;
        iterations.time([&] { bench.tap(key); });
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
    BenchPanel bench{copy};
    goToPage(bench, state.range(0) != 0);
    bench.takeReads();
    bench.tick();
    const std::vector<std::string> names = bench.takeReads();
    std::vector<basic::Variant> before;
    for (const std::string& name : names)
        before.push_back(bench.panel().variables().ReadValue(name));
    Iterations iterations{state, "tickFloor", {"diagnosis"}};
    for (auto _ : state)
        iterations.time([&] {
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
    BenchPanel bench{copy};
    goToPage(bench, isDiagnosis);
    bench.changeEveryValue();
    return paintedBy(bench, [&] { bench.tick(); });
}

Painted opening()
{
    const DemoCopy copy;
    BenchPanel bench{copy};
    bench.open();
    QWidget& key = bench.menuKey(1);
    return paintedBy(bench, [&] { bench.tap(key); });
}

// And what it adds to the journal.
struct Confirmed {
    Painted painted;
    std::string journal;
};
Confirmed confirming()
{
    const DemoCopy copy;
    BenchPanel bench{copy};
    goToPage(bench, false);
    bench.enter("301.5");
    QWidget& key = bench.footerKey(confirmKey);
    const std::filesystem::path journal = copy.records() / "journal";
    const std::string before = tests::contentOf(journal);
    const Painted painted = paintedBy(bench, [&] { bench.tap(key); });
    return {painted, tests::contentOf(journal).substr(before.size())};
}

// The floors of what brings something new: as many pixels as it paints are filled.
void tickPaintFloor(benchmark::State& state)
{
    fillPixels(tickOf(state.range(0) != 0).pixels, state, {state, "tickPaintFloor", {"diagnosis"}});
}
void openPageFloor(benchmark::State& state) { fillPixels(opening().pixels, state, {state, "openPageFloor"}); }
void confirmFloor(benchmark::State& state)
{
    fillPixels(confirming().painted.pixels, state, {state, "confirmFloor"});
}

// What a confirm adds to the journal, added to a file at once and on the disk.
void journalFloor(benchmark::State& state)
{
    const std::string lines = confirming().journal;
    require(!lines.empty(), "nothing came into the journal");
    state.counters["bytes"] = static_cast<double>(lines.size());
    state.counters["lines"] = static_cast<double>(std::count(lines.begin(), lines.end(), '\n'));
    const tests::TemporaryFolder folder;
    const portable::Descriptor file{
        ::open((folder.path() / "floor").c_str(), O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC, 0600)};
    Iterations iterations{state, "journalFloor"};
    for (auto _ : state)
        iterations.time([&] {
            require(::write(file.number(), lines.data(), lines.size()) == static_cast<ssize_t>(lines.size())
                    && ::fdatasync(file.number()) == 0,
                "the file cannot be written");
        });
}

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

void plainLabels(benchmark::State& state, const char* name, int labels)
{
    PlainPage plain{labels};
    state.counters["labels"] = labels;
    double added = 0;
    Iterations iterations{state, name, {"changing"}};
    for (auto _ : state) {
        if (state.range(0) != 0) added = 0.1 - added;
        iterations.time([&] {
            plain.setValues(added);
            workUntilIdle();
        });
    }
}
// As many labels as the panel paints widgets.
void plainDiagnosis(benchmark::State& state) { plainLabels(state, "plainDiagnosis", tickOf(true).widgets); }
void plainParameters(benchmark::State& state)
{
    plainLabels(state, "plainParameters", tickOf(false).widgets);
}

// As many labels as the panel paints widgets when a page is opened, given their texts and shown.
void plainOpening(benchmark::State& state)
{
    const int labels = opening().widgets;
    PlainPage plain{labels};
    state.counters["labels"] = labels;
    double added = 0;
    Iterations iterations{state, "plainOpening"};
    for (auto _ : state) {
        plain.page().hide();
        workUntilIdle();
        added = 0.1 - added;
        iterations.time([&] {
            plain.setValues(added);
            plain.page().show();
            workUntilIdle();
        });
    }
}

// Of each repetition; the program that makes the page repeats them all. Enough to tell of the slowest ones.
constexpr int starts = 20;
constexpr int touches = 50;
constexpr int refreshes = 1000;
constexpr int floors = 200;

void starting(benchmark::internal::Benchmark* bench)
{
    bench->Unit(benchmark::kMillisecond)->UseManualTime()->Iterations(starts);
}
void touching(benchmark::internal::Benchmark* bench)
{
    bench->Unit(benchmark::kMillisecond)->UseManualTime()->Iterations(touches);
}
void refreshing(benchmark::internal::Benchmark* bench)
{
    bench->Unit(benchmark::kMillisecond)->UseManualTime()->Iterations(refreshes);
}
void least(benchmark::internal::Benchmark* bench)
{
    bench->Unit(benchmark::kMillisecond)->UseManualTime()->Iterations(floors);
}
void withoutAndWith(benchmark::internal::Benchmark* bench) { bench->ArgName("trace")->Arg(0)->Arg(1); }
void eachPage(benchmark::internal::Benchmark* bench)
{
    bench->ArgNames({"trace", "diagnosis"})->ArgsProduct({{0, 1}, {0, 1}});
}

BENCHMARK(processToMenu)->Apply(starting);
BENCHMARK(processToFirstMenu)->Apply(starting);
BENCHMARK(processToPage)->Apply(starting);
BENCHMARK(processToEmptyWindow)->Apply(starting);
BENCHMARK(firstTouch)->Apply(starting);
BENCHMARK(startToMenu)->Apply(withoutAndWith)->Apply(starting);
BENCHMARK(startToPage)->Apply(withoutAndWith)->Apply(starting);
BENCHMARK(openPageFirst)->Apply(withoutAndWith)->Apply(touching);
BENCHMARK(openPageAgain)->Apply(withoutAndWith)->Apply(touching);
BENCHMARK(openPageFloor)->Apply(least);
BENCHMARK(tickUnchanged)->Apply(eachPage)->Apply(refreshing);
BENCHMARK(tickChanging)->Apply(eachPage)->Apply(refreshing);
BENCHMARK(tickFloor)->ArgName("diagnosis")->Arg(0)->Arg(1)->Apply(refreshing);
BENCHMARK(tickPaintFloor)->ArgName("diagnosis")->Arg(0)->Arg(1)->Apply(least);
BENCHMARK(plainDiagnosis)->ArgName("changing")->Arg(0)->Arg(1)->Apply(refreshing);
BENCHMARK(plainParameters)->ArgName("changing")->Arg(0)->Arg(1)->Apply(refreshing);
BENCHMARK(plainOpening)->Apply(touching);
BENCHMARK(confirm)->ArgNames({"trace", "journal"})->ArgsProduct({{0, 1}, {0, 1}})->Apply(touching);
BENCHMARK(confirmFloor)->Apply(least);
BENCHMARK(journalFloor)->Apply(least);

} // namespace

} // namespace servopanel::bench
