#include "panel/widgets/error_list.h"

#include "panel/look/colours.h"
#include "panel/look/fonts.h"
#include "panel/look/mirroring.h"
#include "panel/look/touch_size.h"
#include "panel/look/wrapped_text.h"
#include "panel/widgets/message_sheet.h"

#include <QEvent>
#include <QPainter>

#include <algorithm>
#include <array>

namespace servopanel::panel {

namespace {

constexpr std::size_t mostEntries = 200;
constexpr int mostTimes = 999999;
constexpr int mostShown = 9999; // on the key
constexpr int margin = 8;
constexpr int linePixels = 13;
constexpr int lineHeight = 19;
constexpr int headHeight = 20;

// The columns of the first line of a report; its text stands below, over the whole width.
struct Columns {
    QRect times;
    QRect first;
    QRect last;
    QRect procedure;
};

Columns columns(const QRect& line)
{
    constexpr int gap = 10;
    const int times = 62;
    const int moment = std::min(130, (line.width() - times) / 4);
    int left = line.left() + 6;
    const auto next = [&](int width) {
        const QRect place{left, line.top(), width, line.height()};
        left += width + gap;
        return place;
    };
    Columns made{next(times), next(moment), next(moment), {}};
    made.procedure = {left, line.top(), line.right() - left - 4, line.height()};
    return made;
}

QString moment(const QDateTime& time) { return time.toString(QStringLiteral("MM-dd HH:mm:ss")); }

} // namespace

// The head of the table stands still above what scrolls.
class ErrorList::ListSheet : public Sheet {
public:
    ListSheet(QWidget* parent, ErrorList& list)
        : Sheet{parent}
        , list_{list}
    {
    }

