#include "panel/trends/trend_sheet.h"

#include "panel/look/fonts.h"
#include "panel/look/touch_size.h"
#include "panel/trends/line_mark.h"

#include <QEvent>
#include <QStyle>

#include <algorithm>

namespace servopanel::panel {

namespace {

constexpr std::array minutes{1, 5, 15};
constexpr double secondsPerMinute = 60;

} // namespace

TrendSheet::TrendSheet(QWidget* parent, PanelWords words)
    : Sheet{parent}
    , words_{std::move(words)}
    , plot_{new TrendPlot{this}}
    , shared_{new TouchKey{this}}
    , freeze_{new TouchKey{this}}
    , move_{new TouchKey{this}}
    , enlarge_{new TouchKey{this}}
    , close_{new TouchKey{this}}
{
    static_assert(mostLines == lineMarks);
    for (std::size_t i = 0; i < legends_.size(); ++i)
        legends_[i] = new TrendLegend{this, [this, i] {
                                          if (i < lines_.size()) remove(lines_[i].column);
                                      }};
    for (std::size_t i = 0; i < spans_.size(); ++i) {
        spans_[i] = new TouchKey{this};
        spans_[i]->setAction([this, i] { chooseSpan(i); });
    }
    plot_->setCursorHandler([this] { showReadings(); });
    const auto wish = [this](Wish what) {
        return [this, what] {
            if (wish_) wish_(what);
        };
    };
    shared_->setAction([this] {
        plot_->setShared(!plot_->isShared());
        adapt();
    });
    freeze_->setAction([this] {
        plot_->setFrozen(!plot_->isFrozen());
        adapt();
    });
    move_->setAction(wish(Wish::Move));
    move_->setText(QStringLiteral("⇅"));
    enlarge_->setAction(wish(Wish::Enlarge));
    enlarge_->setText(QStringLiteral("⤢"));
    close_->setAction(wish(Wish::Close));
    close_->setRole(TouchKey::Role::Accept);
    chooseSpan(0);
    retranslate();
    hide();
}

// The plot is hidden after this.
TrendSheet::~TrendSheet() { plot_->setCursorHandler({}); }

void TrendSheet::chooseSpan(std::size_t which)
{
    plot_->setSpan(minutes[which] * secondsPerMinute);
    for (std::size_t i = 0; i < spans_.size(); ++i)
        spans_[i]->setChosen(i == which);
}

bool TrendSheet::add(std::size_t column, const QString& caption, const QString& unit, const QString& table)
{
    const auto isIt = [column](const TrendLine& line) { return line.column == column; };
    if (std::any_of(lines_.begin(), lines_.end(), isIt)) return true;
    if (lines_.size() == mostLines) return false;
    int mark = 0;
    while (std::any_of(
        lines_.begin(), lines_.end(), [mark](const TrendLine& line) { return line.mark == mark; }))
        ++mark;
    lines_.push_back({column, mark, caption, unit, table});
    adapt();
    return true;
}

void TrendSheet::remove(std::size_t column)
{
    std::erase_if(lines_, [column](const TrendLine& line) { return line.column == column; });
    full_ = false;
    adapt();
    // Nothing left to look at.
    if (lines_.empty() && wish_) wish_(Wish::Close);
}

void TrendSheet::removeAll()
{
    lines_.clear();
    full_ = false;
    plot_->setFrozen(false);
    adapt();
}

void TrendSheet::rename(std::size_t column, const QString& caption, const QString& unit, const QString& table)
{
    for (TrendLine& line : lines_) {
        if (line.column != column) continue;
        line.caption = caption;
        line.unit = unit;
        line.table = table;
    }
    adapt();
}

void TrendSheet::retranslate()
{
    shared_->setText(words_(PanelText::TrendShared));
    close_->setText(words_(PanelText::Close));
    plot_->setUnits(words_(PanelText::Seconds), words_(PanelText::Minutes));
    for (std::size_t i = 0; i < spans_.size(); ++i)
        spans_[i]->setText(QString::number(minutes[i]) + u' ' + words_(PanelText::Minutes));
    adapt();
}

void TrendSheet::setValue(std::size_t column, const QString& value)
{
    for (std::size_t i = 0; i < lines_.size(); ++i)
        if (lines_[i].column == column) legends_[i]->setValue(value);
}

void TrendSheet::sayFull(bool full)
{
    full_ = full;
    adapt();
}

// The title of a table stands above all, because it is too long for every line of the legend.
QString TrendSheet::titleText() const
{
    const QString dash = QStringLiteral(" – ");
    QString title = words_(PanelText::Trend);
    if (full_) return title + dash + words_(PanelText::TrendFull);
    const auto cell = std::find_if(
        lines_.begin(), lines_.end(), [](const TrendLine& line) { return !line.table.isEmpty(); });
    return cell == lines_.end() ? title : title + dash + cell->table;
}

void TrendSheet::adapt()
{
    setTitle(titleText());
    freeze_->setText(words_(plot_->isFrozen() ? PanelText::TrendContinue : PanelText::TrendFreeze));
    freeze_->setChosen(plot_->isFrozen());
    shared_->setChosen(plot_->isShared());
    for (std::size_t i = 0; i < legends_.size(); ++i) {
        if (i < lines_.size())
            legends_[i]->setLine(lines_[i], {});
        else
            legends_[i]->setLine({}, i == lines_.size() ? words_(PanelText::TrendAdd) : QString{});
    }
    plot_->setLines(lines_);
    showReadings();
}

void TrendSheet::showReadings()
{
    const bool isRead = plot_->cursor().has_value();
    for (std::size_t i = 0; i < lines_.size(); ++i)
        legends_[i]->setReading(isRead ? std::optional{plot_->textAtCursor(lines_[i])} : std::nullopt);
}

void TrendSheet::place()
{
    const QRect inside = inner();
    const int gap = scaled(0.006, width(), 3, 8);
    const int finger = leastTouch(*this);
    const int keyHeight = std::max(scaled(0.13, height(), 32, 56), finger);
    const auto put = [this](QWidget& widget, const QRect& where) {
        widget.setGeometry(QStyle::visualRect(layoutDirection(), rect(), where));
    };
    // Shares of the row's width, in reading order.
    const std::array<std::pair<TouchKey*, int>, 8> keys{{{spans_[0], 10}, {spans_[1], 10}, {spans_[2], 10},
        {shared_, 20}, {freeze_, 15}, {move_, 8}, {enlarge_, 8}, {close_, 19}}};
    const int whole = inside.width() - gap * static_cast<int>(keys.size() - 1);
    int left = inside.left();
    int shares = 0;
    for (const auto& [key, share] : keys) {
        const int from = whole * shares / 100;
        shares += share;
        const int width = whole * shares / 100 - from;
        const bool isSymbol = key == move_ || key == enlarge_;
        key->setTextPixels(isSymbol ? keyHeight / 2 : scaled(0.36, keyHeight, 11, 18));
        put(*key, {left, inside.bottom() + 1 - keyHeight, width, keyHeight});
        left += width + gap;
    }
    const QRect above = inside.adjusted(0, 0, 0, -keyHeight - gap);
    const int legendWidth = scaled(0.26, width(), 265, 340);
    put(*plot_, above.adjusted(0, 0, -legendWidth - gap, 0));
    const int rowHeight = std::min(above.height() / static_cast<int>(legends_.size()), std::max(64, finger));
    for (std::size_t i = 0; i < legends_.size(); ++i)
        put(*legends_[i],
            {above.right() + 1 - legendWidth, above.top() + rowHeight * static_cast<int>(i), legendWidth,
                rowHeight});
}

void TrendSheet::resizeEvent(QResizeEvent* event)
{
    Sheet::resizeEvent(event);
    place();
}

void TrendSheet::changeEvent(QEvent* event)
{
    Sheet::changeEvent(event);
    if (event->type() == QEvent::LayoutDirectionChange) place();
}

} // namespace servopanel::panel
