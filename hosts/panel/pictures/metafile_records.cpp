#include "panel/pictures/metafile_records.h"

#include "panel/pictures/bytes.h"
#include "panel/pictures/picture_kind.h"

#include <algorithm>

namespace servopanel::panel {

namespace {

constexpr qsizetype placeableHeader = 22; // bytes
constexpr qsizetype plainHeader = 18;
constexpr qsizetype recordHeader = 6;
constexpr int mostRecords = 200'000; // a picture of a panel has some hundreds
constexpr int mostObjects = 4096;
constexpr int mostSaved = 64; // states put aside

namespace record {
enum Function {
    End = 0x0000,
    SaveState = 0x001E,
    SetPaletteEntries = 0x0037,
    CreatePalette = 0x00F7,
    CreatePatternBrush = 0x01F9,
    CreatePen = 0x02FA,
    CreateFont = 0x02FB,
    CreateBrush = 0x02FC,
    CreateRegion = 0x06FF,
    RestoreState = 0x0127,
    CreateBitmapBrush = 0x0142,
    Polygon = 0x0324,
    Polyline = 0x0325,
    AnimatePalette = 0x0436,
    Text = 0x0521,
    PolyPolygon = 0x0538,
    Escape = 0x0626,
    CopyBits = 0x0922,
    CopyBitmap = 0x0940,
    TextInBox = 0x0A32,
    StretchBits = 0x0B23,
    StretchOldBitmap = 0x0B41,
    PlaceBitmap = 0x0D33,
    StretchBitmap = 0x0F43,
};
} // namespace record

// One record: place of its parameters and how many words of them there are.
class Parameters {
public:
    Parameters(const QByteArray& data, qsizetype at, qsizetype words)
        : data_{data}
        , at_{at}
        , words_{words}
    {
    }
    qsizetype count() const { return words_; }
    int operator[](qsizetype index) const
    {
        return index < words_ ? word16(data_, at_ + 2 * index) : std::uint16_t{0};
    }

    bool isSoundPolygon() const { return words_ >= 1 && words_ >= 1 + 2 * qsizetype{(*this)[0]}; }

    bool isSoundPolyPolygon() const
    {
        const qsizetype polygons = words_ >= 1 ? (*this)[0] : 0;
        if (words_ < 1 + polygons) return false;
        qsizetype points = 0;
        for (qsizetype i = 0; i < polygons; ++i)
            points += (*this)[1 + i];
        return words_ >= 1 + polygons + 2 * points;
    }

    bool isSoundText() const { return words_ >= 3 && words_ >= 3 + (qsizetype{(*this)[0]} + 1) / 2; }

    bool isSoundTextInBox() const
    {
        constexpr int withBox = 0x0006; // clipped to a box or on a filled one
        if (words_ < 4) return false;
        const qsizetype box = ((*this)[3] & withBox) != 0 ? 4 : 0;
        return words_ >= 4 + box + (qsizetype{(*this)[2]} + 1) / 2;
    }

    bool isSoundPalette() const { return words_ >= 2 && words_ >= 2 + 2 * qsizetype{(*this)[1]}; }

    bool isSoundRegion() const
    {
        constexpr qsizetype head = 11;
        return words_ >= head && words_ >= head + (*this)[5] / 2;
    }

    // A bitmap in memory's form behind so many words.
    bool holdsBitmap(qsizetype behind) const
    {
        constexpr qsizetype smallest = 6; // words of the oldest header
        return words_ >= behind + smallest;
    }

private:
    const QByteArray& data_;
    qsizetype at_;
    qsizetype words_;
};

bool isSound(int function, const Parameters& parameters)
{
    switch (function) {
    case record::Polygon:
    case record::Polyline: return parameters.isSoundPolygon();
    case record::PolyPolygon: return parameters.isSoundPolyPolygon();
    case record::Text: return parameters.isSoundText();
    case record::TextInBox: return parameters.isSoundTextInBox();
    case record::CreatePalette:
    case record::SetPaletteEntries:
    case record::AnimatePalette: return parameters.isSoundPalette();
    case record::CreateRegion: return parameters.isSoundRegion();
    case record::CreatePen: return parameters.count() >= 5;
    case record::CreateFont: return parameters.count() >= 9;
    case record::CreateBrush: return parameters.count() >= 4;
    case record::CreateBitmapBrush: return parameters.holdsBitmap(2);
    case record::StretchBitmap: return parameters.holdsBitmap(11);
    case record::PlaceBitmap: return parameters.holdsBitmap(9);
    case record::StretchOldBitmap: return parameters.count() == 10 || parameters.holdsBitmap(10);
    case record::CopyBitmap: return parameters.count() == 9 || parameters.holdsBitmap(8);
    case record::Escape: return parameters.count() >= 2;
    // Bitmaps of a kind that depends on the screen they were made for; and patterns of them.
    case record::CreatePatternBrush:
    case record::CopyBits:
    case record::StretchBits: return false;
    // All others have as many words of parameters as the upper half of their number says.
    default: return parameters.count() >= function >> 8;
    }
}

void putWord32(QByteArray& data, qsizetype at, qsizetype value)
{
    for (int i = 0; i < 4; ++i)
        data[at + i] = static_cast<char>((value >> (8 * i)) & 0xFF);
}

} // namespace

bool makeSound(QByteArray& data)
{
    const bool isPlaceable = word32(data, 0) == 0x9AC6CDD7;
    const qsizetype head = isPlaceable ? placeableHeader : 0;
    if (data.size() < head + plainHeader + recordHeader) return false;
    const bool hasNoSize = word16(data, 6) == word16(data, 10) || word16(data, 8) == word16(data, 12)
        || word16(data, 14) == 0; // left, right, top, bottom, units per inch
    if (isPlaceable && hasNoSize) return false;
    if (word16(data, head + 2) != plainHeader / 2 || word16(data, head + 10) > mostObjects) return false;

    qsizetype longest = recordHeader;
    int saved = 0;
    qsizetype at = head + plainHeader;
    for (int records = 0; records < mostRecords && at + recordHeader <= data.size(); ++records) {
        const qsizetype bytes = 2 * static_cast<qsizetype>(word32(data, at));
        if (bytes < recordHeader || at + bytes > data.size()) return false;
        longest = std::max(longest, bytes);
        const int function = word16(data, at + 4);
        if (!isSound(function, {data, at + recordHeader, (bytes - recordHeader) / 2})) return false;
        if (function == record::SaveState && ++saved > mostSaved) return false;
        if (function == record::RestoreState) saved = std::max(0, saved - 1);
        at += bytes;
        if (function != record::End) continue;
        data.truncate(at);
        putWord32(data, head + 6, (at - head) / 2);
        putWord32(data, head + 12, longest / 2);
        return true;
    }
    return false;
}

} // namespace servopanel::panel
