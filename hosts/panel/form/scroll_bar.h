#pragma once

#include "panel/form/child.h"
#include "panel/widgets/scroll_view.h"

namespace servopanel::panel {

// Scroll bar, class ScrollBar. The operator's move is its position before it is reported.
class ScrollBarChild : public Child {
public:
    ScrollBarChild(QWidget* parent, Services& services);

    ScrollView& scroll() { return static_cast<ScrollView&>(view()); }

private:
    void enabledChanged() override { adapt(); }
    void adapt();

    std::int16_t position_ = 1;
    std::int16_t visible_ = 4; // the rows of keys that a menu shows
    std::int16_t total_ = 1;
    std::int16_t frame_ = 2; // pixels
    bool active_ = true;
    bool locked_ = false;
};

} // namespace servopanel::panel
