// A servo's picture scaled to a key of the menu: as the panel does it, beside QImage and pixman, and beside the floor,
// which touches every pixel of the source once.
#include "panel/pictures/picture_file.h"
#include "panel/widgets/canvas.h"

#include <benchmark/benchmark.h>

#include <QImage>
#include <QPainter>

#include <pixman.h>

#include <cstdlib>
#include <memory>
#include <numeric>
#include <utility>

namespace servopanel::bench {

namespace {

// Of a fine picture on a panel of 1280 pixels and on one of 800: the canvas that it is drawn on first, and the key.
struct Sizes {
    QSize canvas;
    QSize key;
};

Sizes sizes(const benchmark::State& state)
{
    return state.range(0) == 800 ? Sizes{{1236, 352}, {373, 105}} : Sizes{{1196, 362}, {598, 181}};
}

QImage canvas(const benchmark::State& state)
{
    const char* const name = "Servo_S_M1_1_1280.gif";
    const QImage picture = panel::loadPicture(std::filesystem::path{DEMO_PROJECT} / "Servo" / name, name);
    QImage made{sizes(state).canvas, QImage::Format_RGB32};
    made.fill(0xC0C0C0);
    QPainter{&made}.drawImage(
        (made.width() - picture.width()) / 2, made.height() - picture.height(), picture);
    return made;
}

void scaledByPanel(benchmark::State& state)
{
    const QImage from = canvas(state);
    panel::Canvas key;
    key.resize(sizes(state).key);
    for (auto _ : state)
        key.stretch(from, from.size(), key.image().size());
}

void scaledByQImage(benchmark::State& state)
{
    const QImage from = canvas(state);
    for (auto _ : state)
        benchmark::DoNotOptimize(
            from.scaled(sizes(state).key, Qt::IgnoreAspectRatio, Qt::SmoothTransformation));
}

using Picture = std::unique_ptr<pixman_image_t, decltype(&pixman_image_unref)>;

Picture pixmanPicture(QImage& image)
{
    return {pixman_image_create_bits(PIXMAN_x8r8g8b8, image.width(), image.height(),
                reinterpret_cast<std::uint32_t*>(image.bits()), static_cast<int>(image.bytesPerLine())),
        &pixman_image_unref};
}

// Each pixel is the mean of those of the source that fall on it, as with the two above.
void scaledByPixman(benchmark::State& state)
{
    QImage from = canvas(state);
    QImage to{sizes(state).key, QImage::Format_RGB32};
    const Picture source = pixmanPicture(from);
    const Picture key = pixmanPicture(to);
    const pixman_fixed_t across = pixman_double_to_fixed(double(from.width()) / to.width());
    const pixman_fixed_t down = pixman_double_to_fixed(double(from.height()) / to.height());
    pixman_transform_t transform;
    pixman_transform_init_scale(&transform, across, down);
    constexpr int phases = 4; // 2 to the power of it
    for (auto _ : state) {
        pixman_image_set_transform(source.get(), &transform);
        int count = 0;
        pixman_fixed_t* const filter = pixman_filter_create_separable_convolution(&count, across, down,
            PIXMAN_KERNEL_BOX, PIXMAN_KERNEL_BOX, PIXMAN_KERNEL_BOX, PIXMAN_KERNEL_BOX, phases, phases);
        pixman_image_set_filter(source.get(), PIXMAN_FILTER_SEPARABLE_CONVOLUTION, filter, count);
        pixman_image_composite32(
            PIXMAN_OP_SRC, source.get(), nullptr, key.get(), 0, 0, 0, 0, 0, 0, to.width(), to.height());
        std::free(filter);
    }
}

void scalingFloor(benchmark::State& state)
{
    const QImage from = canvas(state);
    const auto* const pixels = reinterpret_cast<const std::uint32_t*>(from.constBits());
    const auto count = from.sizeInBytes() / qsizetype{sizeof *pixels};
    for (auto _ : state)
        benchmark::DoNotOptimize(std::accumulate(pixels, pixels + count, std::uint32_t{0}));
}

void panels(benchmark::internal::Benchmark* bench)
{
    bench->ArgName("panel")->Arg(1280)->Arg(800)->Unit(benchmark::kMillisecond);
}

BENCHMARK(scaledByPanel)->Apply(panels);
BENCHMARK(scaledByQImage)->Apply(panels);
BENCHMARK(scaledByPixman)->Apply(panels);
BENCHMARK(scalingFloor)->Apply(panels);

} // namespace

} // namespace servopanel::bench
