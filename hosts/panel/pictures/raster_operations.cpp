#include "panel/pictures/raster_operations.h"

#include "panel/pictures/bytes.h"
#include "panel/pictures/picture_kind.h"

#include <algorithm>
#include <cmath>

namespace servopanel::panel {

namespace {

constexpr std::uint32_t operationAnd = 0x008800C6;
constexpr std::uint32_t operationOr = 0x00EE0086;
constexpr std::uint32_t operationXor = 0x00660046;

QRgb combined(QRgb there, QRgb brought, std::uint32_t operation)
{
    constexpr QRgb colours = 0x00FFFFFF;
    const QRgb leaves = operation == operationAnd ? colours : 0;
    if ((brought & colours) == leaves) return there;
    const QRgb ground = qAlpha(there) == 0 ? colours : there; // nothing drawn: paper
    QRgb result = operation == operationAnd ? ground & brought
        : operation == operationOr          ? (qAlpha(there) == 0 ? brought : there | brought)
                                            : ground ^ brought;
    return result | 0xFF000000;
}

// Works on pixels, which the painter would not see.
template <class Change>
void onPixels(QPainter& painter, QImage& image, const QRect& where, Change change)
{
    const QRegion clip = painter.hasClipping() ? painter.clipRegion() : QRegion{image.rect()};
    const bool isClipped = painter.hasClipping();
    painter.end();
    for (const QRect& part : clip& where& image.rect())
        for (int y = part.top(); y <= part.bottom(); ++y)
            for (int x = part.left(); x <= part.right(); ++x)
                image.setPixel(x, y, change(image.pixel(x, y), x, y));
    painter.begin(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    if (isClipped) painter.setClipRegion(clip);
}

} // namespace

QImage packedBitmap(const QByteArray& packed, qint64 mostPixels)
{
    constexpr std::uint32_t oldHeader = 12;
    constexpr std::uint32_t fields = 3; // masks for the colours follow the header
    const std::uint32_t header = word32(packed, 0);
    if (header < oldHeader || header > 124) return {};
    const bool isOld = header == oldHeader;
    const int bits = isOld ? word16(packed, 10) : word16(packed, 14);
    const qint64 width = isOld ? word16(packed, 4) : qint64{static_cast<std::int32_t>(word32(packed, 4))};
    const qint64 height =
        std::abs(isOld ? qint64{word16(packed, 6)} : qint64{static_cast<std::int32_t>(word32(packed, 8))});
    constexpr qint64 longest = 32767;
    if (width <= 0 || height == 0 || width > longest || height > longest || width * height > mostPixels)
        return {};
    qint64 palette = isOld || word32(packed, 32) == 0 ? (bits <= 8 ? 1 << bits : 0) : word32(packed, 32);
    palette = std::min<qint64>(palette, 256) * (isOld ? 3 : 4);
    const qint64 masks = header == 40 && word32(packed, 16) == fields ? 12 : 0;
    const qint64 pixels = 14 + header + masks + palette;

    QByteArray file{"BM"};
    for (const qint64 value : {14 + packed.size(), qint64{0}, pixels})
        for (int i = 0; i < 4; ++i)
            file += static_cast<char>((value >> (8 * i)) & 0xFF);
    file += packed;
    if (!isWhole(PictureKind::Bitmap, file)) return {};
    return QImage::fromData(file, "BMP").convertToFormat(QImage::Format_ARGB32);
}

void combine(QPainter& painter, QImage& image, const QRectF& where, const QImage& source, const QRect& part,
    std::uint32_t operation)
{
    if (operation != operationAnd && operation != operationOr && operation != operationXor) {
        painter.drawImage(where, source, QRectF{part});
        return;
    }
    // Without smoothing: a mask has no shades.
    const QRect target = where.toRect();
    if (target.isEmpty()) return;
    onPixels(painter, image, target, [&](QRgb there, int x, int y) {
        const int fromX = part.left() + (x - target.left()) * part.width() / target.width();
        const int fromY = part.top() + (y - target.top()) * part.height() / target.height();
        return combined(there, source.pixel(fromX, fromY), operation);
    });
}

void invert(QPainter& painter, QImage& image, const QRect& where)
{
    onPixels(painter, image, where,
        [](QRgb there, int, int) { return qAlpha(there) == 0 ? there : (there ^ 0x00FFFFFF) | 0xFF000000; });
}

} // namespace servopanel::panel
