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

// What the widget itself paints, without its children. No class has to help: the texts are taken from the painter.
std::vector<PaintedText> paintedTexts(QWidget& widget);

} // namespace servopanel::look
