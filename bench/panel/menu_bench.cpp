// A page of the menu with eight keys: from the sources of its pictures, from the copies that were scaled before, and from
// what is in memory. Beside a plain form of eight labels with the same pictures, and beside the bytes of the
// files read at once.
#include "bench_panel.h"
#include "samples.h"
#include "support/read_at_once.h"

#include <QImageReader>
#include <QLabel>

#include <array>
#include <stdexcept>

namespace servopanel::bench {

namespace {

constexpr int leaveKey = 11;
constexpr std::size_t keys = 8;
using Files = std::vector<std::filesystem::path>;

enum class From { Sources, Copies };

void menuPage(benchmark::State& state, const char* name, From from)
{
    const DemoCopy copy;
    BenchPanel{copy}.open();
    Iterations iterations{state, name};
    for (auto _ : state) {
        if (from == From::Sources) copy.forgetScaledPictures();
        BenchPanel bench{copy};
        iterations.time([&] { bench.open(); });
        if (!bench.showsMenu()) throw std::runtime_error{"the menu was not painted"};
    }
}
void menuFromSources(benchmark::State& state) { menuPage(state, "menuFromSources", From::Sources); }
void menuFromCopies(benchmark::State& state) { menuPage(state, "menuFromCopies", From::Copies); }

// From the touch of the key that leads back.
void menuFromMemory(benchmark::State& state)
{
    const DemoCopy copy;
    BenchPanel bench{copy};
    bench.open();
    Iterations iterations{state, "menuFromMemory"};
    for (auto _ : state) {
        bench.tap(bench.menuKey(1));
        QWidget& key = bench.footerKey(leaveKey);
        bench.paintings().startAnew();
        iterations.time([&] { bench.tap(key); });
        if (!bench.showsMenu()) throw std::runtime_error{"the menu was not painted"};
    }
}

// What the first page of the menu loads: sources, and copies that a panel has made of them.
Files sources()
{
    Files files;
    for (const char* servo : {"S_M1_1", "M1_2", "M1_3", "S_M1_5", "M1_6", "M1_8", "M1_9", "S_M1_11_2"})
        files.push_back(
            std::filesystem::path{DEMO_PROJECT} / "Servo" / ("Servo_" + std::string{servo} + "_1280.gif"));
    return files;
}

Files copies(const DemoCopy& copy)
{
    BenchPanel{copy}.open();
    Files files;
    for (const auto& entry : std::filesystem::recursive_directory_iterator{copy.temporary()})
        if (entry.is_regular_file()) files.push_back(entry.path());
    if (files.size() != keys) throw std::runtime_error{"there are not eight copies"};
    return files;
}

QImage pictureOf(const std::filesystem::path& file)
{
    QImageReader reader{QString::fromStdString(file.string())};
    reader.setDecideFormatFromContent(true);
    const QImage picture = reader.read();
    if (picture.isNull()) throw std::runtime_error{"cannot read " + file.string()};
    return picture;
}

// A window with a background and eight pictures, as anybody would put it together with Qt's own widgets.
class PlainMenu {
public:
    PlainMenu()
    {
        window_.resize(1280, 1024);
        window_.setAutoFillBackground(true);
        for (std::size_t i = 0; i < keys; ++i) {
            labels_[i].setParent(&window_);
            labels_[i].setGeometry(
                9 + 606 * static_cast<int>(i % 2), 158 + 189 * static_cast<int>(i / 2), 598, 181);
        }
    }
    void show(const std::array<QPixmap, keys>& pictures)
    {
        for (std::size_t i = 0; i < keys; ++i)
            labels_[i].setPixmap(pictures[i]);
        window_.show();
        workUntilIdle();
    }

private:
    QWidget window_;
    std::array<QLabel, keys> labels_;
};

std::array<QPixmap, keys> loaded(const Files& files, From from)
{
    std::array<QPixmap, keys> pictures;
    for (std::size_t i = 0; i < keys; ++i) {
        QImage picture = pictureOf(files[i]);
        if (from == From::Sources)
            picture = picture.scaled({598, 181}, Qt::KeepAspectRatio, Qt::SmoothTransformation);
        pictures[i] = QPixmap::fromImage(picture);
    }
    return pictures;
}

void plainForm(benchmark::State& state, const char* name, const Files& files, From from)
{
    Iterations iterations{state, name};
    for (auto _ : state) {
        PlainMenu menu;
        iterations.time([&] { menu.show(loaded(files, from)); });
    }
}
void plainFromSources(benchmark::State& state)
{
    plainForm(state, "plainFromSources", sources(), From::Sources);
}
void plainFromCopies(benchmark::State& state)
{
    const DemoCopy copy;
    plainForm(state, "plainFromCopies", copies(copy), From::Copies);
}

void plainFromMemory(benchmark::State& state)
{
    const DemoCopy copy;
    const auto pictures = loaded(copies(copy), From::Copies);
    Iterations iterations{state, "plainFromMemory"};
    for (auto _ : state) {
        PlainMenu menu;
        iterations.time([&] { menu.show(pictures); });
    }
}

void bytesAreRead(benchmark::State& state, const char* name, const Files& files)
{
    Iterations iterations{state, name};
    std::string content;
    for (auto _ : state)
        iterations.time([&] {
            for (const std::filesystem::path& file : files) {
                readAtOnce(file, content);
                benchmark::ClobberMemory();
            }
        });
}
void floorOfSources(benchmark::State& state) { bytesAreRead(state, "floorOfSources", sources()); }
void floorOfCopies(benchmark::State& state)
{
    const DemoCopy copy;
    bytesAreRead(state, "floorOfCopies", copies(copy));
}

// As many pixels as the menu paints when it comes from memory.
void floorOfMemory(benchmark::State& state)
{
    const DemoCopy copy;
    BenchPanel bench{copy};
    bench.open();
    bench.tap(bench.menuKey(1));
    QWidget& key = bench.footerKey(leaveKey);
    bench.paintings().startAnew();
    bench.tap(key);
    fillPixels(bench.paintings().pixels(), state, {state, "floorOfMemory"});
}

void alone(benchmark::internal::Benchmark* bench)
{
    constexpr int iterations = 40;
    bench->Unit(benchmark::kMillisecond)->UseManualTime()->Iterations(iterations);
}

BENCHMARK(menuFromSources)->Apply(alone);
BENCHMARK(menuFromCopies)->Apply(alone);
BENCHMARK(menuFromMemory)->Apply(alone);
BENCHMARK(plainFromSources)->Apply(alone);
BENCHMARK(plainFromCopies)->Apply(alone);
BENCHMARK(plainFromMemory)->Apply(alone);
BENCHMARK(floorOfSources)->Apply(alone);
BENCHMARK(floorOfCopies)->Apply(alone);
BENCHMARK(floorOfMemory)->Apply(alone);

} // namespace

} // namespace servopanel::bench
