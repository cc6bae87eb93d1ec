#include "widgets/servo_main_widget.h"

#include "panel/runtime/panel.h"
#include "platform/ids.h"
#include "widgets/below_header.h"

namespace servopanel {

QSize ServoMainWidget::sizeHint() const { return sizeBelowHeader; }

void ServoMainWidget::setServo(int place)
{
    servo_ = std::max(1, place);
    if (panel() == nullptr || panel()->servo() == nullptr) return;
    const basic::Variant chosen{static_cast<std::int16_t>(servo_)};
    panel()->gate().later([this, chosen] {
        if (panel()->servo() == nullptr) return;
        panel()->servo()->raiseInside(platform::classes::ServoMenu, "ServoBildAufrufen", {&chosen, 1});
    });
}

void ServoMainWidget::prepare(panel::Panel& panel) { panel.setShownServo(static_cast<std::int16_t>(servo_)); }

void ServoMainWidget::opened(panel::ControlHost& servo)
{
    servo.setOverhears([this](std::string_view control, std::string_view event, platform::Args) {
        if (control != platform::classes::ServoMain || event != "MenuAnzeigen") return false;
        emit left();
        return true;
    });
}

QRect ServoMainWidget::area(panel::ControlHost& servo, const QRect& whole) const
{
    return belowHeader(servo, whole);
}

} // namespace servopanel
