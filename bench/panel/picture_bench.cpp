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
#include <stdexcept>
#include <string>

namespace servopanel::bench {

namespace {

// Of a panel of 1280 pixels and of one of 800, each with its own picture of the servo: the canvas that it is drawn on
// first, and the key.
struct Sizes {
    QSize canvas;
    QSize key;
};

Sizes sizes(const benchmark::State& state)
{
    return state.range(0) == 800 ? Sizes{{771, 205}, {373, 105}} : Sizes{{1196, 362}, {598, 181}};
}

QImage canvas(const benchmark::State& state)
{
    const std::string name = "Servo_S_M1_1_" + std::to_string(state.range(0)) + ".gif";
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

// A canvas and a key for pixman, and the way from one to the other.
class PixmanScaling {
public:
    explicit PixmanScaling(const benchmark::State& state)
        : from_{canvas(state)}
        , to_{sizes(state).key, QImage::Format_RGB32}
        , across_{pixman_double_to_fixed(double(from_.width()) / to_.width())}
        , down_{pixman_double_to_fixed(double(from_.height()) / to_.height())}
    {
        pixman_transform_t transform;
        pixman_transform_init_scale(&transform, across_, down_);
        pixman_image_set_transform(source_.get(), &transform);
    }

    // Each pixel is the mean of those of the source that fall on it, as with the two above.
    void average()
    {
        constexpr int phases = 4; // 2 to the power of it
        int count = 0;
        pixman_fixed_t* const filter = pixman_filter_create_separable_convolution(&count, across_, down_,
            PIXMAN_KERNEL_BOX, PIXMAN_KERNEL_BOX, PIXMAN_KERNEL_BOX, PIXMAN_KERNEL_BOX, phases, phases);
        pixman_image_set_filter(source_.get(), PIXMAN_FILTER_SEPARABLE_CONVOLUTION, filter, count);
        std::free(filter);
    }
    // Between the four pixels around a place; where the canvas is twice as large as the key this is their mean.
    void interpolate() { pixman_image_set_filter(source_.get(), PIXMAN_FILTER_BILINEAR, nullptr, 0); }

    void measure(benchmark::State& state)
    {
        for (auto _ : state)
            pixman_image_composite32(PIXMAN_OP_SRC, source_.get(), nullptr, key_.get(), 0, 0, 0, 0, 0, 0,
                to_.width(), to_.height());
        requireMeans();
    }

private:
    // What QImage makes of it, but for rounding.
    void requireMeans() const
    {
        const QImage other = from_.scaled(to_.size(), Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
        constexpr int rounding = 8; // of its factors, too
        for (int y = 1; y + 1 < to_.height(); ++y)
            for (int x = 1; x + 1 < to_.width(); ++x)
                if (std::abs(qGray(to_.pixel(x, y)) - qGray(other.pixel(x, y))) > rounding)
                    throw std::runtime_error{"pixman has scaled to another picture"};
    }

    QImage from_;
    QImage to_;
    pixman_fixed_t across_;
    pixman_fixed_t down_;
    Picture source_ = pixmanPicture(from_);
    Picture key_ = pixmanPicture(to_);
};

void scaledByPixman(benchmark::State& state)
{
    PixmanScaling scaling{state};
    scaling.average();
    scaling.measure(state);
}

// On the panel of 1280 pixels, whose canvas is twice as large as the key.
void interpolatedByPixman(benchmark::State& state)
{
    PixmanScaling scaling{state};
    scaling.interpolate();
    scaling.measure(state);
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
BENCHMARK(interpolatedByPixman)->ArgName("panel")->Arg(1280)->Unit(benchmark::kMillisecond);
BENCHMARK(scalingFloor)->Apply(panels);

} // namespace

} // namespace servopanel::bench