    void arrange()
    {
        const QRect place = inner();
        const int keyHeight = std::max(leastTouch(*this), 44);
        const int keyWidth = std::min(180, (place.width() - margin) / 2);
        list_.pane_->setGeometry(place.adjusted(0, headHeight, 0, -keyHeight - margin));
        const int top = place.bottom() + 1 - keyHeight;
        list_.clear_->setGeometry(mirroredIn(*this, {place.left(), top, keyWidth, keyHeight}));
        list_.close_->setGeometry(
            mirroredIn(*this, {place.right() + 1 - keyWidth, top, keyWidth, keyHeight}));
        for (TouchKey* key : {list_.clear_, list_.close_})
            key->setTextPixels(15);
    }

protected:
    void resizeEvent(QResizeEvent*) override { arrange(); }
    void changeEvent(QEvent* event) override
    {
        Sheet::changeEvent(event);
        if (event->type() != QEvent::LayoutDirectionChange) return;
        arrange();
        if (isVisible()) list_.open();
    }
    void paintEvent(QPaintEvent* event) override
    {
        Sheet::paintEvent(event);
        QPainter painter{this};
        painter.setPen(colours::faintInk);
        const QRect place = inner();
        const Columns at = columns({place.left(), place.top(), place.width(), headHeight});
        for (const auto& [where, word] :
            {std::pair{at.times, PanelText::Times}, std::pair{at.first, PanelText::FirstTime},
                std::pair{at.last, PanelText::LastTime}, std::pair{at.procedure, PanelText::Procedure}})
            drawFitted(painter, mirroredIn(*this, where), static_cast<int>(leading(*this) | Qt::AlignVCenter),
                panelFont(linePixels - 1), list_.words_(word));
    }

private:
    ErrorList& list_;
};

ErrorList::ErrorList(QWidget& parent, PanelWords words, std::function<QDateTime()> clock)
    : parent_{parent}
    , words_{std::move(words)}
    , clock_{std::move(clock)}
    , badge_{new TouchKey{&parent}}
    , sheet_{new ListSheet{&parent, *this}}
    , pane_{new ScrollPane{sheet_}}
    , clear_{new TouchKey{sheet_}}
    , close_{new TouchKey{sheet_}}
{
    badge_->setRole(TouchKey::Role::Alarm);
    badge_->setAction([this] { isOpen() ? close() : open(); });
    badge_->hide();
    clear_->setAction([this] { clear(); });
    close_->setAction([this] { close(); });
    pane_->setContent(
        [this](int width) {
            int height = 0;
            for (const ErrorEntry& entry : entries_)
                height += rowHeight(entry, width);
            return height;
        },
        [this](QPainter& painter, const QRect& place) { paintRows(painter, place); });
    sheet_->hide();
}

bool ErrorList::isOpen() const { return sheet_->isVisibleTo(sheet_->parentWidget()); }

Sheet& ErrorList::sheet() { return *sheet_; }

int ErrorList::count() const
{
    int sum = 0;
    for (const ErrorEntry& entry : entries_)
        sum += entry.times;
    return sum;
}

void ErrorList::add(ErrorEntry::Origin origin, const QString& text, const QString& procedure)
{
    const QDateTime now = clock_();
    const auto same = std::find_if(entries_.begin(), entries_.end(), [&](const ErrorEntry& entry) {
        return entry.origin == origin && entry.text == text && entry.procedure == procedure;
    });
    ErrorEntry entry{origin, text, procedure, now, now, 1};
    if (same != entries_.end()) {
        // A refresh that fails every half second is one report, not a flood of them.
        entry.first = same->first;
        entry.times = std::min(same->times + 1, mostTimes);
        entries_.erase(same);
    }
    entries_.push_front(std::move(entry));
    if (entries_.size() > mostEntries) entries_.pop_back();
    adapt();
    if (added_) added_(ErrorEntry{entries_.front()});
}

void ErrorList::forget(ErrorEntry::Origin origin)
{
    close();
    std::erase_if(entries_, [origin](const ErrorEntry& entry) { return entry.origin == origin; });
    adapt();
}

void ErrorList::clear()
{
    close();
    entries_.clear();
    adapt();
}

void ErrorList::place(const QRect& key, int top)
{
    badge_->setGeometry(key);
    top_ = top;
    if (isOpen()) open();
}

void ErrorList::languageChanged()
{
    clear_->setText(words_(PanelText::ClearReports));
    close_->setText(words_(PanelText::Close));
    adapt();
    sheet_->update();
}

void ErrorList::adapt()
{
    const int sum = count();
    badge_->setVisible(sum > 0);
    badge_->setText(
        sum > mostShown ? QStringLiteral("! %1+").arg(mostShown) : QStringLiteral("! %1").arg(sum));
    raiseBadge();
    sheet_->setTitle(words_(PanelText::Errors) + QStringLiteral(" (%1)").arg(sum));
    if (isOpen()) pane_->contentChanged();
}

// On top of everything but a message, which nothing may lie on.
void ErrorList::raiseBadge()
{
    badge_->raise();
    for (QObject* each : parent_.children()) {
        auto* const message = dynamic_cast<MessageSheet*>(each);
        if (message == nullptr || message->isHidden()) continue;
        badge_->stackUnder(message);
        return;
    }
}

int ErrorList::rowHeight(const ErrorEntry& entry, int width) const
{
    return lineHeight + wrappedHeight(entry.text, panelFont(linePixels), width - 12) + 8;
}

void ErrorList::paintRows(QPainter& painter, const QRect& place) const
{
    const QRect seen{place.left(), 0, place.width(), pane_->height()};
    // The columns are reckoned in the pane, which may be narrower than the sheet by its bar.
    const auto mirrored = [&](const QRect& part) {
        if (!pane_->isRightToLeft()) return part;
        return QRect{place.left() + place.right() - part.right(), part.top(), part.width(), part.height()};
    };
    int top = place.top();
    for (const ErrorEntry& entry : entries_) {
        const int height = rowHeight(entry, place.width());
        const int bottom = top + height;
        if (bottom > 0 && top < seen.height()) {
            const QRect line{place.left(), top + 2, place.width(), lineHeight};
            const Columns at = columns(line);
            const auto cell = [&](const QRect& where, const QString& text, bool bold) {
                if (!seen.contains(line)) return;
                painter.setPen(bold ? colours::ink : colours::faintInk);
                drawFitted(painter, mirrored(where), static_cast<int>(leading(*pane_) | Qt::AlignVCenter),
                    panelFont(linePixels, bold), text);
            };
            cell(at.times, QStringLiteral("%1 ×").arg(entry.times), true);
            cell(at.first, moment(entry.first), false);
            cell(at.last, moment(entry.last), false);
            cell(at.procedure, entry.procedure, true);
            painter.setPen(colours::ink);
            drawWrapped(painter, {place.left() + 6, line.bottom() + 1, place.width() - 12, height}, seen,
                leading(*pane_), panelFont(linePixels), entry.text);
            painter.setPen(colours::faintBorder);
            painter.drawLine(place.left() + 4, bottom - 1, place.right() - 4, bottom - 1);
        }
        top = bottom;
    }
}

void ErrorList::open()
{
    const int width = std::min(900, parent_.width() - 2 * margin);
    const int height = std::min(420, parent_.height() / 2);
    sheet_->setGeometry(
        mirroredIn(parent_, {parent_.width() - width - margin, top_ + margin, width, height}));
    if (!isOpen()) pane_->toTop();
    sheet_->show();
    sheet_->raise();
    languageChanged();
}

void ErrorList::close() { sheet_->hide(); }

} // namespace servopanel::panel
