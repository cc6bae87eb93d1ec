#include "panel/widgets/error_list.h"

#include "panel/look/colours.h"
#include "panel/look/fonts.h"

#include <QPainter>
#include <QTime>

namespace servopanel::panel {

namespace {
constexpr std::size_t mostEntries = 200;
constexpr int margin = 8;
constexpr int keyHeight = 44;
} // namespace

// The lines of the list: as many of the newest as fit.
class ErrorList::Rows : public QWidget {
public:
    Rows(QWidget* parent, const std::deque<ErrorEntry>& entries)
        : QWidget{parent}
        , entries_{entries}
    {
    }

protected:
    void paintEvent(QPaintEvent*) override
    {
        QPainter painter{this};
        painter.fillRect(rect(), colours::field);
        painter.setFont(panelFont(13));
        int top = 4;
        for (const ErrorEntry& entry : entries_) {
            const QString times = entry.times > 1 ? QStringLiteral("  (%1 x)").arg(entry.times) : QString{};
            const QRect place{6, top, width() - 12, height()};
            const QString line = entry.time + QStringLiteral("  ") + entry.text + times;
            const int flags = Qt::AlignLeft | Qt::AlignTop | Qt::TextWordWrap | Qt::TextWrapAnywhere;
            const QRect taken = painter.boundingRect(place, flags, line);
            if (taken.bottom() > height()) break;
            painter.setPen(colours::ink);
            painter.drawText(place, flags, line);
            top = taken.bottom() + 4;
            painter.setPen(colours::faintBorder);
            painter.drawLine(4, top - 1, width() - 4, top - 1);
        }
    }

private:
    const std::deque<ErrorEntry>& entries_;
};

ErrorList::ErrorList(QWidget& parent, PanelWords words)
    : parent_{parent}
    , words_{std::move(words)}
    , badge_{new TouchKey{&parent}}
    , sheet_{new Sheet{&parent}}
    , rows_{new Rows{sheet_, entries_}}
    , close_{new TouchKey{sheet_}}
{
    badge_->setRole(TouchKey::Role::Alarm);
    badge_->setAction([this] { isOpen() ? close() : open(); });
    badge_->hide();
    close_->setAction([this] { close(); });
    sheet_->hide();
}

int ErrorList::count() const
{
    int sum = 0;
    for (const ErrorEntry& entry : entries_)
        sum += entry.times;
    return sum;
}

void ErrorList::add(ErrorEntry::Origin origin, const QString& text)
{
    const bool isRepeated =
        !entries_.empty() && entries_.front().text == text && entries_.front().origin == origin;
    if (isRepeated) {
        // A refresh that fails every half second is one report, not a flood of them.
        ++entries_.front().times;
    } else {
        entries_.push_front({origin, text, QTime::currentTime().toString(QStringLiteral("HH:mm:ss")), 1});
        if (entries_.size() > mostEntries) entries_.pop_back();
    }
    adapt();
}

void ErrorList::forget(ErrorEntry::Origin origin)
{
    close();
    std::erase_if(entries_, [origin](const ErrorEntry& entry) { return entry.origin == origin; });
    adapt();
}

void ErrorList::place(const QRect& key) { badge_->setGeometry(key); }

void ErrorList::adapt()
{
    const int sum = count();
    badge_->setVisible(sum > 0);
    badge_->setText(QStringLiteral("! %1").arg(sum));
    badge_->raise();
    sheet_->setTitle(words_(PanelText::Errors) + QStringLiteral(" (%1)").arg(sum));
    rows_->update();
}

void ErrorList::open()
{
    const int width = std::min(900, parent_.width() - 2 * margin);
    const int height = std::min(420, parent_.height() / 2);
    sheet_->setGeometry(
        parent_.width() - width - margin, badge_->geometry().bottom() + margin, width, height);
    const QRect inner = sheet_->inner();
    rows_->setGeometry(inner.adjusted(0, 0, 0, -keyHeight - margin));
    close_->setText(words_(PanelText::Close));
    close_->setGeometry(inner.right() - 180, inner.bottom() - keyHeight, 180, keyHeight);
    adapt();
    sheet_->show();
    sheet_->raise();
}

void ErrorList::close() { sheet_->hide(); }

} // namespace servopanel::panel
