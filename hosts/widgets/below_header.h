#pragma once

#include "panel/form/control_host.h"

#include <QRect>
#include <QSize>

namespace servopanel {

// The header stands above menu and page, over the whole width.
inline QRect belowHeader(panel::ControlHost& servo, const QRect& whole)
{
    panel::Child* header = servo.find("Header");
    if (header == nullptr || header->viewOrNull() == nullptr) return whole;
    return whole.adjusted(0, header->view().geometry().bottom() + 1, 0, 0);
}

// In the design of 1280 pixels.
inline constexpr QSize sizeBelowHeader{1280, 920};

} // namespace servopanel
