#include "panel/look/text_fit.h"

#include "panel/look/reading_order.h"

#include <QFontMetrics>
#include <QPaintEngine>
#include <QTextBoundaryFinder>
#include <QTextLayout>

#include <algorithm>

namespace servopanel::panel {

namespace {

constexpr QChar ellipsis{0x2026};
constexpr int narrowest =
    2; // pixels of a character at least; no text of more than width / 2 characters fits a line

int widthOf(const QFontMetrics& metrics, const QString& text)
{
    return metrics.horizontalAdvance(forDrawing(text, runsRightToLeft(text)));
}

// The beginning of a text, cut between two characters.
QString beginning(const QString& text, qsizetype most)
{
    if (text.size() <= most) return text;
    QTextBoundaryFinder finder{QTextBoundaryFinder::Grapheme, text.constData(), most + 1};
    finder.setPosition(most);
    if (!finder.isAtBoundary()) finder.toPreviousBoundary();
    return text.left(std::max<qsizetype>(0, finder.position()));
}

// As much of the text as fits together with "…", found by halving: few measurements also for long texts.
QString elided(const QFontMetrics& metrics, const QString& text, int width)
{
    qsizetype fits = 0;
    qsizetype tooMuch = text.size() + 1;
    while (tooMuch - fits > 1) {
        const qsizetype middle = fits + (tooMuch - fits) / 2;
        if (widthOf(metrics, beginning(text, middle) + ellipsis) <= width)
            fits = middle;
        else
            tooMuch = middle;
    }
    QString kept = beginning(text, fits);
    while (!kept.isEmpty() && kept.back().isSpace())
        kept.chop(1);
    return kept.isEmpty() && widthOf(metrics, ellipsis) > width ? QString{} : kept + ellipsis;
}

} // namespace

int lineHeight(const QFont& font, bool rightToLeft)
{
    const int height = QFontMetrics{font}.height();
    return rightToLeft ? height * 5 / 4 : height;
}

QStringList brokenIntoLines(const QString& text, const QFont& font, int width)
{
    QStringList lines;
    for (const QString& paragraph : text.split(u'\n')) {
        QTextLayout layout{paragraph, font};
        QTextOption option;
        option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
        layout.setTextOption(option);
        layout.beginLayout();
        for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
            line.setLineWidth(width);
            lines += paragraph.mid(line.textStart(), line.textLength()).trimmed();
        }
        layout.endLayout();
    }
    return lines;
}

TextFit TextFit::oneLine(const QString& text, const QFont& font, QSize place, int leastPixels)
{
    const int width = std::max(0, place.width());
    QString line = beginning(text, width / narrowest + 1);
    const bool isWhole = line.size() == text.size();
    line.replace(u'\n', u' ');
    const auto fits = [&](const QFontMetrics& metrics) {
        return isWhole && widthOf(metrics, line) <= width && metrics.height() <= place.height();
    };
    TextFit fit;
    fit.font = font;
    while (fit.font.pixelSize() > leastPixels && !fits(QFontMetrics{fit.font}))
        fit.font.setPixelSize(fit.font.pixelSize() - 1);
    const QFontMetrics metrics{fit.font};
    fit.elided = !isWhole || widthOf(metrics, line) > width;
    fit.lines = {fit.elided ? panel::elided(metrics, line, width) : line};
    return fit;
}

TextFit TextFit::wrapped(const QString& text, const QFont& font, QSize place, int leastPixels)
{
    const int width = std::max(1, place.width());
    const bool rightToLeft = runsRightToLeft(text);
    const auto mostLines = [&](const QFont& of) {
        return std::max(1, place.height() / std::max(1, lineHeight(of, rightToLeft)));
    };
    QFont smallest = font;
    smallest.setPixelSize(std::min(font.pixelSize(), leastPixels));
    const int most = mostLines(smallest) * (width / narrowest + 1);
    const QString looked = beginning(text, most);
    const bool isWhole = looked.size() == text.size();

    TextFit fit;
    fit.font = font;
    fit.lines = brokenIntoLines(looked, fit.font, width);
    while (fit.font.pixelSize() > leastPixels && (!isWhole || fit.lines.size() > mostLines(fit.font))) {
        fit.font.setPixelSize(fit.font.pixelSize() - 1);
        fit.lines = brokenIntoLines(looked, fit.font, width);
    }
    const QFontMetrics metrics{fit.font};
    const int shown = mostLines(fit.font);
    fit.elided = !isWhole || fit.lines.size() > shown;
    if (fit.lines.size() > shown) fit.lines.resize(shown);
    if (fit.elided && !fit.lines.isEmpty())
        fit.lines.back() = panel::elided(metrics, fit.lines.back(), width);
    return fit;
}

bool TextFit::draw(
    QPainter& painter, const QRect& place, Qt::Alignment alignment, const std::optional<QRect>& seen) const
{
    painter.setFont(font);
    // All lines of a text stand on the same side and run the same way.
    const bool rightToLeft = runsRightToLeft(lines.join(u' '));
    const int pitch = lineHeight(font, rightToLeft && lines.size() > 1);
    const int height = pitch * static_cast<int>(lines.size());
    int top = place.top() + (place.height() - height) / 2;
    if ((alignment & Qt::AlignTop) != 0) top = place.top();
    if ((alignment & Qt::AlignBottom) != 0) top = place.bottom() + 1 - height;
    const int flags =
        drawingFlags((alignment & (Qt::AlignHorizontal_Mask | Qt::AlignAbsolute)) | Qt::AlignVCenter,
            directionOf(painter), rightToLeft);
    bool isWhole = !elided;
    for (const QString& line : lines) {
        const QRect row{place.left(), top, place.width(), pitch};
        top += pitch;
        if (seen && (row.top() < seen->top() || row.bottom() > seen->bottom())) {
            isWhole = false;
            continue;
        }
        // Exact widths have fractions; what fits when rounded must not lose its last letters.
        painter.drawText(row, flags | Qt::TextSingleLine | Qt::TextDontClip, forDrawing(line, rightToLeft));
    }
    auto* const listener = isWhole ? nullptr : dynamic_cast<LeftOutListener*>(painter.paintEngine());
    if (listener != nullptr) listener->leftOut(lines.join(u' '));
    return isWhole;
}

} // namespace servopanel::panel
