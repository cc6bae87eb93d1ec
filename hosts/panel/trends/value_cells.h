#pragma once

#include "panel/form/control_host.h"
#include "panel/widgets/text_view.h"

#include <optional>
#include <vector>

namespace servopanel::panel {

// The actual values of a diagnosis page as they stand on it. Where in the page's array a value lies follows from its
// number. The first row of the table heads its columns and is none of them.
struct ValueCell {
    std::size_t column = 0; // 0 to 39
    TextView* view = nullptr;
    // What belongs to it for a finger, caption and unit included; pixels of the box. On small panels lines stand closer
    // than a finger is wide, so the rectangles of neighbours overlap: the nearest cell is meant there, see nearestCell.
    QRect touch;
};

// What all of them lie in; nullptr when the control has none.
QWidget* valueBox(ControlHost& page);
// Those that are visible and have a text that says what they are.
std::vector<ValueCell> valueCells(ControlHost& page);
// The same without what belongs to them for a finger, which is no rectangle then: for what happens at each refresh.
std::vector<ValueCell> valueCellsWithoutTouch(ControlHost& page);

// The cell that a touch means, pixels of the box; nullptr where there is none.
const ValueCell* nearestCell(const std::vector<ValueCell>& cells, QPoint at);

struct ValueWords {
    QString caption; // of a cell of the table "100 / 2": head of its column and row
    QString unit;
    QString table; // the table's titles; empty for a value of a line
};
ValueWords valueWords(ControlHost& page, std::size_t column);

} // namespace servopanel::panel
