#include "panel/trends/trend_legend.h"

#include "panel/look/colours.h"
#include "panel/look/fonts.h"
#include "panel/look/touch_size.h"
#include "panel/trends/line_mark.h"

#include <QPainter>
#include <QStyle>

namespace servopanel::panel {

namespace {
constexpr int twoLinesFrom = 36; // pixels of height
constexpr int readingMargin = 4; // pixels of colour beside a value under the finger
} // namespace

TrendLegend::TrendLegend(QWidget* parent, std::function<void()> remove)
    : QWidget{parent}
    , remove_{new TouchKey{this}}
{
    remove_->setText(QStringLiteral("✕"));
    remove_->setAction(std::move(remove));
    remove_->hide();
}

void TrendLegend::setLine(const std::optional<TrendLine>& line, const QString& hint)
{
    line_ = line;
    hint_ = hint;
    remove_->setVisible(line.has_value());
    place();
    update();
}

void TrendLegend::setValue(const QString& value)
{
    if (value_ == value) return;
    value_ = value;
    update();
}

void TrendLegend::setReading(const std::optional<QString>& value)
{
    if (reading_ == value) return;
    reading_ = value;
    update();
}

QString TrendLegend::shownValue() const
{
    return line_->unit.isEmpty() ? value() : value() + u' ' + line_->unit;
}

// side: left or right, already as the row's direction has it.
void TrendLegend::drawValue(
    QPainter& painter, const QRect& place, Qt::Alignment side, const QFont& font) const
{
    if (reading_) {
        const int wide =
            std::min(place.width(), QFontMetrics{font}.horizontalAdvance(shownValue()) + 2 * readingMargin);
        const int high = std::min(place.height(), QFontMetrics{font}.height());
        const int left = (side & Qt::AlignRight) != 0 ? place.right() + 1 - wide : place.left();
        painter.fillRect(QRect{left, place.top() + (place.height() - high) / 2, wide, high}, colours::accent);
    }
    painter.setPen(reading_ ? colours::barInk : colours::ink);
    const int margin = reading_ ? readingMargin : 0;
    drawFitted(painter, place.adjusted(margin, 0, -margin, 0),
        static_cast<int>(side | Qt::AlignAbsolute | Qt::AlignVCenter), font, shownValue());
}

int TrendLegend::keySide() const { return std::max(std::min(height() - 2, 44), leastTouch(*this)); }

void TrendLegend::place()
{
    const int side = keySide();
    const QRect key{width() - side, (height() - side) / 2, side, side};
    remove_->setGeometry(QStyle::visualRect(layoutDirection(), rect(), key));
}

void TrendLegend::resizeEvent(QResizeEvent*) { place(); }

void TrendLegend::paintEvent(QPaintEvent*)
{
    QPainter painter{this};
    painter.setPen(QPen{colours::faintBorder, 1});
    painter.drawLine(0, height() - 1, width(), height() - 1);
    const auto at = [&](const QRect& place) { return QStyle::visualRect(layoutDirection(), rect(), place); };
    const auto side = [&](Qt::Alignment alignment) {
        return static_cast<int>(
            QStyle::visualAlignment(layoutDirection(), alignment) | Qt::AlignAbsolute | Qt::AlignVCenter);
    };
    if (!line_) {
        painter.setPen(colours::faintInk);
        drawFitted(painter, rect().adjusted(4, 0, -4, 0), side(Qt::AlignLeft),
            panelFont(scaled(0.4, height(), 10, 14)), hint_);
        return;
    }
    constexpr int sample = 30;
    const int gap = 6;
    drawSample(painter, at({2, 0, sample, height()}), line_->mark);
    const QRect words{sample + gap + 2, 0, width() - sample - 2 * gap - keySide() - 2, height()};
    painter.setPen(colours::ink);
    if (height() >= twoLinesFrom) {
        const int line = height() / 2;
        drawFitted(painter, at({words.left(), 1, words.width(), line - 1}), side(Qt::AlignLeft),
            panelFont(scaled(0.3, height(), 11, 15)), line_->caption);
        drawValue(painter, at({words.left(), line - 1, words.width(), line}),
            QStyle::visualAlignment(layoutDirection(), Qt::AlignLeft),
            valueFont(scaled(0.34, height(), 12, 18), true));
        return;
    }
    const QFont font = valueFont(scaled(0.46, height(), 10, 15), true);
    const int valueWidth = std::min(
        words.width() * 2 / 3, QFontMetrics{font}.horizontalAdvance(shownValue()) + 2 * readingMargin);
    drawFitted(painter, at({words.left(), 0, words.width() - valueWidth - gap, height()}),
        side(Qt::AlignLeft), panelFont(scaled(0.42, height(), 10, 14)), line_->caption);
    drawValue(painter, at({words.right() + 1 - valueWidth, 0, valueWidth, height()}),
        QStyle::visualAlignment(layoutDirection(), Qt::AlignRight), font);
}

} // namespace servopanel::panel
