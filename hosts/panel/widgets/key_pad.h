#pragma once

#include "panel/widgets/number_entry.h"
#include "panel/widgets/touch_key.h"

#include <QWidget>

#include <array>
#include <functional>

namespace servopanel::panel {

// The keys that work on a number: digits, point, sign, back, clear, one up, one down. The sign is there only where
// values below 0 are allowed.
class KeyPad : public QWidget {
public:
    KeyPad(QWidget* parent, std::function<void()> changed);

    // The number to work on; it outlives the pad's use of it.
    void workOn(NumberEntry* entry);
    // A key of a keyboard; false when it means nothing here.
    bool type(const QString& character);
    void pressBack();

    static constexpr int rows = 4;
    static constexpr int columns = 4;

    // The key with this label ("7", "±", "⌫", ...), for tests and the tour.
    TouchKey* key(const QString& label) const;

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    void on(const QString& label);

    NumberEntry* entry_ = nullptr;
    std::function<void()> changed_;
    std::array<TouchKey*, rows * columns> keys_{};
};

} // namespace servopanel::panel
