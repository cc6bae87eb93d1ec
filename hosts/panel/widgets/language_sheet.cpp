#include "panel/widgets/language_sheet.h"

#include "panel/look/fonts.h"
#include "panel/look/mirroring.h"
#include "panel/look/touch_size.h"

#include <QEvent>

#include <algorithm>

namespace servopanel::panel {

namespace {
constexpr int gap = 6; // pixels between keys
constexpr int margin = 8; // to the edge of the screen
} // namespace

LanguageSheet::LanguageSheet(
    QWidget* parent, const std::vector<HeaderLanguage>& languages, std::function<void(int number)> chosen)
    : Sheet{parent}
    , close_{new TouchKey{this}}
{
    for (const HeaderLanguage& language : languages) {
        auto* key = new TouchKey{this};
        key->setText(language.name);
        key->setAction([this, chosen, number = language.number] {
            hide();
            chosen(number);
        });
        keys_.push_back({language.number, key});
    }
    close_->setAction([this] { hide(); });
    hide();
}

void LanguageSheet::setLanguage(int number)
{
    for (const Key& each : keys_)
        each.key->setChosen(each.number == number);
}

void LanguageSheet::setWords(const QString& title, const QString& close)
{
    setTitle(title);
    close_->setText(close);
}

TouchKey* LanguageSheet::key(int number) const
{
    for (const Key& each : keys_)
        if (each.number == number) return each.key;
    return nullptr;
}

int LanguageSheet::keyHeight() const
{
    return std::max(leastTouch(*this), scaled(0.055, parentWidget()->height(), 30, 56));
}

void LanguageSheet::open(int top)
{
    top_ = top;
    const QSize stage = parentWidget()->size();
    const int width = std::min(stage.width() - 2 * margin, scaled(0.36, stage.width(), 300, 460));
    const int keys = (rows() + 1) * (keyHeight() + gap);
    const int height = std::min(stage.height() - top - margin, keys + titleHeight(keys) + 4 * gap);
    setGeometry(mirroredIn(*parentWidget(), {stage.width() - margin - width, top, width, height}));
    show();
    raise();
}

void LanguageSheet::arrange()
{
    const QRect place = inner();
    const int row = (place.height() + gap) / (rows() + 1);
    const int width = (place.width() - gap * (columns - 1)) / columns;
    for (std::size_t i = 0; i < keys_.size(); ++i) {
        const int at = static_cast<int>(i);
        const QRect unmirrored{
            place.left() + at % columns * (width + gap), place.top() + at / columns * row, width, row - gap};
        keys_[i].key->setGeometry(mirroredIn(*this, unmirrored));
        keys_[i].key->setTextPixels(scaled(0.4, row, 12, 20));
    }
    close_->setGeometry(
        mirroredIn(*this, {place.right() + 1 - width, place.top() + rows() * row, width, row - gap}));
    close_->setTextPixels(scaled(0.36, row, 12, 18));
}

void LanguageSheet::resizeEvent(QResizeEvent*) { arrange(); }

void LanguageSheet::changeEvent(QEvent* event)
{
    Sheet::changeEvent(event);
    if (event->type() != QEvent::LayoutDirectionChange) return;
    arrange();
    if (isVisible()) open(top_);
}

} // namespace servopanel::panel
