#include "panel/widgets/footer_bar.h"

#include "panel/look/colours.h"

#include <QMouseEvent>
#include <QPainter>

namespace servopanel::panel {

namespace {
constexpr int gap = 4; // pixels between keys
constexpr int escape = 11;
} // namespace

FooterBar::FooterBar(QWidget* parent)
    : QWidget{parent}
{
    for (int number = 1; number <= keyCount; ++number) {
        auto* key = new TouchKey{this};
        key->setCorner(number == escape ? QStringLiteral("Esc") : QStringLiteral("F%1").arg(number));
        key->setOn(false);
        key->setBlankWhileOff(true);
        key->setAction([this, number] {
            if (pressed_) pressed_(number);
        });
        keys_[static_cast<std::size_t>(number - 1)] = key;
    }
    key(keyCount).hide();
}

void FooterBar::setKeyOn(int number, bool on)
{
    key(number).setOn(on);
    if (number != keyCount || !on || key(number).isVisibleTo(this)) return;
    key(number).show();
    arrange();
}

void FooterBar::arrange()
{
    const int shown = key(keyCount).isVisibleTo(this) ? keyCount : keyCount - 1;
    // Key 12 stands before key 11, which is always at the edge.
    for (int number = 1; number <= shown; ++number) {
        const int place = number == escape ? shown - 1 : number == keyCount ? shown - 2 : number - 1;
        const int left = gap + place * (width() - gap) / shown;
        const int right = gap + (place + 1) * (width() - gap) / shown - gap;
        key(number).setGeometry(left, gap, right - left, height() - 2 * gap);
    }
}

void FooterBar::resizeEvent(QResizeEvent*) { arrange(); }

void FooterBar::mousePressEvent(QMouseEvent* event) { event->accept(); }
void FooterBar::mouseDoubleClickEvent(QMouseEvent* event) { event->accept(); }

void FooterBar::paintEvent(QPaintEvent*)
{
    QPainter painter{this};
    painter.fillRect(rect(), colours::bar);
}

} // namespace servopanel::panel
