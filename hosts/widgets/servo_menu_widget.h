#pragma once

#include "widgets/control_widget.h"

namespace servopanel {

// ServoMenu alone: one picture key per servo of the current machine. A touch on a key is told and shows nothing by itself.
class ServoMenuWidget : public ControlWidget {
    Q_OBJECT

public:
    explicit ServoMenuWidget(QWidget* parent = nullptr)
        : ControlWidget{parent}
    {
    }
    QSize sizeHint() const override;

signals:
    // place: of the servo among the active ones of the machine, from 1.
    void servoChosen(int place);

protected:
    void prepare(panel::Panel& panel) override;
    void opened(panel::ControlHost& servo) override;
    QRect area(panel::ControlHost& servo, const QRect& whole) const override;
};

} // namespace servopanel
