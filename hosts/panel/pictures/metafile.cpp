// Draws metafiles: libwmf reads the records and keeps their state, what they draw goes to a painter here. The footer's
// pictures are filled shapes; texts and bitmaps inside metafiles are not drawn.
#include "panel/pictures/picture_file.h"

#include <QPainter>
#include <QPainterPath>

#include <algorithm>
#include <cmath>
#include <memory>
#include <vector>

extern "C" {
#include <libwmf/api.h>
#include <libwmf/defs.h>
#include <libwmf/ipa.h>
#include <libwmf/types.h>
}

namespace servopanel::panel {

namespace {

constexpr int longestSide = 256; // pixels of the drawn picture
// The reader maps the window of a metafile that scales itself onto a square of this many device units, whatever its
// proportions, and the units of any other to points.
constexpr float deviceSide = 1024;
constexpr float pointsPerInch = 72;
constexpr U16 scalesItself = 7; // map modes from here on
constexpr int mostPoints = 65536;

struct Drawing {
    QPainter* painter = nullptr;
    wmfD_Rect bounds{}; // device units
    double scaleX = 1; // pixels per device unit
    double scaleY = 1;
    U16 mapMode = 0; // while the last shape was drawn
};

Drawing& drawing(wmfAPI* api) { return *static_cast<Drawing*>(api->device_data); }

QPointF place(wmfAPI* api, const wmfD_Coord& at)
{
    const Drawing& target = drawing(api);
    return {(static_cast<double>(at.x) - static_cast<double>(target.bounds.TL.x)) * target.scaleX,
        (static_cast<double>(at.y) - static_cast<double>(target.bounds.TL.y)) * target.scaleY};
}

QColor colour(const wmfRGB& rgb) { return {rgb.r, rgb.g, rgb.b}; }

void prepare(wmfAPI* api, const wmfDC* dc, bool fill)
{
    QPainter& painter = *drawing(api).painter;
    drawing(api).mapMode = dc->map_mode;
    const bool stroke = dc->pen != nullptr && (dc->pen->lopnStyle & PS_STYLE_MASK) != PS_NULL;
    if (stroke) {
        QPen pen{colour(dc->pen->lopnColor)};
        pen.setWidthF(std::max(1.0, dc->pen->width * drawing(api).scaleX));
        pen.setJoinStyle(Qt::MiterJoin);
        painter.setPen(pen);
    } else {
        painter.setPen(Qt::NoPen);
    }
    const bool filled = fill && dc->brush != nullptr && dc->brush->lbStyle != BS_NULL;
    painter.setBrush(filled ? QBrush{colour(dc->brush->lbColor)} : QBrush{Qt::NoBrush});
}

QPolygonF polygon(wmfAPI* api, const wmfD_Coord* points, int count)
{
    QPolygonF result;
    for (int i = 0; i < std::min(count, mostPoints); ++i)
        result << place(api, points[i]);
    return result;
}

Qt::FillRule fillRule(const wmfDC* dc)
{
    return dc->polyfillmode == WINDING ? Qt::WindingFill : Qt::OddEvenFill;
}

void drawPolygon(wmfAPI* api, wmfPolyLine_t* shape)
{
    prepare(api, shape->dc, true);
    drawing(api).painter->drawPolygon(polygon(api, shape->pt, shape->count), fillRule(shape->dc));
}

void drawPolyPolygon(wmfAPI* api, wmfPolyPoly_t* shape)
{
    prepare(api, shape->dc, true);
    QPainterPath path;
    path.setFillRule(fillRule(shape->dc));
    for (int i = 0; i < shape->npoly; ++i) {
        path.addPolygon(polygon(api, shape->pt[i], shape->count[i]));
        path.closeSubpath();
    }
    drawing(api).painter->drawPath(path);
}

void drawPolyLine(wmfAPI* api, wmfPolyLine_t* shape)
{
    prepare(api, shape->dc, false);
    drawing(api).painter->drawPolyline(polygon(api, shape->pt, shape->count));
}

void drawLine(wmfAPI* api, wmfDrawLine_t* line)
{
    prepare(api, line->dc, false);
    drawing(api).painter->drawLine(place(api, line->from), place(api, line->to));
}

void drawRectangle(wmfAPI* api, wmfDrawRectangle_t* shape)
{
    prepare(api, shape->dc, true);
    const Drawing& target = drawing(api);
    drawing(api).painter->drawRoundedRect(QRectF{place(api, shape->TL), place(api, shape->BR)},
        static_cast<double>(shape->width) * target.scaleX / 2,
        static_cast<double>(shape->height) * target.scaleY / 2);
}

void drawEllipse(wmfAPI* api, wmfDrawArc_t* arc)
{
    prepare(api, arc->dc, true);
    drawing(api).painter->drawEllipse(QRectF{place(api, arc->TL), place(api, arc->BR)});
}

// Arcs run against the clock from the direction of one point to that of another, seen from the middle.
struct Arc {
    QRectF box;
    int start; // sixteenths of a degree
    int span;
};
Arc arcOf(wmfAPI* api, const wmfDrawArc_t* arc)
{
    const QRectF box{place(api, arc->TL), place(api, arc->BR)};
    const auto angle = [&](const wmfD_Coord& to) {
        const double x = static_cast<double>(to.x);
        const double y = -static_cast<double>(to.y);
        return std::atan2(y, x) * 180 / M_PI;
    };
    const double first = angle(arc->start);
    double span = angle(arc->end) - first;
    if (span <= 0) span += 360;
    return {box, static_cast<int>(first * 16), static_cast<int>(span * 16)};
}

void drawArc(wmfAPI* api, wmfDrawArc_t* shape)
{
    prepare(api, shape->dc, false);
    const Arc arc = arcOf(api, shape);
    drawing(api).painter->drawArc(arc.box, arc.start, arc.span);
}
void drawPie(wmfAPI* api, wmfDrawArc_t* shape)
{
    prepare(api, shape->dc, true);
    const Arc arc = arcOf(api, shape);
    drawing(api).painter->drawPie(arc.box, arc.start, arc.span);
}
void drawChord(wmfAPI* api, wmfDrawArc_t* shape)
{
    prepare(api, shape->dc, true);
    const Arc arc = arcOf(api, shape);
    drawing(api).painter->drawChord(arc.box, arc.start, arc.span);
}

void ignoreDevice(wmfAPI*) { }
void ignoreFlood(wmfAPI*, wmfFlood_t*) { }
void ignorePixel(wmfAPI*, wmfDrawPixel_t*) { }
void ignoreRop(wmfAPI*, wmfROP_Draw_t*) { }
void ignoreBitmap(wmfAPI*, wmfBMP_Draw_t*) { }
void ignoreBitmapRead(wmfAPI*, wmfBMP_Read_t*) { }
void ignoreBitmapFree(wmfAPI*, wmfBMP*) { }
void ignoreText(wmfAPI*, wmfDrawText_t*) { }
void ignoreData(wmfAPI*, wmfUserData_t*) { }
void ignoreRegion(wmfAPI*, wmfPolyRectangle_t*) { }

void useThisDevice(wmfAPI* api)
{
    auto* use = static_cast<wmfFunctionReference*>(api->function_reference);
    *use = {ignoreDevice, ignoreDevice, ignoreDevice, ignoreDevice, ignoreFlood, ignoreFlood, ignorePixel,
        drawPie, drawChord, drawArc, drawEllipse, drawLine, drawPolyLine, drawPolygon, drawPolyPolygon,
        drawRectangle, ignoreRop, ignoreBitmap, ignoreBitmapRead, ignoreBitmapFree, ignoreText, ignoreData,
        ignoreData, ignoreData, ignoreData, ignoreRegion, ignoreRegion, ignoreRegion};
    auto* data = static_cast<Drawing*>(wmf_malloc(api, sizeof(Drawing)));
    if (data == nullptr) {
        api->err = wmf_E_InsMem;
        return;
    }
    *data = Drawing{};
    api->device_data = data;
}

// Fonts matter to texts only, but the reader asks for them all the same.
void noFont(wmfAPI*, wmfFont*) { }
float noWidth(wmfAPI*, wmfFont*, char*) { return 0; }

struct Destroy {
    void operator()(wmfAPI* api) const { wmf_lite_destroy(api); }
};

bool play(wmfAPI* api, QImage& image)
{
    image.fill(Qt::transparent);
    QPainter painter{&image};
    painter.setRenderHint(QPainter::Antialiasing);
    drawing(api).painter = &painter;
    wmfD_Rect bounds = drawing(api).bounds;
    return wmf_play(api, 0, &bounds) == wmf_E_None;
}

// The part of the device that becomes the picture: the frame that the file names, or all that is drawn.
wmfD_Rect frame(wmfAPI* api, const wmfD_Rect& drawn, float width, float height)
{
    if (api->File->placeable == 0) return drawn;
    if (drawing(api).mapMode >= scalesItself) return {{0, 0}, {deviceSide, deviceSide}};
    const float inch = std::max<float>(1, api->File->pmh->Inch);
    return {{0, 0}, {width * pointsPerInch / inch, height * pointsPerInch / inch}};
}

bool isSound(double length) { return std::isfinite(length) && length > 0; }

} // namespace

QImage drawMetafile(const QByteArray& data)
{
    wmfAPI_Options options{};
    options.function = useThisDevice;
    wmfAPI* made = nullptr;
    const wmf_error_t created = wmf_lite_create(
        &made, WMF_OPT_FUNCTION | WMF_OPT_IGNORE_NONFATAL | WMF_OPT_NO_ERROR | WMF_OPT_NO_DEBUG, &options);
    const std::unique_ptr<wmfAPI, Destroy> api{made};
    if (created != wmf_E_None) return {};

    wmfFontData fonts{noFont, noWidth, nullptr};
    api->font_data = &fonts;
    // The reader wants memory it could write to.
    QByteArray copy = data;
    auto* bytes = reinterpret_cast<unsigned char*>(copy.data());
    if (wmf_mem_open(api.get(), bytes, static_cast<long>(copy.size())) != wmf_E_None) return {};

    wmfD_Rect drawn{};
    float width = 0;
    float height = 0;
    if (wmf_scan(api.get(), 0, &drawn) != wmf_E_None || wmf_size(api.get(), &width, &height) != wmf_E_None)
        return {};
    if (!isSound(static_cast<double>(width)) || !isSound(static_cast<double>(height))) return {};

    // How the file counts is known only after its shapes were drawn once.
    Drawing& target = drawing(api.get());
    target.bounds = drawn;
    QImage rehearsal{1, 1, QImage::Format_ARGB32_Premultiplied};
    if (!play(api.get(), rehearsal)) return {};
    target.bounds = frame(api.get(), drawn, width, height);
    const double across = static_cast<double>(target.bounds.BR.x) - static_cast<double>(target.bounds.TL.x);
    const double down = static_cast<double>(target.bounds.BR.y) - static_cast<double>(target.bounds.TL.y);
    if (!isSound(across) || !isSound(down)) return {};

    const double pixels = longestSide / static_cast<double>(std::max(width, height));
    QImage image{std::max(1, static_cast<int>(std::lround(static_cast<double>(width) * pixels))),
        std::max(1, static_cast<int>(std::lround(static_cast<double>(height) * pixels))),
        QImage::Format_ARGB32_Premultiplied};
    target.scaleX = image.width() / across;
    target.scaleY = image.height() / down;
    const bool played = play(api.get(), image);
    wmf_mem_close(api.get());
    return played ? image : QImage{};
}

} // namespace servopanel::panel
