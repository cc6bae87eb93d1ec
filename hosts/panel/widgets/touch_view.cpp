#include "panel/widgets/touch_view.h"

#include <QMouseEvent>

namespace servopanel::panel {

namespace {

std::int16_t buttonNumber(Qt::MouseButton button)
{
    switch (button) {
    case Qt::RightButton: return 2;
    case Qt::MiddleButton: return 4;
    default: return 1;
    }
}

std::int16_t shiftState(Qt::KeyboardModifiers modifiers)
{
    int state = 0;
    if (modifiers & Qt::ShiftModifier) state |= 1;
    if (modifiers & Qt::ControlModifier) state |= 2;
    if (modifiers & Qt::AltModifier) state |= 4;
    return static_cast<std::int16_t>(state);
}

} // namespace

void TouchView::setLocked(bool locked)
{
    if (locked_ == locked) return;
    locked_ = locked;
    update();
}

void TouchView::report(Touch touch, const QMouseEvent& event)
{
    if (!handler_) return;
    // The handler may replace itself or outlive this view's place on the screen.
    const auto handler = handler_;
    const Qt::MouseButton button = touch == Touch::Move ? Qt::LeftButton : event.button();
    handler({touch, buttonNumber(button), shiftState(event.modifiers()), event.position()});
}

void TouchView::mousePressEvent(QMouseEvent* event)
{
    event->accept();
    if (locked_ && lockedTouched_) lockedTouched_();
    if (locked_ || down_) return;
    down_ = true;
    report(Touch::Down, *event);
}

void TouchView::mouseMoveEvent(QMouseEvent* event)
{
    event->accept();
    if (down_) report(Touch::Move, *event);
}

void TouchView::mouseReleaseEvent(QMouseEvent* event)
{
    event->accept();
    // With several buttons down, the last one to be lifted ends the touch.
    if (!down_ || event->buttons() != Qt::NoButton) return;
    down_ = false;
    report(Touch::Move, *event);
    report(Touch::Up, *event);
}

void TouchView::mouseDoubleClickEvent(QMouseEvent* event)
{
    // A quick second touch is a touch like any other.
    mousePressEvent(event);
}

void TouchView::hideEvent(QHideEvent* event)
{
    down_ = false;
    QWidget::hideEvent(event);
}

} // namespace servopanel::panel
