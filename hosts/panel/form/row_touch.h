#pragma once

#include "platform/child_id.h"

#include <QPoint>

#include <cstdint>
#include <optional>
#include <string>

namespace servopanel::panel {

class ControlHost;

// The input that a touch beside it means.
struct RowInput {
    std::string name;
    std::int16_t index = 0;
    QPoint at; // the nearest place on the input, pixels
};

// A row of the servo page is touched as a whole, because its input alone is lower than a finger is wide: caption, unit
// and the gap up to half way to the next row stand for the input. at: where the child was touched, in its own pixels.
// Nothing for touches elsewhere, for rows whose input is off or not seen, and while a mask is open.
std::optional<RowInput> inputInRow(ControlHost& page, platform::ChildId touched, QPoint at);

} // namespace servopanel::panel
