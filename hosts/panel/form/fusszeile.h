#pragma once

#include "panel/form/child.h"
#include "panel/widgets/footer_bar.h"

#include <map>

namespace servopanel::panel {

// Footer keys, class Fußzeile. Every key number has a state; those of the bar also have a key on the screen, and key 31
// is a key of the panel's hardware, which is always on.
class FußzeileChild : public Child {
public:
    // acts: whether anything stands behind a key. One that only shows something keeps its colours and cannot be pressed.
    FußzeileChild(
        QWidget* parent, Services& services, std::function<bool(int key)> acts = [](int) { return true; });
    void languageChanged() override;

    FooterBar& bar() { return static_cast<FooterBar&>(view()); }
    // The operator presses a key, on the screen or on the keyboard; nothing happens while it is off.
    void press(int key);
    // Likewise with a key that is not on the screen.
    void pressElsewhere(int key);

    // Whether what a key stands for cannot be done now, though the page offers it.
    void setHeldBack(int key, bool heldBack) { bar().key(key).setHeldBack(heldBack); }

    // Whether the page has given a key another colour than the usual one, because what it stands for is active.
    bool isActive(int key) const;

    static constexpr int hardwareKey = 31;

private:
    struct Key {
        bool on = false;
        std::int16_t textNumber = 0;
        std::int32_t colour = 0xC0C0C0;
    };

    void show(int number);

    std::function<bool(int)> acts_;
    std::map<int, Key> keys_;
};

} // namespace servopanel::panel
