#include "widgets/servo_main_widget.h"

#include "panel/runtime/panel.h"
#include "platform/ids.h"
#include "widgets/below_header.h"

#include <QPointer>

namespace servopanel {

QSize ServoMainWidget::sizeHint() const { return sizeBelowHeader; }

void ServoMainWidget::setServo(int place)
{
    servo_ = std::max(1, place);
    if (panel() == nullptr || panel()->servo() == nullptr) return;
    const basic::Variant chosen{static_cast<std::int16_t>(servo_)};
    const QPointer<ServoMainWidget> self{this};
    panel()->gate().later([self, chosen] {
        if (!self || self->panel() == nullptr || self->panel()->servo() == nullptr) return;
        self->panel()->servo()->raiseInside(platform::classes::ServoMenu, "ServoBildAufrufen", {&chosen, 1});
    });
}

void ServoMainWidget::prepare(panel::Panel& panel) { panel.setShownServo(static_cast<std::int16_t>(servo_)); }

void ServoMainWidget::opened(panel::ControlHost& servo)
{
    const QPointer<ServoMainWidget> self{this};
    servo.setOverhears([self](std::string_view control, std::string_view event, platform::Args) {
        if (control != platform::classes::ServoMain || event != "MenuAnzeigen") return false;
        if (self) self->later([self] { emit self->left(); });
        return true;
    });
}

QRect ServoMainWidget::area(panel::ControlHost& servo, const QRect& whole) const
{
    return belowHeader(servo, whole);
}

} // namespace servopanel
