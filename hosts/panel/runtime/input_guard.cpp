#include "panel/runtime/input_guard.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QTimer>
#include <QWindow>

namespace servopanel::panel {

namespace {

// Some screens are read in a later turn of the event loop than others; what waited is in by the third.
constexpr int drainTurns = 3;

// Digits are typed in quick succession, one finger down before the other is up; keys that act are not.
bool actsByItself(int key)
{
    return (key >= Qt::Key_F1 && key <= Qt::Key_F12) || key == Qt::Key_Escape || key == Qt::Key_Menu
        || key == Qt::Key_Return || key == Qt::Key_Enter;
}

} // namespace

InputGuard::InputGuard(QWidget& window, EventGate& gate, Touched touched)
    : window_{window}
    , gate_{gate}
    , touched_{std::move(touched)}
{
    gate_.setStaleHandler([this] { drain(); });
    QCoreApplication::instance()->installEventFilter(this);
}

InputGuard::~InputGuard() { gate_.setStaleHandler({}); }

void InputGuard::drain()
{
    const bool isRunning = isDraining();
    turns_ = drainTurns;
    if (isRunning) return;
    const auto turn = [this](const auto& again) -> void {
        QTimer::singleShot(0, &context_, [this, again] {
            if (--turns_ > 0) again(again);
        });
    };
    turn(turn);
}

QPoint InputGuard::inWindow(const QMouseEvent& event) const
{
    return window_.mapFrom(window_.window(), event.position().toPoint());
}

bool InputGuard::press(const QMouseEvent& event)
{
    if (down_ || key_ != 0 || dropping_ || isDraining()) {
        if (!down_) dropping_ = true;
        return true;
    }
    down_ = true;
    button_ = event.button();
    gate_.beginTouch();
    touched_(inWindow(event));
    return false;
}

bool InputGuard::release(Qt::MouseButton button, bool isLast)
{
    if (dropping_) {
        dropping_ = !isLast;
        return true;
    }
    if (isLast) down_ = false;
    // The press of another button was left out as well.
    return button != button_ && !isLast;
}

bool InputGuard::keyPress(int key, bool repeated)
{
    if (repeated) return droppedKeys_.count(key) > 0;
    const bool acts = actsByItself(key);
    if (isDraining() || (acts && (down_ || (key_ != 0 && key_ != key)))) {
        droppedKeys_.insert(key);
        return true;
    }
    if (acts) key_ = key;
    gate_.beginTouch();
    touched_({});
    return false;
}

bool InputGuard::keyRelease(int key, bool repeated)
{
    if (repeated) return droppedKeys_.count(key) > 0;
    if (droppedKeys_.erase(key) > 0) return true;
    if (key == key_) key_ = 0;
    return false;
}

// A panel that stands in the window of another program shares it.
bool InputGuard::isOurs(const QEvent& event) const
{
    if (window_.isWindow()) return true;
    switch (event.type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
        return window_.rect().contains(inWindow(static_cast<const QMouseEvent&>(event)));
    case QEvent::KeyPress:
    case QEvent::KeyRelease: {
        const QWidget* focus = QApplication::focusWidget();
        return focus != nullptr && (focus == &window_ || window_.isAncestorOf(focus));
    }
    default: return true;
    }
}

bool InputGuard::eventFilter(QObject* watched, QEvent* event)
{
    // Only the window's own events: its widgets get what passes here.
    if (!watched->isWindowType() || watched != window_.window()->windowHandle() || !isOurs(*event))
        return false;
    switch (event->type()) {
    case QEvent::MouseButtonPress: return press(static_cast<QMouseEvent&>(*event));
    // A quick second touch comes as a press and as this.
    case QEvent::MouseButtonDblClick: return down_ ? false : press(static_cast<QMouseEvent&>(*event));
    case QEvent::MouseMove: return dropping_;
    case QEvent::MouseButtonRelease: {
        const auto* mouse = static_cast<QMouseEvent*>(event);
        return release(mouse->button(), mouse->buttons() == Qt::NoButton);
    }
    case QEvent::KeyPress: {
        const auto* key = static_cast<QKeyEvent*>(event);
        return keyPress(key->key(), key->isAutoRepeat());
    }
    case QEvent::KeyRelease: {
        const auto* key = static_cast<QKeyEvent*>(event);
        return keyRelease(key->key(), key->isAutoRepeat());
    }
    case QEvent::FocusOut:
        // Releases went to another window.
        key_ = 0;
        down_ = false;
        dropping_ = false;
        droppedKeys_.clear();
        return false;
    default: return false;
    }
}

} // namespace servopanel::panel
