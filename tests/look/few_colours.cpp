#include "look/few_colours.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <map>
#include <utility>
#include <vector>

namespace servopanel::look {

namespace {

constexpr std::size_t mostColours = 256;

struct Colour {
    std::array<int, 3> channels; // red, green, blue
    int pixels;
};
using Box = std::vector<Colour>;

std::pair<int, std::size_t> widestChannel(const Box& box)
{
    std::pair<int, std::size_t> widest{-1, 0};
    for (std::size_t channel = 0; channel < 3; ++channel) {
        const auto [least, most] =
            std::minmax_element(box.begin(), box.end(), [channel](const Colour& a, const Colour& b) {
                return a.channels[channel] < b.channels[channel];
            });
        widest = std::max(widest, {most->channels[channel] - least->channels[channel], channel});
    }
    return widest;
}

// Cuts the box in two at the middle of its pixels along its widest channel.
Box cut(Box& box)
{
    const std::size_t channel = widestChannel(box).second;
    std::sort(box.begin(), box.end(),
        [channel](const Colour& a, const Colour& b) { return a.channels[channel] < b.channels[channel]; });
    std::int64_t whole = 0;
    for (const Colour& each : box)
        whole += each.pixels;
    std::size_t middle = 0;
    for (std::int64_t some = 0; middle + 2 < box.size() && 2 * (some += box[middle].pixels) < whole;)
        ++middle;
    const auto from = box.begin() + static_cast<std::ptrdiff_t>(middle) + 1;
    Box rest{from, box.end()};
    box.erase(from, box.end());
    return rest;
}

QRgb meanOf(const Box& box)
{
    std::array<std::int64_t, 3> sums{};
    std::int64_t pixels = 0;
    for (const Colour& each : box) {
        for (std::size_t channel = 0; channel < 3; ++channel)
            sums[channel] += std::int64_t{each.channels[channel]} * each.pixels;
        pixels += each.pixels;
    }
    const auto mean = [&](std::size_t channel) { return static_cast<int>(sums[channel] / pixels); };
    return qRgb(mean(0), mean(1), mean(2));
}

std::vector<Box> boxesOf(const QImage& picture)
{
    std::map<QRgb, int> counts;
    for (int y = 0; y < picture.height(); ++y) {
        const auto* line = reinterpret_cast<const QRgb*>(picture.constScanLine(y));
        for (int x = 0; x < picture.width(); ++x)
            ++counts[line[x] | 0xFF000000];
    }
    std::vector<Box> boxes(1);
    for (const auto& [colour, pixels] : counts)
        boxes.front().push_back({{qRed(colour), qGreen(colour), qBlue(colour)}, pixels});
    while (boxes.size() < mostColours) {
        const auto widest = std::max_element(boxes.begin(), boxes.end(),
            [](const Box& a, const Box& b) { return widestChannel(a).first < widestChannel(b).first; });
        if (widest->size() < 2) break;
        Box rest = cut(*widest);
        boxes.push_back(std::move(rest));
    }
    return boxes;
}

} // namespace

QImage withFewColours(const QImage& picture)
{
    const QImage all = picture.convertToFormat(QImage::Format_RGB32);
    QList<QRgb> palette;
    std::map<QRgb, uchar> indices;
    for (const Box& box : boxesOf(all)) {
        for (const Colour& each : box)
            indices[qRgb(each.channels[0], each.channels[1], each.channels[2])] =
                static_cast<uchar>(palette.size());
        palette.push_back(meanOf(box));
    }
    QImage result{all.size(), QImage::Format_Indexed8};
    result.setColorTable(palette);
    for (int y = 0; y < all.height(); ++y) {
        const auto* from = reinterpret_cast<const QRgb*>(all.constScanLine(y));
        uchar* to = result.scanLine(y);
        for (int x = 0; x < all.width(); ++x)
            to[x] = indices[from[x] | 0xFF000000];
    }
    return result;
}

} // namespace servopanel::look
