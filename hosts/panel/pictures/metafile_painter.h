#pragma once

#include <QByteArray>
#include <QImage>
#include <QPainter>

#include <list>

extern "C" {
#include <libwmf/api.h>
#include <libwmf/defs.h>
#include <libwmf/ipa.h>
#include <libwmf/types.h>
}

namespace servopanel::panel {

// Draws what the reader finds in the records of a metafile. Places arrive in the reader's device units and become
// pixels of an image; far outside of it they are clipped.
//
// The work is bounded: a file of a few thousand bytes may ask for more painting than a panel can afford.
class MetafilePainter {
public:
    explicit MetafilePainter(const QByteArray& data)
        : data_{data}
    {
    }

    // Where and how large: the part of the device that becomes the image. density: pixels of the image per pixel of
    // the picture at its own size, for hatches and for lines without a width.
    void begin(QImage& image, const wmfD_Rect& bounds, double density);
    void end();

    // What the reader calls.
    static void useFor(wmfAPI* api);
    // The reader knows its device by this pointer.
    static MetafilePainter& of(wmfAPI* api) { return *static_cast<MetafilePainter*>(api->user_data); }

    // How the metafile counted when the last shape was drawn.
    U16 mapMode() const { return mapMode_; }
    bool isExhausted() const { return work_ > mostWork; }

    void polygon(const wmfPolyLine_t& shape);
    void polyPolygon(const wmfPolyPoly_t& shape);
    void polyLine(const wmfPolyLine_t& shape);
    void line(const wmfDrawLine_t& shape);
    void rectangle(const wmfDrawRectangle_t& shape);
    void ellipse(const wmfDrawArc_t& shape);
    enum class Section { Arc, Pie, Chord };
    void section(const wmfDrawArc_t& shape, Section section);
    void pixel(const wmfDrawPixel_t& shape);
    void text(const wmfDrawText_t& shape);
    void fill(const wmfROP_Draw_t& shape);
    void regions(const wmfPolyRectangle_t& shape, bool frame);
    void clip(const wmfPolyRectangle_t& shape);
    void readBitmap(wmfBMP_Read_t& bitmap);
    void drawBitmap(const wmfBMP_Draw_t& shape);

private:
    static constexpr qint64 mostWork = 400'000'000; // pixels painted, points counted like many

    bool prepare(const wmfDC* dc, bool fill, const QRectF& extent);
    bool charge(const QRectF& extent, qint64 points);
    QPen pen(const wmfDC* dc) const;
    QBrush brush(const wmfDC* dc) const;
    QPointF place(const wmfD_Coord& at) const;
    QRectF box(const wmfD_Coord& one, const wmfD_Coord& other) const;
    QPolygonF polygon(const wmfD_Coord* points, int count) const;
    const QImage* bitmap(const wmfBMP& handle) const;

    const QByteArray& data_;
    QImage* image_ = nullptr;
    QPainter painter_;
    QPointF origin_; // device units
    double scaleX_ = 1; // pixels per device unit
    double scaleY_ = 1;
    double density_ = 1;
    U16 mapMode_ = 0;
    std::list<QImage> bitmaps_; // the reader holds pointers to them
    qint64 bitmapPixels_ = 0;
    qint64 work_ = 0;
};

// Width of a text in a metafile's font, as a share of the font's height.
float textWidth(wmfAPI* api, wmfFont* font, char* text);

} // namespace servopanel::panel
