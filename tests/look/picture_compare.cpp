#include "look/picture_compare.h"

#include <QPainter>

#include <algorithm>
#include <cmath>

namespace servopanel::look {

namespace {

constexpr int mostDistance = 48; // of a colour channel, of 255; rendering differs less, an operator sees more

struct Range {
    int least = 255;
    int most = 0;
    void take(int value)
    {
        least = std::min(least, value);
        most = std::max(most, value);
    }
    bool isFar(int value) const { return value < least - mostDistance || value > most + mostDistance; }
};

// Whether a pixel looks like nothing between the darkest and the lightest around its place in the other picture.
bool standsOut(const QImage& picture, const QImage& other, int x, int y)
{
    Range red;
    Range green;
    Range blue;
    for (int v = std::max(0, y - 1); v <= std::min(other.height() - 1, y + 1); ++v) {
        const auto* line = reinterpret_cast<const QRgb*>(other.constScanLine(v));
        for (int u = std::max(0, x - 1); u <= std::min(other.width() - 1, x + 1); ++u) {
            red.take(qRed(line[u]));
            green.take(qGreen(line[u]));
            blue.take(qBlue(line[u]));
        }
    }
    const QRgb pixel = reinterpret_cast<const QRgb*>(picture.constScanLine(y))[x];
    return red.isFar(qRed(pixel)) || green.isFar(qGreen(pixel)) || blue.isFar(qBlue(pixel));
}

QImage faint(const QImage& picture)
{
    QImage result{picture.size(), QImage::Format_RGB32};
    result.fill(Qt::white);
    QPainter painter{&result};
    painter.setOpacity(0.3);
    painter.drawImage(0, 0, picture);
    return result;
}

} // namespace

bool Comparison::isSame() const { return isSameSize && pixels <= mostStrayPixels; }

Comparison compare(const QImage& reference, const QImage& now)
{
    Comparison result;
    result.isSameSize = reference.size() == now.size();
    if (!result.isSameSize) return result;
    const QImage one = reference.convertToFormat(QImage::Format_RGB32);
    const QImage other = now.convertToFormat(QImage::Format_RGB32);
    if (one == other) return result;
    for (int y = 0; y < one.height(); ++y) {
        const auto* a = reinterpret_cast<const QRgb*>(one.constScanLine(y));
        const auto* b = reinterpret_cast<const QRgb*>(other.constScanLine(y));
        for (int x = 0; x < one.width(); ++x) {
            if (a[x] == b[x] || (!standsOut(one, other, x, y) && !standsOut(other, one, x, y))) continue;
            if (result.marked.isNull()) result.marked = faint(other);
            ++result.pixels;
            result.where |= QRect{x, y, 1, 1};
            result.marked.setPixel(x, y, 0xFFFF0000);
        }
    }
    return result;
}

QImage sideBySide(const QImage& reference, const QImage& now, const Comparison& comparison)
{
    constexpr int gap = 8;
    const QImage difference = comparison.marked.isNull() ? faint(now) : comparison.marked;
    const int height = std::max(reference.height(), now.height());
    QImage result{
        reference.width() + now.width() + difference.width() + 2 * gap, height, QImage::Format_RGB32};
    result.fill(Qt::black);
    QPainter painter{&result};
    painter.drawImage(0, 0, reference);
    painter.drawImage(reference.width() + gap, 0, now);
    painter.drawImage(reference.width() + now.width() + 2 * gap, 0, difference);
    if (!comparison.where.isEmpty()) {
        painter.translate(reference.width() + now.width() + 2 * gap, 0);
        painter.setPen(Qt::red);
        painter.drawRect(comparison.where.adjusted(-6, -6, 6, 6));
    }
    return result;
}

} // namespace servopanel::look
