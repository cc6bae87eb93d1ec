#include "panel/trends/trends.h"

#include <QChildEvent>
#include <QMouseEvent>

#include <algorithm>
#include <cmath>

namespace servopanel::panel {

namespace {
constexpr std::size_t firstOfTable = 20;
}

Trends::Trends(
    QWidget& stage, Sampler::Read read, PanelWords words, std::function<bool()> mayOpen, Clocks clocks)
    : stage_{stage}
    , mayOpen_{std::move(mayOpen)}
    , sampler_{std::move(read),
          clocks.seconds ? std::move(clocks.seconds)
                         : [this] { return static_cast<double>(clock_.nsecsElapsed()) / 1e9; }}
    , sheet_{new TrendSheet{&stage, std::move(words)}}
{
    clock_.start();
    timer_.setInterval(Sampler::periodMs);
    QObject::connect(&timer_, &QTimer::timeout, this, [this] { refresh(); });
    sheet_->plot().setHistory(sampler_.history());
    sheet_->plot().setWallClock(std::move(clocks.wall));
    // Another servo or another page: its values are not those of the curves.
    sampler_.setChanged([this] { close(); });
    sheet_->setWishHandler([this](TrendSheet::Wish wish) {
        if (wish == TrendSheet::Wish::Close) return close();
        if (wish == TrendSheet::Wish::Move) place_ = place_ == Place::Below ? Place::Above : Place::Below;
        isLarge_ = wish == TrendSheet::Wish::Enlarge && !isLarge_;
        lay();
    });
}

Trends::~Trends() { forget(); }

void Trends::watch(ControlHost& page)
{
    forget();
    page_ = &page;
    box_ = valueBox(page);
    if (box_ == nullptr) return;
    watchWidget(box_);
    for (QObject* child : box_->children())
        watchWidget(child);
}

void Trends::forget()
{
    close();
    if (box_ != nullptr) {
        box_->removeEventFilter(this);
        for (QObject* child : box_->children())
            child->removeEventFilter(this);
    }
    for (const auto& [view, mark] : marks_)
        delete mark.data();
    marks_.clear();
    page_ = nullptr;
    box_ = nullptr;
}

void Trends::watchWidget(QObject* widget)
{
    if (widget->isWidgetType()) widget->installEventFilter(this);
}

void Trends::seen(std::string_view name, const basic::Variant* value)
{
    if (sampler_.seen(name, value) && isOpen()) showValues();
}

void Trends::refresh()
{
    sampler_.sample();
    showValues();
}

void Trends::showValues()
{
    sheet_->plot().setNow(sampler_.now());
    for (const TrendLine& line : sheet_->lines())
        sheet_->setValue(
            line.column, valueText(sampler_.history(), line.column, sampler_.history().newest(line.column)));
}

void Trends::showMarks()
{
    if (page_ == nullptr || page_->hasEnded() || box_ == nullptr || !box_->isVisible()) return;
    for (const ValueCell& cell : valueCellsWithoutTouch(*page_)) {
        QPointer<TrendMark>& mark = marks_[cell.view];
        if (mark.isNull()) mark = new TrendMark{*cell.view};
        mark->setOn(std::isfinite(sampler_.history().newest(cell.column)));
    }
}

void Trends::languageChanged()
{
    if (page_ == nullptr || page_->hasEnded()) return;
    const std::vector<TrendLine> lines = sheet_->lines();
    for (const TrendLine& line : lines) {
        const ValueWords words = valueWords(*page_, line.column);
        sheet_->rename(line.column, words.caption, words.unit, words.table);
    }
    sheet_->retranslate();
}

void Trends::close()
{
    timer_.stop();
    sheet_->hide();
    sheet_->removeAll();
}

bool Trends::eventFilter(QObject* watched, QEvent* event)
{
    switch (event->type()) {
    case QEvent::ChildAdded: watchWidget(static_cast<QChildEvent*>(event)->child()); return false;
    case QEvent::Hide:
        if (watched == box_) close();
        return false;
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick: {
        const auto* press = static_cast<QMouseEvent*>(event);
        auto* widget = static_cast<QWidget*>(watched);
        swallowing_ = press->button() == Qt::LeftButton && touched(*widget, press->position().toPoint());
        return swallowing_;
    }
    case QEvent::MouseMove: return swallowing_;
    case QEvent::MouseButtonRelease: {
        const bool wasOurs = swallowing_;
        swallowing_ = false;
        return wasOurs;
    }
    default: return false;
    }
}

std::vector<ValueCell> Trends::offered() const
{
    if (page_ == nullptr || page_->hasEnded() || box_ == nullptr) return {};
    std::vector<ValueCell> cells = valueCells(*page_);
    std::erase_if(
        cells, [this](const ValueCell& cell) { return std::isnan(sampler_.history().newest(cell.column)); });
    return cells;
}

bool Trends::touched(QWidget& widget, QPoint at)
{
    if (!mayOpen_()) return false;
    const std::vector<ValueCell> cells = offered();
    const ValueCell* const best = nearestCell(cells, &widget == box_ ? at : widget.mapTo(box_.data(), at));
    if (best == nullptr) return false;
    open(*best);
    return true;
}

void Trends::open(const ValueCell& cell)
{
    const bool wasOpen = isOpen();
    // The plot opens where the touched value stays in sight.
    if (!wasOpen) {
        place_ = cell.column >= firstOfTable ? Place::Above : Place::Below;
        isLarge_ = false;
        sheet_->retranslate();
    }
    const ValueWords words = valueWords(*page_, cell.column);
    sheet_->sayFull(!sheet_->add(cell.column, words.caption, words.unit, words.table));
    if (!wasOpen) {
        lay();
        sheet_->show();
        sheet_->raise();
        timer_.start();
    }
    showValues();
}

// Over the table of the page or over the lines above it; large, over both and the heading, header and footer left free.
void Trends::lay()
{
    if (page_ == nullptr || box_ == nullptr) return;
    const QRect box{box_->mapTo(&stage_, QPoint{0, 0}), box_->size()};
    int lines = box.height() / 2; // where the lines end and the table begins
    for (const ValueCell& cell : valueCells(*page_))
        if (cell.column < firstOfTable) lines = std::max(lines, cell.view->geometry().bottom() + 2);
    QRect where = box;
    if (isLarge_) {
        where.setTop(page_->view().mapTo(&stage_, QPoint{0, 0}).y());
        if (Child* heading = page_->find("Überschrift"))
            where.setTop(heading->view().mapTo(&stage_, QPoint{0, 0}).y());
    } else if (place_ == Place::Below) {
        where.setTop(box.top() + lines);
    } else {
        where.setBottom(box.top() + lines - 1);
    }
    sheet_->setGeometry(where);
}

} // namespace servopanel::panel
