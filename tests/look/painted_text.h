#pragma once

#include <QColor>
#include <QFont>
#include <QRectF>
#include <QString>
#include <QWidget>

#include <vector>

namespace servopanel::look {

// One piece of text that a widget paints, as its painter was told; all places in pixels of the widget.
struct PaintedText {
    QString text;
    QFont font;
    QColor colour;
    QRectF ink; // around the glyphs
    QRectF room; // where the painter lets them be seen
};

struct Painting {
    std::vector<PaintedText> texts;
    std::vector<QString>
        leftOut; // texts of which something is not painted, as far as whoever fits them tells
};

// What the widget itself paints, without its children. No class has to help: the texts are taken from the painter.
Painting paintingOf(QWidget& widget);

} // namespace servopanel::look
