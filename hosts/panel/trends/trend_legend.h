#pragma once

#include "panel/trends/trend_plot.h"
#include "panel/widgets/touch_key.h"

namespace servopanel::panel {

// One row beside the plot: a curve's sample, caption, present value with unit, and the key that takes it away. While a
// finger lies on the curves, the value at that place stands there instead of the present one, on the colour of the finger's
// line.
class TrendLegend : public QWidget {
public:
    TrendLegend(QWidget* parent, std::function<void()> remove);

    // Nothing: a free place, with a hint where it is the first.
    void setLine(const std::optional<TrendLine>& line, const QString& hint);
    void setValue(const QString& value);
    // Nothing: the present value.
    void setReading(const std::optional<QString>& value);
    TouchKey& removeKey() { return *remove_; }
    const QString& value() const { return reading_ ? *reading_ : value_; }
    const std::optional<TrendLine>& line() const { return line_; }

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void place();
    void drawValue(QPainter& painter, const QRect& place, Qt::Alignment side, const QFont& font) const;
    QString shownValue() const;
    int keySide() const;

    std::optional<TrendLine> line_;
    QString hint_;
    QString value_;
    std::optional<QString> reading_;
    TouchKey* remove_;
};

} // namespace servopanel::panel
