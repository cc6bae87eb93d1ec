#pragma once

#include <QByteArray>
#include <QList>

#include <string>
#include <vector>

namespace servopanel::testing {

// Picture files put together byte by byte, so that every field of theirs can be wrong.

QByteArray word(int value); // 16 bits, low byte first
QByteArray longWord(qint64 value); // 32 bits

// A bitmap of 4 x 3 pixels. Its first line is red, green, blue, white, the others are black; with one bit per pixel it
// is black, white, black, white.
struct BitmapKind {
    int bits = 24; // 1, 4, 8, 16, 24, 32
    bool isTopDown = false;
    bool isRunLengthCoded = false; // 4 and 8 bits only
    bool hasOldHeader = false; // the one with 16-bit sizes
    bool hasMasks = false; // 16 bits only: 5, 6 and 5 bits
};
QByteArray bitmap(const BitmapKind& kind);

// 1 x 1, red.
QByteArray gif();

// One record of a metafile: its function and its parameters, words.
QByteArray record(int function, const QByteArray& parameters = {});
QByteArray words(const QList<int>& values);
QByteArray colourWords(int red, int green, int blue);

// A metafile around records; the end is added. Placeable: 100 x 50 units, 96 to the inch.
QByteArray metafile(const QByteArray& records, bool placeable = true);

// The window of such a metafile, in a mapping: 1 one unit is one pixel, 8 the file scales itself.
QByteArray window(int mapMode = 8);
// A pen or a brush becomes the current one. slot: place among the objects, in the order of their making.
QByteArray solidBrush(int slot, int red, int green, int blue);
QByteArray noPen(int slot);
QByteArray solidPen(int slot, int width, int red, int green, int blue);
// A bitmap stretched onto a place of the window. operation: 0x00CC0020 copies, 0x008800C6 and, 0x00EE0086 or.
QByteArray stretchedBitmap(
    const QByteArray& bitmapFile, qint64 operation, int left, int top, int width, int height);

// A green rectangle over the left half, as a polygon.
QByteArray greenHalf(int mapMode = 8);
// A bit of everything that the panel draws.
QByteArray manyShapes();

// One small picture of each kind that the panel takes.
struct NamedPicture {
    std::string name;
    QByteArray data;
};
std::vector<NamedPicture> soundPictures();

} // namespace servopanel::testing
