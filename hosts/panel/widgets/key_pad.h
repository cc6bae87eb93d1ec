#pragma once

#include "panel/widgets/number_entry.h"
#include "panel/widgets/touch_key.h"

#include <QWidget>

#include <array>
#include <functional>

namespace servopanel::panel {

// The keys that work on a number: digits, point, sign, back, clear, up and down. The sign is on only where values below
// 0 are allowed, the point only where the number need not be whole. From right to left the keys for correcting stand at
// the left; the block of digits is that of every calculator.
class KeyPad : public QWidget {
public:
    // pressed: a key has worked on the number, or could not and says why.
    using Pressed = std::function<void(NumberEntry::Verdict)>;
    KeyPad(QWidget* parent, Pressed pressed);

    // The number to work on; it outlives the pad's use of it. Nothing: the keys rest.
    void workOn(NumberEntry* entry);
    // A key of a keyboard; false when it means nothing here.
    bool type(const QString& character);
    void pressBack();
    void pressClear();
    void pressStep(int direction);

    static constexpr int rows = 4;
    static constexpr int columns = 4;

    // A key by its name ("7", ".", "±", "⌫", "C", "▲", "▼"), whatever stands on it.
    TouchKey* key(const QString& name) const;

protected:
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void on(const QString& name);
    void arrange();

    NumberEntry* entry_ = nullptr;
    Pressed pressed_;
    std::array<TouchKey*, rows * columns> keys_{};
};

} // namespace servopanel::panel
