#pragma once

#include "panel/form/event_gate.h"

#include <QMouseEvent>
#include <QObject>
#include <QPointer>
#include <QWidget>

#include <functional>
#include <optional>
#include <set>

namespace servopanel::panel {

// Watches what the window system hands to the panel's window, before any widget sees it. One touch or function key at a
// time: what comes while another is held is left out until it is lifted. And nothing is kept in store: a touch that came
// while a procedure ran, or before a message was on the screen, meant a screen that the operator no longer has in front
// of him, so it is dropped as a whole. The page's periodic refresh changes nothing that a touch could mean and costs no
// touch.
class InputGuard : public QObject {
public:
    // touched: the operator has touched or pressed something, before it acts. at: in pixels of the window; nothing for a
    // key of the keyboard.
    using Touched = std::function<void(std::optional<QPoint> at)>;
    // window: the panel's; it may stand in another one.
    InputGuard(QWidget& window, EventGate& gate, Touched touched);
    ~InputGuard() override;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    bool isOurs(const QEvent& event) const;
    QPoint inWindow(const QMouseEvent& event) const;
    bool press(const QMouseEvent& event);
    bool release(Qt::MouseButton button, bool isLast);
    bool keyPress(int key, bool repeated);
    bool keyRelease(int key, bool repeated);
    // Drops everything that is waiting already.
    void drain();
    bool isDraining() const { return turns_ > 0; }

    QWidget& window_;
    EventGate& gate_;
    Touched touched_;
    QObject context_;
    int turns_ = 0; // of the event loop until what waited is gone
    bool down_ = false; // a touch that was let through
    Qt::MouseButton button_ = Qt::NoButton; // it was made with
    bool dropping_ = false; // a touch that was not
    int key_ = 0; // the function key that is held
    std::set<int> droppedKeys_;
};

} // namespace servopanel::panel
