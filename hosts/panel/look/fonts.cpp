#include "panel/look/fonts.h"

#include "panel/look/twips.h"

#include <QFontMetrics>

namespace servopanel::panel {

namespace {
constexpr float twipsPerPoint = 20.0F;
}

QFont panelFont(int pixels, bool bold)
{
    QFont font{QStringLiteral("DejaVu Sans")};
    font.setPixelSize(std::max(1, pixels));
    font.setBold(bold);
    return font;
}

QFont libraryFont(const QString& name, float points, bool bold)
{
    QFont font{name.isEmpty() ? QStringLiteral("DejaVu Sans") : name};
    font.setPixelSize(std::max(1, toPixels(points * twipsPerPoint)));
    font.setBold(bold);
    return font;
}

QFont fitted(const QFont& font, const QString& text, int width)
{
    QFont smaller = font;
    const int least = std::max(1, font.pixelSize() * 7 / 10);
    while (smaller.pixelSize() > least && QFontMetrics{smaller}.horizontalAdvance(text) > width)
        smaller.setPixelSize(smaller.pixelSize() - 1);
    return smaller;
}

void drawFitted(QPainter& painter, const QRect& place, int alignment, const QFont& font, const QString& text)
{
    const QFont smaller = fitted(font, text, place.width());
    const QFontMetrics metrics{smaller};
    // Exact widths have fractions; what fits when rounded must not lose its last letters.
    const bool fits = metrics.horizontalAdvance(text) <= place.width();
    painter.setFont(smaller);
    painter.drawText(place, alignment | Qt::TextSingleLine,
        fits ? text : metrics.elidedText(text, Qt::ElideRight, place.width()));
}

int scaled(double share, int whole, int least, int most)
{
    return std::clamp(static_cast<int>(share * whole), least, most);
}

} // namespace servopanel::panel
