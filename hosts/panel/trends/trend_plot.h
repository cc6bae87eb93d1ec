#pragma once

#include "panel/trends/axis.h"
#include "panel/trends/history.h"

#include <QDateTime>
#include <QWidget>

#include <array>
#include <functional>
#include <optional>
#include <vector>

namespace servopanel::panel {

// One curve of a plot: a column of the history, and which of the marks is its own.
struct TrendLine {
    std::size_t column = 0;
    int mark = 0;
    QString caption;
    QString unit;
    QString table{}; // titles of the table that it belongs to; empty for a value of its own
};

// A value of a column as it reads: with as many decimals as the column had lately, so that it does not jump to and fro.
QString valueText(const History& history, std::size_t column, double value);

// Curves over the last seconds, the present at the right in every language. A finger on it draws a line there with the
// time above it; whoever shows the values beside the plot asks for them. Where a value could not be read there is no curve.
class TrendPlot : public QWidget {
public:
    explicit TrendPlot(QWidget* parent);

    // What is drawn; the history outlives the plot. now: the present, in seconds of the history's clock.
    void setHistory(const History& history) { live_ = &history; }
    void setNow(double seconds);
    // The time of day that belongs to the present.
    void setWallClock(std::function<QDateTime()> clock) { wallClock_ = std::move(clock); }
    // What stands behind seconds and minutes.
    void setUnits(const QString& seconds, const QString& minutes);
    void setLines(std::vector<TrendLine> lines);
    // Seconds from the left edge to the right.
    void setSpan(double seconds);
    double span() const { return span_; }
    // One scale for all curves instead of one for each.
    void setShared(bool shared);
    bool isShared() const { return shared_; }
    // Stops the picture; nothing of it is lost while it stands, and going on leaves no gap.
    void setFrozen(bool frozen);
    bool isFrozen() const { return frozen_.has_value(); }

    // The place of the finger: seconds of the history's clock; nothing when there is none.
    std::optional<double> cursor() const;
    // Called when the finger's place, or what the values are there, has changed.
    void setCursorHandler(std::function<void()> moved) { cursorMoved_ = std::move(moved); }
    // A curve's value there, NaN when there is none.
    double valueAtCursor(const TrendLine& line) const;
    // That value as it reads.
    QString textAtCursor(const TrendLine& line) const;
    // The rectangle of the curves.
    QRect area() const;
    // Scale of a curve as it is drawn.
    const Axis& axis(int mark) const;

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override { mousePressEvent(event); }
    void hideEvent(QHideEvent* event) override;

private:
    struct Frozen {
        History history;
        double end;
        QDateTime wallClock;
    };
    struct Range {
        double least;
        double most;
    };

    const History& history() const { return frozen_ ? frozen_->history : *live_; }
    double end() const { return frozen_ ? frozen_->end : now_; }
    // place: area(), which measures texts and is not asked for at each value.
    double xAt(double seconds, const QRect& place) const;
    std::size_t rowNear(double seconds) const;
    Range rangeOf(std::size_t column) const;
    void scale();
    int fontPixels() const;
    int axisWidth() const;
    void drawGrid(QPainter& painter) const;
    void drawTimes(QPainter& painter) const;
    void drawCurve(QPainter& painter, const TrendLine& line) const;
    void drawCursor(QPainter& painter) const;
    QString ageText(double seconds) const;
    void touch(QPointF at);
    void putFinger(std::optional<double> at);

    const History* live_ = nullptr;
    std::function<QDateTime()> wallClock_ = [] { return QDateTime::currentDateTime(); };
    std::optional<Frozen> frozen_;
    QString seconds_;
    QString minutes_;
    std::vector<TrendLine> lines_;
    std::array<std::optional<Axis>, 4> axes_;
    std::optional<double> finger_; // pixels
    std::function<void()> cursorMoved_;
    double now_ = 0;
    double span_ = 60;
    bool shared_ = false;
};

} // namespace servopanel::panel
