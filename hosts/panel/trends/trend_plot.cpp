#include "panel/trends/trend_plot.h"

#include "panel/look/colours.h"
#include "panel/look/fonts.h"
#include "panel/trends/line_mark.h"

#include <QMouseEvent>
#include <QPainter>
#include <QPainterPath>

#include <algorithm>
#include <cmath>
#include <limits>

namespace servopanel::panel {

namespace {

constexpr double longestSilence = 2.5; // seconds without a read that are still one curve
constexpr double emptyShare = 0.3; // of a scale that its curve must fill, or it is drawn anew
constexpr int gridSteps = 4;
constexpr int markRoom = 8; // pixels above a scale for the mark of its curve
constexpr int markEvery = 90; // pixels from mark to mark
constexpr int labelMargin = 6; // pixels beside the time above the finger

constexpr double minute = 60; // seconds

struct TimeGrid {
    double step; // seconds
    double unit; // seconds of one number on the axis
};
TimeGrid timeGrid(double span)
{
    if (span <= 90) return {10, 1};
    if (span <= 400) return {minute, minute};
    return {3 * minute, minute};
}

} // namespace

QString valueText(const History& history, std::size_t column, double value)
{
    if (!std::isfinite(value)) return QStringLiteral("–");
    constexpr std::size_t lately = 20; // rows
    constexpr int digits = 7;
    qsizetype decimals = 0;
    for (std::size_t back = 1; back <= std::min(lately, history.rows()); ++back) {
        const QString text = QString::number(history.value(history.rows() - back, column), 'g', digits);
        const qsizetype point = text.indexOf(u'.');
        if (point >= 0 && !text.contains(u'e')) decimals = std::max(decimals, text.size() - point - 1);
    }
    const QString plain = QString::number(value, 'g', digits);
    return plain.contains(u'e') ? plain : QString::number(value, 'f', static_cast<int>(decimals));
}

TrendPlot::TrendPlot(QWidget* parent)
    : QWidget{parent}
{
    // Time runs to the right, whichever way the texts around it run.
    setLayoutDirection(Qt::LeftToRight);
}

void TrendPlot::setNow(double seconds)
{
    now_ = seconds;
    if (frozen_) return;
    scale();
    putFinger(finger_);
}

void TrendPlot::setUnits(const QString& seconds, const QString& minutes)
{
    seconds_ = seconds;
    minutes_ = minutes;
    update();
}

void TrendPlot::setLines(std::vector<TrendLine> lines)
{
    lines_ = std::move(lines);
    axes_ = {};
    scale();
    update();
}

void TrendPlot::setSpan(double seconds)
{
    span_ = seconds;
    axes_ = {};
    scale();
    update();
}

void TrendPlot::setShared(bool shared)
{
    shared_ = shared;
    axes_ = {};
    scale();
    update();
}

void TrendPlot::setFrozen(bool frozen)
{
    if (frozen == isFrozen()) return;
    if (frozen) {
        frozen_.emplace(Frozen{*live_, now_, wallClock_()});
    } else {
        frozen_.reset();
    }
    scale();
    putFinger(frozen ? finger_ : std::nullopt);
}

int TrendPlot::fontPixels() const { return scaled(0.055, height(), 10, 14); }

int TrendPlot::axisWidth() const
{
    const QFont font = panelFont(fontPixels());
    int widest = drawnWidth(font, QStringLiteral("0.00"));
    for (const TrendLine& line : lines_)
        for (int tick = 0; tick <= gridSteps; ++tick)
            widest = std::max(widest, drawnWidth(font, axis(line.mark).label(tick)));
    return std::min(widest + 8, width() / 7);
}

QRect TrendPlot::area() const
{
    const int axes = shared_ || lines_.empty() ? 1 : static_cast<int>(lines_.size());
    const int text = fontPixels();
    return rect().adjusted(axes * axisWidth() + 2, text + markRoom, -text, -text * 2);
}

const Axis& TrendPlot::axis(int mark) const
{
    static const Axis none;
    const std::optional<Axis>& own = axes_[shared_ ? 0 : static_cast<std::size_t>(mark)];
    return own ? *own : none;
}

double TrendPlot::xAt(double seconds, const QRect& place) const
{
    return place.left() + (seconds - (end() - span_)) / span_ * place.width();
}

TrendPlot::Range TrendPlot::rangeOf(std::size_t column) const
{
    Range range{std::numeric_limits<double>::infinity(), -std::numeric_limits<double>::infinity()};
    const History& values = history();
    for (std::size_t row = values.firstSince(end() - span_); row < values.rows(); ++row) {
        const double value = values.value(row, column);
        if (std::isnan(value)) continue;
        range.least = std::min(range.least, value);
        range.most = std::max(range.most, value);
    }
    return range;
}

// A scale stays as long as it does, so that the picture stands still while values move.
void TrendPlot::scale()
{
    if (live_ == nullptr) return;
    std::array<std::optional<Range>, 4> ranges;
    for (const TrendLine& line : lines_) {
        const Range range = rangeOf(line.column);
        if (range.least > range.most) continue;
        std::optional<Range>& whole = ranges[shared_ ? 0 : static_cast<std::size_t>(line.mark)];
        whole = whole ? Range{std::min(whole->least, range.least), std::max(whole->most, range.most)} : range;
    }
    for (std::size_t i = 0; i < ranges.size(); ++i) {
        if (!ranges[i]) continue;
        const auto [least, most] = *ranges[i];
        std::optional<Axis>& kept = axes_[i];
        const bool fits = kept && least >= kept->low && most <= kept->high()
            && most - least >= emptyShare * (kept->high() - kept->low);
        if (!fits) kept = Axis::around(least, most, gridSteps);
    }
}

std::optional<double> TrendPlot::cursor() const
{
    if (!finger_) return {};
    const QRect place = area();
    return end() - span_ + (*finger_ - place.left()) / std::max(1, place.width()) * span_;
}

std::size_t TrendPlot::rowNear(double seconds) const
{
    const History& values = history();
    const std::size_t after = values.firstSince(seconds);
    std::size_t best = after;
    if (after > 0
        && (after == values.rows() || seconds - values.time(after - 1) < values.time(after) - seconds))
        best = after - 1;
    const bool isThere = best < values.rows() && std::abs(values.time(best) - seconds) <= longestSilence / 2;
    return isThere ? best : values.rows();
}

double TrendPlot::valueAtCursor(const TrendLine& line) const
{
    const std::optional<double> at = cursor();
    const std::size_t row = at ? rowNear(*at) : history().rows();
    return row == history().rows() ? std::numeric_limits<double>::quiet_NaN()
                                   : history().value(row, line.column);
}

QString TrendPlot::textAtCursor(const TrendLine& line) const
{
    return valueText(history(), line.column, valueAtCursor(line));
}

void TrendPlot::touch(QPointF at)
{
    const QRect place = area();
    putFinger(std::clamp<double>(at.x(), place.left(), place.right() + 1));
}

void TrendPlot::putFinger(std::optional<double> at)
{
    finger_ = at;
    update();
    if (cursorMoved_) cursorMoved_();
}

void TrendPlot::mousePressEvent(QMouseEvent* event)
{
    event->accept();
    touch(event->position());
}

void TrendPlot::mouseMoveEvent(QMouseEvent* event)
{
    event->accept();
    if (event->buttons() != Qt::NoButton) touch(event->position());
}

void TrendPlot::mouseReleaseEvent(QMouseEvent* event)
{
    event->accept();
    // In a picture that stands still the values can be read at leisure.
    if (!frozen_) putFinger({});
}

void TrendPlot::hideEvent(QHideEvent* event)
{
    putFinger({});
    QWidget::hideEvent(event);
}

void TrendPlot::paintEvent(QPaintEvent*)
{
    QPainter painter{this};
    painter.fillRect(rect(), colours::field);
    painter.setRenderHint(QPainter::Antialiasing);
    if (live_ == nullptr) return;
    drawTimes(painter);
    drawGrid(painter);
    painter.save();
    painter.setClipRect(area().adjusted(0, -2, 1, 2));
    for (const TrendLine& line : lines_)
        drawCurve(painter, line);
    painter.restore();
    drawCursor(painter);
}

void TrendPlot::drawTimes(QPainter& painter) const
{
    const QRect place = area();
    const TimeGrid grid = timeGrid(span_);
    const QFont font = panelFont(fontPixels());
    for (double age = 0; age <= span_ + 0.001; age += grid.step) {
        const double at = xAt(end() - age, place);
        painter.setPen(QPen{colours::faintBorder, 1, Qt::DotLine});
        painter.drawLine(QPointF(at, place.top()), QPointF(at, place.bottom()));
        painter.setPen(colours::faintInk);
        const QString number = QString::number(std::lround(age / grid.unit));
        const QString label =
            age == 0 ? QStringLiteral("0 ") + (grid.unit < minute ? seconds_ : minutes_) : u'−' + number;
        const int half = drawnWidth(font, label) / 2 + 1;
        // Not below the scale's own labels.
        const int left = std::clamp(static_cast<int>(at) - half, place.left(), width() - 2 * half);
        drawFitted(painter, {left, place.bottom() + 2, 2 * half, QFontMetrics{font}.height()},
            Qt::AlignCenter, font, label);
    }
}

void TrendPlot::drawGrid(QPainter& painter) const
{
    const QRect place = area();
    painter.setPen(QPen{colours::faintBorder, 1});
    for (int tick = 0; tick <= gridSteps; ++tick) {
        const double at = place.bottom() - double(tick) / gridSteps * place.height();
        painter.drawLine(QPointF(place.left(), at), QPointF(place.right(), at));
    }
    painter.setPen(QPen{colours::border, 1});
    painter.drawRect(QRectF{place}.adjusted(0, 0, -1, 0));

    const QFont font = panelFont(fontPixels());
    const QFontMetrics metrics{font};
    const int wide = axisWidth();
    int right = place.left() - 2;
    for (const TrendLine& line : lines_) {
        painter.setPen(shared_ ? colours::ink : markColour(line.mark));
        for (int tick = 0; tick <= gridSteps; ++tick) {
            const int middle = static_cast<int>(place.bottom() - double(tick) / gridSteps * place.height());
            const QRect where{right - wide, middle - metrics.height() / 2, wide - 3, metrics.height()};
            drawFitted(painter, where, Qt::AlignRight | Qt::AlignVCenter, font, axis(line.mark).label(tick));
        }
        if (shared_) break;
        drawMark(painter, QPointF(right - wide / 2.0, markRoom / 2.0 + 1), line.mark, 7);
        right -= wide;
    }
}

// Of the many values that fall on one column of pixels the first, the least, the most and the last are drawn.
void TrendPlot::drawCurve(QPainter& painter, const TrendLine& line) const
{
    const QRect place = area();
    const History& values = history();
    const Axis& scale = axis(line.mark);
    const auto y = [&](double value) { return place.bottom() - scale.share(value) * place.height(); };

    QList<QPolygonF> pieces;
    QPolygonF piece;
    std::vector<QPointF> marks;
    double lastTime = 0;
    double nextMark = place.left() + markEvery * (line.mark + 1) / 5.0;
    const std::size_t begin = values.firstSince(end() - span_);
    for (std::size_t row = begin > 0 ? begin - 1 : 0; row < values.rows() && values.time(row) <= end();
         ++row) {
        const double value = values.value(row, line.column);
        const bool isGap =
            std::isnan(value) || (!piece.isEmpty() && values.time(row) - lastTime > longestSilence);
        if (isGap && !piece.isEmpty()) {
            pieces << piece;
            piece.clear();
        }
        if (std::isnan(value)) continue;
        lastTime = values.time(row);
        const QPointF at{xAt(lastTime, place), y(value)};
        const qsizetype count = piece.size();
        // Three points in one column: the middle one only if it is an end of the stroke.
        if (count >= 2 && std::floor(piece[count - 2].x()) == std::floor(at.x())
            && (piece[count - 1].y() - piece[count - 2].y()) * (at.y() - piece[count - 1].y()) >= 0)
            piece[count - 1] = at;
        else
            piece << at;
        if (at.x() >= nextMark) {
            marks.push_back(at);
            nextMark = at.x() + markEvery;
        }
    }
    if (!piece.isEmpty()) pieces << piece;

    painter.setBrush(Qt::NoBrush);
    for (const QPolygonF& each : pieces) {
        painter.setPen(markPen(line.mark, 2));
        if (each.size() == 1)
            drawMark(painter, each.front(), line.mark, 5); // one value between two gaps
        else
            painter.drawPolyline(each);
    }
    for (const QPointF& mark : marks)
        drawMark(painter, mark, line.mark, 8);
}

QString TrendPlot::ageText(double seconds) const
{
    const QDateTime present = frozen_ ? frozen_->wallClock : wallClock_();
    const double age = std::max(0.0, end() - seconds);
    // Isolated, so that the unit stays with its number from right to left, too.
    constexpr QChar leftToRight{0x2066};
    constexpr QChar anyDirection{0x2068};
    constexpr QChar end{0x2069};
    const QString number = leftToRight + QStringLiteral("−") + QString::number(age, 'f', 1) + end;
    return leftToRight + present.addMSecs(-std::llround(age * 1000)).toString(QStringLiteral("HH:mm:ss"))
        + end + QStringLiteral("   ") + anyDirection + number + u' ' + seconds_ + end;
}

void TrendPlot::drawCursor(QPainter& painter) const
{
    const std::optional<double> at = cursor();
    if (!at) return;
    const QRect place = area();
    painter.setPen(QPen{colours::ink, 1});
    painter.drawLine(QPointF(*finger_, place.top()), QPointF(*finger_, place.bottom()));

    // Above the curves, so that it hides none of them.
    const QFont font = panelFont(fontPixels(), true);
    const QString time = ageText(*at);
    const int wide = drawnWidth(font, time) + 2 * labelMargin;
    const int left = std::clamp(
        static_cast<int>(*finger_) - wide / 2, place.left(), std::max(place.left(), width() - wide));
    const QRect label{left, 0, wide, place.top() - 1};
    painter.fillRect(label, colours::accent);
    painter.setPen(colours::barInk);
    drawFitted(painter, label, Qt::AlignCenter, font, time);
    for (const TrendLine& line : lines_) {
        const double value = valueAtCursor(line);
        if (std::isnan(value)) continue;
        const double y = place.bottom() - axis(line.mark).share(value) * place.height();
        drawMark(painter, QPointF(*finger_, y), line.mark, 9);
    }
}

} // namespace servopanel::panel
