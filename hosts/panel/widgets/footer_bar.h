#pragma once

#include "panel/widgets/touch_key.h"

#include <QWidget>

#include <array>
#include <functional>

namespace servopanel::panel {

// The row of keys at the bottom: F1 to F10, Esc as key 11 at the right, and F12 as key 12 beside it when it is in use.
class FooterBar : public QWidget {
public:
    static constexpr int keyCount = 12;

    explicit FooterBar(QWidget* parent);

    void setHandler(std::function<void(int key)> pressed) { pressed_ = std::move(pressed); }
    static bool hasKey(int number) { return number >= 1 && number <= keyCount; }
    TouchKey& key(int number) { return *keys_[static_cast<std::size_t>(number - 1)]; }
    void setKeyOn(int number, bool on);

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;

private:
    void arrange();

    std::function<void(int)> pressed_;
    std::array<TouchKey*, keyCount> keys_{};
};

} // namespace servopanel::panel
