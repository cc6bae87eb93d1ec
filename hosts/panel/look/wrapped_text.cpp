#include "panel/look/wrapped_text.h"

#include "panel/look/reading_order.h"
#include "panel/look/text_fit.h"

namespace servopanel::panel {

int wrappedHeight(const QString& text, const QFont& font, int width)
{
    const auto lines = static_cast<int>(brokenIntoLines(text, font, width).size());
    return lines * lineHeight(font, lines > 1 && runsRightToLeft(text));
}

void drawWrapped(QPainter& painter, const QRect& place, const QRect& seen, Qt::Alignment alignment,
    const QFont& font, const QString& text)
{
    TextFit{font, brokenIntoLines(text, font, place.width())}.draw(
        painter, place, (alignment & Qt::AlignHorizontal_Mask) | Qt::AlignTop, seen);
}

} // namespace servopanel::panel
