#include "panel/look/fonts.h"

#include "panel/look/language_look.h"
#include "panel/look/reading_order.h"
#include "panel/look/text_fit.h"
#include "panel/look/twips.h"

#include <QFontMetrics>

namespace servopanel::panel {

namespace {
constexpr float twipsPerPoint = 20.0F;
int leastPixels(const QFont& font) { return std::max(1, font.pixelSize() * 7 / 10); }
} // namespace

QFont panelFont(int pixels, bool bold)
{
    QFont font;
    font.setFamilies(languageLook().families);
    font.setPixelSize(std::max(1, pixels));
    font.setBold(bold);
    return font;
}

QFont valueFont(int pixels, bool bold)
{
    QFont font = panelFont(pixels, bold);
    font.setFamilies(QStringList{valueFamily()} + languageLook().families);
    return font;
}

QFont libraryFont(const QString& name, float points, bool bold)
{
    // Letters that the named family lacks come from those of the panel's languages.
    QFont font;
    font.setFamilies(QStringList{name.isEmpty() ? valueFamily() : name} + languageLook().families);
    font.setPixelSize(std::max(1, toPixels(points * twipsPerPoint)));
    font.setBold(bold);
    return font;
}

QFont fitted(const QFont& font, const QString& text, int width)
{
    QFont smaller = font;
    while (smaller.pixelSize() > leastPixels(font) && QFontMetrics{smaller}.horizontalAdvance(text) > width)
        smaller.setPixelSize(smaller.pixelSize() - 1);
    return smaller;
}

void drawFitted(QPainter& painter, const QRect& place, int alignment, const QFont& font, const QString& text)
{
    constexpr int anyHeight = 1 << 16;
    TextFit::oneLine(text, font, {place.width(), anyHeight}, leastPixels(font))
        .draw(painter, place, static_cast<Qt::Alignment>(alignment));
}

int drawnWidth(const QFont& font, const QString& text)
{
    return QFontMetrics{font}.horizontalAdvance(forDrawing(text, runsRightToLeft(text)));
}

int scaled(double share, int whole, int least, int most)
{
    return std::clamp(static_cast<int>(share * whole), least, most);
}

} // namespace servopanel::panel
