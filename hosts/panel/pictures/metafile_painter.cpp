#include "panel/pictures/metafile_painter.h"

#include "panel/pictures/bytes.h"
#include "panel/pictures/raster_operations.h"
#include "portable/text_decoding.h"

#include <QFontMetricsF>
#include <QPainterPath>

#include <algorithm>
#include <cmath>
#include <string_view>

namespace servopanel::panel {

namespace {

constexpr double farthest = 8192; // pixels; lines that run farther are cut there
constexpr qint64 workPerPoint = 40;
constexpr qint64 mostBitmapPixels = 16'000'000; // of all bitmaps in one metafile
constexpr int measuredPixels = 100; // height of the font that widths are taken from

QColor colour(const wmfRGB& rgb) { return {rgb.r, rgb.g, rgb.b}; }

double held(double pixels) { return std::isfinite(pixels) ? std::clamp(pixels, -farthest, farthest) : 0; }

QString decoded(const char* text)
{
    const std::string_view bytes{text == nullptr ? "" : text};
    return QString::fromStdString(
        portable::isUtf8(bytes) ? std::string{bytes} : portable::fromWindows1252(bytes));
}

// The panel's own font stands in for whatever font the file names: it is the one that is always there.
QFont fontOf(const wmfFont* font, double pixels)
{
    QFont result{QStringLiteral("DejaVu Sans")};
    result.setPixelSize(std::max(1, static_cast<int>(std::lround(pixels))));
    if (font == nullptr) return result;
    result.setBold(font->lfWeight >= 600);
    result.setItalic(font->lfItalic != 0);
    result.setUnderline(font->lfUnderline != 0);
    result.setStrikeOut(font->lfStrikeOut != 0);
    return result;
}

Qt::PenStyle penStyle(U16 style)
{
    switch (style & PS_STYLE_MASK) {
    case PS_DASH: return Qt::DashLine;
    case PS_DOT:
    case PS_ALTERNATE: return Qt::DotLine;
    case PS_DASHDOT: return Qt::DashDotLine;
    case PS_DASHDOTDOT: return Qt::DashDotDotLine;
    default: return Qt::SolidLine;
    }
}

Qt::BrushStyle hatch(U16 style)
{
    switch (style) {
    case HS_HORIZONTAL: return Qt::HorPattern;
    case HS_VERTICAL: return Qt::VerPattern;
    case HS_FDIAGONAL: return Qt::FDiagPattern;
    case HS_BDIAGONAL: return Qt::BDiagPattern;
    case HS_CROSS: return Qt::CrossPattern;
    default: return Qt::DiagCrossPattern;
    }
}

Qt::FillRule fillRule(const wmfDC* dc)
{
    return dc->polyfillmode == WINDING ? Qt::WindingFill : Qt::OddEvenFill;
}

bool isPattern(U16 style) { return style >= BS_PATTERN && style <= BS_DIBPATTERN8X8; }

} // namespace

void MetafilePainter::begin(QImage& image, const wmfD_Rect& bounds, double density)
{
    const auto length = [](float from, float to) {
        return static_cast<double>(to) - static_cast<double>(from);
    };
    image_ = &image;
    bitmapPixels_ = 0;
    image.fill(Qt::transparent);
    origin_ = {static_cast<double>(bounds.TL.x), static_cast<double>(bounds.TL.y)};
    scaleX_ = image.width() / std::max(1e-6, length(bounds.TL.x, bounds.BR.x));
    scaleY_ = image.height() / std::max(1e-6, length(bounds.TL.y, bounds.BR.y));
    density_ = density;
    painter_.begin(&image);
    painter_.setRenderHint(QPainter::Antialiasing);
    painter_.setRenderHint(QPainter::SmoothPixmapTransform);
}

void MetafilePainter::end() { painter_.end(); }

QPointF MetafilePainter::place(const wmfD_Coord& at) const
{
    return {held((static_cast<double>(at.x) - origin_.x()) * scaleX_),
        held((static_cast<double>(at.y) - origin_.y()) * scaleY_)};
}

QRectF MetafilePainter::box(const wmfD_Coord& one, const wmfD_Coord& other) const
{
    return QRectF{place(one), place(other)}.normalized();
}

QPolygonF MetafilePainter::polygon(const wmfD_Coord* points, int count) const
{
    QPolygonF result;
    result.reserve(count);
    for (int i = 0; i < count; ++i)
        result << place(points[i]);
    return result;
}

bool MetafilePainter::charge(const QRectF& extent, qint64 points)
{
    const QRectF seen = extent.intersected(QRectF{image_->rect()});
    work_ += static_cast<qint64>(seen.width() * seen.height()) + points * workPerPoint;
    return !isExhausted();
}

QPen MetafilePainter::pen(const wmfDC* dc) const
{
    if (dc->pen == nullptr || (dc->pen->lopnStyle & PS_STYLE_MASK) == PS_NULL || dc->ROPmode == R2_NOP)
        return Qt::NoPen;
    QPen pen{colour(dc->pen->lopnColor)};
    if (dc->ROPmode == R2_BLACK) pen.setColor(Qt::black);
    if (dc->ROPmode == R2_WHITE) pen.setColor(Qt::white);
    pen.setWidthF(std::clamp(held(std::abs(dc->pen->width * scaleX_)), density_, farthest));
    pen.setStyle(penStyle(dc->pen->lopnStyle));
    const int join = dc->pen->lopnStyle & PS_JOIN_MASK;
    pen.setJoinStyle(join == PS_JOIN_MITER ? Qt::MiterJoin
            : join == PS_JOIN_BEVEL        ? Qt::BevelJoin
                                           : Qt::RoundJoin);
    const int cap = dc->pen->lopnStyle & PS_ENDCAP_MASK;
    pen.setCapStyle(cap == PS_ENDCAP_FLAT ? Qt::FlatCap
            : cap == PS_ENDCAP_SQUARE     ? Qt::SquareCap
                                          : Qt::RoundCap);
    return pen;
}

QBrush MetafilePainter::brush(const wmfDC* dc) const
{
    if (dc->brush == nullptr || dc->brush->lbStyle == BS_NULL || dc->ROPmode == R2_NOP) return Qt::NoBrush;
    if (dc->ROPmode == R2_BLACK) return QBrush{Qt::black};
    if (dc->ROPmode == R2_WHITE) return QBrush{Qt::white};
    QBrush brush{colour(dc->brush->lbColor)};
    if (dc->brush->lbStyle == BS_HATCHED) brush.setStyle(hatch(dc->brush->lbHatch));
    if (isPattern(dc->brush->lbStyle))
        if (const QImage* image = bitmap(dc->brush->bmp)) brush.setTextureImage(*image);
    if (brush.style() != Qt::SolidPattern) brush.setTransform(QTransform::fromScale(density_, density_));
    return brush;
}

bool MetafilePainter::prepare(const wmfDC* dc, bool fill, const QRectF& extent)
{
    mapMode_ = dc->map_mode;
    if (!charge(extent, 0)) return false;
    painter_.setPen(pen(dc));
    painter_.setBrush(fill ? brush(dc) : QBrush{Qt::NoBrush});
    const bool showsThrough = painter_.brush().style() > Qt::SolidPattern && dc->bgmode == TRANSPARENT;
    painter_.setBackgroundMode(showsThrough ? Qt::TransparentMode : Qt::OpaqueMode);
    painter_.setBackground(colour(dc->bgcolor));
    return true;
}

void MetafilePainter::polygon(const wmfPolyLine_t& shape)
{
    const QPolygonF points = polygon(shape.pt, shape.count);
    if (!charge({}, points.size()) || !prepare(shape.dc, true, points.boundingRect())) return;
    painter_.drawPolygon(points, fillRule(shape.dc));
}

void MetafilePainter::polyPolygon(const wmfPolyPoly_t& shape)
{
    QPainterPath path;
    path.setFillRule(fillRule(shape.dc));
    for (int i = 0; i < shape.npoly; ++i) {
        if (!charge({}, shape.count[i])) return;
        path.addPolygon(polygon(shape.pt[i], shape.count[i]));
        path.closeSubpath();
    }
    if (prepare(shape.dc, true, path.boundingRect())) painter_.drawPath(path);
}

void MetafilePainter::polyLine(const wmfPolyLine_t& shape)
{
    const QPolygonF points = polygon(shape.pt, shape.count);
    if (!charge({}, points.size()) || !prepare(shape.dc, false, points.boundingRect())) return;
    painter_.drawPolyline(points);
}

void MetafilePainter::line(const wmfDrawLine_t& shape)
{
    if (prepare(shape.dc, false, box(shape.from, shape.to)))
        painter_.drawLine(place(shape.from), place(shape.to));
}

void MetafilePainter::rectangle(const wmfDrawRectangle_t& shape)
{
    const QRectF where = box(shape.TL, shape.BR);
    if (!prepare(shape.dc, true, where)) return;
    painter_.drawRoundedRect(where, held(static_cast<double>(shape.width) * scaleX_ / 2),
        held(static_cast<double>(shape.height) * scaleY_ / 2));
}

void MetafilePainter::ellipse(const wmfDrawArc_t& shape)
{
    const QRectF where = box(shape.TL, shape.BR);
    if (prepare(shape.dc, true, where)) painter_.drawEllipse(where);
}

// Arcs run against the clock from the direction of one point to that of another, seen from the middle.
void MetafilePainter::section(const wmfDrawArc_t& shape, Section section)
{
    constexpr int parts = 16; // of a degree
    const QRectF where = box(shape.TL, shape.BR);
    if (!prepare(shape.dc, section != Section::Arc, where)) return;
    const auto angle = [](const wmfD_Coord& to) {
        const double degrees = std::atan2(-static_cast<double>(to.y), static_cast<double>(to.x)) * 180 / M_PI;
        return std::isfinite(degrees) ? degrees : 0;
    };
    // The reader has the two directions the other way round than the records.
    const double first = angle(shape.end);
    double span = angle(shape.start) - first;
    if (span <= 0) span += 360;
    const int from = static_cast<int>(first * parts);
    const int along = static_cast<int>(span * parts);
    if (section == Section::Arc) painter_.drawArc(where, from, along);
    if (section == Section::Pie) painter_.drawPie(where, from, along);
    if (section == Section::Chord) painter_.drawChord(where, from, along);
}

void MetafilePainter::pixel(const wmfDrawPixel_t& shape)
{
    const QRectF where{place(shape.pt), QSizeF{density_, density_}};
    if (charge(where, 1)) painter_.fillRect(where, colour(shape.color));
}

void MetafilePainter::text(const wmfDrawText_t& shape)
{
    mapMode_ = shape.dc->map_mode; // also while the letters are too small to be seen
    const QString words = decoded(shape.str);
    const double pixels = held(std::abs(shape.font_height * scaleY_));
    const QFont font = fontOf(shape.dc->font, pixels);
    const QFontMetricsF metrics{font};
    const QPointF base = place(shape.pt);
    const QRectF taken{
        base.x(), base.y() - metrics.ascent(), metrics.horizontalAdvance(words), metrics.height()};
    // Letters are painted dot by dot, whether they are seen or not.
    if (pixels < 1 || !charge({}, words.size() * 8) || !prepare(shape.dc, false, taken)) return;
    painter_.save();
    if ((shape.flags & ETO_CLIPPED) != 0) painter_.setClipRect(box(shape.TL, shape.BR), Qt::IntersectClip);
    if ((shape.flags & ETO_OPAQUE) != 0)
        painter_.fillRect(box(shape.TL, shape.BR), colour(shape.dc->bgcolor));
    painter_.translate(base);
    if (shape.dc->font != nullptr) painter_.rotate(-shape.dc->font->lfEscapement / 10.0);
    if (shape.dc->bgmode == OPAQUE && (shape.flags & ETO_OPAQUE) == 0)
        painter_.fillRect(taken.translated(-base), colour(shape.dc->bgcolor));
    painter_.setFont(font);
    painter_.setPen(colour(shape.dc->textcolor));
    painter_.setBackgroundMode(Qt::TransparentMode);
    painter_.drawText(QPointF{0, 0}, words);
    painter_.restore();
}

void MetafilePainter::fill(const wmfROP_Draw_t& shape)
{
    const QRectF where = box(shape.TL, shape.BR);
    if (!prepare(shape.dc, true, where)) return;
    switch (shape.ROP) {
    case BLACKNESS: painter_.fillRect(where, Qt::black); break;
    case WHITENESS: painter_.fillRect(where, Qt::white); break;
    case DSTINVERT: invert(painter_, *image_, where.toAlignedRect()); break;
    default: painter_.fillRect(where, painter_.brush()); break;
    }
}

void MetafilePainter::regions(const wmfPolyRectangle_t& shape, bool frame)
{
    for (unsigned int i = 0; i < shape.count; ++i) {
        const QRectF where = box(shape.TL[i], shape.BR[i]);
        if (!prepare(shape.dc, true, where)) return;
        if (!frame) {
            painter_.fillRect(where, painter_.brush());
            continue;
        }
        const double across = held(static_cast<double>(shape.width) * scaleX_);
        const double down = held(static_cast<double>(shape.height) * scaleY_);
        QPainterPath path;
        path.addRect(where);
        path.addRect(where.adjusted(across, down, -across, -down));
        painter_.fillPath(path, painter_.brush());
    }
}

void MetafilePainter::clip(const wmfPolyRectangle_t& shape)
{
    if (shape.count == 0) {
        painter_.setClipping(false);
        return;
    }
    QRegion region;
    for (unsigned int i = 0; i < shape.count && charge({}, 1); ++i)
        region += box(shape.TL[i], shape.BR[i]).toAlignedRect();
    painter_.setClipRegion(region);
}

const QImage* MetafilePainter::bitmap(const wmfBMP& handle) const
{
    const auto found = std::find_if(
        bitmaps_.begin(), bitmaps_.end(), [&](const QImage& each) { return &each == handle.data; });
    return found == bitmaps_.end() ? nullptr : &*found;
}

void MetafilePainter::readBitmap(wmfBMP_Read_t& asked)
{
    asked.bmp = {};
    const QByteArray packed = asked.buffer != nullptr
        ? QByteArray{reinterpret_cast<const char*>(asked.buffer), static_cast<qsizetype>(asked.length)}
        : data_.mid(asked.offset, asked.length);
    QImage image = packedBitmap(packed, mostBitmapPixels - bitmapPixels_);
    if (image.isNull()) return;
    bitmapPixels_ += qint64{image.width()} * image.height();
    asked.bmp.width = static_cast<U16>(image.width());
    asked.bmp.height = static_cast<U16>(image.height());
    bitmaps_.push_back(std::move(image));
    asked.bmp.data = &bitmaps_.back();
}

void MetafilePainter::drawBitmap(const wmfBMP_Draw_t& shape)
{
    const QImage* source = bitmap(shape.bmp);
    if (source == nullptr) return;
    const QRect part = QRect{shape.crop.x, shape.crop.y, shape.crop.w, shape.crop.h} & source->rect();
    const QPointF corner = place(shape.pt);
    const QRectF where = QRectF{corner,
        QSizeF{held(part.width() * shape.pixel_width * scaleX_),
            held(part.height() * shape.pixel_height
                * scaleY_)}}.normalized();
    if (part.isEmpty() || where.isEmpty() || !prepare(shape.dc, false, where)) return;
    combine(painter_, *image_, where, *source, part, shape.type);
}

namespace {

template <auto draw, class Shape>
void pass(wmfAPI* api, Shape* shape)
{
    MetafilePainter& painter = MetafilePainter::of(api);
    (painter.*draw)(*shape);
    if (painter.isExhausted()) api->err = wmf_E_UserExit;
}
template <MetafilePainter::Section section>
void passSection(wmfAPI* api, wmfDrawArc_t* shape)
{
    MetafilePainter::of(api).section(*shape, section);
}
template <bool frame>
void passRegions(wmfAPI* api, wmfPolyRectangle_t* shape)
{
    MetafilePainter::of(api).regions(*shape, frame);
}
void nothingToDo(wmfAPI*) { }
void noFlood(wmfAPI*, wmfFlood_t*) { }
void keepBitmap(wmfAPI*, wmfBMP*) { } // the painter frees them all at its end
void noData(wmfAPI*, wmfUserData_t*) { }

} // namespace

void MetafilePainter::useFor(wmfAPI* api)
{
    using P = MetafilePainter;
    using Polygon = void (P::*)(const wmfPolyLine_t&);
    *static_cast<wmfFunctionReference*>(api->function_reference) = {nothingToDo, nothingToDo, nothingToDo,
        nothingToDo, noFlood, noFlood, pass<&P::pixel>, passSection<Section::Pie>,
        passSection<Section::Chord>, passSection<Section::Arc>, pass<&P::ellipse>, pass<&P::line>,
        pass<&P::polyLine>, pass<static_cast<Polygon>(&P::polygon)>, pass<&P::polyPolygon>,
        pass<&P::rectangle>, pass<&P::fill>, pass<&P::drawBitmap>, pass<&P::readBitmap>, keepBitmap,
        pass<&P::text>, noData, noData, noData, noData, passRegions<true>, passRegions<false>,
        pass<&P::clip>};
}

float textWidth(wmfAPI*, wmfFont* font, char* text)
{
    return static_cast<float>(
        QFontMetricsF{fontOf(font, measuredPixels)}.horizontalAdvance(decoded(text)) / measuredPixels);
}

} // namespace servopanel::panel
