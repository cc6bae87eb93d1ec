#include "panel/widgets/sheet.h"

#include "panel/look/colours.h"
#include "panel/look/fonts.h"
#include "panel/look/mirroring.h"
#include "panel/look/touch_size.h"

#include <QEvent>
#include <QMouseEvent>
#include <QPainter>

#include <algorithm>

namespace servopanel::panel {

Sheet::Sheet(QWidget* parent)
    : QWidget{parent}
{
}

void Sheet::setTitle(const QString& title)
{
    if (title_ == title) return;
    title_ = title;
    update();
}

int Sheet::titleHeight(int height) const
{
    constexpr int most = 36;
    return std::max(scaled(0.085, height, 20, most), scaled(0.028, stageOf(*this).height(), 20, most));
}

QRect Sheet::inner() const
{
    const int margin = scaled(0.03, width(), 5, 10);
    return rect().adjusted(margin, titleHeight() + margin / 2 + 1, -margin, -margin);
}

void Sheet::paintEvent(QPaintEvent*)
{
    QPainter painter{this};
    painter.setPen(QPen{colours::bar, 2});
    painter.setBrush(colours::sheet);
    painter.drawRect(rect().adjusted(1, 1, -1, -1));
    const QRect bar{0, 0, width(), titleHeight()};
    painter.fillRect(bar, colours::bar);
    const QRect place = bar.adjusted(10, 0, -10, 0);
    painter.setPen(colours::barInk);
    drawFitted(painter, place, static_cast<int>(leading(*this) | Qt::AlignVCenter),
        panelFont(scaled(0.5, bar.height(), 11, 17), true), title_);
}

void Sheet::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::LayoutDirectionChange) update();
}

void Sheet::mousePressEvent(QMouseEvent* event) { event->accept(); }
void Sheet::mouseMoveEvent(QMouseEvent* event) { event->accept(); }
void Sheet::mouseReleaseEvent(QMouseEvent* event) { event->accept(); }
void Sheet::mouseDoubleClickEvent(QMouseEvent* event) { event->accept(); }

} // namespace servopanel::panel
