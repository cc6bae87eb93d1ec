#pragma once

#include "panel/look/panel_text.h"
#include "panel/trends/trend_legend.h"
#include "panel/widgets/sheet.h"

#include <array>

namespace servopanel::panel {

// The sheet with the plot, its legend and its keys. It knows what is shown, not where the values come from.
class TrendSheet : public Sheet {
public:
    static constexpr std::size_t mostLines = 4;

    TrendSheet(QWidget* parent, PanelWords words);
    ~TrendSheet() override;

    TrendPlot& plot() { return *plot_; }
    // In the order in which they were added.
    const std::vector<TrendLine>& lines() const { return lines_; }
    // Adds a value with a mark that no other line has; false when there are four. One that is there stays as it is.
    bool add(std::size_t column, const QString& caption, const QString& unit, const QString& table = {});
    void remove(std::size_t column);
    void removeAll();
    // The texts of a line, and the words of the keys, in another language.
    void rename(std::size_t column, const QString& caption, const QString& unit, const QString& table = {});
    void retranslate();
    void setValue(std::size_t column, const QString& value);
    // Says in the title that no more values find room.
    void sayFull(bool full);

    // What the operator wants besides.
    enum class Wish { Close, Move, Enlarge };
    void setWishHandler(std::function<void(Wish)> handler) { wish_ = std::move(handler); }

    TouchKey& spanKey(std::size_t which) { return *spans_[which]; } // 1, 5, 15 minutes
    TouchKey& freezeKey() { return *freeze_; }
    TouchKey& moveKey() { return *move_; }
    TouchKey& enlargeKey() { return *enlarge_; }
    TouchKey& closeKey() { return *close_; }
    TrendLegend& legend(std::size_t row) { return *legends_[row]; }

protected:
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void chooseSpan(std::size_t which);
    void place();
    void adapt();
    void showReadings();
    QString titleText() const;

    PanelWords words_;
    std::vector<TrendLine> lines_;
    std::function<void(Wish)> wish_;
    TrendPlot* plot_;
    std::array<TrendLegend*, mostLines> legends_{};
    std::array<TouchKey*, 3> spans_{};
    TouchKey* shared_;
    TouchKey* freeze_;
    TouchKey* move_;
    TouchKey* enlarge_;
    TouchKey* close_;
    bool full_ = false;
};

} // namespace servopanel::panel
