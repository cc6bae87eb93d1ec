#pragma once

#include <QFont>
#include <QPainter>
#include <QRect>
#include <QString>

namespace servopanel::panel {

// Texts of any length on several lines, in one size: what does not fit scrolls.

// Height of all lines, pixels.
int wrappedHeight(const QString& text, const QFont& font, int width);

// Draws the lines from the top of the place on; the horizontal alignment counts. Lines that do not lie within seen as a
// whole are left out, because half a line cannot be read.
void drawWrapped(QPainter& painter, const QRect& place, const QRect& seen, Qt::Alignment alignment,
    const QFont& font, const QString& text);

} // namespace servopanel::panel
