#pragma once

#include "panel/form/control_host.h"
#include "panel/widgets/text_view.h"

#include <optional>
#include <vector>

namespace servopanel::panel {

// The actual values of a diagnosis page as they stand on it. Where in the page's array a value lies follows from its
// number.
struct ValueCell {
    std::size_t column = 0; // 0 to 39
    TextView* view = nullptr;
    QRect touch; // what belongs to it for a finger, caption and unit included; pixels of the box
};

// What all of them lie in; nullptr when the control has none.
QWidget* valueBox(ControlHost& page);
// Those that are visible.
std::vector<ValueCell> valueCells(ControlHost& page);

struct ValueWords {
    QString caption;
    QString unit;
};
ValueWords valueWords(ControlHost& page, std::size_t column);

} // namespace servopanel::panel
