#include "panel/pictures/picture_kind.h"

#include "panel/pictures/bytes.h"

#include <cstdlib>

namespace servopanel::panel {

namespace {

constexpr qsizetype bitmapFileHeader = 14;
constexpr std::uint32_t oldBitmapHeader = 12; // with 16-bit sizes
constexpr std::uint32_t runs8 = 1;
constexpr std::uint32_t runs4 = 2;

// Runs come in pairs of bytes; 0 announces an end (of a line 0, of the picture 1), a jump (2) or single pixels.
bool runsReachTheEnd(const QByteArray& data, qsizetype at, bool isFourBits, qint64 height)
{
    for (qint64 line = 0; at + 1 < data.size();) {
        const int count = byteAt(data, at);
        const int value = byteAt(data, at + 1);
        at += 2;
        if (count != 0) continue;
        if (value == 1) return true;
        if (value == 0 && ++line >= height) return true;
        if (value == 2) {
            line += byteAt(data, at + 1);
            at += 2;
        } else if (value > 2) {
            const int bytes = isFourBits ? (value + 1) / 2 : value;
            at += bytes + bytes % 2;
        }
    }
    return false;
}

bool isWholeBitmap(const QByteArray& data)
{
    const std::uint32_t header = word32(data, bitmapFileHeader);
    const bool isOld = header == oldBitmapHeader;
    const qint64 width = isOld ? word16(data, 18) : static_cast<std::int32_t>(word32(data, 18));
    const qint64 height =
        std::abs(isOld ? qint64{word16(data, 20)} : qint64{static_cast<std::int32_t>(word32(data, 22))});
    const qint64 bits = isOld ? word16(data, 24) : word16(data, 28);
    const std::uint32_t compression = isOld ? 0 : word32(data, 30);
    const qint64 pixels = word32(data, 10);
    if (width <= 0 || height == 0 || pixels >= data.size()) return false;
    if (compression == runs8 || compression == runs4)
        return runsReachTheEnd(data, pixels, compression == runs4, height);
    const qint64 line = (width * bits + 31) / 32 * 4;
    return line == 0 || height <= (data.size() - pixels) / line; // both come from the file and may be huge
}

// Blocks of data: a length, so many bytes, and on; 0 ends them. The place behind them, or -1.
qsizetype behindBlocks(const QByteArray& data, qsizetype at)
{
    while (at < data.size()) {
        const int length = byteAt(data, at);
        ++at;
        if (length == 0) return at;
        at += length;
    }
    return -1;
}

qsizetype gifPalette(int flags) { return (flags & 0x80) != 0 ? 3 * (qsizetype{2} << (flags & 7)) : 0; }

bool isWholeGif(const QByteArray& data)
{
    qsizetype at = 13 + gifPalette(byteAt(data, 10));
    while (at >= 0 && at < data.size()) {
        if (byteAt(data, at) == 0x21) { // an extension
            at = behindBlocks(data, at + 2);
        } else if (byteAt(data, at) == 0x2C) { // an image
            const qsizetype coded = at + 10 + gifPalette(byteAt(data, at + 9));
            return behindBlocks(data, coded + 1) >= 0;
        } else {
            return false;
        }
    }
    return false;
}

bool isWholePng(const QByteArray& data)
{
    constexpr qsizetype signature = 8;
    constexpr qsizetype aroundChunk = 12; // length, name, check sum
    constexpr std::uint32_t end = 0x49454E44;
    for (qsizetype at = signature; at + aroundChunk <= data.size();) {
        if (bigWord32(data, at + 4) == end) return true;
        at += aroundChunk + static_cast<qsizetype>(bigWord32(data, at));
    }
    return false;
}

// The end mark counts only behind the picture's own start of scan: a small preview in front has one too.
bool isWholeJpeg(const QByteArray& data)
{
    qsizetype at = 2;
    while (at + 3 < data.size() && byteAt(data, at) == 0xFF) {
        const int mark = byteAt(data, at + 1);
        if (mark == 0xDA) return data.indexOf("\xFF\xD9", at) >= 0;
        at += mark == 0xFF ? 1 : 2 + bigWord16(data, at + 2);
    }
    return false;
}

} // namespace

PictureKind pictureKind(const QByteArray& data)
{
    if (data.startsWith("BM")) return PictureKind::Bitmap;
    if (data.startsWith("GIF87a") || data.startsWith("GIF89a")) return PictureKind::Gif;
    if (data.startsWith("\x89PNG\r\n\x1A\n")) return PictureKind::Png;
    if (data.startsWith("\xFF\xD8\xFF")) return PictureKind::Jpeg;
    // Placeable, or a plain header: on disk or in memory, nine words long.
    if (data.startsWith("\xD7\xCD\xC6\x9A")) return PictureKind::Metafile;
    const std::uint32_t beginning = word32(data, 0);
    if (beginning == 0x00090001 || beginning == 0x00090002) return PictureKind::Metafile;
    return PictureKind::None;
}

bool isWhole(PictureKind kind, const QByteArray& data)
{
    switch (kind) {
    case PictureKind::Bitmap: return isWholeBitmap(data);
    case PictureKind::Gif: return isWholeGif(data);
    case PictureKind::Png: return isWholePng(data);
    case PictureKind::Jpeg: return isWholeJpeg(data);
    default: return !data.isEmpty();
    }
}

} // namespace servopanel::panel
