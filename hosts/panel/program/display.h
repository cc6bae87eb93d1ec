#pragma once

#include <QRect>

class QWidget;

namespace servopanel::panel {

// What becomes of the panel when the display it is shown on changes or goes away.

// From now on the end of the connection to the display, or a display that cannot be opened, is said on standard error in
// one line, and the program ends with status 1 (it went away) or 2 (it never was there). Qt would end without a word of
// ours, or dump its memory.
//
// Whoever keeps the panel running (systemd, a session) starts it again; every file of the panel is written whole or
// not at all, and a value that was confirmed is with the machine.
class DisplayWatch {
public:
    DisplayWatch();
    DisplayWatch(const DisplayWatch&) = delete;
    DisplayWatch& operator=(const DisplayWatch&) = delete;
    ~DisplayWatch(); // the program ends by itself
};

// Keeps the window on a screen and, when it fills one, as large as that: screens are added, removed and change their
// size, and on a panel there is often nobody else who looks after windows.
void keepOnScreen(QWidget& window);

// Where a window belongs: all of a screen that it fills; else where it is, unless that screen has gone.
QRect placeOnScreen(const QRect& window, const QRect& screen, bool fills);

} // namespace servopanel::panel
