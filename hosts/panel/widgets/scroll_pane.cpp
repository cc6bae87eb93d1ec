#include "panel/widgets/scroll_pane.h"

#include "panel/look/mirroring.h"
#include "panel/look/touch_size.h"

#include <QEvent>
#include <QMouseEvent>
#include <QPainter>

#include <algorithm>

namespace servopanel::panel {

ScrollPane::ScrollPane(QWidget* parent)
    : QWidget{parent}
    , bar_{new ScrollView{this}}
{
    bar_->setHandler([this](int position) { moveTo(position - 1); });
    bar_->hide();
}

void ScrollPane::setContent(
    std::function<int(int)> height, std::function<void(QPainter&, const QRect&)> paint)
{
    height_ = std::move(height);
    paint_ = std::move(paint);
    contentChanged();
}

void ScrollPane::setFace(const QColor& face)
{
    face_ = face;
    update();
}

int ScrollPane::barWidth() const { return std::max(leastTouch(*this), 30); }

QRect ScrollPane::seen() const
{
    const int width = bar_->isVisibleTo(this) ? this->width() - barWidth() - 4 : this->width();
    return mirroredIn(*this, {0, 0, std::max(1, width), height()});
}

void ScrollPane::contentChanged()
{
    if (!height_) return;
    bar_->hide();
    whole_ = height_(seen().width());
    if (whole_ > height()) {
        bar_->show();
        whole_ = height_(seen().width()); // narrower, it may be taller
    }
    bar_->setGeometry(mirroredIn(*this, {width() - barWidth(), 0, barWidth(), height()}));
    bar_->setRange(height(), whole_);
    moveTo(offset_);
    update();
}

void ScrollPane::toTop() { moveTo(0); }

void ScrollPane::moveTo(int offset)
{
    offset_ = std::clamp(offset, 0, std::max(0, whole_ - height()));
    bar_->setPosition(offset_ + 1);
    update();
}

void ScrollPane::paintEvent(QPaintEvent*)
{
    QPainter painter{this};
    const QRect view = seen();
    painter.fillRect(view, face_);
    if (!paint_) return;
    painter.setClipRect(view);
    paint_(painter, {view.left(), -offset_, view.width(), whole_});
}

void ScrollPane::resizeEvent(QResizeEvent*) { contentChanged(); }

void ScrollPane::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::LayoutDirectionChange) contentChanged();
}

void ScrollPane::mousePressEvent(QMouseEvent* event)
{
    event->accept();
    grip_ = offset_ + qRound(event->position().y());
}

void ScrollPane::mouseMoveEvent(QMouseEvent* event)
{
    event->accept();
    if (grip_ >= 0) moveTo(grip_ - qRound(event->position().y()));
}

void ScrollPane::mouseReleaseEvent(QMouseEvent* event)
{
    event->accept();
    grip_ = -1;
}

} // namespace servopanel::panel
