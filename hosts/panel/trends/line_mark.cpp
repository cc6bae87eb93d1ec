#include "panel/trends/line_mark.h"

#include "panel/look/colours.h"

#include <array>

namespace servopanel::panel {

namespace {

// Dark enough on white, and different for eyes that do not tell red from green.
constexpr std::array<QColor, lineMarks> markColours{
    QColor{0x00, 0x55, 0xA4}, QColor{0xC8, 0x4B, 0x00}, QColor{0x00, 0x6B, 0x54}, QColor{0x8E, 0x24, 0x8A}};

} // namespace

QColor markColour(int mark) { return markColours[static_cast<std::size_t>(mark) % lineMarks]; }

QPen markPen(int mark, double width)
{
    QPen pen{markColour(mark), width};
    pen.setJoinStyle(Qt::RoundJoin);
    switch (mark) {
    case 1: pen.setDashPattern({7, 3}); break;
    case 2: pen.setDashPattern({2, 2}); break;
    case 3: pen.setDashPattern({8, 3, 2, 3}); break;
    default: break;
    }
    return pen;
}

void drawMark(QPainter& painter, QPointF middle, int mark, double size)
{
    const double half = size / 2;
    painter.save();
    painter.translate(middle);
    painter.setPen(QPen{colours::field, 1});
    painter.setBrush(markColour(mark));
    switch (mark) {
    case 0: painter.drawEllipse(QPointF{}, half, half); break;
    case 1: painter.drawRect(QRectF{-half, -half, size, size}); break;
    case 2:
        painter.drawPolygon(QPolygonF{{{0, -half * 1.2}, {half * 1.2, half}, {-half * 1.2, half}}});
        break;
    default:
        painter.drawPolygon(
            QPolygonF{{{0, -half * 1.3}, {half * 1.3, 0}, {0, half * 1.3}, {-half * 1.3, 0}}});
        break;
    }
    painter.restore();
}

void drawSample(QPainter& painter, const QRect& place, int mark)
{
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    const double middle = QRectF{place}.center().y();
    painter.setPen(markPen(mark, 2.5));
    painter.drawLine(QPointF(place.left(), middle), QPointF(place.right(), middle));
    drawMark(painter, QRectF{place}.center(), mark, 9);
    painter.restore();
}

} // namespace servopanel::panel
