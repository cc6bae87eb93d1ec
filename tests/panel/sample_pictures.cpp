#include "sample_pictures.h"

#include <QBuffer>
#include <QImage>

#include <algorithm>

namespace servopanel::testing {

namespace {

constexpr int columns = 4;
constexpr int rows = 3;
constexpr int colours[columns] = {0xFF0000, 0x00FF00, 0x0000FF, 0xFFFFFF};

QByteArray bytes(int colour)
{
    return QByteArray{}
        .append(char(colour & 0xFF))
        .append(char((colour >> 8) & 0xFF))
        .append(char(colour >> 16));
}

QByteArray firstLine(const BitmapKind& kind)
{
    QByteArray line;
    switch (kind.bits) {
    case 1: return QByteArray(1, char(0x50));
    case 4: return QByteArray::fromHex("1234");
    case 8: return QByteArray::fromHex("01020304");
    case 16:
        for (const int colour : colours) {
            const int red = (colour >> 16 & 0xFF) >> 3;
            const int green = (colour >> 8 & 0xFF) >> (kind.hasMasks ? 2 : 3);
            const int blue = (colour & 0xFF) >> 3;
            line += word(red << (kind.hasMasks ? 11 : 10) | green << 5 | blue);
        }
        return line;
    default:
        for (const int colour : colours)
            line += bytes(colour) + (kind.bits == 32 ? QByteArray(1, char(0)) : QByteArray{});
        return line;
    }
}

QByteArray palette(const BitmapKind& kind)
{
    if (kind.bits > 8)
        return kind.hasMasks ? longWord(0xF800) + longWord(0x07E0) + longWord(0x001F) : QByteArray{};
    const QByteArray rest = kind.hasOldHeader ? QByteArray{} : QByteArray(1, char(0));
    QByteArray made = bytes(0) + rest;
    if (kind.bits == 1) return made + bytes(0xFFFFFF) + rest;
    for (const int colour : colours)
        made += bytes(colour) + rest;
    while (made.size() < (1 << kind.bits) * (3 + rest.size()))
        made += bytes(0) + rest;
    return made;
}

// Two black lines as runs, the first line pixel by pixel, the end.
QByteArray runs(const BitmapKind& kind)
{
    const QByteArray black = QByteArray::fromHex("04000000");
    const QByteArray coloured =
        kind.bits == 8 ? QByteArray::fromHex("000401020304") : QByteArray::fromHex("00041234");
    return black + black + coloured + QByteArray::fromHex("0001");
}

QByteArray lines(const BitmapKind& kind)
{
    QByteArray first = firstLine(kind);
    while (first.size() % 4 != 0)
        first += char(0);
    const QByteArray black(2 * first.size(), char(0));
    return kind.isTopDown ? first + black : black + first;
}

} // namespace

QByteArray word(int value)
{
    return QByteArray{}.append(char(value & 0xFF)).append(char((value >> 8) & 0xFF));
}
QByteArray longWord(qint64 value) { return word(int(value & 0xFFFF)) + word(int((value >> 16) & 0xFFFF)); }

QByteArray bitmap(const BitmapKind& kind)
{
    const int compression = kind.hasMasks ? 3 : kind.isRunLengthCoded ? (kind.bits == 8 ? 1 : 2) : 0;
    const QByteArray pixels = kind.isRunLengthCoded ? runs(kind) : lines(kind);
    const QByteArray header = kind.hasOldHeader
        ? longWord(12) + word(columns) + word(rows) + word(1) + word(kind.bits)
        : longWord(40) + longWord(columns) + longWord(kind.isTopDown ? -rows : rows) + word(1)
            + word(kind.bits) + longWord(compression) + longWord(pixels.size()) + longWord(2835)
            + longWord(2835) + longWord(0) + longWord(0);
    const QByteArray front = header + palette(kind);
    return "BM" + longWord(14 + front.size() + pixels.size()) + longWord(0) + longWord(14 + front.size())
        + front + pixels;
}

QByteArray gif()
{
    return QByteArray::fromHex("47494638396101000100800000ff0000ffffff2c00000000010001000002024401003b");
}

QByteArray words(const QList<int>& values)
{
    QByteArray made;
    for (const int value : values)
        made += word(value);
    return made;
}

QByteArray colourWords(int red, int green, int blue) { return word(green << 8 | red) + word(blue); }

QByteArray record(int function, const QByteArray& parameters)
{
    return longWord(3 + parameters.size() / 2) + word(function) + parameters;
}

QByteArray metafile(const QByteArray& records, bool placeable)
{
    QByteArray head;
    if (placeable) {
        head = QByteArray::fromHex("d7cdc69a") + words({0, 0, 0, 100, 50, 96}) + longWord(0);
        int sum = 0;
        for (int i = 0; i < head.size(); i += 2)
            sum ^= (quint8(head[i]) | (quint8(head[i + 1]) << 8));
        head += word(sum);
    }
    const QByteArray all = records + record(0);
    return head + words({1, 9, 0x0300}) + longWord(9 + all.size() / 2) + word(8) + longWord(300) + word(0)
        + all;
}

QByteArray window(int mapMode)
{
    return record(0x0103, word(mapMode)) + record(0x020B, words({0, 0})) + record(0x020C, words({50, 100}));
}

QByteArray solidBrush(int slot, int red, int green, int blue)
{
    return record(0x02FC, word(0) + colourWords(red, green, blue) + word(0)) + record(0x012D, word(slot));
}
QByteArray noPen(int slot) { return record(0x02FA, words({5, 0, 0, 0, 0})) + record(0x012D, word(slot)); }
QByteArray solidPen(int slot, int width, int red, int green, int blue)
{
    return record(0x02FA, words({0, width, 0}) + colourWords(red, green, blue)) + record(0x012D, word(slot));
}

QByteArray stretchedBitmap(
    const QByteArray& bitmapFile, qint64 operation, int left, int top, int width, int height)
{
    QByteArray packed = bitmapFile.mid(14);
    if (packed.size() % 2 != 0) packed += char(0);
    return record(0x0F43,
        longWord(operation) + word(0) + words({rows, columns, 0, 0, height, width, top, left}) + packed);
}

QByteArray greenHalf(int mapMode)
{
    return metafile(window(mapMode) + solidBrush(0, 0, 0xC0, 0) + noPen(1)
        + record(0x0324, words({4, 0, 0, 50, 0, 50, 50, 0, 50})));
}

QByteArray manyShapes()
{
    const QByteArray letters{"Servo 12"};
    QByteArray records = window() + solidBrush(0, 200, 20, 20) + solidPen(1, 2, 0, 0, 0);
    records += record(0x041B, words({20, 20, 2, 2})); // rectangle
    records += record(0x061C, words({6, 6, 20, 45, 2, 25})); // with round corners
    records += record(0x0418, words({20, 70, 2, 50})); // ellipse
    records += record(0x081A, words({30, 20, 40, 5, 45, 22, 25, 2})); // pie
    records += record(0x0817, words({30, 50, 40, 35, 45, 52, 25, 32})); // arc
    records += record(0x0830, words({30, 80, 40, 65, 45, 82, 25, 62})); // chord
    records += record(0x0106, word(2)); // fills by winding
    records += record(0x0538, words({2, 3, 3, 75, 2, 95, 2, 85, 20, 78, 5, 92, 5, 85, 12}));
    records += record(0x0325, words({3, 75, 30, 85, 40, 95, 30}));
    records += record(0x0214, words({45, 2})) + record(0x0213, words({48, 98}));
    records +=
        record(0x02FC, word(2) + colourWords(0, 0, 200) + word(4)) + record(0x012D, word(2)); // hatched
    records += record(0x0102, word(1)) + record(0x041B, words({48, 60, 40, 50}));
    records += record(0x02FB, words({-10, 0, 0, 0, 700, 0, 0, 0, 0}) + QByteArray{"Arial\0", 6})
        + record(0x012D, word(3));
    records += record(0x0209, colourWords(0, 0, 0));
    records += record(0x0521, word(int(letters.size())) + letters + words({30, 5}));
    records += record(0x0A32, words({40, 60, int(letters.size()), 0}) + letters);
    records += record(0x041F, colourWords(9, 9, 9) + words({1, 1}));
    records += record(0x001E) + record(0x0416, words({50, 100, 0, 0})) + record(0x0127, word(-1));
    records += stretchedBitmap(bitmap({}), 0x00CC0020, 80, 22, 16, 12);
    records += stretchedBitmap(bitmap({8}), 0x008800C6, 80, 36, 16, 12);
    return metafile(records);
}

namespace {

QByteArray saved(const char* format, int side)
{
    QImage image{side, side, QImage::Format_RGB32};
    for (int y = 0; y < side; ++y)
        for (int x = 0; x < side; ++x)
            image.setPixel(x, y, qRgb(x * 12, y * 12, (x * y) & 0xFF));
    QByteArray data;
    QBuffer buffer{&data};
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, format);
    return data;
}

} // namespace

std::vector<NamedPicture> soundPictures()
{
    std::vector<NamedPicture> all{{"gif", gif()}, {"png", saved("PNG", 20)}, {"jpeg", saved("JPG", 20)},
        {"bmp", saved("BMP", 9)}, {"wmf", greenHalf()}, {"many.wmf", manyShapes()}};
    for (const int bits : {1, 4, 8, 16, 24, 32})
        all.push_back({"bmp" + std::to_string(bits), bitmap({bits})});
    all.push_back({"runs4", bitmap({4, false, true})});
    all.push_back({"runs8", bitmap({8, false, true})});
    all.push_back({"old", bitmap({8, false, false, true})});
    return all;
}

} // namespace servopanel::testing
