#pragma once

#include <QPointF>
#include <QWidget>

#include <cstdint>
#include <functional>

namespace servopanel::panel {

enum class Touch { Down, Move, Up };

struct TouchPoint {
    Touch touch = Touch::Down;
    std::int16_t button = 1; // 1 left, 2 right, 4 middle
    std::int16_t shift = 0; // 1 shift, 2 control, 4 alt
    QPointF at; // pixels, relative to the view
};

// A surface that reports what a finger or a mouse does on it. It takes every pointer event itself, also while it is
// locked: a touch never falls through to what lies behind. Moves are reported while the pointer is down, and one more
// at the place where it is lifted.
class TouchView : public QWidget {
public:
    using QWidget::QWidget;

    void setTouchHandler(std::function<void(const TouchPoint&)> handler) { handler_ = std::move(handler); }
    // A locked view swallows touches and only tells that there was one.
    void setLocked(bool locked);
    void setLockedHandler(std::function<void()> handler) { lockedTouched_ = std::move(handler); }
    bool isLocked() const { return locked_; }

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    void report(Touch touch, const QMouseEvent& event);

    std::function<void(const TouchPoint&)> handler_;
    std::function<void()> lockedTouched_;
    bool locked_ = false;
    bool down_ = false;
};

} // namespace servopanel::panel
