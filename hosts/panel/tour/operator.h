#pragma once

#include "panel/runtime/panel.h"

#include <QPoint>

#include <string>
#include <string_view>

namespace servopanel::panel {

// Nothing on the screen answers to what the operator wants to do.
struct NotThere {
    std::string what;
};

// The hands of an operator: touches on the window, delivered as the window system delivers them. What is not on the
// screen cannot be touched and raises NotThere. Used by the tour and by tests.
class Operator {
public:
    // settleMs: how long the panel is left alone after every press and release.
    explicit Operator(Panel& panel, int settleMs = 30)
        : panel_{panel}
        , settleMs_{settleMs}
    {
    }

    // Lets the panel work for a while.
    void wait(int milliseconds);

    void tap(QWidget& target);
    void press(QWidget& target, QPoint at);
    void moveTo(QWidget& target, QPoint at);
    void release(QWidget& target, QPoint at);

    void footerKey(int number);
    bool isKeyOn(int number);
    // From the page of a servo to the menu, by key Esc. A project may have no menu; then the way leads to another screen.
    void goToMenu();
    void menuKey(int key); // picture key 1 to 8
    void scrollDown();
    void scrollUp();
    void input(std::string_view name, std::int16_t index);
    void language(int number);
    void actualValue(int number); // 101 to 140 on a diagnosis page

    // In the open mask.
    void clear();
    void type(const std::string& number); // "-12.5"
    void ok();
    void cancel();

    // In the open definition editor.
    void editorRow(int row); // 0 Min, 1 Max, 2 level
    void editorType(const std::string& number);
    void editorOk();
    void editorCancel();

    bool isOnOtherScreen();
    void backFromOtherScreen();

    ControlHost& part(std::string_view className);
    // Whether an input can be touched now.
    bool isFree(std::string_view name, std::int16_t index);

private:
    class OtherScreen* otherScreen();
    void settle();
    // The window of the system and a place in it; the panel may stand in the window of another program.
    QWindow* window();
    QPoint place(const QWidget& target, QPoint at);
    void padType(class KeyPad& pad, const std::string& number);

    Panel& panel_;
    int settleMs_;
};

} // namespace servopanel::panel
