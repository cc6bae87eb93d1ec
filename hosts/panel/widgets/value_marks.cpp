#include "panel/widgets/value_marks.h"

#include "panel/look/colours.h"

#include <QPainterPath>

#include <algorithm>

namespace servopanel::panel {

namespace {

constexpr int narrowField = 6; // as many sides of a sign

// Sides of the signs by the height of the field, pixels.
int markSide(const QRect& field) { return std::clamp(field.height() * 34 / 100, 7, 13); }

QPen stroke(const QColor& ink, const QRect& place)
{
    return {ink, std::max(1.5, place.height() / 7.0), Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin};
}

QPointF at(const QRect& place, double x, double y)
{
    return {place.left() + x * place.width(), place.top() + y * place.height()};
}

} // namespace

void drawHatching(QPainter& painter, const QRect& field)
{
    painter.save();
    painter.setPen(QPen{mix(colours::value, colours::border, 0.35), 1});
    painter.setClipRect(field.adjusted(2, 2, -2, -2));
    constexpr int pitch = 7; // pixels between the lines
    for (int x = field.left() - field.height(); x < field.right(); x += pitch)
        painter.drawLine(x, field.bottom(), x + field.height(), field.top());
    painter.restore();
}

QColor staleInk(const QColor& ink) { return mix(ink, colours::lockedInk, 0.75); }

void drawTick(QPainter& painter, const QRect& place, const QColor& ink)
{
    painter.setBrush(Qt::NoBrush);
    painter.setPen(stroke(ink, place));
    painter.drawPolyline(QPolygonF{{at(place, 0.12, 0.55), at(place, 0.4, 0.84), at(place, 0.9, 0.18)}});
}

void drawCross(QPainter& painter, const QRect& place, const QColor& ink)
{
    painter.setPen(stroke(ink, place));
    painter.drawLine(at(place, 0.15, 0.15), at(place, 0.85, 0.85));
    painter.drawLine(at(place, 0.15, 0.85), at(place, 0.85, 0.15));
}

void drawWarning(QPainter& painter, const QRect& place, const QColor& ink)
{
    painter.setBrush(Qt::NoBrush);
    QPen pen = stroke(ink, place);
    pen.setWidthF(std::max(1.2, place.height() / 9.0));
    painter.setPen(pen);
    painter.drawPolygon(QPolygonF{{at(place, 0.5, 0.08), at(place, 0.97, 0.92), at(place, 0.03, 0.92)}});
    painter.drawLine(at(place, 0.5, 0.4), at(place, 0.5, 0.62));
    painter.drawPoint(at(place, 0.5, 0.77));
}

void drawDots(QPainter& painter, const QRect& place, const QColor& ink)
{
    const double radius = std::max(1.5, place.height() / 9.0);
    painter.setPen(Qt::NoPen);
    painter.setBrush(ink);
    for (const double x : {0.16, 0.5, 0.84})
        painter.drawEllipse(at(place, x, 0.5), radius, radius);
}

void drawPadlock(QPainter& painter, const QRect& place, const QColor& ink)
{
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen{ink, std::max(1.2, place.height() / 8.0)});
    QPainterPath shackle;
    shackle.moveTo(at(place, 0.25, 0.5));
    shackle.lineTo(at(place, 0.25, 0.32));
    shackle.cubicTo(at(place, 0.25, -0.05), at(place, 0.75, -0.05), at(place, 0.75, 0.32));
    shackle.lineTo(at(place, 0.75, 0.5));
    painter.drawPath(shackle);
    painter.fillRect(QRectF{at(place, 0.08, 0.45), at(place, 0.92, 1.0)}, ink);
}

bool hasRoomForSigns(const QRect& field) { return field.width() >= narrowField * markSide(field); }

void drawMarks(QPainter& painter, const QRect& field, const ValueMarks& marks)
{
    if (marks == ValueMarks{}) return;
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    const bool narrow = !hasRoomForSigns(field);
    const int side = narrow ? markSide(field) * 2 / 3 : markSide(field);
    const int margin = narrow ? 1 : 3;
    if (marks.stale && !narrow) {
        const QRect place{field.left() + margin + 1, field.top() + margin, side, side};
        // Beside the triangle of a change, where there is one.
        drawWarning(painter, marks.changed ? place.translated(side + 3, 0) : place, colours::ink);
    }
    if (marks.changed) {
        painter.setPen(Qt::NoPen);
        painter.setBrush(colours::accept);
        const QPointF corner = field.topLeft();
        painter.drawPolygon(
            QPolygonF{{corner, corner + QPointF(side + 4, 0), corner + QPointF(0, side + 4)}});
    }
    if (marks.locked) {
        const QRect place{field.left() + margin + 2, field.bottom() + 1 - side - margin, side, side};
        drawPadlock(painter, place, colours::faintInk);
    }
    painter.restore();
}

} // namespace servopanel::panel
