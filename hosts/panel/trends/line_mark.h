#pragma once

#include <QColor>
#include <QPainter>

namespace servopanel::panel {

// How the curves of a plot are told apart: by colour, by the stroke and by the marks on it. Who does not see one of
// them still has the others. Number 0 to 3.
inline constexpr int lineMarks = 4;

QColor markColour(int mark);
QPen markPen(int mark, double width);
void drawMark(QPainter& painter, QPointF middle, int mark, double size);
// A piece of the curve as a sample.
void drawSample(QPainter& painter, const QRect& place, int mark);

} // namespace servopanel::panel
