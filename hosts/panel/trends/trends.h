#pragma once

#include "panel/trends/sampler.h"
#include "panel/trends/trend_mark.h"
#include "panel/trends/trend_sheet.h"
#include "panel/trends/value_cells.h"

#include <QElapsedTimer>
#include <QPointer>
#include <QTimer>

#include <map>
#include <memory>

namespace servopanel::panel {

// Trends of the actual values on the diagnosis pages. A touch on a value opens the plot, further touches add values to
// it. All of it is the panel's own: the library neither sees the touch nor the plot, and values are only read.
class Trends : public QObject {
public:
    struct Clocks {
        Sampler::Clock seconds; // nothing: the system's own that never jumps
        std::function<QDateTime()> wall; // for the times that are shown
    };
    // stage: where the plot lies. mayOpen: nothing else wants the operator's attention.
    Trends(
        QWidget& stage, Sampler::Read read, PanelWords words, std::function<bool()> mayOpen, Clocks clocks);
    ~Trends() override;

    // The page whose values can be touched from now on. It tells no more when it ends; forget() comes first.
    void watch(ControlHost& page);
    void forget();
    // What a page has read, see Sampler::seen.
    void seen(std::string_view name, const basic::Variant* value);
    // Signs on the values that have a trend; after each procedure of the library, which may have brought, shown or hidden
    // some.
    void showMarks();
    void languageChanged();

    // Where a touch opens a trend now: values that were read and are numbers.
    std::vector<ValueCell> offered() const;
    // What all of them lie in; nullptr while no page is watched.
    QWidget* box() const { return box_; }

    bool isOpen() const { return !sheet_->isHidden(); }
    void close();
    TrendSheet& sheet() { return *sheet_; }
    Sampler& sampler() { return sampler_; }
    // Reads once more and draws, as the timer does while the plot is open.
    void refresh();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    enum class Place { Below, Above, Whole };
    void watchWidget(QObject* widget);
    bool touched(QWidget& widget, QPoint at);
    void open(const ValueCell& cell);
    void lay();
    void showValues();

    QWidget& stage_;
    std::function<bool()> mayOpen_;
    QElapsedTimer clock_;
    Sampler sampler_;
    QTimer timer_;
    TrendSheet* sheet_;
    ControlHost* page_ = nullptr;
    QPointer<QWidget> box_;
    std::map<TextView*, QPointer<TrendMark>> marks_;
    Place place_ = Place::Below;
    bool isLarge_ = false;
    bool swallowing_ = false; // the finger that opened or added is still down
};

} // namespace servopanel::panel
