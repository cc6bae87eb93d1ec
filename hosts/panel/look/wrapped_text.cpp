#include "panel/look/wrapped_text.h"

#include "panel/look/text_fit.h"

#include <QFontMetrics>

namespace servopanel::panel {

int wrappedHeight(const QString& text, const QFont& font, int width)
{
    return static_cast<int>(brokenIntoLines(text, font, width).size()) * QFontMetrics{font}.height();
}

void drawWrapped(QPainter& painter, const QRect& place, const QRect& seen, Qt::Alignment alignment,
    const QFont& font, const QString& text)
{
    TextFit{font, brokenIntoLines(text, font, place.width())}.draw(
        painter, place, (alignment & Qt::AlignHorizontal_Mask) | Qt::AlignTop, seen);
}

} // namespace servopanel::panel
