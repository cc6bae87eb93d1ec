#pragma once

#include "panel/trends/trend_plot.h"
#include "panel/widgets/touch_key.h"

namespace servopanel::panel {

// One row beside the plot: a curve's sample, caption, present value with unit, and the key that takes it away.
class TrendLegend : public QWidget {
public:
    TrendLegend(QWidget* parent, std::function<void()> remove);

    // Nothing: a free place, with a hint where it is the first.
    void setLine(const std::optional<TrendLine>& line, const QString& hint);
    void setValue(const QString& value);
    TouchKey& removeKey() { return *remove_; }
    const QString& value() const { return value_; }
    const std::optional<TrendLine>& line() const { return line_; }

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void place();
    int keySide() const;

    std::optional<TrendLine> line_;
    QString hint_;
    QString value_;
    TouchKey* remove_;
};

} // namespace servopanel::panel
