#include "panel/widgets/scroll_view.h"

#include "panel/look/colours.h"
#include "panel/look/touch_size.h"

#include <QMouseEvent>
#include <QPainter>

#include <algorithm>

namespace servopanel::panel {

namespace {
constexpr int rowsPerStep = 12; // what counts in pixels moves by a good part of what is visible
} // namespace

ScrollView::ScrollView(QWidget* parent)
    : QWidget{parent}
    , up_{new TouchKey{this}}
    , down_{new TouchKey{this}}
{
    up_->setText(QStringLiteral("▲"));
    up_->setRepeating(true);
    up_->setAction([this] { moveTo(position_ - smallStep()); });
    down_->setText(QStringLiteral("▼"));
    down_->setRepeating(true);
    down_->setAction([this] { moveTo(position_ + smallStep()); });
    adaptKeys();
}

int ScrollView::last() const { return std::max(1, total_ - visible_ + 1); }

int ScrollView::smallStep() const { return std::max(1, visible_ / rowsPerStep); }

void ScrollView::setRange(int visible, int total)
{
    visible_ = std::max(1, visible);
    total_ = std::max(1, total);
    position_ = std::clamp(position_, 1, last());
    adaptKeys();
}

void ScrollView::setPosition(int position)
{
    position_ = std::clamp(position, 1, last());
    adaptKeys();
}

void ScrollView::setOn(bool on)
{
    on_ = on;
    grip_ = -1;
    adaptKeys();
}

void ScrollView::adaptKeys()
{
    up_->setOn(on_ && position_ > 1);
    down_->setOn(on_ && position_ < last());
    update();
}

void ScrollView::moveTo(int position)
{
    const int next = std::clamp(position, 1, last());
    if (!on_ || next == position_) return;
    position_ = next;
    adaptKeys();
    if (!moved_) return;
    const auto moved = moved_;
    moved(next);
}

QRect ScrollView::track() const
{
    return {0, up_->geometry().bottom() + 3, width(), down_->y() - up_->geometry().bottom() - 5};
}

QRect ScrollView::slider() const
{
    const QRect whole = track();
    const int length = std::clamp(whole.height() * visible_ / std::max(visible_, total_),
        std::min(leastTouch(*this), whole.height()), whole.height());
    const int steps = last() - 1;
    const int top = steps == 0 ? 0 : (whole.height() - length) * (position_ - 1) / steps;
    return {whole.left(), whole.top() + top, whole.width(), length};
}

void ScrollView::mousePressEvent(QMouseEvent* event)
{
    event->accept();
    if (!on_ || !track().contains(event->position().toPoint())) return;
    const int y = qRound(event->position().y());
    const QRect at = slider();
    if (y < at.top())
        moveTo(position_ - visible_);
    else if (y > at.bottom())
        moveTo(position_ + visible_);
    else
        grip_ = y - at.top();
    update();
}

void ScrollView::mouseMoveEvent(QMouseEvent* event)
{
    event->accept();
    if (grip_ < 0) return;
    const int way = track().height() - slider().height();
    if (way <= 0) return;
    const double share = (event->position().y() - grip_ - track().top()) / way;
    moveTo(1 + qRound(std::clamp(share, 0.0, 1.0) * (last() - 1)));
}

void ScrollView::mouseReleaseEvent(QMouseEvent* event)
{
    event->accept();
    grip_ = -1;
    update();
}

void ScrollView::mouseDoubleClickEvent(QMouseEvent* event) { mousePressEvent(event); }

void ScrollView::resizeEvent(QResizeEvent*)
{
    const int arrow = std::min(std::max(width(), leastTouch(*this)), height() / 3);
    up_->setGeometry(0, 0, width(), arrow);
    down_->setGeometry(0, height() - arrow, width(), arrow);
    for (TouchKey* key : {up_, down_})
        key->setTextPixels(std::clamp(width() / 2, 12, 26));
}

void ScrollView::paintEvent(QPaintEvent*)
{
    QPainter painter{this};
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF whole{track()};
    painter.setPen(QPen{colours::faintBorder, 1});
    painter.setBrush(mix(colours::background, colours::border, 0.25));
    painter.drawRoundedRect(whole.adjusted(1, 1, -1, -1), 4, 4);
    if (last() == 1) return;
    const QRectF at = QRectF{slider()}.adjusted(2, 1, -2, -1);
    painter.setPen(QPen{colours::border, 1});
    painter.setBrush(grip_ >= 0 ? colours::keyPressed : on_ ? colours::key : colours::keyOff);
    painter.drawRoundedRect(at, 4, 4);
    painter.setPen(QPen{colours::faintBorder, 2});
    for (int i = -1; i <= 1; ++i) {
        const double y = at.center().y() + 6 * i;
        painter.drawLine(QPointF{at.left() + at.width() / 4, y}, QPointF{at.right() - at.width() / 4, y});
    }
}

} // namespace servopanel::panel
