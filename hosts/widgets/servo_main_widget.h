#pragma once

#include "widgets/control_widget.h"

namespace servopanel {

// ServoMain alone: the page of one servo.
class ServoMainWidget : public ControlWidget {
    Q_OBJECT
    Q_PROPERTY(int servo READ servo WRITE setServo)

public:
    explicit ServoMainWidget(QWidget* parent = nullptr)
        : ControlWidget{parent}
    {
    }
    QSize sizeHint() const override;

    // Place of the servo among the active ones of the machine, from 1. The operator can step on to others.
    int servo() const { return servo_; }
    void setServo(int place);

signals:
    // The operator has left the page; it goes on with setServo.
    void left();

protected:
    void prepare(panel::Panel& panel) override;
    void opened(panel::ControlHost& servo) override;
    QRect area(panel::ControlHost& servo, const QRect& whole) const override;

private:
    int servo_ = 1;
};

} // namespace servopanel
