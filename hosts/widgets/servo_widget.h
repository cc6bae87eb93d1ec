#pragma once

#include "widgets/control_widget.h"

namespace servopanel {

// Servo: header, menu and pages of all servos of the current machine. This is all that most screens need.
class ServoWidget : public ControlWidget {
    Q_OBJECT

public:
    explicit ServoWidget(QWidget* parent = nullptr)
        : ControlWidget{parent}
    {
    }
};

} // namespace servopanel
